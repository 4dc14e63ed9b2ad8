#!/usr/bin/env bash
# The window program as a user runs it: real engine, virtual screen, keys from outside.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
lorelin=$bin/lorelin
no_survey "$bin"

start() {
  "$lorelin" "$@" >"$home/log" 2>&1 &
  process=$!
  within 20 window_is_there
}
temporary() { ls "$LORELIN_HOME"/temp/*.wav 2>/dev/null | head -n 1; }
wave_of() { is_wave "$(temporary)" "$1"; }

check "the window appears" start
keys ctrl+1
sleep 0.5
xdotool type --delay 15 "Guten Tag, das ist ein Versuch mit einem Satz."
keys F5
check "the typed text becomes a WAV file" within 10 wave_of 2
sleep 3
keys Escape
check "a second instance ends" timeout -s KILL 10 bash -c "
  '$lorelin' >/dev/null 2>&1 &
  second=\$!
  for i in \$(seq 100); do
    box=\$(xdotool search --onlyvisible --pid \$second 2>/dev/null | tail -n 1)
    [ -n \"\$box\" ] && break
    sleep 0.1
  done
  xdotool key --window \"\$box\" Return
  xdotool windowactivate --sync \"\$box\" key Return
  wait \$second"
check "the first goes on" kill -0 "$process"
window_is_there
check "it ends when it is closed" closes
wait "$process"
check "with code 0" test $? -eq 0
check "no engine is left" within 5 no_engine_left "$bin"
check "no warning was printed" test ! -s "$home/log"
cat "$home/log"

snapshot_holds() { grep -qF -- "$1" "$LORELIN_HOME"/recovery/*.rtf 2>/dev/null; }
check "it starts again" start
keys ctrl+1
sleep 0.5
xdotool type --delay 15 "Das darf nicht weg sein."
check "what was typed is safe within seven seconds" within 7 snapshot_holds "Das darf nicht weg sein."
# open_to_others: what of the texts and settings anybody but their owner could come to.
open_to_others() {
  find "$LORELIN_HOME" -maxdepth 0 -perm /077
  find "$LORELIN_HOME"/temp "$LORELIN_HOME"/recovery "$LORELIN_HOME"/registry.sqlite* -perm /077
}
check "nobody else can read it" test -z "$(open_to_others)"
kill -KILL "$process"
wait "$process" 2>/dev/null
check "it starts after it was killed" start
sleep 1
check "what was typed is still there" snapshot_holds "Das darf nicht weg sein."
check "it ends" closes
wait "$process"
rm -rf "$LORELIN_HOME/recovery"

title_is() { [ "$(xdotool getwindowname "$window" 2>/dev/null)" = "$1" ]; }
# answer KEYS PATH: opens a file dialog by its keys and types the path there.
answer() {
  keys "$1"
  within 10 dialog_is_there || return 1
  sleep 1
  xdotool key ctrl+a
  xdotool type --delay 20 "$2"
  sleep 0.5
  xdotool key Return
  within 10 dialog_is_gone
}
printf 'Aus dem Dialog ge\xF6ffnet.' >"$home/dialog.txt"
check "it starts for the file dialogs" start
check "a file is chosen in the dialog" answer ctrl+o "$home/dialog.txt"
check "the title names it" within 5 title_is "dialog.txt – Lorelin"
keys ctrl+End
xdotool type --delay 15 " Mehr."
check "a change is marked" within 5 title_is "• dialog.txt – Lorelin"
check "it is saved under another name" answer ctrl+s "$home/gespeichert.txt"
check "the title names that one" within 5 title_is "gespeichert.txt – Lorelin"
check "in the encoding of the file that was opened" cmp -s "$home/gespeichert.txt" <(printf 'Aus dem Dialog ge\xF6ffnet. Mehr.')
keys ctrl+o
check "a dialog opens" within 10 dialog_is_there
sleep 0.5
xdotool key Escape
check "it can be cancelled" within 10 dialog_is_gone
check "and nothing has changed" title_is "gespeichert.txt – Lorelin"
check "it ends" closes
wait "$process"

printf 'Lieber Leser, das steht in der Datei.' >"$home/brief.txt"
cd "$home" || exit 1
check "a document is read aloud at the start" start brief.txt /s
check "it becomes a WAV file" within 10 wave_of 1
keys F5
sleep 1
close_window
check "it ends while it waits for the speech" within 10 ended
wait "$process"
check "with code 0" test $? -eq 0
check "no engine is left" within 5 no_engine_left "$bin"
check "what was read aloud does not stay" test -z "$(ls -A "$LORELIN_HOME/temp")"

rm -rf "$LORELIN_HOME/scripts"
mkdir "$LORELIN_HOME/scripts"
printf 'Dokument(Ein Skript spricht.,0);\r\nExportieren(%s);\r\nSprechen();\r\nWarten(1000);\r\nExportieren(%s);\r\nSprechen();\r\n' \
  "$home/skript.wav" "$home/nie.wav" >"$LORELIN_HOME/scripts/probe.vts"
check "it starts with a script" start
# The first script stands below the separator.
xdotool windowactivate --sync "$window" mousemove --window "$window" 70 386 click 1
check "a click on it speaks" within 10 is_wave "$home/skript.wav" 1
sleep 3
keys Escape
check "Escape ends its wait" within 1 grep -q 'probe.vts: abgebrochen' "$LORELIN_HOME/taskscripts.log"
check "and what would have come" test ! -e "$home/nie.wav"
check "it ends" closes
wait "$process"
check "with code 0" test $? -eq 0

for ((i = 0; i < 5; i++)); do
  check "it starts after a kill" start
  kill -KILL "$process"
  wait "$process" 2>/dev/null
done
check "no engine is left" within 5 no_engine_left "$bin"
exit $((failures > 0))
