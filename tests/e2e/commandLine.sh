#!/usr/bin/env bash
# lorelin-cli as a user runs it, with the real engine.
bin=$1
top=$2
. "$(dirname "$0")/expect.sh"
export SDL_AUDIODRIVER=dummy
cli=$bin/lorelin-cli
wave=$home/a.wav
repeat() { local i; for ((i = 0; i < $2; i++)); do printf '%s' "$1"; done; }

check "the welcome text becomes a WAV file" exits 0 "$cli" say --wav "$wave" "$top/hypertext/willkommen.txt"
check "it is long enough and not silent" is_wave "$wave" 20
printf 'Guten Tag.' >"$home/kurz.txt"
check "a text is read aloud" exits 0 "$cli" say "$home/kurz.txt"
check "nothing is said about it" test ! -s "$home/err"
check "standard input is read" bash -c "echo 'Guten Tag.' | '$cli' say --wav '$wave' -"
check "a pipe with a name is read" exits 0 "$cli" say --wav "$wave" <(echo 'Guten Tag.')
check "it is in the file" is_wave "$wave" 1
check "a missing sound device is told" exits 0 env SDL_AUDIODRIVER=keiner "$cli" say "$home/kurz.txt"
check "the text is read silently" says "kein Audiogerät gefunden"
printf 'Gr\374\337e' >"$home/alt.txt"
check "an old text is read" exits 0 "$cli" say --wav "$wave" "$home/alt.txt"

"$cli" say --wav "$home/langsam.wav" --speed 0 "$home/kurz.txt"
"$cli" say --wav "$home/schnell.wav" --speed 100 "$home/kurz.txt"
check "the speed counts" test "$(stat -c %s "$home/langsam.wav")" -gt "$(($(stat -c %s "$home/schnell.wav") * 2))"
"$cli" say --wav "$home/vorgabe.wav" "$home/kurz.txt"
"$cli" say --wav "$home/fuenfundzwanzig.wav" --speed 25 --pitch 50 --volume 100 --voice 2 "$home/kurz.txt"
check "the defaults are voice 2, speed 25, pitch 50, volume 100" cmp -s "$home/vorgabe.wav" "$home/fuenfundzwanzig.wav"

printf 'Am 3. Mai\n\nkosten 5 kg Mehl z. B. 4,50 €.\n' >"$home/zahlen.txt"
check "a text is spelled out" exits 0 "$cli" spell "$home/zahlen.txt"
check "line by line" test "$(wc -l <"$home/out")" -eq 3
check "in words" grep -qx 'kosten fünf Kilogramm Mehl zum Beispiel vier Euro fünfzig.' "$home/out"
check "standard input is spelled out" bash -c "printf 'Er wiegt 5 kg' | '$cli' spell - | grep -qx 'Er wiegt fünf Kilogramm'"
check "an empty text has no lines" bash -c "test -z \"\$('$cli' spell - </dev/null)\""
check "the table" exits 0 "$cli" spell --table "$home/zahlen.txt"
check "names line, written and spoken" grep -qxP '3\tz. B.\tzum Beispiel' "$home/out"
check "the table of something else" exits 2 "$cli" say --table "$home/zahlen.txt"
check "a missing text" exits 3 "$cli" spell "$home/fehlt.txt"
mkdir -p "$LORELIN_HOME"
printf '# eigene\nMehl = Mjel\n~STAUB* = Schtaub\n' >"$LORELIN_HOME/abkuerzungen.txt"
printf 'an\t\\[[^\\]]*\\]\t\naus\tWien\tParis\n' >"$LORELIN_HOME/leseregeln.txt"
check "own words and rules count" bash -c "printf 'Mehl [1] Staubtuch Wien\n' | '$cli' spell | grep -qx 'Mjel  Schtaubtuch Wien'"
rm "$LORELIN_HOME/abkuerzungen.txt" "$LORELIN_HOME/leseregeln.txt"
"$cli" spell "$home/zahlen.txt" >"$home/worte.txt"
"$cli" say --wav "$home/zahlen.wav" "$home/zahlen.txt"
"$cli" say --wav "$home/worte.wav" "$home/worte.txt"
# The same length, not the same bytes: the engine's noise depends on the process's environment.
check "a text is heard as it is spelled out" test "$(stat -c %s "$home/zahlen.wav")" -eq "$(stat -c %s "$home/worte.wav")"
off='HKCU\Software\VB and VBA Program Settings\Lorelin\Settings'
"$cli" reg add "$off" SpellOut 0
"$cli" say --wav "$home/aus.wav" "$home/zahlen.txt"
"$cli" reg delete "$off" SpellOut
check "unless that is switched off" test "$(stat -c %s "$home/zahlen.wav")" -ne "$(stat -c %s "$home/aus.wav")"
printf 'Laden(%s);\r\nSprechen();\r\n' "$home/zahlen.txt" >"$home/zahlen.vts"
"$cli" run --wav "$home/script.wav" "$home/zahlen.vts"
check "a script says the same" test "$(stat -c %s "$home/zahlen.wav")" -eq "$(stat -c %s "$home/script.wav")"

check "voices are listed" exits 0 "$cli" voices
check "the second one is German" grep -qE '^ +2 +1031 +weiblich +Deutsch' "$home/out"
check "help" exits 0 "$cli" --help
check "help tells the codes" grep -q Rückgabewerte "$home/out"
check "version" exits 0 "$cli" --version

for text in 'z.B. :43' 'i.d.R. :29' 'a.:85' 'z.B. :5000'; do
  repeat "${text%:*}" "${text##*:}" >"$home/abbruch.txt"
  check "survives $text" exits 0 "$cli" say --wav "$wave" "$home/abbruch.txt"
  check "reads $text to the end" is_wave "$wave" 4
done

check "no command" exits 2 "$cli"
check "an unknown option" exits 2 "$cli" say --laut
check "it is named" says "--laut"
check "a percentage too high" exits 2 "$cli" say --speed 101 "$home/kurz.txt"
check "a percentage that is none" exits 2 "$cli" say --pitch hoch "$home/kurz.txt"
check "a voice that does not exist" exits 2 "$cli" say --voice 9999 "$home/kurz.txt"
check "the voices are counted" says "nur 1 bis"
cp "$home/kurz.txt" "$home/text.txt"
check "a target that is the text" exits 2 "$cli" say --wav "$home/../${home##*/}/text.txt" "$home/text.txt"
check "the text is still there" cmp -s "$home/kurz.txt" "$home/text.txt"
check "a missing file" exits 3 "$cli" say "$home/fehlt.txt"
check "the reason is told" says "Datei nicht gefunden"
check "a folder" exits 3 "$cli" say "$home"
printf ' \n \n' >"$home/leer.txt"
check "an empty text" exits 3 "$cli" say "$home/leer.txt"
check "standard input that cannot be read" bash -c "'$cli' say --wav '$wave' <'$home' 2>'$home/err'; test \$? -eq 3"
check "the reason is told" says "Das ist ein Ordner"
check "a target in a missing folder" exits 4 "$cli" say --wav "$home/fehlt/a.wav" "$home/kurz.txt"
check "a target that is a folder" exits 4 "$cli" say --wav "$home" "$home/kurz.txt"
check "a list that cannot be printed" bash -c "'$cli' voices >/dev/full 2>'$home/err'; test \$? -eq 4"
check "a device as target" exits 4 "$cli" say --wav /dev/full "$home/kurz.txt"
printf 'alt' >"$wave"
check "a file that may not grow" exits 1 bash -c "ulimit -f 100; exec '$cli' say --wav '$wave' '$top/hypertext/willkommen.txt'"
check "it is told" says "keine so große Datei"
check "what was there is still there" test "$(cat "$wave")" = alt

repeat 'Ein langer Text. ' 200000 >"$home/lang.txt"
part=$home/.part-${wave##*/}
"$cli" say --wav "$wave" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 10 test -s "$part"
kill -INT $process
wait $process
check "Ctrl+C ends with 130" test $? -eq 130
check "the unfinished file is gone" test ! -e "$part"
check "what was there is still there" test "$(cat "$wave")" = alt

"$cli" say "$home/lang.txt" 2>"$home/err" &
process=$!
check "the engine speaks" within 5 pgrep -P $process
sleep 0.3
kill -INT $process
wait $process
check "Ctrl+C ends the speaking with 130" test $? -eq 130
check "no engine is left" within 5 no_engine_left "$bin"

mkfifo "$home/pipe"
exec 7<>"$home/pipe"
"$cli" say --wav "$wave" <"$home/pipe" 2>"$home/err" &
process=$!
check "the engine runs while it waits for standard input" within 5 pgrep -P $process
sleep 0.3
kill -INT $process
wait $process
check "Ctrl+C ends that too with 130" test $? -eq 130
exec 7>&-

"$cli" say --wav "$wave" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 10 test -s "$part"
check "the engine runs" within 5 pgrep -P $process
pkill -KILL -P $process
wait $process
check "a killed engine ends with 1" test $? -eq 1
check "it is not called complete" says "nicht vollständig"
check "the unfinished file is gone" test ! -e "$part"
check "what was there is still there" test "$(cat "$wave")" = alt

"$cli" say --wav "$wave" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 10 test -s "$part"
kill -KILL $process
check "a killed program leaves no engine" within 10 no_engine_left "$bin"
check "and no unfinished file" within 5 test ! -e "$part"
check "what was there is still there" test "$(cat "$wave")" = alt

check "settings that cannot be kept" exits 0 env -u XDG_RUNTIME_DIR TMPDIR="$home" LORELIN_HOME=/proc/nicht/da "$cli" say --wav "$wave" "$home/kurz.txt"
check "that is told" says "nicht gespeichert"

exit $((failures > 0))
