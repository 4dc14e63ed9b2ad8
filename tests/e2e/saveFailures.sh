#!/usr/bin/env bash
# Every system call of a save fails in turn: the file holds the old text or the new one, and the user is told.
bin=$1
. "$(dirname "$0")/expect.sh"
need_strace
driver=$bin/saveDriver
export LC_ALL=C.UTF-8

# calls FILE: name and number (among those of its name) of every system call between the marks.
calls() {
  strace -f -o "$home/trace" "$driver" "$1" >/dev/null || return 1
  awk '{ sub(/^[0-9]+ +/, ""); name = $0; sub(/\(.*/, "", name); if (name !~ /^[a-z0-9_]+$/) next; count[name]++
         if ($0 ~ /^write\(1, "end/) inside = 0
         if (inside) print name, count[name]
         if ($0 ~ /^write\(1, "begin/) inside = 1 }' "$home/trace"
}

# one FILE NEW CALL NUMBER ERROR: the save with that call failing leaves old or new, and says so.
one() {
  local file=$1 new=$2 call=$3 number=$4 error=$5
  printf alt >"$file"
  strace -f -o /dev/null -e "inject=$call:error=$error:when=$number" "$driver" "$file" >"$home/said" 2>"$home/err" || {
    echo "   $call $number $error: ended with $?: $(cat "$home/err")"
    return 1
  }
  local content
  content=$(cat "$file")
  if [ "$content" = alt ]; then
    [ "${file##*.}" != txt ] || grep -q '^Fehler: Während des Speichervorganges ist ein Fehler aufgetreten: .* ([0-9]*)$' "$home/said" || {
      echo "   $call $number $error: nothing was said: $(cat "$home/said")"
      return 1
    }
  elif [ "$content" = "$new" ]; then
    ! grep -q '^Fehler' "$home/said" || {
      echo "   $call $number $error: the new text is there, but: $(cat "$home/said")"
      return 1
    }
  else
    echo "   $call $number $error: the file holds: $content"
    return 1
  fi
  # Only a file that could not be removed may stay.
  [ "$call" = unlink ] || [ "$(ls -A "$(dirname "$file")" | wc -l)" -eq 1 ] || {
    echo "   $call $number $error: left $(ls -A "$(dirname "$file")")"
    return 1
  }
}

every() {
  local file=$1 new tried=0 failed=0 call number error
  mkdir -p "$(dirname "$file")"
  printf alt >"$file"
  calls "$file" >"$home/calls" || return 1
  new=$(cat "$file")
  [ "$new" != alt ] || return 1
  while read -r call number; do
    for error in ENOSPC EIO EACCES; do
      tried=$((tried + 1))
      one "$file" "$new" "$call" "$number" "$error" || failed=$((failed + 1))
      rm -f "$(dirname "$file")"/.lorelin-*
    done
  done <"$home/calls"
  echo "   $tried failing calls"
  [ $tried -ge 18 ] && [ $failed -eq 0 ]
}

check "a plain text is the old or the new one" every "$home/texts/brief.txt"
check "a rich text is the old or the new one" every "$home/rich/brief.rtf"
exit $((failures > 0))
