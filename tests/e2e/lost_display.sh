#!/usr/bin/env bash
# The display going away: without one the program says so in one line; when the window system
# closes its connection (xkill during a throw, then the X server's end mid-match) it ends with
# the toolkit's message and a plain failure, never a crash.
# Usage: lost_display.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/../../tools/xsession/xsession.sh"

command -v xkill >/dev/null || { echo "SKIP: xkill is not installed"; exit 77; }
e2e_begin "$1"

out=$(env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM= "$GAME" 2>&1)
status=$?
[ "$status" -ne 0 ] && [ "$status" -lt 128 ] || fail "without a display: exit status $status"
[ "$(printf '%s\n' "$out" | wc -l)" -eq 1 ] || fail "without a display it says more than a line: $out"
echo "without a display: \"$out\""

# The game must end by itself with a plain failure and the toolkit's word.
ended() {  # ended WHAT
    wait_end "$1"
    [ "$STATUS" -ne 0 ] && [ "$STATUS" -lt 128 ] || fail "$1: exit status $STATUS"
    grep -q "X11 connection broke" "$WORK/game.log" || fail "$1: no word from the toolkit"
    grep -Eq "Segmentation|Sanitizer|Aborted|runtime error" "$WORK/game.log" && fail "$1: it crashed"
    echo "$1: exit status $STATUS"
}

start_game
into_match
throw 45 60
xkill -id "$MATCH" >/dev/null 2>&1
ended "xkill during a throw"

start_game
into_match
kill "$XVFB_PID"
XVFB_PID=
ended "the X server's end mid-match"
echo "PASS: no display, a killed connection and a lost X server end the game plainly"
