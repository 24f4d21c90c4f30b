#!/usr/bin/env bash
# The front-end screens on the real binary under Xvfb, as a window manager and a player meet them:
# small tool windows that ask for no minimise or maximise box, and on the player screen a click
# on "Next" with no name whose message, once dismissed, leaves the keyboard in the name box.
# Usage: player_screen.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
command -v xprop >/dev/null || { echo "SKIP: xprop is not installed"; exit 77; }
start_game

# What a window manager reads: the window's type, and the Motif functions (flags, functions, ...)
# where minimise is 8 and maximise 16.
expect_tool_window() {  # expect_tool_window WINDOW
    local name type motif
    name=$(xdotool getwindowname "$1")
    type=$(xprop -id "$1" _NET_WM_WINDOW_TYPE | sed 's/.*= //; s/,.*//')
    [ "$type" = "_NET_WM_WINDOW_TYPE_UTILITY" ] || fail "\"$name\" is a window of type $type"
    read -r -a motif <<<"$(xprop -id "$1" _MOTIF_WM_HINTS | sed 's/.*= //; s/,//g')"
    [ "${#motif[@]}" -ge 2 ] && ((motif[0] & 1)) && ! ((motif[1] & (1 | 8 | 16))) ||
        fail "\"$name\" allows minimising or maximising: _MOTIF_WM_HINTS ${motif[*]}"
}

wait_window "Grumbo 2 - Kravenmoor"
expect_tool_window "$WIN"
click "$WIN" 286 162  # Start
wait_window "Setup"
expect_tool_window "$WIN"
click "$WIN" 286 162  # Next
wait_window "Player 1"
player=$WIN
expect_tool_window "$player"

click "$player" 151 213  # Next, with the name box empty
wait_window "Grumbo 2 - Kravenmoor"
press "$WIN" Return
wait_gone "Grumbo 2 - Kravenmoor"
# No click into the window this time, and the pointer off it, so that nothing but the game gives
# the window the keyboard: the keys go wherever the keyboard now is.
xdotool mousemove 0 0
xdotool type --delay 40 "Ann"
xdotool key Return
wait_window "Player 2" 5
echo "PASS: tool windows, and the name box has the keyboard after the message"
