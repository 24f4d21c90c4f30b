#!/usr/bin/env bash
# The display going away: without one the program says so in one line; when the window system
# closes its connection (xkill during a throw, then the X server's end mid-match) it ends with
# the toolkit's message and a plain failure, never a crash.
# Usage: lost_display.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"

command -v xkill >/dev/null || { echo "SKIP: xkill is not installed"; exit 77; }
e2e_begin "$1"

out=$(env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM= "$GAME" 2>&1)
status=$?
[ "$status" -ne 0 ] && [ "$status" -lt 128 ] || fail "without a display: exit status $status"
[ "$(printf '%s\n' "$out" | wc -l)" -eq 1 ] || fail "without a display it says more than a line: $out"
echo "without a display: \"$out\""

into_match() {
    start_game
    wait_window "Grumbo 2 - Kravenmoor"
    click "$WIN" 286 162  # Start
    wait_window "Setup"
    click "$WIN" 286 162  # Next
    wait_window "Player 1"
    local player=$WIN
    type_into "$player" "Ann"
    press "$player" Return
    wait_window "Player 2"
    type_into "$player" "Bob"
    press "$player" Return
    wait_window "Ann - 0 pts" 60
}

# The game's exit status once it is gone, which must be a plain failure with the toolkit's word.
ended() {  # ended WHAT
    local status i
    for i in $(seq 100); do kill -0 "$GAME_PID" 2>/dev/null || break; sleep 0.1; done
    kill -0 "$GAME_PID" 2>/dev/null && fail "$1: the game is still running"
    wait "$GAME_PID"
    status=$?
    GAME_PID=
    [ "$status" -ne 0 ] && [ "$status" -lt 128 ] || fail "$1: exit status $status"
    grep -q "X11 connection broke" "$WORK/game.log" || fail "$1: no word from the toolkit"
    grep -Eq "Segmentation|Sanitizer|Aborted|runtime error" "$WORK/game.log" && fail "$1: it crashed"
    echo "$1: exit status $status"
}

into_match
click "$WIN" 445 489  # the angle, the velocity and "Throw"
xdotool type --delay 60 45
click "$WIN" 577 488
xdotool type --delay 60 60
click "$WIN" 677 487
xkill -id "$WIN" >/dev/null 2>&1
ended "xkill during a throw"

into_match
kill "$XVFB_PID"
XVFB_PID=
ended "the X server's end mid-match"
echo "PASS: no display, a killed connection and a lost X server end the game plainly"
