#!/usr/bin/env bash
# Sound files as lorelin-cli makes them, looked at by other programs.
bin=$1
top=$2
. "$(dirname "$0")/expect.sh"
cli=$bin/lorelin-cli
out=$home/aus
mkdir -p "$out"
repeat() { local i; for ((i = 0; i < $2; i++)); do printf '%s' "$1"; done; }

# What ffprobe says of a file, and how long and loud it is when another program decodes it.
field() { ffprobe -v error -show_entries "$2" -of default=noprint_wrappers=1:nokey=1 "$1"; }
milliseconds() { ffmpeg -v error -i "$1" -ac 1 -ar 22050 -f s16le - | wc -c | awk '{ printf "%d", $1 / 44.1 }'; }
loud() { ffmpeg -i "$1" -af volumedetect -f null - 2>&1 | awk '/mean_volume/ { exit !($5 > -40) }'; }
near() { local a=$1 b=$2 most=$3; ((a - b <= most && b - a <= most)); }
nothing_unfinished() { test -z "$(find "$1" -name '.part-*')"; }

printf 'Guten Tag. Am 3. Mai kosten 5 kg Mehl z. B. 4,50 €.\n\nDas ist ein zweiter Absatz, der etwas länger ist & <mehr> hat.\n' >"$home/text.txt"
"$cli" say --wav "$home/text.wav" "$home/text.txt"
length=$(milliseconds "$home/text.wav")
for format in mp3 opus ogg flac wav; do
  file=$out/text.$format
  check "$format: it is made" exits 0 "$cli" say -o "$file" --title 'Grüße' --author 'Łukasz' --language de-AT "$home/text.txt"
  check "$format: nothing is said about it" test ! -s "$home/err"
  check "$format: it is as long as the WAV file" near "$(milliseconds "$file")" "$length" 70
  check "$format: it is heard" loud "$file"
done
check "an MP3 has its title" grep -q 'title=Grüße' <(ffprobe -v error -show_entries format_tags "$out/text.mp3")
check "an MP3 has its author" grep -q 'artist=Łukasz' <(ffprobe -v error -show_entries format_tags "$out/text.mp3")
check "an MP3 has its language" grep -q 'language=deu' <(ffprobe -v error -show_entries format_tags "$out/text.mp3")
for format in opus ogg flac; do
  check "$format: it has its tags" grep -qi 'title=Grüße' <(ffprobe -v error -show_entries format_tags:stream_tags "$out/text.$format")
done
check "the codec is Opus" test "$(field "$out/text.opus" stream=codec_name)" = opus
check "the codec is Vorbis" test "$(field "$out/text.ogg" stream=codec_name)" = vorbis
check "the format goes before the ending" exits 0 "$cli" say --format flac -o "$out/eigen.xyz" "$home/text.txt"
check "it is FLAC" test "$(field "$out/eigen.xyz" stream=codec_name)" = flac
"$cli" say --quality klein -o "$out/klein.mp3" "$home/text.txt"
"$cli" say --quality hoch -o "$out/hoch.mp3" "$home/text.txt"
check "the quality counts" test "$(field "$out/klein.mp3" stream=bit_rate)" -lt "$(field "$out/hoch.mp3" stream=bit_rate)"
check "the voice counts" exits 0 "$cli" say --speed 100 --voice 1 -o "$out/schnell.opus" "$home/text.txt"
check "it is shorter" test "$(milliseconds "$out/schnell.opus")" -lt $((length / 2))
check "a voice that does not exist" exits 2 "$cli" say --voice 9999 -o "$out/a.mp3" "$home/text.txt"
check "standard input becomes a file" bash -c "echo 'Guten Tag.' | '$cli' say -o '$out/aus.mp3' -"
check "it is heard" loud "$out/aus.mp3"

# Subtitles: the beginnings of sentences are where the silence between them ends.
printf 'Eins ist ein Anfang, und er ist recht lang geraten.\n\nDanach kommt noch ein Satz, der ebenso lang geraten ist.\n\nUnd am Ende steht ein letzter Satz in diesem Text hier.\n' >"$home/saetze.txt"
starts() { ffmpeg -i "$1" -af "silencedetect=noise=-38dB:d=0.22" -f null - 2>&1 | sed -n 's/.*silence_end: \([0-9.]*\).*/\1/p'; }
cues() { sed -n 's/^00:00:\([0-9]*\),\([0-9]*\) --> .*/\1.\2/p' "$1"; }
# Every cue but the first begins within a tenth of a second of the end of a silence.
begin_with_sound() {
  awk 'NR == FNR { sound[NR] = $1; count = NR; next }
       FNR > 1 { near = 0; for (i = 1; i <= count; i++) if (sound[i] - $1 < 0.1 && $1 - sound[i] < 0.1) near = 1
                 if (!near) { print "no sound begins at " $1; bad = 1 } seen = FNR }
       END { exit bad || seen != 3 }' <(starts "$1") <(cues "$2")
}
for format in mp3 opus ogg flac; do
  check "$format: subtitles are made" exits 0 "$cli" say -o "$out/saetze.$format" --subtitles srt "$home/saetze.txt"
  check "$format: they are within a tenth of a second of the sound" begin_with_sound "$out/saetze.$format" "$out/saetze.srt"
done
check "lyrics are made" exits 0 "$cli" say -o "$out/text.mp3" --subtitles lrc --title Titel "$home/text.txt"
check "with their head" grep -qx '\[ti:Titel\]' "$out/text.lrc"
check "and what is written" grep -q 'Am 3. Mai kosten 5 kg Mehl z. B. 4,50 €.' "$out/text.lrc"
check "WebVTT is made" exits 0 "$cli" say -o "$out/text.mp3" --subtitles vtt "$home/text.txt"
check "with its signs" grep -q '&amp; &lt;mehr&gt;' "$out/text.vtt"
check "another program reads it" ffprobe -v error "$out/text.vtt"

# Several files, and a folder that is not there yet.
for name in eins zwei drei; do printf 'Das ist Nummer %s.\n' "$name" >"$home/$name.txt"; done
mkdir "$home/andere"
printf 'Eine andere Eins.\n' >"$home/andere/eins.txt"
check "several become several" exits 0 "$cli" say --jobs 2 --format opus -o "$out/neu/ordner" "$home/eins.txt" "$home/zwei.txt" "$home/drei.txt" "$home/andere/eins.txt"
check "each has its name" test "$(ls "$out/neu/ordner" | tr '\n' ' ')" = 'drei.opus eins (2).opus eins.opus zwei.opus '
check "no line of progress goes into a pipe" test ! -s "$home/err"
check "one that is missing" exits 3 "$cli" say --format mp3 -o "$out/rest" "$home/eins.txt" "$home/fehlt.txt" "$home/zwei.txt"
check "it is named" says 'fehlt.txt'
check "the others are made" test "$(ls "$out/rest" | tr '\n' ' ')" = 'eins.mp3 zwei.mp3 '

# A book: its chapters are marked, or files of their own.
cat >"$home/buch.md" <<'END'
# Erstes Kapitel

Hier beginnt das Buch mit einem Satz, der eine Weile dauert.

# Zweites: „Kapitel“?

Hier geht es weiter, und zwar ebenso lange wie im ersten Kapitel.
END
chapters() { ffprobe -v error -show_entries chapter=start_time:chapter_tags=title -of compact=nokey=1:print_section=0 "$1"; }
for format in mp3 opus ogg flac; do
  check "$format: a book becomes one file" exits 0 "$cli" say -o "$out/buch.$format" --subtitles srt "$home/buch.md"
  check "$format: its chapters are known" test "$(chapters "$out/buch.$format" | cut -d'|' -f2 | tr '\n' ' ')" = 'Erstes Kapitel Zweites: „Kapitel“? '
  second=$(chapters "$out/buch.$format" | sed -n '2s/|.*//p')
  check "$format: the second begins with the sound" awk -v at="$second" '$1 - at < 0.1 && at - $1 < 0.1 { found = 1 } END { exit !found }' <(starts "$out/buch.$format")
done
check "each chapter becomes a file" exits 0 "$cli" say --chapters --format mp3 --title 'Das Buch' --subtitles srt -o "$out/buch" "$home/buch.md"
check "numbered" test "$(ls "$out/buch" | tr '\n' '/')" = '01 Erstes Kapitel.mp3/01 Erstes Kapitel.srt/02 Zweites „Kapitel“.mp3/02 Zweites „Kapitel“.srt/'
check "with the book's name" test "$(field "$out/buch/02 Zweites „Kapitel“.mp3" format_tags=album)" = 'Das Buch'
check "and number" test "$(field "$out/buch/02 Zweites „Kapitel“.mp3" format_tags=track)" = 2/2
check "the second begins with its heading" grep -q 'Zweites: „Kapitel“?' "$out/buch/02 Zweites „Kapitel“.srt"
check "and at its beginning" grep -q '^00:00:00,0' "$out/buch/02 Zweites „Kapitel“.srt"
both=$(($(milliseconds "$out/buch/01 Erstes Kapitel.mp3") + $(milliseconds "$out/buch/02 Zweites „Kapitel“.mp3")))
check "both are as long as the whole" near "$both" "$(milliseconds "$out/buch.mp3")" 700
# The same with its text, sentence by sentence.
check "it becomes an EPUB" exits 0 "$cli" say -o "$out/buch.epub" --title 'Das & Buch' --language de "$home/buch.md"
check "nothing is said about it" test ! -s "$home/err"
check "other programs read it" python3 "$top/tests/e2e/spokenBook.py" "$out/buch.epub" 2
check "nothing unfinished is left" nothing_unfinished "$out"
check "it can be read aloud again" bash -c "'$cli' text '$out/buch.epub' | grep -q 'Hier beginnt das Buch mit einem Satz'"
check "sentences become an EPUB" exits 0 "$cli" say --format epub -o "$out/saetze.epub" "$home/saetze.txt"
check "they are within a tenth of a second of the sound" python3 "$top/tests/e2e/spokenBook.py" "$out/saetze.epub" 1 0.1
printf '# Einkauf\n\nWir brauchen **dringend** und *bald*:\n\n- Äpfel\n- **Brot** und Käse\n\nZuerst:\n\n1. gehen\n2. kaufen\n\n| Ware | Preis |\n|---|---|\n| Apfel | zwei Euro |\n' >"$home/liste.md"
check "what stands out, lists and tables become an EPUB" exits 0 "$cli" say -o "$out/liste.epub" "$home/liste.md"
check "other programs read it" python3 "$top/tests/e2e/spokenBook.py" "$out/liste.epub" 1
page() { python3 -c 'import sys, zipfile; print(zipfile.ZipFile(sys.argv[1]).read("EPUB/" + sys.argv[2]).decode())' "$out/liste.epub" "$1" >"$home/page"; }
check "its page is there" page text/0001.xhtml
check "what stands out is there" grep -q '<strong>dringend</strong> und <em>bald</em>:' "$home/page"
check "the list is there" grep -q '^<li><span id="s[0-9]*"><strong>Brot</strong> und Käse</span></li>' "$home/page"
check "and the one with numbers" test "$(grep -c '^<ol>\|^<ul>\|^</ol>\|^</ul>' "$home/page")" = 4
check "the table is there row by row" grep -q 'Ware; Preis</strong><br/>Apfel; zwei Euro' "$home/page"
check "so are the times" page overlays/0001.smil
check "every item has its sound" test "$(grep -c '<par' "$home/page")" = 8
printf '# Eins\n\nEin Satz.\n\n# ***\n\n…\n\n# Drei\n\nNoch ein Satz.\n' >"$home/still.md"
check "a chapter without words does no harm" exits 0 "$cli" say --format epub -o "$out/still.epub" "$home/still.md"
check "other programs read it" python3 "$top/tests/e2e/spokenBook.py" "$out/still.epub" 3
check "an EPUB needs no subtitles" exits 2 "$cli" say -o "$out/a.epub" --subtitles srt "$home/text.txt"
check "the book is read aloud into a WAV file as well" exits 0 "$cli" say --wav "$out/buch.wav" "$home/buch.md"
check "without its signs" near "$(milliseconds "$out/buch.wav")" "$(milliseconds "$out/buch.mp3")" 70
check "a book is printed" bash -c "test \"\$('$cli' text '$home/buch.md' | head -1)\" = 'Erstes Kapitel'"

check "a text is printed as it is read" exits 0 "$cli" text "$home/text.txt"
check "with what is written" grep -q 'z. B. 4,50 €' "$home/out"
printf '{\\rtf1 Gr\\'"'"'fc\\'"'"'dfe {\\b fett}}' >"$home/brief.rtf"
check "an RTF file has no signs of its own" bash -c "test \"\$('$cli' text '$home/brief.rtf')\" = 'Grüße fett'"

check "a wrong format" exits 2 "$cli" say --format aac -o "$out/a.aac" "$home/text.txt"
check "a format without a file" exits 2 "$cli" say --format mp3 "$home/text.txt"
check "both kinds of file" exits 2 "$cli" say --wav "$out/a.wav" -o "$out/a.mp3" "$home/text.txt"
check "a title for several" exits 2 "$cli" say --title T -o "$out" "$home/eins.txt" "$home/zwei.txt"
check "a target that is the text" exits 2 "$cli" say -o "$home/text.txt" "$home/text.txt"
check "the text is still there" grep -q 'Guten Tag' "$home/text.txt"
check "an empty text" exits 3 "$cli" say -o "$out/leer.mp3" <(printf ' \n')
check "a missing folder" exits 4 "$cli" say -o "$home/fehlt/a.mp3" "$home/text.txt"
check "a folder that cannot be made" exits 4 "$cli" say -o "$home/text.txt/a/" "$home/text.txt"
check "a device" exits 4 "$cli" say --format mp3 -o /dev/full "$home/text.txt"

repeat 'Ein langer Text, der gar nicht mehr aufhört. ' 40000 >"$home/lang.txt"
for format in mp3 opus ogg flac; do
  printf 'alt' >"$out/lang.$format"
  check "$format: a file that may not grow" exits 1 bash -c "ulimit -f 300; exec '$cli' say -o '$out/lang.$format' '$home/lang.txt'"
  check "$format: it is told" says 'keine so große Datei'
  check "$format: what was there is still there" test "$(cat "$out/lang.$format")" = alt
  check "$format: nothing unfinished is left" nothing_unfinished "$out"
done

part=$out/.part-.part-lang.mp3
"$cli" say -o "$out/lang.mp3" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 20 test -s "$part"
kill -INT $process
wait $process
check "Ctrl+C ends with 130" test $? -eq 130
check "nothing unfinished is left" within 5 nothing_unfinished "$out"
check "what was there is still there" test "$(cat "$out/lang.mp3")" = alt
check "no engine is left" within 5 no_engine_left "$bin"

"$cli" say -o "$out/lang.mp3" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 20 test -s "$part"
pkill -KILL -P $process
wait $process
check "a killed engine ends with 1" test $? -eq 1
check "it is not called complete" says 'nicht vollständig'
check "nothing unfinished is left" nothing_unfinished "$out"
check "what was there is still there" test "$(cat "$out/lang.mp3")" = alt

"$cli" say -o "$out/lang.mp3" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the file grows" within 20 test -s "$part"
kill -KILL $process
check "a killed program leaves no engine" within 10 no_engine_left "$bin"
check "and nothing unfinished" within 5 nothing_unfinished "$out"
check "what was there is still there" test "$(cat "$out/lang.mp3")" = alt

{ printf '# Eins\n\nEin Satz.\n\n# Zwei\n\n' && cat "$home/lang.txt"; } >"$home/lang.md"
printf alt >"$out/lang.epub"
"$cli" say -o "$out/lang.epub" "$home/lang.md" 2>"$home/err" &
process=$!
check "the second chapter grows" within 20 test -s "$out/.part-.part-lang.epub.2.mp3"
kill -INT $process
wait $process
check "Ctrl+C ends with 130" test $? -eq 130
check "nothing unfinished is left" within 5 nothing_unfinished "$out"
check "what was there is still there" test "$(cat "$out/lang.epub")" = alt

"$cli" say -o "$out/lang.epub" "$home/lang.md" 2>"$home/err" &
process=$!
check "the second chapter grows" within 20 test -s "$out/.part-.part-lang.epub.2.mp3"
kill -KILL $process
wait $process 2>/dev/null
check "a killed program leaves no engine" within 10 no_engine_left "$bin"
check "and the finished chapter" test -s "$out/.part-lang.epub.1.mp3"
printf fremd >"$out/.part-fremd.mp3"
check "the next one" exits 0 "$cli" say -o "$home/eins.mp3" "$home/eins.txt"
check "clears it away, and nothing else" test "$(cd "$out" && echo .part-*)" = .part-fremd.mp3
rm "$out/.part-fremd.mp3"

# One of several is cancelled with the rest; what is done stays.
"$cli" say --jobs 1 -o "$out/teils" "$home/eins.txt" "$home/lang.txt" 2>"$home/err" &
process=$!
check "the second one grows" within 20 test -s "$out/teils/.part-.part-lang.mp3"
kill -INT $process
wait $process
check "what is done stays" loud "$out/teils/eins.mp3"
check "what is not does not" test "$(ls "$out/teils")" = eins.mp3

exit $((failures > 0))
