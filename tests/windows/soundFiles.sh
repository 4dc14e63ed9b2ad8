#!/usr/bin/env bash
# Sound files as lorelin-cli for Windows makes them below Wine, with the test servers as speech engine, looked at by
# other programs. The engine's tones are 20 ms long for every character.
#   soundFiles.sh BUILD SOURCE
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
build=$1
source=$2
. "$source/tests/e2e/expect.sh"
unset LORELIN_HOME
export WINEPREFIX=$home/wine
cli() { "$source/tools/with-wine" "$build/bin/lorelin-cli.exe" "$@"; }
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
"$source/tools/with-wine" regsvr32.exe /s "$(windows_path "$build/bin/testservers.dll")"
out=$home/Töne
mkdir "$out"
there=$(windows_path "$out")

field() { ffprobe -v error -show_entries "$2" -of default=noprint_wrappers=1:nokey=1 "$1"; }
milliseconds() { ffmpeg -v error -i "$1" -ac 1 -ar 22050 -f s16le - | wc -c | awk '{ printf "%d", $1 / 44.1 }'; }
loud() { ffmpeg -i "$1" -af volumedetect -f null - 2>&1 | awk '/mean_volume/ { exit !($5 > -40) }'; }
near() { local a=$1 b=$2 most=$3; ((a - b <= most && b - a <= most)); }
tags() { ffprobe -v error -show_entries format_tags:stream_tags "$1"; }
chapters() { ffprobe -v error -show_entries chapter=start_time:chapter_tags=title -of compact=nokey=1:print_section=0 "$1"; }
nothing_unfinished() { test -z "$(find "$1" -name '.part-*')"; }

# Sentences of 50 characters with the blank behind each.
first='Das ist der erste Satz, und er hat Zeichen genug.'
second='Das ist der zweite Satz; auch er hat genug davon.'
printf '%s %s %s' "$first" "$second" 'Ende.' >"$home/text.txt"
text=$(windows_path "$home/text.txt")
codec_of() { case $1 in ogg) echo vorbis ;; wav) echo pcm_s16le ;; *) echo "$1" ;; esac; }
for format in mp3 opus ogg flac wav; do
  file=$out/Tön-$format.$format
  check "$format: it is made" exits 0 cli say -o "$there\\Tön-$format.$format" --title 'Grüße' --author 'Łukasz' --language de-AT "$text"
  check "$format: nothing is said about it" test ! -s "$home/err"
  check "$format: it is what it is called" test "$(field "$file" stream=codec_name)" = "$(codec_of $format)"
  check "$format: it is as long as what the engine speaks" near "$(milliseconds "$file")" 2100 70
  check "$format: it is heard" loud "$file"
  [ $format = wav ] || check "$format: it has a title" grep -qi 'title=Grüße' <(tags "$file")
  [ $format = wav ] || check "$format: it has an author" grep -qi 'artist=Łukasz' <(tags "$file")
done
check "an MP3 has its language" grep -q 'language=deu' <(tags "$out/Tön-mp3.mp3")
check "small" exits 0 cli say --quality klein -o "$there\\klein.mp3" "$text"
check "large" exits 0 cli say --quality hoch -o "$there\\hoch.mp3" "$text"
check "the quality counts" test "$(field "$out/klein.mp3" stream=bit_rate)" -lt "$(field "$out/hoch.mp3" stream=bit_rate)"
check "a file that is there is replaced" exits 0 cli say -o "$there\\hoch.mp3" --quality klein "$text"
check "by the new one" test "$(field "$out/hoch.mp3" stream=bit_rate)" = "$(field "$out/klein.mp3" stream=bit_rate)"

# Subtitles begin with their sentences.
for format in srt lrc vtt; do
  check "$format: it is made" exits 0 cli say -o "$there\\saetze.opus" --subtitles $format "$text"
  check "$format: it has what is written" grep -q "${second%%;*}" "$out/saetze.$format"
done
begin=$(grep -B 1 -F "${second%%;*}" "$out/saetze.srt" | sed -n 's/^00:00:\([0-9]*\),\([0-9]*\) .*/\1\2/p')
# A blank takes the place of the prefix in front of the text.
check "the second sentence is where it is heard" near "$((10#$begin))" $(((${#first} + 2) * 20)) 10
check "another program reads WebVTT" ffprobe -v error "$out/saetze.vtt"

# A book.
{ printf '# Erstes\n\n%s\n\n# Zweites: „Kapitel“?\n\n' "$first" && printf '%s\n' "$second"; } >"$home/buch.md"
book=$(windows_path "$home/buch.md")
for format in mp3 opus; do
  check "$format: a book becomes one file" exits 0 cli say -o "$there\\buch.$format" "$book"
  check "$format: its chapters are known" test "$(chapters "$out/buch.$format" | cut -d'|' -f2 | tr '\n' ' ')" = 'Erstes Zweites: „Kapitel“? '
  at=$(chapters "$out/buch.$format" | sed -n '2s/|.*//p' | awk '{ printf "%d", $1 * 1000 }')
  check "$format: the second begins where it is heard" near "$at" $((20 * (${#first} + 10))) 30
done
check "each chapter becomes a file" exits 0 cli say --chapters --format ogg --title 'Das Buch' --jobs 2 -o "$there\\buch" "$book"
check "numbered" test "$(ls "$out/buch" | tr '\n' '/')" = '01 Erstes.ogg/02 Zweites „Kapitel“.ogg/'
check "with the book's name" grep -qi 'album=Das Buch' <(tags "$out/buch/02 Zweites „Kapitel“.ogg")
check "it becomes an EPUB" exits 0 cli say -o "$there\\buch.epub" --title 'Das & Buch' --language de "$book"
check "other programs read it" python3 "$source/tests/e2e/spokenBook.py" "$out/buch.epub" 2
check "it can be read again" bash -c "'$source/tools/with-wine' '$build/bin/lorelin-cli.exe' text '$there\\buch.epub' | grep -q 'Das ist der erste Satz'"
check "nothing unfinished is left" nothing_unfinished "$out"

check "a missing folder" exits 4 cli say -o "$(windows_path "$home/fehlt/a.mp3")" "$text"
check "a target that is the text" exits 2 cli say -o "$text" "$text"
check "a voice that does not exist" exits 2 cli say --voice 9 -o "$there\\a.mp3" "$text"

"$source/tools/with-wine" reg.exe delete 'HKCR\CLSID\{EEE78591-FE22-11D0-8BEF-0060081841DE}' /f >/dev/null
check "SAPI 5 alone renders as well" exits 0 cli say -o "$there\\sapi.mp3" "$text"
check "it is heard" loud "$out/sapi.mp3"
"$source/tools/with-wine" reg.exe delete 'HKCR\CLSID\{96749377-3391-11D2-9EE3-00C04F797396}' /f >/dev/null
check "without any engine it ends with 1" exits 1 cli say -o "$there\\nichts.mp3" "$text"
check "and says why" says "keine Sprachausgabe eingerichtet"
check "no file is there" test ! -e "$out/nichts.mp3"
check "nothing unfinished is left" nothing_unfinished "$out"
wineserver -k
wineserver -w
exit $((failures > 0))
