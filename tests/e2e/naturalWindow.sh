#!/usr/bin/env bash
# The window with a natural voice, as a user runs it: the voice is in the list, reads, is marked along, exports.
data=${LORELIN_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/lorelin}
runtime=$(ls "${LORELIN_RUNTIME:-$data/runtime}"/libonnxruntime.so* 2>/dev/null | tail -n 1)
[ -n "$runtime" ] || { echo "there is no ONNX Runtime" && exit 77; }
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 LORELIN_RUNTIME="$(dirname "$runtime")" "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
no_survey "$bin"
mkdir -p "$LORELIN_HOME"
ln -s "$LORELIN_RUNTIME" "$LORELIN_HOME/runtime"
ln -s "$2/tests/engine/voices" "$LORELIN_HOME/voices"
settings='HKCU\Software\VB and VBA Program Settings\Lorelin\Voice'

check "the voices are listed" bash -c "'$bin/lorelin-cli' voices | grep -q 'Deutsch – probe (mittel)'"
number=$("$bin/lorelin-cli" voices | awk '/probe/ {print $1}')
check "the voice is chosen" "$bin/lorelin-cli" reg add "$settings" Voice $((number - 1))
text="Guten Tag, hier spricht eine natürliche Stimme. Ein zweiter Satz folgt."
printf '%s' "$text" >"$home/text.txt"
"$bin/lorelin-cli" say --voice probe --wav "$home/befehl.wav" "$home/text.txt"

"$bin/lorelin" "$home/text.txt" /s >"$home/log" 2>&1 &
process=$!
rendered() { cmp -s "$(ls "$LORELIN_HOME"/temp/*.wav 2>/dev/null | head -n 1)" "$home/befehl.wav"; }
check "the window appears" within 20 window_is_there
check "it renders what the command line renders" within 30 rendered
keys F6
check "the first pause tells how to go on" within 5 dialog_is_there
sleep 0.3
xdotool key Return
check "which is answered" within 5 dialog_is_gone
for key in F6 shift+F9 Right F7 F5; do keys "$key"; sleep 0.3; done
check "it is still there" kill -0 "$process"
keys Escape
check "it ends when it is closed" closes
check "no engine is left" within 5 no_engine_left "$bin"
check "no warning was printed" test ! -s "$home/log"
cat "$home/log"
exit $((failures > 0))
