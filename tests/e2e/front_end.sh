#!/usr/bin/env bash
# The way into a match on the real binary under Xvfb: the title screen with its dancers, setup
# with "2 vs 2", four player passes (the secret name "dunik" among them) and the match window.
# Usage: front_end.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
start_game

wait_window "Grumbo 2 - Kravenmoor"
title=$WIN
echo "title window after $(($(now_ms) - STARTED_MS)) ms"
expect_size "$title" 323x180
sleep 0.5
shot "$title" "$WORK/title.ppm"
back=$(pixel "$WORK/title.ppm" 5 140)
# Every dancer's feet touch row 109, and nothing stands below it above the buttons.
for left in 24 72 120 168 216 264; do
    [ "$(count_other_than "$WORK/title.ppm" "$back" 31 1 "$left" 109)" -gt 0 ] ||
        fail "no feet on row 109 in the column at $left"
done
[ "$(count_other_than "$WORK/title.ppm" "$back" 323 40 0 110)" -eq 0 ] ||
    fail "something stands below the feet line"
# The poses alternate every 150 ms: of a dozen shots taken at odd moments one must differ.
for i in $(seq 12); do
    sleep 0.$((RANDOM % 10))
    shot "$title" "$WORK/dance.ppm"
    cmp -s "$WORK/title.ppm" "$WORK/dance.ppm" || break
done
cmp -s "$WORK/title.ppm" "$WORK/dance.ppm" && fail "the characters do not dance"

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
expect_size "$player" 240x255
press "$player" Return  # an empty name is refused with a message titled as the game
wait_window "Grumbo 2 - Kravenmoor"
message=$WIN
press "$message" Return
wait_gone "Grumbo 2 - Kravenmoor"
wait_window "Player 1"

click "$player" 190 185  # the right arrow: the name box keeps the keyboard
type_into "$player" "Ann"
press "$player" Return
wait_window "Player 2"
shot "$player" "$WORK/before.ppm"
type_into "$player" "dunik"
shot "$player" "$WORK/dunik.ppm"
[ "$(count_changed "$WORK/before.ppm" "$WORK/dunik.ppm" 240 150 0 35)" -gt 0 ] ||
    fail "typing dunik does not change the preview"
press "$player" Return
wait_window "Player 3"
type_into "$player" "Cy"
press "$player" Return
wait_window "Player 4"
type_into "$player" "Dee"
press "$player" Return

wait_window "Ann - 0 pts" 60
match=$WIN
expect_size "$match" 722x510
echo "PASS: title, setup, four players and the match \"Ann - 0 pts\""
