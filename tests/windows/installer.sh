#!/usr/bin/env bash
# The installer for Windows below Wine: installs silently, what it installed works, and it takes everything away again
# but what the user made.
#   installer.sh BUILD SOURCE
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
build=$1
source=$2
. "$source/tests/e2e/expect.sh"
unset LORELIN_HOME
export WINEPREFIX=$home/wine
run() { "$source/tools/with-wine" "$@"; }
version=$(sed -n 's/^project(lorelin VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")
setup=$home/Lorelin-setup.exe
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Lorelin'

cmake --install "$build" --strip --prefix "$home/files" >/dev/null || exit 1
check "the installer is made" "$source/tools/make-installer" win64 "$version" "$home/files" "$setup"
run reg.exe query HKCU /s >"$home/out" # makes the installation of Windows
registry() { run reg.exe export HKCU "Z:${home//\//\\}\\$1" /y >/dev/null && tr -d '\r\0' <"$home/$1" | LC_ALL=C grep -ai 'lorelin\|vtsfile\|\.epub\]' | sort >"$home/$1.lorelin"; }
registry before
check "it installs silently" timeout 120 "$source/tools/with-wine" "$setup" /S
folder=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/Lorelin)
check "every file is there" diff -r -x uninstall.exe "$home/files" "$folder"
check "the command line runs" exits 0 run "$folder/lorelin-cli.exe" --version
check "it is this version" grep -q "^Lorelin $version" "$home/out"
check "and reads a book with the importer beside it" exits 0 run "$folder/lorelin-cli.exe" text "Z:${source//\//\\}\\tests\\import\\corpus\\ebenen.epub"
shown() { run reg.exe query "$1" "${@:2}" 2>/dev/null | tr -d '\r' >"$home/out"; }
shown "$key" /v DisplayVersion
check "Windows lists it" grep -qF "$version" "$home/out"
shown 'HKCU\Software\Classes\.epub\OpenWithProgids'
check "it is offered for books" grep -q Lorelin.Dokument "$home/out"
shown 'HKCU\Software\Classes\.epub' /ve
check "which it does not take" bash -c "! grep -q Lorelin '$home/out'"
shown 'HKCU\Software\Classes\.vts\OpenWithProgids'
check "and for task scripts" grep -q Lorelin.Taskscript "$home/out"
shown 'HKCU\Software\Classes\Lorelin.Dokument\shell\open\command' /ve
check "by a command in quotation marks" grep -qF 'lorelin.exe" "%1"' "$home/out"
check "it is in the start menu" test -e "$(find "$WINEPREFIX/drive_c/users" -name Lorelin.lnk | head -n 1)"

printf 'Sprechen2(Eigenes);' >"$folder/scripts/Eigenes.vts"
changed=$(cd "$source/packaging/scripts" && ls | head -n 1)
printf '# geändert\r\n' >>"$folder/scripts/$changed"
cp "$folder/scripts/$changed" "$home/changed"
printf 'kaputt' >"$folder/hypertext/About.htm"
check "it installs over itself" timeout 120 "$source/tools/with-wine" "$setup" /S
check "which renews what belongs to it" cmp -s "$source/hypertext/About.htm" "$folder/hypertext/About.htm"
check "and leaves a changed example" cmp -s "$home/changed" "$folder/scripts/$changed"

check "it is removed silently" run "$folder/uninstall.exe" /S
check "its programs are gone" within 60 test ! -e "$folder/uninstall.exe"
check "what the user made is all that is left" test "$(cd "$folder" && find . -type f | sort | tr '\n' ' ')" = "$(printf '%s\n' "./scripts/$changed" ./scripts/Eigenes.vts | sort | tr '\n' ' ')"
registry after
check "the registry is as it was" diff "$home/before.lorelin" "$home/after.lorelin"
check "the start menu too" test -z "$(find "$WINEPREFIX/drive_c/users" -name Lorelin.lnk)"

rm -rf "$folder"
check "it installs again" timeout 120 "$source/tools/with-wine" "$setup" /S
check "it is removed when nobody used it" run "$folder/uninstall.exe" /S
check "nothing is left" within 60 test ! -e "$folder"
wineserver -k
wineserver -w
exit $((failures > 0))
