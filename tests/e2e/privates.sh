#!/usr/bin/env bash
# What a run leaves behind: closed to others whatever the umask, without what was read, gone when it is cleared.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
umask 000
secret=Zwetschgenmus
copied=Sauerkirsche
titled=Stachelbeere

start() {
  "$bin/lorelin" "$@" >"$home/log" 2>&1 &
  process=$!
  within 60 window_is_there
}
rendered() { ls "$data"/temp/*.wav >/dev/null 2>&1; }
logged() { grep -qF "$1" "$data/taskscripts.log" 2>/dev/null; }
# Whatever in a program's folders others could come to; in a closed folder they come to nothing. Pages and scripts that
# everybody has are no secret.
open_to_others() {
  local folder
  for folder in "$@"; do
    [ -e "$folder" ] || continue
    find "$folder" -maxdepth 0 ! -type l -perm /077
    find "$folder" -mindepth 1 \( -name hypertext -o -name scripts -o -name vts.ico \) -prune -o ! -type l -perm /077 -print
  done
}
# Where the word stands, but for the documents' own recovery.
holds() { grep -rlsaF -- "$1" "${folders[@]}" | grep -v '/recovery/'; }

run_and_read() {
  no_survey "$bin"
  settings='HKCU\Software\VB and VBA Program Settings\Lorelin\Settings'
  "$bin/lorelin-cli" reg add "$settings" ReadClipboardOnChange 1
  "$bin/lorelin-cli" reg add "$settings" ReadTitleOnAppChange 1
  mkdir -p "$data/scripts"
  printf 'Dokument(%s im Skript.,0);\r\nSprechen();\r\n' "$secret" >"$home/probe.vts"
  printf '%s aus der Datei.' "$secret" >"$home/brief-an-anna.txt"
  check "the window appears" start "$home/brief-an-anna.txt"
  keys ctrl+1 ctrl+End
  xdotool type --delay 15 " Noch mehr $secret."
  keys F5
  check "the text is read" within 20 rendered
  printf '%s' "$copied" | xclip -selection clipboard -in -quiet >/dev/null 2>&1 &
  clip=$!
  xterm_title "$titled"
  sleep 2
  check "what lies there while it runs is closed to others" test -z "$(open_to_others "${folders[@]}")"
  open_to_others "${folders[@]}"
  kill $clip 2>/dev/null
  kill -TERM "$process"
  check "it ends" within 20 ended
  wait "$process"
  "$bin/lorelin-cli" run "$home/probe.vts" >/dev/null 2>&1
  "$bin/lorelin-cli" say --wav "$home/geheim.wav" "$home/brief-an-anna.txt" >/dev/null 2>&1
  check "what lies there afterwards is closed to others" test -z "$(open_to_others "${folders[@]}")"
  open_to_others "${folders[@]}"
  for word in "$secret" "$copied" "$titled"; do
    check "„$word“ is nowhere" test -z "$(holds "$word")"
    holds "$word"
  done
}
# Another window comes to the front.
xterm_title() {
  xmessage -title "$1" x >/dev/null 2>&1 &
  sleep 1
  kill $! 2>/dev/null
}

for where in named usual; do
  if [ $where = named ]; then
    mkdir -m 777 "$LORELIN_HOME"
    data=$LORELIN_HOME folders=("$LORELIN_HOME")
  else
    unset LORELIN_HOME
    # Beside a program that is installed where nobody may write.
    mkdir -p "$home/usr/bin" "$home/usr/share/lorelin"
    cp "$bin"/lorelin "$bin"/lorelin-cli "$bin"/lorelin-engine "$bin"/lorelin-import "$bin"/lorelin-page.so "$home/usr/bin"
    cp -r "$bin/hypertext" "$home/usr/share/lorelin"
    bin=$home/usr/bin
    export XDG_CACHE_HOME=$home/cache
    data=$XDG_DATA_HOME/lorelin
    folders=("$XDG_DATA_HOME/lorelin" "$XDG_CONFIG_HOME/lorelin" "$XDG_STATE_HOME/lorelin" "$XDG_CACHE_HOME/lorelin")
  fi
  run_and_read
done

# One who looks for an error may ask for the texts.
"$bin/lorelin-cli" reg add "$settings" LogTexts 1
"$bin/lorelin-cli" run "$home/probe.vts" >/dev/null 2>&1
check "texts are logged when that is asked for" test "$(holds "$secret")" = "$XDG_STATE_HOME/lorelin/lorelin.log"
"$bin/lorelin-cli" reg add "$settings" LogTexts 0

check "it starts once more" start "$home/brief-an-anna.txt"
check "the list of documents holds the file" test -n "$(holds brief-an-anna.txt)"
keys alt+d p
check "it asks before private things go" within 10 dialog_is_there
xdotool key Return
check "Enter closes the box" within 10 dialog_is_gone
check "by Enter nothing goes" test -n "$(holds brief-an-anna.txt)"
keys alt+d p
check "it asks once more" within 10 dialog_is_there
xdotool key alt+j
check "the box closes" within 10 dialog_is_gone
keys ctrl+n
within 3 dialog_is_there && xdotool key alt+n
kill -TERM "$process"
check "it ends" within 20 ended
wait "$process"
for name in "$XDG_STATE_HOME/lorelin/lorelin.log" "$XDG_CONFIG_HOME/lorelin/reading-places" "$data/taskscripts.log"; do
  check "$name is gone" test ! -e "$name"
done
check "the name of the file is nowhere any more" test -z "$(holds brief-an-anna.txt)"
holds brief-an-anna.txt
exit $((failures > 0))
