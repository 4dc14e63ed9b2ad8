#!/usr/bin/env bash
# A natural voice is got by the keyboard alone, from a server on this machine, and reads in the same window.
data=${LORELIN_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/lorelin}
runtime=$(ls "${LORELIN_RUNTIME:-$data/runtime}"/libonnxruntime.so* 2>/dev/null | tail -n 1)
[ -n "$runtime" ] || { echo "there is no ONNX Runtime" && exit 77; }
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 LORELIN_RUNTIME="$(dirname "$runtime")" "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
export no_proxy='*'
no_survey "$bin"
mkdir -p "$LORELIN_HOME" "$home/server"
ln -s "$LORELIN_RUNTIME" "$LORELIN_HOME/runtime"
"$(dirname "$0")/voiceServer.py" "$2/tests/engine/voices" "$home/server" 2>"$home/server/log" &
server=$!
trap 'kill $server; finish' EXIT
check "the server is there" within 20 test -s "$home/server/port"
settings='HKCU\Software\VB and VBA Program Settings\Lorelin\Voice'
"$bin/lorelin-cli" reg add "$settings" VoiceAddress "http://127.0.0.1:$(cat "$home/server/port")/gut/"
"$bin/lorelin-cli" reg add "$settings" VoiceCatalogue "$home/server/catalogue.tsv"
printf 'Guten Tag, hier spricht eine neue Stimme.' >"$home/text.txt"

"$bin/lorelin" "$home/text.txt" /t >"$home/log" 2>&1 &
process=$!
found() { window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [ -n "$window" ]; }
gone() { ! found "$1"; }
# Keys for the window with this title, once it is there.
keys() {
  local title=$1
  shift
  within 20 found "$title" && xdotool windowfocus --sync "$window" key --delay 60 "$@"
}
shot() { [ -z "${LORELIN_SHOTS:-}" ] || { sleep 0.5 && xwd -id "$window" -silent -out "$LORELIN_SHOTS/$1.xwd"; }; }
check "the window appears" within 20 found 'Lorelin$'
begin=$(date +%s%N)
check "the voice dialog is asked for" keys 'Lorelin$' ctrl+shift+t
check "it appears" within 20 found '^Stimme wählen$'
shot stimme
check "the list is asked for" keys '^Stimme wählen$' alt+w
check "it appears" within 20 found '^Weitere Stimmen$'
shot liste
check "a voice is looked for" keys '^Weitere Stimmen$' alt+u p r o b e
check "and asked for" keys '^Weitere Stimmen$' alt+h
check "its licence is shown" within 20 found '^Lizenz der Stimme$'
shot lizenz
check "and agreed to" keys '^Lizenz der Stimme$' alt+e
check "the voice is there" within 20 test -s "$LORELIN_HOME/voices/de_DE-probe-medium.onnx"
check "as the server has it" cmp "$2/tests/engine/voices/de_DE-probe-medium.onnx" "$LORELIN_HOME/voices/de_DE-probe-medium.onnx"
check "the licence is gone" within 20 gone '^Lizenz der Stimme$'
check "the list is there again" within 20 found '^Weitere Stimmen$'
shot geladen
check "the list is left" keys '^Weitere Stimmen$' alt+c
check "it is gone" within 20 gone '^Weitere Stimmen$'
check "the voices are there again" within 20 found '^Stimme wählen$'
shot vorschlag
check "the dialog is left" keys '^Stimme wählen$' Escape
check "it is gone" within 20 gone '^Stimme wählen$'
echo "   that took $((($(date +%s%N) - begin) / 1000000)) ms"
number=$("$bin/lorelin-cli" voices | awk '/probe/ {print $1}')
"$bin/lorelin-cli" reg add "$settings" Voice $((number - 1))
"$bin/lorelin-cli" say --voice probe --wav "$home/befehl.wav" "$home/text.txt"
rendered() { cmp -s "$(ls "$LORELIN_HOME"/temp/*.wav 2>/dev/null | head -n 1)" "$home/befehl.wav"; }
check "it is to read" keys 'Lorelin$' F5
check "the new voice reads without a restart" within 30 rendered
check "it is still there" kill -0 "$process"
check "the end is asked for" keys 'Lorelin$' Escape alt+F4
ended() { ! kill -0 "$process" 2>/dev/null; }
check "it ends when it is closed" within 10 ended
check "no engine is left" within 5 no_engine_left "$bin"
check "no warning was printed" test ! -s "$home/log"
cat "$home/log"
exit $((failures > 0))
