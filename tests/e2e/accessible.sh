#!/usr/bin/env bash
# The window as assistive technology finds it, over the accessibility bus of a session of its own.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  /usr/bin/python3 -c "import gi; gi.require_version('Atspi', '2.0'); from gi.repository import Atspi" 2>/dev/null || {
    echo "skipped: no AT-SPI for Python here"
    exit 77
  }
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" env -u NO_AT_BRIDGE dbus-run-session -- "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
export XDG_RUNTIME_DIR=$home/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
/usr/bin/python3 "$(dirname "$0")/accessible.py" "$bin"
