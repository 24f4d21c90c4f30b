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

# From the title through setup (frag limit 1 when asked) to the match; player 1 is NAME, or the
# computer when NAME is empty, and player 2 is the computer.
to_match() {  # to_match NAME [frags1]
    wait_window "Grumbo 2 - Kravenmoor"
    click "$WIN" 286 162                                      # Start
    wait_window "Setup"
    [ "${2:-}" = frags1 ] && for _ in 1 2; do click "$WIN" 50 168; done
    click "$WIN" 286 162                                      # Next
    wait_window "Player 1"
    local player=$WIN
    expect_size "$player" 240x255
    click "$player" 117 20
    [ -n "$1" ] && type_into "$player" "$1"
    press "$player" Return
    wait_window "Player 2"
    press "$player" Return                                    # the computer needs no name
}

# --- one person against the computer ---
start_game --seed 7 --computer 2
to_match Ann
wait_window "Ann - 0 pts" 60
MATCH=$WIN
sleep 2.5
throw 45 60
wait_window "Computer 2 - [0-9]* pts" 30
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
to_match "" frags1
wait_window "Computer 1 - 0 pts" 60
wait_window "Game Over" 300
echo "PASS: the computer plays alone and against itself to the game-over box"
