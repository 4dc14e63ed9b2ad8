# Shared by the test scripts: a home of its own, and checks that tell what was expected.
set -u
home=$(mktemp -d)
export LORELIN_HOME=$home/lorelin XDG_CONFIG_HOME=$home/config XDG_DATA_HOME=$home/data XDG_STATE_HOME=$home/state
failures=0

finish() {
  rm -rf "$home"
}
trap finish EXIT

# check NAME COMMAND...: the command has to succeed.
check() {
  local name=$1
  shift
  if "$@"; then
    echo "ok: $name"
  else
    echo "FAILED: $name ($*)"
    failures=$((failures + 1))
  fi
}

# within SECONDS COMMAND...: waits until the command succeeds.
within() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.05
  done
}

# exits CODE COMMAND...: the command has to end with this code; its output goes to $home/out and $home/err.
exits() {
  local wanted=$1
  shift
  "$@" >"$home/out" 2>"$home/err" </dev/null
  local code=$?
  [ $code -eq "$wanted" ] || {
    echo "   ended with $code: $(cat "$home/err")"
    return 1
  }
}

says() { grep -qF -- "$1" "$home/err"; }

# A complete WAV file with at least that many seconds that are not silent.
is_wave() {
  local file=$1 seconds=$2 size
  size=$(stat -c %s "$file" 2>/dev/null) || return 1
  [ "$(head -c 4 "$file")" = RIFF ] || return 1
  [ "$(od -An -t u4 -j 40 -N 4 "$file" | tr -d ' ')" -eq $((size - 44)) ] || return 1
  [ $((size - 44)) -ge $((seconds * 44100)) ] || return 1
  [ "$(tail -c +45 "$file" | tr -d '\0' | wc -c)" -gt $(((size - 44) / 4)) ]
}

# Ends the test as skipped where processes may not be traced.
need_strace() {
  strace -o /dev/null true 2>/dev/null && return
  echo "skipped: strace may not trace processes here"
  exit 77
}

# No engine that was started from this test's home; other tests may be running theirs.
no_engine_left() {
  local process
  for process in $(pgrep -f "^$1/lorelin-engine"); do
    ! grep -qszxF "LORELIN_HOME=$LORELIN_HOME" "/proc/$process/environ" || return 1
  done
}

# Without the invitation to the survey, which would wait for an answer at every end.
no_survey() { "$1/lorelin-cli" reg add 'HKCU\Software\VB and VBA Program Settings\Lorelin\Settings' Survey false; }
