#!/usr/bin/env bash
# The browser pane stays offline: a tour of all pages, and a page full of remote references, connect to nothing but
# the desktop's own sockets.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
need_strace
no_survey "$bin"
pages=$LORELIN_HOME/hypertext
remote=http://192.0.2.1

visit() { # PAGE: shows it as the start page for some seconds and keeps the connections
  [ "$1" = "$pages/home.htm" ] || cp "$1" "$pages/home.htm"
  strace -f -qq -o "$home/trace" -e trace=connect,sendto "$bin/lorelin" >/dev/null 2>&1 &
  local process=$!
  within 30 xdotool search --onlyvisible --name 'Lorelin$' >/dev/null 2>&1 || return 1
  sleep "${2:-3}"
  pkill -KILL -P $process
  wait $process 2>/dev/null
  cat "$home/trace" >>"$home/all"
}
only_local() { ! grep -E 'AF_INET' "$home/all"; }

cp "$pages/home.htm" "$home/home.htm"
for page in "$bin"/hypertext/*.htm; do check "the page ${page##*/} is shown" visit "$page"; done
cat >"$home/remote.htm" <<PAGE
<!DOCTYPE html><html lang="de"><head><meta charset="utf-8"><title>Fremdes</title>
<meta http-equiv="refresh" content="2; url=$remote/refresh">
<link rel="stylesheet" href="$remote/style.css"><link rel="prefetch" href="$remote/prefetch">
<link rel="dns-prefetch" href="//example.org"><link rel="preconnect" href="https://example.org">
<script src="$remote/script.js"></script>
<script>fetch('$remote/fetch'); new Image().src = '$remote/image'; new WebSocket('ws://192.0.2.1/socket');
navigator.sendBeacon('$remote/beacon'); location = '$remote/location';</script>
<style>@import "$remote/import.css"; body { background: url($remote/background.png) }
@font-face { font-family: x; src: url($remote/font.woff) } p { font-family: x }</style></head>
<body><p>Text</p><img src="$remote/a.png"><img src="//192.0.2.1/b.png"><iframe src="$remote/frame"></iframe>
<video src="$remote/video" autoplay></video><audio src="$remote/audio" autoplay></audio>
<object data="$remote/object"></object><embed src="ftp://192.0.2.1/embed">
<form id="f" action="$remote/form"></form></body></html>
PAGE
rm -rf "$LORELIN_HOME/cache"  # the filter has to be there in time even when it is made anew
check "a page full of remote references is shown" visit "$home/remote.htm" 6
check "nothing was asked of the network" only_local
check "the trace saw the desktop's sockets" grep -q AF_UNIX "$home/all"
exit $((failures > 0))
