# Shared by the test scripts that use the main window as a person does: $window is the window, $process the program.
window_is_there() { window=$(xdotool search --onlyvisible --name 'Lorelin$' 2>/dev/null | tail -n 1) && [ -n "$window" ]; }
keys() { xdotool windowactivate --sync "$window" key --delay 40 "$@"; }
ended() { ! kill -0 "$process" 2>/dev/null; }
close_window() { keys alt+F4; }
# A key is lost now and then while another program's window comes or goes.
closes() { close_window && within 5 ended || { window_is_there && close_window; within 10 ended; }; }
dialog_is_there() { dialog=$(xdotool getactivewindow 2>/dev/null) && [ "$dialog" != "$window" ]; }
dialog_is_gone() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; }
