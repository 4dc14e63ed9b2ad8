#!/usr/bin/env bash
# What becomes of a text when the program is ended from outside, when the disk is full, and when another program
# writes the same file.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
no_survey "$bin"

start() {
  "$bin/lorelin" "$@" >"$home/log" 2>&1 &
  process=$!
  within 60 window_is_there
}
type_text() {
  keys ctrl+1
  sleep 0.5
  xdotool type --delay 15 "$1"
}
title_is() { [ "$(xdotool getwindowname "$window" 2>/dev/null)" = "$1" ]; }
snapshot_holds() { grep -qF -- "$1" "$LORELIN_HOME"/recovery/*.rtf 2>/dev/null; }

check "the window appears" start
type_text "Getippt und gleich beendet."
check "the text is marked as changed" within 10 title_is "• Lorelin"
kill -TERM "$process"
check "a signal ends it" within 10 ended
wait "$process"
check "with code 0" test $? -eq 0
check "what was typed is safe" snapshot_holds "Getippt und gleich beendet."
check "no engine is left" within 10 no_engine_left "$bin"

printf 'x' >"$LORELIN_HOME/recovery/.lorelin-a1B2c3"
check "it starts again" start
check "what a killed run did not finish is gone" within 5 test ! -e "$LORELIN_HOME/recovery/.lorelin-a1B2c3"
check "what was typed is still there" snapshot_holds "Getippt und gleich beendet."
type_text "Neben einem Dialog."
keys ctrl+o
check "a dialog opens" within 10 dialog_is_there
kill -TERM "$process"
check "a signal ends it with the dialog" within 10 ended
wait "$process"
check "what was typed beside it is safe" snapshot_holds "Neben einem Dialog."

printf 'Lieber Leser' >"$home/brief.txt"
check "it starts with a document" start "\"$home/brief.txt\""
check "the title names it" within 10 title_is "brief.txt – Lorelin"
xdotool search --onlyvisible --name '.' >/dev/null 2>&1
printf 'Lieber Leser, von anderswo' >"$home/brief.txt"
keys Escape
xdotool windowunmap --sync "$window" windowmap --sync "$window" windowactivate --sync "$window"
check "it notices that another program wrote the file" within 10 dialog_is_there
xdotool key Escape
check "the question can be left" within 10 dialog_is_gone
kill -TERM "$process"
check "it ends" within 10 ended
wait "$process"

rm -rf "$LORELIN_HOME/recovery"
mkdir -p "$LORELIN_HOME/recovery"
if mount -t tmpfs -o size=4k tmpfs "$LORELIN_HOME/recovery" 2>/dev/null; then
  trap 'umount "$LORELIN_HOME/recovery"; finish' EXIT
  head -c 4096 /dev/zero >"$LORELIN_HOME/recovery/voll"
  printf 'Ein anderer Text.' >"$home/anderer.txt"
  check "it starts on a full disk" start
  type_text "Nirgends sicher."
  sleep 6
  keys ctrl+o
  within 10 dialog_is_there
  sleep 1
  xdotool key ctrl+a
  xdotool type --delay 20 "$home/anderer.txt"
  sleep 0.5
  chooser=$dialog
  xdotool key Return
  question_is_there() { dialog_is_there && [ "$dialog" != "$chooser" ]; }
  check "it asks before the text is replaced" within 10 question_is_there
  xdotool key Escape
  check "and keeps it" within 10 title_is "• Lorelin"
  rm "$LORELIN_HOME/recovery/voll"
  check "it is written once there is room" within 15 snapshot_holds "Nirgends sicher."
  kill -KILL "$process"
  wait "$process" 2>/dev/null
else
  echo "skipped: no file system may be mounted here"
fi
exit $((failures > 0))
