#!/usr/bin/env bash
# The game on a 3840 x 2160 screen: the automatic scale doubles every window with whole pixels,
# so that each pixel of the city seeded at scale 1 is a 2 x 2 block of the same colour, and the
# clicks of a throw land on the boxes and the button at twice their places.
# Usage: scaled.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/../../tools/xsession/xsession.sh"
E2E_SCREEN=3840x2160 e2e_begin "$1"

for S in 1 2; do
    if [ "$S" -eq 1 ]; then start_game --seed 7 --scale 1; else start_game --seed 7; fi
    into_match
    expect_size "$MATCH" $((722 * S))x$((510 * S))
    sleep 2.5  # the turn indicator settles
    shot "$MATCH" "$WORK/scale$S.ppm"
    [ "$S" -eq 1 ] && kill "$GAME_PID" && wait "$GAME_PID" 2>/dev/null
done
throw 80 60
wait_window "Bob - 0 pts" 30
echo "a throw clicked at scale 2 passes the turn"

# The city's rows (the wind label above them is drawn with the screen's fonts, which follow the
# scale at full resolution).
read -r differ compared < <(awk 'NR == FNR { m[$1 " " $2] = $3 " " $4 " " $5; next }
    { c++ } m[int($1 / 2) " " int($2 / 2)] != $3 " " $4 " " $5 { n++ } END { print n + 0, c + 0 }' \
    <(ppm_pixels 'if (y >= 40 && y < 466) print x, y, r, g, b' '' "$WORK/scale1.ppm") \
    <(ppm_pixels 'if (y >= 80 && y < 932) print x, y, r, g, b' '' "$WORK/scale2.ppm"))
[ "$compared" -eq $((1444 * 852)) ] || fail "only $compared pixels of the city at scale 2"
[ "$differ" -eq 0 ] || fail "$differ pixels of the city at scale 2 are not their pixel at scale 1"
echo "PASS: scale 2 on a 3840 x 2160 screen, the city's pixels doubled whole, clicks in place"
