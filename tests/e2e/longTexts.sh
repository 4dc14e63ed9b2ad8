#!/usr/bin/env bash
# Texts of one and two million characters: hours of speech, gigabytes of sound.
bin=$1
. "$(dirname "$0")/expect.sh"
cli=$bin/lorelin-cli
sentence='Die Sonne scheint heute warm auf den stillen See, und am Ufer sitzen zwei alte Freunde und reden. '
for ((i = 0; i < 10300; i++)); do printf '%s' "$sentence"; done >"$home/eins.txt"
cat "$home/eins.txt" "$home/eins.txt" >"$home/zwei.txt"

/usr/bin/env time -f '%M' true 2>/dev/null
"$cli" say --wav "$home/a.wav" "$home/eins.txt" &
process=$!
sleep 1
before=$(awk '/VmHWM/ {print $2}' "/proc/$process/status")
sleep 5
after=$(awk '/VmHWM/ {print $2}' "/proc/$process/status")
wait $process
check "one million characters are read" test $? -eq 0
check "the program stays small (${before} and ${after} kB)" test "$after" -lt 40000
check "the file passes 2 GiB" test "$(stat -c %s "$home/a.wav")" -gt 2147483648
check "its header is right" is_wave "$home/a.wav" 50000
rm -f "$home/a.wav"
check "two million characters do not fit" exits 1 "$cli" say --wav "$home/a.wav" "$home/zwei.txt"
check "that is told" says "zu lang für eine WAV-Datei"
check "no broken file remains" test ! -e "$home/a.wav" -a ! -e "$home/.part-a.wav"
exit $((failures > 0))
