#!/usr/bin/env bash
# lorelin-cli fetches voices from a server on this machine, and removes them.
bin=$1
top=$2
data=${LORELIN_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/lorelin}
runtime=$(ls "${LORELIN_RUNTIME:-$data/runtime}"/libonnxruntime.so* 2>/dev/null | tail -n 1)
. "$(dirname "$0")/expect.sh"
export no_proxy='*'
cli=$bin/lorelin-cli
mkdir -p "$LORELIN_HOME" "$home/server"
"$(dirname "$0")/voiceServer.py" "$top/tests/engine/voices" "$home/server" 2>"$home/server/log" &
server=$!
trap 'kill $server; finish' EXIT
check "the server is there" within 20 test -s "$home/server/port"
settings='HKCU\Software\VB and VBA Program Settings\Lorelin\Voice'
from() { "$cli" reg add "$settings" VoiceAddress "http://127.0.0.1:$(cat "$home/server/port")/$1/"; }
from gut
"$cli" reg add "$settings" VoiceCatalogue "$home/server/catalogue.tsv"
voices=$LORELIN_HOME/voices
name=de_DE-probe-medium
model=$top/tests/engine/voices/$name.onnx
asked() { grep -c "$1" "$home/server/asked"; }

check "the catalogue is listed" exits 0 "$cli" voices --available
check "with language, quality and state" grep -qE "^$name +Deutsch +mittel +0,[01] MB .* herunterladbar" "$home/out"
check "what is looked for is listed alone" exits 0 "$cli" voices --available paar
check "as a line" test "$(wc -l <"$home/out")" -eq 1
if [ -z "$runtime" ]; then check "what is lacking is told" says "ONNX Runtime"; fi

check "nothing is fetched without consent" exits 2 "$cli" voices --install $name
check "the licence is shown" says "License: CC0 (Probe)"
check "and how to agree" says "--yes"
check "no model was asked for" test "$(asked '\.onnx ')" -eq 0
check "consent can be typed on a terminal" bash -c "printf 'n\n' | script -qec '\"$cli\" voices --install $name' '$home/typed' >/dev/null; grep -q 'einverstanden' '$home/typed' && grep -q 'nichts geladen' '$home/typed'"
check "a voice is installed" exits 0 "$cli" voices --install $name --yes
check "that is told" grep -q "^Installiert: $name („Deutsch – probe (mittel)“)" "$home/out"
check "it is the one of the server" cmp "$model" "$voices/$name.onnx"
check "with its description" cmp "$model.json" "$voices/$name.onnx.json"
check "its licence stays beside it" grep -q "CC0" "$voices/$name.txt"
check "nothing unfinished is left" test -z "$(ls "$voices" | grep part)"
check "the list says so" bash -c "'$cli' voices --available $name 2>/dev/null | grep -q installiert"
check "it is not installed twice" exits 2 "$cli" voices --install $name --yes
if [ -n "$runtime" ]; then
  ln -s "$(dirname "$runtime")" "$LORELIN_HOME/runtime"
  check "it is among the voices" bash -c "'$cli' voices | grep -q 'Deutsch – probe (mittel)'"
  printf 'Guten Tag.' >"$home/text.txt"
  check "and speaks" exits 0 "$cli" say --voice probe --wav "$home/a.wav" "$home/text.txt"
  check "a sound" is_wave "$home/a.wav" 1
  number=$("$cli" voices | awk '/probe/ {print $1}')
  "$cli" reg add "$settings" Voice $((number - 1))
  "$cli" reg add "$settings" VoiceName "$((number - 1)):Deutsch – probe (mittel)"
  "$cli" voices --install de_DE-langsam-high --yes >/dev/null 2>&1
  check "the chosen voice has another number now" test "$("$cli" voices | awk '/probe/ {print $1}')" -eq $((number + 1))
  check "and is stored with it" bash -c "'$cli' reg query '$settings' Voice | grep -q $number"
  check "it reads as before" exits 0 "$cli" say --wav "$home/b.wav" "$home/text.txt"
  check "with the same samples" cmp "$home/a.wav" "$home/b.wav"
  "$cli" voices --remove de_DE-langsam-high >/dev/null
  "$cli" reg delete "$settings" Voice
fi
check "it is removed" exits 0 "$cli" voices --remove $name
check "with all its files" test -z "$(ls "$voices")"
check "once" exits 2 "$cli" voices --remove $name

from langsam
"$cli" voices --install $name --yes >"$home/out" 2>"$home/err" &
process=$!
check "it begins" within 10 test -s "$voices/$name.onnx.part"
kill -INT $process
wait $process
check "Ctrl+C ends it with 130" test $? -eq 130
part=$(stat -c %s "$voices/$name.onnx.part")
check "what has arrived stays" test "$part" -gt 0
check "and is no voice" bash -c "'$cli' voices --available $name 2>/dev/null | grep -q angefangen"
from gut
: >"$home/server/asked"
check "the next attempt" exits 0 "$cli" voices --install $name --yes
check "goes on behind it" grep -q "\.onnx bytes=$part-" "$home/server/asked"
check "to the same end" cmp "$model" "$voices/$name.onnx"
"$cli" voices --remove $name >/dev/null

from reisst
check "a connection that breaks" exits 1 "$cli" voices --install $name --yes
check "is told" says "macht dort weiter"
check "half of it is there" test "$(stat -c %s "$voices/$name.onnx.part")" -eq $(($(stat -c %s "$model") / 2))
from ohne
check "a server that cannot go on" exits 0 "$cli" voices --install $name --yes
check "sends it anew" cmp "$model" "$voices/$name.onnx"
"$cli" voices --remove $name >/dev/null

from falsch
check "a wrong checksum" exits 1 "$cli" voices --install $name --yes
check "is told" says "Prüfsumme falsch"
check "and nothing of it stays" test ! -e "$voices/$name.onnx.part" -a ! -e "$voices/$name.onnx"
from fehlt
check "a voice that the server does not have" exits 1 "$cli" voices --install $name --yes
check "is told" says "404"
from gut
check "a file that may not grow" exits 4 bash -c "ulimit -f 1; exec '$cli' voices --install $name --yes"
check "is told as a full disk" says "voll"
check "an unknown name" exits 2 "$cli" voices --install gibt_es-nicht
check "points to the list" says "voices --available"
check "no name" exits 2 "$cli" voices --install
check "consent for nothing" exits 2 "$cli" voices --yes

rm -rf "$voices"
check "two files are a voice" exits 0 "$cli" voices --install "$model"
check "and so is one that is there" exits 1 "$cli" voices --install "$model.json"
check "that is told" says "schon installiert"
check "a voice of one's own is removed" exits 0 "$cli" voices --remove $name
tar -C "$top/tests/engine/voices" -czf "$home/stimme.tar.gz" --transform 's,^,../../weit/weg/,' -P $name.onnx $name.onnx.json
check "an archive is a voice" exits 0 "$cli" voices --install "$home/stimme.tar.gz"
check "that comes into the folder of voices" cmp "$model" "$voices/$name.onnx"
check "and nowhere else" test -z "$(find "$home" -path '*/weit/*')"
printf 'nichts' >"$home/leer.zip"
check "an archive without a voice" exits 2 "$cli" voices --install "$home/leer.zip"
printf '{}' >"$home/falsch.onnx.json"
printf 'x' >"$home/falsch.onnx"
check "a description that is none" exits 1 "$cli" voices --install "$home/falsch.onnx"
check "is told" says "unbrauchbar"
check "and leaves nothing" test -z "$(ls "$voices" | grep falsch)"
exit $((failures > 0))
