#!/usr/bin/env bash
# What every test of real parts relies on: a session bus of its own, and nothing left running.
. "$(dirname "$0")/expect.sh"
own_bus=$2/tools/own-bus
long=$((1000000 + $$))  # seconds that nobody else sleeps

address() { "$own_bus" sh -c 'echo "$DBUS_SESSION_BUS_ADDRESS"' 2>/dev/null; }
buses_differ() { [ -n "$(address)" ] && [ "$(address)" != "${DBUS_SESSION_BUS_ADDRESS:-}" ]; }
bus_works() { "$own_bus" dbus-send --session --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.ListNames >/dev/null 2>&1; }
code() { "$own_bus" sh -c "exit $1" 2>/dev/null; [ $? -eq "$1" ]; }
leaves_nothing() {
  "$own_bus" sh -c "setsid -f sleep $long; sleep $long & pgrep -f '^sleep $long$' >'$home/sleeping'" 2>/dev/null
  [ -s "$home/sleeping" ] && ! pgrep -f "^sleep $long\$" >/dev/null
}
ends_when_told() {
  "$own_bus" sh -c "touch '$home/begun'; setsid -f sleep $long; sleep $long" 2>/dev/null &
  local process=$!
  within 10 test -f "$home/begun" || return 1
  kill $process
  wait $process 2>/dev/null
  ! pgrep -f "^sleep $long\$" >/dev/null
}

check "the bus works" bus_works
check "the bus is another one" buses_differ
check "so it is where there is none" env -u DBUS_SESSION_BUS_ADDRESS "$own_bus" dbus-send --session --dest=org.freedesktop.DBus / org.freedesktop.DBus.ListNames
check "the command's code comes back" code 77
check "what went into the background ends" leaves_nothing
check "it ends when it is told to" ends_when_told
exit $((failures > 0))
