#!/usr/bin/env bash
# The game on a 3840 x 2160 screen: the automatic scale doubles every window with whole pixels,
# and the same throw, typed and clicked at twice the coordinates, lands where it lands at scale 1
# (within a tick of flight).
# Usage: scaled.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
E2E_SCREEN=3840x2160 e2e_begin "$1"

# Clicks at game coordinates in a window drawn S times larger.
at() { click "$1" $(($2 * S)) $(($3 * S)); }

# Title to match with two players; the scene before the throw and the crater it leaves.
throw_once() {  # throw_once NAME [OPTIONS...] -> CRATER ("left top right bottom" in game pixels)
    local name=$1
    shift
    start_game --seed 7 "$@"
    wait_window "Grumbo 2 - Kravenmoor"
    expect_size "$WIN" $((323 * S))x$((180 * S))
    at "$WIN" 286 162  # Start
    wait_window "Setup"
    at "$WIN" 286 162  # Next
    wait_window "Player 1"
    local player=$WIN
    type_into "$player" Ann
    press "$player" Return
    wait_window "Player 2"
    type_into "$player" Bob
    press "$player" Return
    wait_window "Ann - 0 pts" 60
    local match=$WIN
    expect_size "$match" $((722 * S))x$((510 * S))
    sleep 2.5  # the turn indicator settles
    shot "$match" "$WORK/$name-before.ppm"
    at "$match" 445 489
    xdotool type --delay 60 80
    at "$match" 577 488
    xdotool type --delay 60 60
    at "$match" 677 487  # Throw
    wait_window "Bob - 0 pts" 30
    sleep 2.5
    shot "$match" "$WORK/$name-after.ppm"
    kill "$GAME_PID"
    wait "$GAME_PID" 2>/dev/null
    read -r l t r b <<<"$(changed_box "$WORK/$name-before.ppm" "$WORK/$name-after.ppm" \
        $((40 * S)) $((466 * S - 1)))"
    [ -n "${b:-}" ] || fail "the throw at scale $S left no mark on the city"
    CRATER="$((l / S)) $((t / S)) $((r / S)) $((b / S))"
}

S=1
throw_once small --scale 1
small=$CRATER
S=2
throw_once large
echo "crater at scale 1: $small; at the automatic scale 2: $CRATER"
same_crater "$small" "$CRATER" ||
    fail "the same throw lands at $CRATER at scale 2, at $small at scale 1"

# Every game pixel of the city is a 2 x 2 block of one colour (the wind label's text at the top
# right is drawn with the screen's fonts, which follow the scale at full resolution).
split=$(ppm_pixels 'if (y >= 80 && y < 932) { k = int(x / 2) " " int(y / 2); c = r " " g " " b
                        if (!(k in m)) m[k] = c; else if (m[k] != c) bad[k] = 1 }' \
    'n = 0; for (k in bad) n++; print n' "$WORK/large-before.ppm")
[ "$split" -eq 0 ] || fail "$split game pixels of the city are not one-colour 2 x 2 blocks"
echo "PASS: scale 2 on a 3840 x 2160 screen, whole pixels, the same crater as at scale 1"
