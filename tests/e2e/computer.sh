#!/usr/bin/env bash
# Playing against the computer on the real binary under Xvfb: with "--computer 2" the computer's
# turn follows the person's throw, its angle and velocity appear in the boxes, it throws and the
# turn comes back with no input; with "--computer 1,2" a match to one frag plays itself to the
# game-over box.
# Usage: computer.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
BOXES="208 20 408 479"  # the angle and velocity boxes in the match window: W H X Y

# --- one person against the computer ---
# A computer keeps the name typed on its pass.
start_game --seed 7 --computer 2
into_match
sleep 2.5
throw 45 60
wait_window "Bob - [0-9]* pts" 30
shot "$MATCH" "$WORK/turn-begins.ppm"
sleep 2.5
shot "$MATCH" "$WORK/typed.ppm"
typed=$(count_changed "$WORK/turn-begins.ppm" "$WORK/typed.ppm" $BOXES)
[ "$typed" -gt 20 ] || fail "no angle and velocity in the boxes on the computer's turn"
echo "the computer types: $typed pixels of the boxes changed"
wait_window "Ann - [0-9-]* pts" 30
echo "the computer threw and the turn came back to Ann"
kill "$GAME_PID"
wait "$GAME_PID" 2>/dev/null

# --- a match that plays itself ---
start_game --seed 11 --computer 1,2
into_match 50 168 50 168  # frag limit 1
wait_window "Game Over" 300
echo "PASS: the computer plays alone and against itself to the game-over box"
