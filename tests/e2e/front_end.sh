#!/usr/bin/env bash
# The way into a match on the real binary under Xvfb: the title screen, setup with "2 vs 2", a
# "Next" with no name whose message, once dismissed, leaves the keyboard in the name box, four
# player passes and the match window, each window at its size.
# Usage: front_end.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
start_game

wait_window "Grumbo 2 - Kravenmoor"
title=$WIN
expect_size "$title" 323x180

click "$title" 286 162  # Start
wait_window "Setup"
setup=$WIN
wait_gone "Grumbo 2 - Kravenmoor"
expect_size "$setup" 323x180
click "$setup" 81 69    # game type: up to "2 vs 2"
click "$setup" 286 162  # Next

wait_window "Player 1"
player=$WIN
wait_gone "Setup"
expect_size "$player" 240x275  # the Network row included
click "$player" 151 213  # Next, with the name box empty: a message titled as the game
wait_window "Grumbo 2 - Kravenmoor"
press "$WIN" Return
wait_gone "Grumbo 2 - Kravenmoor"
# No click into the window this time, and the pointer off it, so that nothing but the game gives
# the window the keyboard: the keys go wherever the keyboard now is.
xdotool mousemove 0 0
xdotool type --delay 40 "Ann"
xdotool key Return
names=(Ann Bob Cy Dee)
for k in 2 3 4; do
    wait_window "Player $k" 5
    type_into "$player" "${names[k - 1]}"
    press "$player" Return
done

wait_window "Ann - 0 pts" 60
expect_size "$WIN" 722x510
echo "PASS: title, setup, the name box's keyboard after its message, four players and the match"
