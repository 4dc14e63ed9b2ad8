#!/usr/bin/env bash
# The window program as others work it from outside: a player control over the session bus, and a second start that
# asks for what is selected in another program.
if [ -z "${LORELIN_ON_SCREEN:-}" ]; then
  exec env LORELIN_ON_SCREEN=1 "$2/tools/with-display" "$0" "$@"
fi
bin=$1
. "$(dirname "$0")/expect.sh"
lorelin=$bin/lorelin
no_survey "$bin"
# The first pause explains itself in a box, which would have to be answered.
"$bin/lorelin-cli" reg add 'HKCU\Software\VB and VBA Program Settings\Lorelin\Settings' ShowPauseMsg False

start() {
  "$lorelin" "$@" >"$home/log" 2>&1 &
  process=$!
  within 20 player_is_there
}
player() { playerctl -p lorelin "$@" 2>/dev/null; }
player_is_there() { player status >/dev/null; }
has_status() { [ "$(player status)" = "$1" ]; }
ended() { ! kill -0 "$process" 2>/dev/null; }
select_text() { # TEXT: as another program does it
  printf %s "$1" | xclip -selection primary -in -quiet >/dev/null 2>&1 &
  within 5 is_selected "$1"
}
is_selected() { [ "$(xclip -selection primary -out 2>/dev/null)" = "$1" ]; }
seconds_rendered() { # AT LEAST
  local file
  for file in "$LORELIN_HOME"/temp/*.wav; do
    is_wave "$file" "$1" && return
  done
  return 1
}

quit() {
  dbus-send --session --type=method_call --dest=org.mpris.MediaPlayer2.lorelin /org/mpris/MediaPlayer2 org.mpris.MediaPlayer2.Quit
}

text=$home/brief.txt
for i in $(seq 40); do echo "Das ist der Satz mit der Nummer $i, und er ist nicht kurz."; done >"$text"
check "the window is a player on the bus" start "$text"
check "that rests" has_status Stopped
check "its title is the document's" test "$(player metadata xesam:title)" = "brief.txt – Lorelin"
player play
check "it plays when it is asked to" within 10 has_status Playing
check "the place grows" within 10 bash -c "[ \"\$(playerctl -p lorelin position | cut -d. -f1)\" -ge 1 ]"
player play-pause
check "it pauses" within 10 has_status Paused
place=$(player position)
sleep 1
check "and stays where it is" test "$(player position)" = "$place"
player play-pause
check "it goes on" within 10 has_status Playing
player stop
check "it stops" within 10 has_status Stopped

check "another program has something selected" select_text "Dieser Satz steht in einem anderen Programm."
check "the second start ends by itself, without a box" timeout 20 "$lorelin" --auswahl
check "the first one reads what is selected" within 10 has_status Playing
check "and renders it" within 10 seconds_rendered 1
check "the document stays as it was" test "$(player metadata xesam:title)" = "brief.txt – Lorelin"
check "it rests at the end" within 20 has_status Stopped

for i in $(seq 40); do echo "Auch diese Datei hat viele Zeilen, und das ist die mit der Nummer $i."; done >"$home/zwei Worte.txt"
cd "$home" || exit 1
check "a start with a file ends by itself, too" timeout 20 "$lorelin" --auswahl "zwei Worte.txt"
check "the first one reads the file" within 10 has_status Playing
check "and renders all of it" within 30 seconds_rendered 60
check "the document still stays as it was" test "$(player metadata xesam:title)" = "brief.txt – Lorelin"

# A bus call to one that has gone fails at once.
playerctl -p lorelin stop 2>/dev/null
quit
check "it ends when it is asked to" within 10 ended
check "and is no player any more" bash -c "! playerctl -p lorelin status 2>/dev/null"

check "without a first one it starts and reads what is selected" start --auswahl
check "aloud" within 10 has_status Playing
quit
check "and ends while it reads" within 10 ended
box_is_there() { xdotool search --onlyvisible --name '^Hinweis$' >/dev/null 2>&1; }
window_is_there() { xdotool search --onlyvisible --name 'Lorelin$' >/dev/null 2>&1; }
"$bin/lorelin-cli" reg add 'HKCU\Software\VB and VBA Program Settings\Lorelin\Settings' ShowPauseMsg yes
check "it starts once more" start "$text"
player play
check "it plays" within 10 has_status Playing
player pause
check "a box explains the pause" within 10 box_is_there
quit
sleep 1
check "which has to be answered before it ends" window_is_there
answer() { xdotool key Return && sleep 0.5 && ! box_is_there; }
check "it is answered" within 10 answer
quit
check "then it ends" within 10 ended
check "no engine is left" within 5 no_engine_left "$bin"
check "no warning was printed" test ! -s "$home/log"
cat "$home/log"
[ $failures -eq 0 ]
