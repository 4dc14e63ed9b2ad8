#!/usr/bin/env bash
# The window while an extension in another process does not answer.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
no_survey "$bin"
extensions='HKCU\Software\VB and VBA Program Settings\Lorelin\Extensions'
"$bin/lorelin-cli" reg add "$extensions\\Schlaf" ObjectName org.lorelin.test.sleeps
"$bin/lorelin-cli" reg add "$extensions\\Schlaf" Active true
/usr/bin/python3 "$2/tests/e2e/difficult.py" org.lorelin.test.sleeps sleeps &
extension=$!
gdbus wait --session --timeout 20 org.lorelin.test.sleeps

start() {
  "$bin/lorelin" >"$home/log" 2>&1 &
  process=$!
  within 40 window_is_there
}
logged() { grep -qF -- "$1" "$LORELIN_HOME/lorelin.log" 2>/dev/null; }
waves() { find "$LORELIN_HOME/temp" -name '*.wav' | wc -l; }

check "the window appears" start
keys ctrl+1
sleep 0.5
xdotool type --delay 15 "Das darf niemand hören."
keys F5
sleep 1.5
keys Escape
# The extension itself sleeps for 15 seconds.
check "Escape gives the extension up" within 4 logged 'Schlaf, FilterText'
sleep 2
check "the text is not read" test "$(waves)" -eq 0
keys F5
sleep 1.5
check "the window is closed while it waits" keys Escape alt+F4
check "it does not wait for it" within 8 ended
wait "$process"
check "with code 0" test $? -eq 0
check "what was read aloud does not stay" test -z "$(ls -A "$LORELIN_HOME/temp")"
kill $extension 2>/dev/null
exit $((failures > 0))
