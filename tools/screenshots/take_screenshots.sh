#!/usr/bin/env bash
# Takes the README's pictures from the real game on a private X server: the title screen, and a
# match with a projectile in the air. The city, wind and tune come from a fixed seed, so a new run
# shows the same scene. Exits 1 when a screen does not come up as a player would see it.
# Usage: take_screenshots.sh GAME_BINARY OUTPUT_FOLDER
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/../xsession/xsession.sh"
e2e_begin "$1"
out=$2
mkdir -p "$out" || fail "cannot make $out"

# A picture worth showing has more than a handful of colours.
save() {  # save WINDOW NAME WIDTHxHEIGHT
    import -window "$1" "$out/$2.png" || fail "no picture of $2"
    local info
    info=$(identify -format '%wx%h %k' "$out/$2.png")
    [ "${info% *}" = "$3" ] || fail "$2.png is ${info% *}, not $3"
    [ "${info#* }" -ge 8 ] || fail "$2.png shows only ${info#* } colours"
    echo "$out/$2.png: $info colours"
}

start_game --seed 7
wait_window "Grumbo 2 - Kravenmoor"
sleep 0.5
save "$WIN" title 323x180
click "$WIN" 286 162  # Start
wait_window "Setup"
click "$WIN" 286 162  # Next
wait_window "Player 1"
player=$WIN
type_into "$player" "Ann"
press "$player" Return
wait_window "Player 2"
for _ in 1 2 3; do click "$player" 190 185; done  # Bob picks another character
type_into "$player" "Bob"
press "$player" Return
wait_window "Ann - 0 pts" 60
match=$WIN
sleep 2.5  # the turn indicator settles
click "$match" 445 489
xdotool type --delay 60 60
click "$match" 577 488
xdotool type --delay 60 70
click "$match" 677 487  # Throw
sleep 0.8
save "$match" match 722x510
