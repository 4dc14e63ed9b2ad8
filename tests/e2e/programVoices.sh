#!/usr/bin/env bash
# Voices that programs speak, from the command line: the examples of the help as they stand there, and files that are wrong.
bin=$1
top=$2
. "$(dirname "$0")/expect.sh"
export SDL_AUDIODRIVER=dummy
cli=$bin/lorelin-cli
voices=$LORELIN_HOME/voices
mkdir -p "$voices"
python3 - "$top/hypertext/hilfe.htm" "$voices" <<'PYTHON'
import html.parser
import pathlib
import sys


class Examples(html.parser.HTMLParser):
    file = None

    def handle_starttag(self, tag, attributes):
        self.file = dict(attributes).get("title") if tag == "pre" else None

    def handle_endtag(self, tag):
        self.file = None

    def handle_data(self, data):
        if self.file:
            with open(pathlib.Path(sys.argv[2]) / self.file, "a", encoding="utf-8") as file:
                file.write(data)


Examples().feed(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
PYTHON
chmod +x "$voices/pico.sh"
check "the help has examples" test "$(ls "$voices" | tr '\n' ' ')" = "festival.voice klatt.voice modul.voice pico.sh pico.voice "

# There is none in Debian's main section: one that takes the same arguments stands in for it.
if ! command -v pico2wave >/dev/null; then
  echo "pico2wave is not installed: another program takes its place"
  mkdir "$home/bin"
  cat >"$home/bin/pico2wave" <<'SH'
#!/bin/sh
[ "$#,$1,$2,$3" = 5,-l,de-DE,-w ] && exec espeak-ng -v de -w "$4" "$5"
SH
  chmod +x "$home/bin/pico2wave"
  PATH=$home/bin:$PATH
fi

echo "Guten Morgen, meine Damen und Herren. Wie geht es Ihnen?" >"$home/text.txt"

# speaks NAME: the voice says the text, in the time that it takes, and says nothing else.
speaks() {
  exits 0 "$cli" say --voice "$1" --speed 25 --wav "$home/$1.wav" "$home/text.txt" && test ! -s "$home/err" &&
    is_wave "$home/$1.wav" 2 && test "$(stat -c %s "$home/$1.wav")" -lt $((15 * 44100))
}

check "voices are listed" exits 0 "$cli" voices
for name in "Deutsch – Klatt" "Deutsch – Pico" "Deutsch – Modul" "Englisch (USA) – Festival"; do
  check "$name is among them" grep -qF "$name" "$home/out"
done
check "eSpeak NG speaks as in the help" speaks Klatt
check "Pico's script speaks as in the help" speaks Pico
if command -v text2wave >/dev/null; then
  check "Festival speaks as in the help" speaks Festival
else
  echo "skipped: Festival is not installed"
  check "a program that is missing is told" exits 1 "$cli" say --voice Festival "$home/text.txt"
  check "by its name" says "das Programm „text2wave“ wurde nicht gefunden."
fi
if [ -x /usr/lib/speech-dispatcher-modules/sd_espeak-ng ]; then
  check "a module speaks as in the help" speaks Modul
else
  echo "skipped: the module of speech-dispatcher is not installed"
fi
check "a voice speaks aloud" exits 0 "$cli" say --voice Klatt --speed 100 "$home/text.txt"

"$cli" say --voice Pico --speed 0 --wav "$home/langsam.wav" "$home/text.txt"
"$cli" say --voice Pico --speed 100 --wav "$home/schnell.wav" "$home/text.txt"
check "the speed counts where the program does not know it" \
  test "$(stat -c %s "$home/langsam.wav")" -gt "$(($(stat -c %s "$home/schnell.wav") * 3))"

printf 'language = de\ncommand = sh -c "echo Nein >&2; exit 7"\n' >"$voices/nein.voice"
check "a program that fails ends the text" exits 1 "$cli" say --voice nein --wav "$home/nein.wav" "$home/text.txt"
check "with its own words" says "das Programm „sh“ endet mit dem Fehler 7 („Nein“)."
check "and leaves no file" test ! -e "$home/nein.wav"
printf 'language = de\ncommand = espeak-ng --stdout | sox - -\n' >"$voices/falsch.voice"
check "a file that is wrong leaves the others" exits 0 "$cli" say --voice Klatt --wav "$home/a.wav" "$home/text.txt"
check "it is named with its line" says "„falsch.voice“, Zeile 2: „|“ hat hier keine Bedeutung"

exit $((failures > 0))
