#!/usr/bin/env bash
# Task scripts as lorelin-cli runs them, with the real engine, the real file system and a web server on loopback.
bin=$1
. "$(dirname "$0")/expect.sh"
export SDL_AUDIODRIVER=dummy no_proxy='*'
cli=$bin/lorelin-cli
cd "$home" || exit 1

# script NAME LINE...: writes a task script with the line ends that it needs.
script() {
  local name=$1
  shift
  printf '%s\r\n' "$@" >"$name.vts"
}
runs() { exits "$1" "$cli" run "${@:3}" "$2.vts"; }
# Bytes of sound in a WAV file.
sound() { echo $(($(stat -c %s "$1") - 44)); }

printf 'Guten Tag, liebe Welt. Dies ist ein Text.' >brief.txt
script vorlesen 'Geschwindigkeit(60);' 'Helligkeit(30);' 'Lautstärke(80);' 'Laden(brief.txt);' 'Ersetzen(Welt,Leserin);' \
  'Exportieren(aus.wav);' 'Sprechen();'
check "a script loads, replaces, exports and speaks" runs 0 vorlesen --wav alles.wav
check "the exported file is complete" is_wave aus.wav 1
check "the collected file holds the same" cmp -s aus.wav alles.wav
printf 'Guten Tag, liebe Leserin. Dies ist ein Text.' >erwartet.txt
"$cli" say --speed 60 --pitch 30 --volume 80 --wav erwartet.wav erwartet.txt
# The same length, not the same bytes: the engine's noise depends on the process's environment.
check "it is as long as the text with these settings" test "$(sound aus.wav)" -eq "$(sound erwartet.wav)"
script leise 'Laden(brief.txt);' 'Exportieren(hoerbar.wav);' 'Sprechen();'
check "a script is heard" runs 0 leise
check "what it exports is whole then, too" is_wave hoerbar.wav 1

script zwei 'Dokument(Eins.,0);' 'Sprechen();' 'Dokument(Zwei.,0);' 'Sprechen();'
check "all that is spoken goes into one file" runs 0 zwei --wav zwei.wav
script eins 'Dokument(Eins.,0);' 'Sprechen();'
check "one text alone" runs 0 eins --wav eins.wav
check "two are longer than one" test "$(sound zwei.wav)" -gt "$(($(sound eins.wav) * 3 / 2))"

mkdir web && printf 'Nachrichten von heute.' >web/nachrichten.txt
python3 -u -m http.server --bind 127.0.0.1 --directory web 0 >server.log 2>&1 &
server=$!
within 10 grep -q 'port ' server.log
port=$(sed -n 's/.*port \([0-9]*\).*/\1/p' server.log | head -1)
script laden "Download(http://127.0.0.1:$port/nachrichten.txt,geladen.txt);" 'Laden(geladen.txt);' 'Sprechen();' 'Löschen(geladen.txt);'
check "a script downloads and speaks what it got" runs 0 laden --wav laden.wav
"$cli" say --wav erwartet.wav --speed 60 --pitch 30 --volume 80 web/nachrichten.txt
check "it is the text of the server" test "$(sound laden.wav)" -eq "$(sound erwartet.wav)"
check "and then deletes it" test ! -e geladen.txt
script fehlt "Download(http://127.0.0.1:$port/fehlt.txt,fehlt.txt);" 'Text(weiter);'
check "a download that fails is silent" runs 0 fehlt
check "and leaves no file" test ! -e fehlt.txt
check "but is noted" grep -q 'fehlt.vts: Download fehlgeschlagen: ' "$LORELIN_HOME/taskscripts.log"
check "downloads can be denied" runs 5 laden --deny download --yes --verbose
check "which is told" says " Zeichen): nicht erlaubt"
kill $server

script still 'Exportieren(verboten.wav);' 'Sprechen2(Guten Tag.);'
check "a script that may not touch files exports nothing" runs 0 still --deny read
check "there is no file" test ! -e verboten.wav
script halt 'Sprechen2(Guten Tag.);' 'Pause();'
check "a script that holds its speech ends with a failure" runs 1 halt
check "that tells why" says "angehalten und nicht fortgesetzt"
check "the hint to the button is not shown for it" bash -c '! grep -q "Klick auf Pause" err'
script pause 'Sprechen2(Guten Tag.);' 'Pause();' 'Warten(1);' 'Pause();'
check "one that lets it go on does not" runs 0 pause --verbose
check "the way to end a script is the one that works here" says "Drücken Sie Strg+C um die Ausführung von 'pause.vts' zu beenden."

mkdir weg && touch weg/a.txt weg/b.txt weg/c.wav weg/.versteckt.txt && mkdir weg/ordner.txt
ln -s weg verweis
script weg 'Löschen(weg/*.txt);'
check "files can be kept from scripts" runs 0 weg --deny read
check "they are still there" test -e weg/a.txt
check "a pattern deletes its files" runs 0 weg
check "and nothing else" test "$(ls -A weg | tr '\n' ' ')" = ".versteckt.txt c.wav ordner.txt "
check "nothing to delete is an error" runs 1 weg --no
check "which is told" says "Datei nicht gefunden"
check "and can be passed over" runs 5 weg --yes
script verweis 'Löschen(verweis/*.*);'
check "nothing is deleted through a link" runs 1 verweis --no
check "the file is still there" test -e weg/c.wav
printf 'Zu Hause.' >heim.txt
script heim 'Laden(~/heim.txt);' 'Exportieren(~/heim.wav);' 'Sprechen();'
check "a tilde is the user's folder" exits 0 env HOME="$home" "$cli" run heim.vts
check "also for what is written" is_wave heim.wav 0
script wurzel 'Löschen($Windows\*.lorelin-test);'
check "without a Windows folder the pattern is one of the root" exits 1 env -u windir "$cli" run --no wurzel.vts

printf '#!/bin/sh\nprintf "%%s|" "$@" >"%s"\n' "$home/gestartet" >"$home/mein programm" && chmod +x "$home/mein programm"
script start "Ausführen(\"$home/mein programm\" eins \"zwei drei\" \$HOME);"
check "a program is started" runs 0 start
check "with its arguments as they stand" within 5 grep -qF 'eins|zwei drei|$HOME|' gestartet
script start2 'Ausführen(gibt-es-nicht-lorelin);'
check "one that does not exist is an error" runs 1 start2 --no

script bedingt 'Wenn(a,b);' 'Meldung(nie);'
check "a condition ends a script" runs 6 bedingt
script meldung 'Meldung(Grüße);'
check "messages are text" runs 0 meldung
check "with their title" says "Lorelin: Grüße"
check "a missing script" runs 3 fehltganz
check "a folder is no script" exits 3 "$cli" run "$home/weg"
check "a target in a missing folder" runs 4 meldung --wav fehlt/a.wav
script klein 'sprechen();'
check "findings" exits 1 "$cli" check start2.vts klein.vts
check "are named with their line" grep -q '^klein.vts:1: ' out
check "sound scripts" exits 0 "$cli" check "$bin"/scripts/*.vts
check "the run log tells what was done" grep -q 'weg.vts: Löschen(9 Zeichen)' "$LORELIN_HOME/taskscripts.log"
check "nothing is left in the cache" test -z "$(ls -A "$LORELIN_HOME/cache" 2>/dev/null)"

# Waiting costs nothing and ends at once.
used_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
script warten 'Warten(100000);'
for wait in 'Warten(100000);' 'WartenBis(25:00:00);'; do
  script warten "$wait"
  "$cli" run warten.vts 2>err &
  pid=$!
  sleep 1 # the start has a cost of its own
  ticks=$(used_ticks $pid)
  sleep 3
  ticks=$(($(used_ticks $pid) - ticks))
  check "${wait%%(*} takes less than 2 % of a processor" test "$ticks" -le $((3 * $(getconf CLK_TCK) * 2 / 100))
  kill -INT $pid
  check "${wait%%(*} ends on Ctrl+C" bash -c "for i in {1..25}; do kill -0 $pid 2>/dev/null || exit 0; sleep 0.01; done; ! kill -0 $pid 2>/dev/null"
  wait $pid
  check "and says that it was interrupted" test $? -eq 130
done

# Size, depth and memory.
{ for i in {1..10}; do echo "Das ist eine lange Zeile ohne Befehl, die übersprungen wird."; done; } >zehn
for i in {1..5}; do cat zehn zehn zehn zehn zehn zehn zehn zehn zehn zehn >hundert && mv hundert zehn; done
sed 's/$/\r/' zehn >lang.vts
check "the script has a million lines" test "$(wc -l <lang.vts)" -eq 1000000
check "it runs in at most five seconds" timeout 5 "$cli" run lang.vts
check "with memory in proportion to the file" bash -c "ulimit -v $(($(stat -c %s lang.vts) * 4 / 1024 + 700000)); '$cli' run lang.vts"
script rund 'Wiederholen();'
# Each round reads the script: a piece and its end.
rounds() { echo $(($(awk '/syscr/ { print $2 }' /proc/$pid/io) / 2)); }
memory() { awk '/VmRSS/ { print $2 }' /proc/$pid/status; }
at_least() { [ "$(rounds)" -ge "$1" ]; }
(
  ulimit -s 512
  exec "$cli" run rund.vts
) 2>err &
pid=$!
within 10 at_least 1000
before=$(memory)
check "a hundred thousand repetitions" within 60 at_least 101000
check "do not grow" test "$(($(memory) - before))" -lt 10240
kill -INT $pid
wait $pid
check "and end on Ctrl+C" test $? -eq 130
script wachsen 'Dokument($Text$Text x,0);' 'Wiederholen();'
check "a text that outgrows the memory is an error" bash -c "ulimit -v 1500000; '$cli' run --no wachsen.vts 2>'$home/err'; test \$? -eq 1"
check "which is told" says "Nicht genügend Zeichenfolgenspeicher (14)"
check "no engine is left" within 5 no_engine_left "$bin"

exit $((failures > 0))
