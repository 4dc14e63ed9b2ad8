#!/usr/bin/env bash
# The program for Windows as its users get it, below Wine: installed in a folder of its own, on a virtual screen, with
# keys from outside and the test servers as speech engine and extension.
#   window.sh BUILD SOURCE
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
build=$1
source=$2
. "$source/tests/e2e/expect.sh"
. "$source/tests/e2e/mainWindow.sh"
unset LORELIN_HOME
export WINEPREFIX=$home/wine
run() { "$source/tools/with-wine" "$@"; }

program="$home/Lorelin Grüße/lorelin.exe"
cmake --install "$build" --strip --prefix "$home/Lorelin Grüße" >/dev/null || exit 1
folder=$(dirname "$program")
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
key='HKCU\Software\VB and VBA Program Settings\Lorelin'
setting() { run reg.exe add "$key\\$1" /v "$2" /d "$3" /f >/dev/null; }
stored() { run reg.exe query "$key\\$1" /v "$2" 2>/dev/null | grep -qF "$3"; }

start() {
  run "$program" "$@" >"$home/log" 2>&1 &
  process=$!
  within 40 window_is_there
}
click() { xdotool windowactivate --sync "$window" mousemove --window "$window" "$1" "$2" click 1; }
# A key that comes while another window is on top gets lost.
closes() { ended || { close_window 2>/dev/null && within 10 ended; }; }
title_is() { [ "$(xdotool getwindowname "$window" 2>/dev/null)" = "$1" ]; }
# answer KEYS PATH: opens a file dialog by its keys and types the path there.
answer() {
  keys "$1"
  within 20 dialog_is_there || return 1
  sleep 2
  xdotool key ctrl+a
  xdotool type --delay 20 "$(windows_path "$2")"
  sleep 0.5
  xdotool key Return
  within 20 dialog_is_gone
}
temporary() { ls "$folder"/temp/*.wav 2>/dev/null | head -n 1; }
# A tone of the test engine for this many characters, two of them the blanks around every text.
tones() { [ "$(stat -c %s "$(temporary)" 2>/dev/null)" = $((44 + 882 * ($1 + 2))) ]; }

# Nothing has to be there but Windows.
system='advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleacc|oleaut32|shell32|shlwapi|urlmon|user32|uxtheme|version|wininet'
only_system_libraries() {
  local file libraries
  for file in "$folder"/*.exe; do
    libraries=$(x86_64-w64-mingw32-objdump -p "$file" | sed -n 's/.*DLL Name: \(.*\)\.dll/\1/Ip')
    [ -n "$libraries" ] || return 1
    ! grep -vixE "$system" <<<"$libraries" || return 1
  done
}
check "the programs need the system's own libraries only" only_system_libraries
check "the test servers are registered" run regsvr32.exe /s "$(windows_path "$build/bin/testservers.dll")"
setting Settings Survey false
mkdir "$home/Töne"
setting Export Folder "$(windows_path "$home/Töne")"
setting Export Format mp3
setting Export Subtitles srt
setting Extensions\\Test Active true
setting Extensions\\Test ObjectName LorelinTest.Klammern

printf 'Lieber Leser, gr\xFC\xDFe mir die W\xE4lder.' >"$home/mein brief.txt"
check "it opens a document whose name has a blank" start "$(windows_path "$home/mein brief.txt")"
check "the title names it" within 10 title_is "mein brief.txt – Lorelin"
sleep 1
click 271 42
check "the toolbar speaks what the extension made of the text" within 20 tones 37
check "the sound is not silent" is_wave "$(temporary)" 0
click 498 42
within 20 dialog_is_there
sleep 2
xdotool key ctrl+a
xdotool type --delay 20 "$(windows_path "$home/export.wav")"
xdotool key Return
check "it exports the sound" within 20 cmp -s "$home/export.wav" "$(temporary)"
within 10 dialog_is_gone || xdotool key Return

# The form begins with what was chosen last.
export_as_sound() {
  keys ctrl+shift+e
  within 20 dialog_is_there || return 1
  sleep 2
  xdotool key Return
  within 30 test -s "$home/Töne/mein brief.mp3"
}
check "it makes an MP3 file of the document" export_as_sound
check "which is heard" ffmpeg -v error -i "$home/Töne/mein brief.mp3" -f null -
check "with its subtitles" within 5 grep -q 'Lieber Leser, grüße mir die Wälder.' "$home/Töne/mein brief.srt"
xdotool key Escape
within 10 dialog_is_gone

keys ctrl+End
xdotool type --delay 30 " Bald."
check "a change is marked" within 5 title_is "• mein brief.txt – Lorelin"
check "it is saved as a text" answer ctrl+s "$home/neu.txt"
check "in the encoding that it had" within 5 cmp -s "$home/neu.txt" <(printf 'Lieber Leser, gr\xFC\xDFe mir die W\xE4lder. Bald.')
check "an RTF file is opened" answer ctrl+o "$source/tests/richtext/rtf/office_brief.rtf"
check "the title names that one" within 10 title_is "office_brief.rtf – Lorelin"
# The second kind of file in the dialog's list.
save_as_rtf() {
  keys ctrl+s
  within 20 dialog_is_there || return 1
  sleep 2
  xdotool key ctrl+a
  xdotool type --delay 20 "$(windows_path "$1")"
  xdotool key --delay 200 Tab Down Return
  within 20 dialog_is_gone
}
check "it is saved as RTF" save_as_rtf "$home/neu"
check "which RTF it is" within 5 grep -q '^{\\rtf' "$home/neu.rtf"
import_screen() { xwd -root -silent -out "$1"; }
[ -n "${LORELIN_SCREENSHOT:-}" ] && import_screen "$LORELIN_SCREENSHOT"
check "it ends when it is closed" within 30 closes
wait "$process"
check "with code 0" test $? -eq 0
check "the settings are in the user's registry" stored Settings version 1.2

printf 'Dokument(eins,0);\r\nWarten(1000);\r\nDokument(zwei,0);\r\n' >"$folder/scripts/AAA.vts"
check "it starts with a script" start
sleep 1
click 100 329
sleep 3
keys Escape
check "Escape ends the script's wait" within 2 grep -q 'AAA.vts: abgebrochen' "$folder/taskscripts.log"
keys ctrl+1
check "what came before the wait is there" answer ctrl+s "$home/skript.txt"
check "and nothing of what would have come" within 5 grep -qx eins "$home/skript.txt"
check "it ends" within 30 closes
wait "$process"

check "it starts for a second one" start
check "a second instance ends" timeout -s KILL 40 bash -c "
  '$source/tools/with-wine' '$program' >/dev/null 2>&1 &
  second=\$!
  for i in \$(seq 300); do
    box=\$(xdotool search --onlyvisible --name '^Lorelin\$' 2>/dev/null | grep -v '^$window\$' | tail -n 1)
    [ -n \"\$box\" ] && break
    sleep 0.1
  done
  xdotool windowactivate --sync \"\$box\" key Return
  wait \$second"
check "the first goes on" kill -0 "$process"
check "it ends" within 30 closes
wait "$process"

install="$folder/lorelin-abkuerzungen.exe"
check "the shipped extension registers itself" run "$install" --install
setting Extensions\\Test ObjectName org.lorelin.Abkuerzungen
printf 'z. B.' >"$home/kurzer text.txt"
check "it starts with the shipped extension" start "$(windows_path "$home/kurzer text.txt")"
sleep 1
click 271 42
check "which spells out an abbreviation" within 30 tones 13 # "zum Beispiel."
check "it ends" within 30 closes
wait "$process"

run reg.exe delete 'HKCR\CLSID\{EEE78591-FE22-11D0-8BEF-0060081841DE}' /f >/dev/null
check "it starts with SAPI 5 alone" start "$(windows_path "$home/kurzer text.txt")"
sleep 1
click 271 42
markup='<pitch absmiddle="0"></pitch>'
check "which gets the same text in its markup" within 30 tones $((13 + ${#markup}))
check "it ends" within 30 closes
wait "$process"

run reg.exe delete 'HKCR\CLSID\{96749377-3391-11D2-9EE3-00C04F797396}' /f >/dev/null
log=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Lorelin/lorelin.log)
check "it starts without any engine" start "$(windows_path "$home/kurzer text.txt")"
check "and says so" within 10 grep -q 'keine Sprachausgabe eingerichtet' "$log"
click 271 42
check "the document is there all the same" title_is "kurzer text.txt – Lorelin"
check "it ends" within 30 closes
wait "$process"
wineserver -k
wineserver -w
exit $((failures > 0))
