#!/usr/bin/env bash
# Leaving and finishing a match on the real binary under Xvfb: Escape pauses and "Start Over"
# goes back to setup; a paused flight lands, after "Resume", where the same seeded throw lands
# uninterrupted; "\hop fremble" lets the arrow keys fly the thrower; a match to its frag limit,
# the game-over box five seconds after the final board, the credits left with Escape, and a
# second match that does not open paused.
# Usage: match_end.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
SEED=7
FIELD_BOTTOM=465  # the last row of the play field in the match window

# Holds KEY down long enough for the match's keyboard poll (every 20 ms) to see it.
tap() {  # tap KEY [TIMES]
    for _ in $(seq "${2:-1}"); do
        xdotool keydown "$1" && sleep 0.05 && xdotool keyup "$1" && sleep 0.05
    done
}

# Setup with day sky, no wind and frag limit 1, two players: the match window "Ann - 0 pts".
setup_and_players() {
    wait_window "Setup"
    local setup=$WIN
    click "$setup" 81 110                                # time of day: up to "Day"
    for _ in 1 2; do click "$setup" 50 168; done         # frag limit: down to 1
    for _ in 1 2 3 4 5; do click "$setup" 177 104; done  # wind extremity: down to 0
    click "$setup" 286 162                               # Next
    wait_window "Player 1"
    local player=$WIN
    click "$player" 190 185
    type_into "$player" "Ann"
    press "$player" Return
    wait_window "Player 2"
    type_into "$player" "Bob"
    press "$player" Return
    wait_window "Ann - 0 pts" 60
    MATCH=$WIN
    expect_size "$MATCH" 722x510
}

front_end() {
    wait_window "Grumbo 2 - Kravenmoor"
    click "$WIN" 286 162  # Start
    setup_and_players
}

throw() {  # throw ANGLE VELOCITY
    click "$MATCH" 445 489
    xdotool type --delay 60 "$1"
    click "$MATCH" 577 488
    xdotool type --delay 60 "$2"
    click "$MATCH" 677 487
}

# The turn indicator bobs for about two seconds after a turn begins; pictures wait for it.
settle() { sleep 2.5; }

# What changes when the thrower flies up and back down: his box, 3 pixels higher at the top.
thrower_box() {  # thrower_box NAME
    xdotool windowfocus --sync "$MATCH"
    shot "$MATCH" "$WORK/$1-a.ppm"
    tap Up && sleep 0.2
    shot "$MATCH" "$WORK/$1-b.ppm"
    tap Down && sleep 0.2
    changed_box "$WORK/$1-a.ppm" "$WORK/$1-b.ppm" 0 "$FIELD_BOTTOM"
}

# --- the throw without a pause ---
start_game --seed "$SEED"
front_end
settle
shot "$MATCH" "$WORK/before-plain.ppm"
throw 80 60
wait_window "Bob - 0 pts" 30
settle
shot "$MATCH" "$WORK/after-plain.ppm"
plain=$(changed_box "$WORK/before-plain.ppm" "$WORK/after-plain.ppm" 40 "$FIELD_BOTTOM")
[ -n "$plain" ] || fail "the throw left no mark on the city"
kill "$GAME_PID"
wait "$GAME_PID" 2>/dev/null
echo "uninterrupted throw: crater at $plain"

# --- a second game: pause, "Start Over", and the same throw with a pause ---
start_game --seed "$SEED"
front_end
xdotool windowfocus --sync "$MATCH"
tap Escape
wait_window "Game Over"
expect_size "$WIN" 256x78
click "$WIN" 127 60  # "Start Over"
wait_window "Setup"
wait_gone "Ann - 0 pts"
wait_gone "Game Over"
echo "Start Over: setup shown, no match window"
setup_and_players
settle
shot "$MATCH" "$WORK/before-paused.ppm"
cmp -s "$WORK/before-plain.ppm" "$WORK/before-paused.ppm" ||
    fail "two games started with --seed $SEED show different cities"
throw 80 60
sleep 0.5
xdotool windowfocus --sync "$MATCH"
tap Escape
wait_window "Game Over"
box=$WIN
sleep 0.3
shot "$MATCH" "$WORK/paused-1.ppm"
sleep 1.5
shot "$MATCH" "$WORK/paused-2.ppm"
cmp -s "$WORK/paused-1.ppm" "$WORK/paused-2.ppm" || fail "the projectile moves during the pause"
# The box hides part of the window's picture; the projectile flies above it.
[ -n "$(changed_box "$WORK/before-paused.ppm" "$WORK/paused-1.ppm" 0 200)" ] ||
    fail "no projectile in the air during the pause"
# The box took the keyboard as it opened: Space presses its first button, "Resume".
xdotool key space
wait_gone "Game Over"
wait_window "Bob - 0 pts" 30
settle
shot "$MATCH" "$WORK/after-paused.ppm"
paused=$(changed_box "$WORK/before-paused.ppm" "$WORK/after-paused.ppm" 40 "$FIELD_BOTTOM")
echo "resumed throw: crater at $paused"
[ -n "$paused" ] || fail "the resumed throw left no mark on the city"
same_crater "$plain" "$paused" || fail "the resumed throw landed at $paused, not at $plain"

# --- flying: Bob types the code and is measured, then throws out of the field ---
xdotool windowfocus --sync "$MATCH"
xdotool type --delay 100 '\hop fremble'
read -r bobL bobT bobR bobB <<<"$(thrower_box bob)"
[ -n "$bobB" ] || fail "Bob does not move with the arrow keys after \\hop fremble"
throw 135 999
wait_window "Ann - [0-9-]* pts" 30
settle
read -r annL annT annR annB <<<"$(thrower_box ann)"
tap Left 4
sleep 0.3
shot "$MATCH" "$WORK/ann-left.ppm"
read -r l _ r _ <<<"$(changed_box "$WORK/ann-a.ppm" "$WORK/ann-left.ppm" 0 "$FIELD_BOTTOM")"
[ "$r" = "$annR" ] && [ $((annL - l)) -eq 12 ] ||
    fail "four times Left moved Ann from $annL..$annR to $l..$r, not 12 pixels to the left"
echo "four times Left: Ann 12 pixels to the left"

# --- the end: Ann flies over Bob and drops a projectile on him ---
# A left-side thrower's projectile starts at the left edge of his picture, about 10 pixels left
# of the figure: that edge goes over Bob's middle.
dx=$(((bobL + bobR) / 2 + 9 - (annL - 12)))
if [ "$dx" -ge 0 ]; then tap Right $(((dx + 1) / 3)); else tap Left $(((1 - dx) / 3)); fi
dy=$((annB - (bobT + 3) + 10))
[ "$dy" -gt 0 ] && tap Up $(((dy + 2) / 3))
throw 90 1
# The final board darkens every odd row of the city: row 101 against row 102 at the left edge.
board_shown() {
    import -window "$MATCH" -crop 1x2+5+101 +repage -depth 8 -compress none ppm:- 2>/dev/null |
        awk 'BEGIN { RS = "[ \t\n]+" } NR > 4 { v[NR - 5] = $0 }
             END { exit !((v[0] + v[1] + v[2]) * 10 < (v[3] + v[4] + v[5]) * 8) }'
}
box_up() { xdotool search --onlyvisible --name '^Game Over$' >/dev/null 2>&1; }
# The board came between two looks; the box may open no sooner than 5 s after the first of them.
before_ms=$(now_ms)
deadline=$((before_ms + 30000))
board_ms=
while [ -z "$board_ms" ] && [ "$(now_ms)" -lt "$deadline" ]; do
    look_ms=$(now_ms)
    if board_shown; then board_ms=$look_ms; else
        box_up && fail "the box came before the board"
        before_ms=$look_ms
        sleep 0.2
    fi
done
[ -n "$board_ms" ] || fail "no final board after the drop on Bob"
early=$((before_ms + 4800 - $(now_ms)))
[ "$early" -gt 0 ] && sleep "$(awk -v ms="$early" 'BEGIN { print ms / 1000 }')"
box_up && fail "the game-over box came less than 5 s after the board"
wait_window "Game Over" 10
echo "game-over box $(($(now_ms) - board_ms)) ms after the board was seen"

click "$WIN" 127 60  # "View Credits"
wait_window "Grumbo Credits"
credits=$WIN
wait_gone "Ann - [0-9-]* pts"
expect_size "$credits" 530x351
shot "$credits" "$WORK/credits-1.ppm"
sleep 1
shot "$credits" "$WORK/credits-2.ppm"
cmp -s "$WORK/credits-1.ppm" "$WORK/credits-2.ppm" && fail "the credits do not scroll"
# The shipped lines take (351 + 796 + 1) ticks of 25 ms: about 29 s. Then "Credits Completed"
# stands alone on black around the middle row.
deadline=$(($(now_ms) + 60000))
while :; do
    [ "$(now_ms)" -lt "$deadline" ] || fail "no \"Credits Completed\" alone on black"
    sleep 2
    shot "$credits" "$WORK/credits.ppm"
    top=$(count_other_than "$WORK/credits.ppm" "0 0 0" 530 160 0 0)
    bottom=$(count_other_than "$WORK/credits.ppm" "0 0 0" 530 150 0 200)
    middle=$(count_other_than "$WORK/credits.ppm" "0 0 0" 530 40 0 160)
    [ $((top + bottom)) -eq 0 ] && [ "$middle" -gt 0 ] && break
done
echo "Credits Completed"
# Escape closes the credits before it comes up again; the next match must not take it for a pause.
press "$credits" Escape
wait_window "Grumbo 2 - Kravenmoor"
wait_gone "Grumbo Credits"

# --- a second match from the title screen ---
click "$WIN" 286 162  # Start
setup_and_players
sleep 1
box_up && fail "the second match opens paused"
echo "PASS: pause, resume, start over, flying, the match's end, the credits and a second match"
