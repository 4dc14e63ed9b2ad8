#!/usr/bin/env bash
# What "cmake --install" puts into a folder: complete, valid, and of use wherever the folder lies.
bin=$1
source=$2
. "$(dirname "$0")/expect.sh"
unset LORELIN_HOME
prefix="$home/Programme hier"
programs="lorelin lorelin-cli XMGR lorelin-abkuerzungen lorelin-import lorelin-engine"
export LC_ALL=C.UTF-8 LORELIN_HOME=$home/lorelin

has() { test -e "$prefix/$1" || { echo "   without $1" && return 1; }; }
is_complete() {
  local program file
  for program in $programs; do has "bin/$program" && has "share/man/man1/$program.1" || return 1; done
  for file in share/lorelin/{voices,hypertext/home.htm,scripts,vts.ico,extensions/protokoll.py} share/applications/lorelin.desktop \
    share/kio/servicemenus/lorelin.desktop share/mime/packages/lorelin.xml share/metainfo/org.lorelin.lorelin.metainfo.xml \
    share/icons/hicolor/{scalable/apps/lorelin.svg,symbolic/apps/lorelin-symbolic.svg,scalable/mimetypes/application-x-lorelin-vts.svg} \
    share/bash-completion/completions/lorelin-cli share/dbus-1/services/org.lorelin.Abkuerzungen.service share/doc/lorelin; do
    has "$file" || return 1
  done
}
knows_scripts() {
  update-mime-database "$prefix/share/mime" >/dev/null 2>&1 && grep -q 'application/x-lorelin-vts:\*\.vts' "$prefix/share/mime/globs2" &&
    grep -qa 'application/x-lorelin-vts' "$prefix/share/mime/magic"
}
# The page without its signs for the setting of type.
manual() { sed -e 's/^\.[A-Z]* *//' -e 's/\\f[BR]//g' -e 's/\\-/-/g' "$prefix/share/man/man1/$1.1" | tr -s ' \n' ' '; }
manual_agrees() {
  local program=$1 words
  man --warnings -E UTF-8 -l -Tutf8 -Z "$prefix/share/man/man1/$program.1" 2>"$home/warnings" >"$home/page" || return 1
  [ ! -s "$home/warnings" ] || { cat "$home/warnings" && return 1; }
  words=$("$bin/$program" --help | sed 's/^Optionen:$/OPTIONEN/' | tr -s ' \n' ' ')
  case " $(manual "$program")" in *" ${words% } "*) ;; *) echo "   the page of $program differs" && return 1 ;; esac
}
completes() { # completes LINE WORD: the word is offered for the line
  bash -c '. /usr/share/bash-completion/bash_completion; . "$1/share/bash-completion/completions/lorelin-cli"; PATH=$1/bin:$PATH
    COMP_LINE=$2 COMP_POINT=${#2} COMP_WORDS=($2) COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    case $2 in *" ") COMP_WORDS+=(""); COMP_CWORD=$((COMP_CWORD + 1)) ;; esac
    _lorelin_cli; printf "%s\n" "${COMPREPLY[@]}"' bash "$prefix" "$1" | grep -qxF -- "$2"
}
speaks() {
  echo "Guten Morgen, heute ist der 3. Oktober." | "$prefix/bin/lorelin-cli" say --wav "$home/laut.wav" - && is_wave "$home/laut.wav" 1
}
has_seeded() { test -e "$LORELIN_HOME/hypertext/home.htm"; }
is_started_by_its_name() {
  XDG_DATA_DIRS="$prefix/share:/usr/share" dbus-run-session dbus-send --session --print-reply --dest=org.lorelin.Abkuerzungen \
    /org/lorelin/Abkuerzungen org.lorelin.Abkuerzungen.FilterText 'string:z. B. heute' | grep -q 'zum Beispiel'
}
names_programs() { # names_programs FILE: of the installed entry, as a desktop reads it
  grep -q '^Exec=' "$1" && ! grep '^Exec=' "$1" | grep -vqF "Exec=\"$prefix/bin/lorelin\""
}

# window WHAT... : runs the installed window until what is told of its process, $process, holds; 20 s at most.
window() {
  local what=$1
  shift
  no_survey "$prefix/bin"
  "$source/tools/with-display" bash -c '
    what=$1 program=$2
    shift 2
    "$program" "$@" >/dev/null 2>&1 &
    process=$!
    for ((i = 0; i < 400; i++)); do
      eval "$what" && break
      sleep 0.05
    done
    eval "$what"
    result=$?
    kill -KILL $process
    exit $result' window "$what" "$prefix/bin/lorelin" "$@" 2>/dev/null
}
shows_pages() { window 'grep -q "/lorelin-page\.so" "/proc/$process/maps"'; }
# The engine of the pages would take half of the time until a text is there.
opens_texts_without_pages() {
  echo "Guten Morgen." >"$home/brief.txt"
  window 'xdotool search --onlyvisible --name "brief\.txt" >/dev/null 2>&1 && ! grep -q webkit "/proc/$process/maps"' "$home/brief.txt"
}
opens_where_no_pages_can_be_shown() {
  local library result
  library=$(find "$prefix/lib" -name lorelin-page.so)
  mv "$library" "$home/" || return 1
  window "xdotool search --onlyvisible --name 'Lorelin\$' >/dev/null 2>&1 &&
    grep -rqs --include='*.log' 'kann keine Seiten zeigen' '$home'"
  result=$?
  mv "$home/lorelin-page.so" "$library"
  return $result
}

installs() { cmake --install "$bin/.." --prefix "$prefix" >/dev/null; }
installs_for_a_package() { DESTDIR=$home/root cmake --install "$bin/.." --prefix /usr >/dev/null; }

check "it installs" installs
check "everything is there" is_complete
check "the desktop entry is valid" desktop-file-validate "$prefix/share/applications/lorelin.desktop"
check "it names the installed program" names_programs "$prefix/share/applications/lorelin.desktop"
check "so does the entry for file managers" names_programs "$prefix/share/kio/servicemenus/lorelin.desktop"
check "the description for software centres is valid" appstreamcli validate --pedantic --no-net "$prefix/share/metainfo/org.lorelin.lorelin.metainfo.xml"
check "the type of scripts is well-formed" xmllint --noout "$prefix/share/mime/packages/lorelin.xml"
check "scripts are known by name and content" knows_scripts
for program in $programs; do check "the manual page of $program says what it says itself" manual_agrees "$program"; done
if [ -e /usr/share/bash-completion/bash_completion ]; then
  check "bash completes commands" completes "lorelin-cli sp" spell
  check "bash completes options" completes "lorelin-cli say --sub" --subtitles
  check "bash completes formats" completes "lorelin-cli say --format o" opus
fi
check "the installed program speaks" speaks
check "it brought its pages" has_seeded
check "the bus starts the extension by its name" is_started_by_its_name
mv "$prefix" "$home/anderswo"
prefix=$home/anderswo
check "it speaks from another folder" speaks
check "it finds there what shows pages" shows_pages
check "it opens where that is missing" opens_where_no_pages_can_be_shown
check "a text is opened without" opens_texts_without_pages
check "it installs into a package's folder" installs_for_a_package
check "there the entry is that of the source" cmp "$home/root/usr/share/applications/lorelin.desktop" "$source/packaging/linux/lorelin.desktop"
check "there the bus gets the program's last place" grep -qx 'Exec=/usr/bin/lorelin-abkuerzungen' \
  "$home/root/usr/share/dbus-1/services/org.lorelin.Abkuerzungen.service"
exit $((failures > 0))
