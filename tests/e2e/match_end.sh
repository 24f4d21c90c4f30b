#!/usr/bin/env bash
# A match to its end on the real binary under Xvfb, with the real keyboard and clock: Escape
# pauses a flight that then stands still until Space, on the box that took the keyboard, resumes
# it; the deciding hit and the game-over box no sooner than 5 s later; the credits left with
# Escape; a second match that does not open paused; and "Quit" ending the program.
# Usage: match_end.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"

# Holds Escape down until the pause box shows: the match looks at the keyboard every 20 ms, and
# later on a busy machine, where a short press may come and go between two looks.
pause() { xdotool keydown Escape && wait_window "Game Over" && xdotool keyup Escape; }

# Seed 7, a day sky, frag limit 1 and no wind: Ann's throw at 40 degrees and 60 hits Bob.
start_game --seed 7
into_match 81 110 50 168 50 168 177 104 177 104 177 104 177 104 177 104
sleep 2.5  # the turn indicator settles
shot "$MATCH" "$WORK/before.ppm"
throw 40 60
sleep 0.6
xdotool windowfocus --sync "$MATCH"
pause
expect_size "$WIN" 256x78
sleep 0.3
shot "$MATCH" "$WORK/paused-1.ppm"
sleep 1.5
shot "$MATCH" "$WORK/paused-2.ppm"
cmp -s "$WORK/paused-1.ppm" "$WORK/paused-2.ppm" || fail "the projectile moves during the pause"
# The box hides the middle of the window's picture; the projectile flies just above it.
[ "$(count_changed "$WORK/before.ppm" "$WORK/paused-1.ppm" 722 214 0 0)" -gt 0 ] ||
    fail "no projectile in the air during the pause"
xdotool key space
wait_gone "Game Over"
resumed_ms=$(now_ms)
wait_window "Game Over" 30
[ $(($(now_ms) - resumed_ms)) -ge 5000 ] || fail "the game-over box came within 5 s of the hit"

click "$WIN" 127 60  # "View Credits"
wait_window "Grumbo Credits"
wait_gone "Ann - [0-9-]* pts"
expect_size "$WIN" 530x351
# Escape closes the credits while it is down; the next match must not take it for a pause.
press "$WIN" Escape
into_match
sleep 1
xdotool search --onlyvisible --name '^Game Over$' >/dev/null 2>&1 && fail "the second match opens paused"
xdotool windowfocus --sync "$MATCH"
pause
click "$WIN" 211 60  # "Quit"
wait_end "Quit"
[ "$STATUS" -eq 0 ] || fail "Quit ended the game with status $STATUS"
echo "PASS: pause and resume, the match's end, the credits, a second match and Quit"
