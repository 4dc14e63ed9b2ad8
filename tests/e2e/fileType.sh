#!/usr/bin/env bash
# The desktop knows task scripts after a start, and a second start writes nothing.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
unset LORELIN_HOME
# Without a desktop the tool would look into the file instead of into the types.
export HOME=$home XDG_CACHE_HOME=$home/cache XDG_CURRENT_DESKTOP=GNOME
mkdir -p "$home/prog"
no_survey "$bin"
cp -r "$bin/lorelin" "$bin/lorelin-engine" "$bin/lorelin-page.so" "$bin/hypertext" "$bin/vts.ico" "$home/prog"
printf 'Stopp();' >"$home/x.vts"

run_once() {
  "$home/prog/lorelin" >"$home/log" 2>&1 &
  process=$!
  within 60 window_is_there || return 1
  sleep 0.5
  closes && wait $process
}
type_of() { [ "$(xdg-mime query filetype "$home/x.vts" 2>/dev/null)" = application/x-lorelin-vts ]; }
default_of() { [ "$(xdg-mime query default application/x-lorelin-vts 2>/dev/null)" = lorelin.desktop ]; }
written() { find "$XDG_DATA_HOME" -type f -newer "$home/mark" ! -path '*/lorelin/*'; }

check "it starts and ends" run_once
check "the type of a script is known" within 5 type_of
check "Lorelin opens it" within 5 default_of
check "the desktop entry is valid" desktop-file-validate "$XDG_DATA_HOME/applications/lorelin.desktop"
touch "$home/mark"
sleep 1.1
check "it starts again" run_once
sleep 0.5
check "nothing was written" test -z "$(written)"
written
exit $((failures > 0))
