#!/usr/bin/env bash
# A person opens a book and a page of the web, goes from chapter to chapter, reads, and saves what is shown.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
. "$(dirname "$0")/mainWindow.sh"
no_survey "$bin"
unset http_proxy https_proxy HTTP_PROXY HTTPS_PROXY ALL_PROXY all_proxy

start() {
  "$bin/lorelin" "$@" >"$home/log" 2>&1 &
  process=$!
  within 60 window_is_there
}
title_is() { [ "$(xdotool getwindowname "$window" 2>/dev/null)" = "$1" ]; }
holds() { grep -qF -- "$2" "$1" 2>/dev/null; }
no_importer_left() { ! pgrep -f "^$bin/lorelin-import" >/dev/null; }

cat >"$home/buch.html" <<'PAGE'
<!DOCTYPE html><html lang="de"><head><meta charset="utf-8"><title>Der Brunnen</title></head><body>
<h1>Eins</h1><p>Es war einmal ein König. Der hatte drei Töchter.</p>
<h1>Zwei</h1><p>Nahe bei dem Schlosse lag ein Wald.</p>
<h1>Drei</h1><p>Da kam ein Frosch.</p></body></html>
PAGE
mkdir "$home/web"
{
  echo '<!DOCTYPE html><html lang="de"><head><meta charset="utf-8"><title>Neues vom Frosch</title></head><body>'
  echo '<nav><a href="/">Startseite</a> <a href="/sport">Sport</a> <a href="/abo">Abo</a></nav><article><h1>Neues vom Frosch</h1>'
  for i in 1 2 3 4 5 6; do
    echo '<p>Der Frosch sitzt am Brunnen und wartet darauf, dass die Kugel wieder hineinfällt, wie sie es jeden Tag tut.</p>'
  done
  echo '</article><footer><a href="/impressum">Impressum</a></footer></body></html>'
} >"$home/web/artikel.html"

before=$(cksum <"$home/buch.html")
check "the window appears with the book" start "$home/buch.html"
check "the title names it" within 20 title_is "buch.html – Lorelin"
keys ctrl+F12 ctrl+F12
keys ctrl+s
check "it asks for a name" within 10 dialog_is_there
sleep 1
xdotool key ctrl+a
xdotool type --delay 20 "$home/abschrift.rtf"
sleep 0.5
xdotool key Return
check "what is shown is saved" within 10 holds "$home/abschrift.rtf" "Da kam ein Frosch."
check "its chapters are headings" holds "$home/abschrift.rtf" 'outlinelevel0'
check "the title names the copy" within 10 title_is "abschrift.rtf – Lorelin"
check "the book stays as it was" test "$before" = "$(cksum <"$home/buch.html")"
check "no reader of documents is left" within 5 no_importer_left

(cd "$home/web" && exec python3 -u -m http.server --bind 127.0.0.1 0) >"$home/server" 2>&1 &
server=$!
trap 'kill $server 2>/dev/null; finish' EXIT
port_is_known() { port=$(sed -n 's/.*port \([0-9]*\).*/\1/p' "$home/server" 2>/dev/null) && [ -n "$port" ]; }
check "a server runs" within 10 port_is_known
keys ctrl+l
check "it asks for an address" within 10 dialog_is_there
xdotool type --delay 20 "http://127.0.0.1:$port/artikel.html"
xdotool key Return
check "the article is there" within 20 title_is "Neues vom Frosch – Lorelin"
keys ctrl+s
check "it asks for a name for the article" within 10 dialog_is_there
sleep 1
xdotool key ctrl+a
xdotool type --delay 20 "$home/artikel.txt"
sleep 0.5
xdotool key Return
check "the article is saved" within 10 holds "$home/artikel.txt" "Der Frosch sitzt am Brunnen"
check "without the menus of the page" test "$(grep -cE 'Impressum|Startseite' "$home/artikel.txt")" -eq 0
check "what was fetched is gone" test -z "$(ls "$LORELIN_HOME/temp/" 2>/dev/null | grep adresse)"
check "nothing was printed" test ! -s <(grep -v dbus "$home/log")
kill -TERM "$process"
check "it ends" within 10 ended
wait "$process"
exit $((failures > 0))
