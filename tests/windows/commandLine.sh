#!/usr/bin/env bash
# lorelin-cli for Windows as a user runs it, below Wine, with the test servers as speech engine.
#   commandLine.sh BUILD SOURCE
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
folder="$home/Grüße an Łódź"
mkdir "$folder"
brief=$(windows_path "$folder/Żółw.txt")
printf 'Am 3. Mai kosten 5 kg Mehl „z. B.“ 4,50 €.' >"$folder/Żółw.txt"

check "version" exits 0 cli --version
check "it is ours" grep -q '^Lorelin [0-9.]*' "$home/out"
check "help" exits 0 cli --help
check "help tells the codes" grep -q Rückgabewerte "$home/out"
check "no command" exits 2 cli
check "an unknown option with letters of its own" exits 2 cli say --łódź
check "it is named" says "--łódź"
check "a missing file" exits 3 cli say "$(windows_path "$home/fehlt.txt")"
check "the reason is told" says "Datei nicht gefunden"
check "a folder" exits 3 cli say "$(windows_path "$home")"
check "the reason is told" says "Das ist ein Ordner"

check "a text under a name from elsewhere is spelled out" exits 0 cli spell "$brief"
check "in words" grep -q 'kosten fünf Kilogramm Mehl „zum Beispiel“ vier Euro fünfzig' "$home/out"
check "standard input is spelled out" bash -c "printf 'Er wiegt 5 kg\r\n' | '$source/tools/with-wine' '$build/bin/lorelin-cli.exe' spell - | grep -q 'Er wiegt fünf Kilogramm'"
check "what would be read is printed" exits 0 cli text "$brief"
check "as it is written" grep -q '4,50 €' "$home/out"

corpus=$source/tests/import/corpus
for document in ebenen.epub ebenen.docx ebenen.odt ebenen.html ebenen.md ebenen.fb2; do
  check "$document is read" exits 0 cli text "$(windows_path "$corpus/$document")"
  check "its text is there" test "$(wc -w <"$home/out")" -ge 8
done
check "PDF is not read" exits 3 cli text "$(windows_path "$corpus/ebenen.pdf")"
check "which is told" says "PDF-Dokumente kann Lorelin unter Windows nicht öffnen"

wave=$home/Ausgabe-ł.wav
check "voices are listed" exits 0 cli voices
check "those of the engine" grep -q 'Deutsche Stimme' "$home/out"
check "a voice that does not exist" exits 2 cli say --voice 9 "$brief"
check "a text becomes a WAV file" exits 0 cli say --wav "$(windows_path "$wave")" "$brief"
check "that is not silent" is_wave "$wave" 0
check "a text is read aloud" exits 0 cli say "$brief"
check "a target in a missing folder" exits 4 cli say --wav "$(windows_path "$home/fehlt/a.wav")" "$brief"
check "the reason is told" says "Pfad nicht gefunden"
check "a target that is the text" exits 2 cli say --wav "$brief" "$brief"
check "the text is still there" test -s "$folder/Żółw.txt"

printf 'Sprechen2(Guten Tag.);\r\nMeldung(Fertig,0,Lorelin);\r\n' >"$home/skript.vts"
check "a script runs" exits 0 cli run --yes --wav "$(windows_path "$home/skript.wav")" "$(windows_path "$home/skript.vts")"
check "what it spoke is in one file" is_wave "$home/skript.wav" 0
printf 'Blödsinn(1);\r\n' >"$home/falsch.vts"
check "a script is checked" exits 1 cli check "$(windows_path "$home/falsch.vts")"
key='HKCU\Software\VB and VBA Program Settings\Lorelin\Settings'
check "a setting is written" exits 0 cli reg add "$key" Speed 10
check "to the registry of Windows" bash -c "'$source/tools/with-wine' reg.exe query '$key' /v Speed 2>/dev/null | grep -q 10"
check "and read" exits 0 cli reg query "$key" Speed

"$source/tools/with-wine" reg.exe delete 'HKCR\CLSID\{EEE78591-FE22-11D0-8BEF-0060081841DE}' /f >/dev/null
check "SAPI 5 alone renders as well" exits 0 cli say --wav "$(windows_path "$home/sapi.wav")" "$brief"
check "a WAV file" is_wave "$home/sapi.wav" 0
"$source/tools/with-wine" reg.exe delete 'HKCR\CLSID\{96749377-3391-11D2-9EE3-00C04F797396}' /f >/dev/null
check "without any engine it ends with 1" exits 1 cli say --wav "$(windows_path "$home/nichts.wav")" "$brief"
check "and says why" says "keine Sprachausgabe eingerichtet"
check "no file is there" test ! -e "$home/nichts.wav"
wineserver -k
wineserver -w
exit $((failures > 0))
