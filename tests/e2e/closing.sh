#!/usr/bin/env bash
# Closing the real binary's windows under Xvfb as a window manager does, with a close request
# (WM_DELETE_WINDOW) and by destroying the window outright, at every stage: title, setup, player
# selection, the loading box while the timers are synchronised, the match window while it starts,
# in a round and behind a new round's loading box, the pause box, the game-over box, the credits.
# The game ends within two seconds, with status 0, but for the credits, which lead back to the
# title. A standard error that nobody reads does not end the game.
# Usage: closing.sh GAME_BINARY
set -uo pipefail
here=$(dirname "$0")
source "$here/../../tools/xsession/xsession.sh"

# The system's Python, which python3-xlib serves.
xlib=/usr/bin/python3
"$xlib" -c "import Xlib" 2>/dev/null || { echo "SKIP: python3-xlib is not installed"; exit 77; }
e2e_begin "$1"

# Waits at most 2 s for the game to end; it must end with status 0.
ended() {  # ended WHAT
    wait_end "$1" 2
    echo "$1: the game ended after $TOOK ms with status $STATUS"
    [ "$STATUS" -eq 0 ] || fail "$1: exit status $STATUS"
}

# Does HOW (close or destroy) to WINDOW, at once or, when SIZE is given, the moment a window of
# that size shows; the game must then end.
close_window() {  # close_window HOW WINDOW WHAT [SIZE]
    "$xlib" "$here/window_manager.py" "$1" "$2" ${4:+"$4"} || fail "$3: nothing to $1"
    ended "$3, $1"
}

# Sets WIN to the loading box, untitled and 281 x 58, once it shows (at most SECONDS).
wait_loading() {  # wait_loading SECONDS
    local deadline=$(($(now_ms) + $1 * 1000)) id
    while [ "$(now_ms)" -lt "$deadline" ]; do
        for id in $(xdotool search --onlyvisible --pid "$GAME_PID" 2>/dev/null); do
            WIN=$id
            [ "$(xwininfo -id "$id" | awk '/Width:/ {w=$2} /Height:/ {h=$2} END {print w "x" h}')" = 281x58 ] && return 0
        done
        sleep 0.05
    done
    fail "no loading box after $1 s"
}

# Each stage starts the game anew and sets W to the window to close.
title() { start_game "$@" && wait_window "Grumbo 2 - Kravenmoor" && W=$WIN; }
setup() { title && click "$W" 286 162 && wait_window "Setup" && W=$WIN; }
players() { setup && click "$W" 286 162 && wait_window "Player 1" && W=$WIN; }
# The last player's Enter starts the match: the loading box (titled as the program) stands over it
# while the timers are synchronised, for a second.
starting() {
    players
    type_into "$W" Ann
    press "$W" Return
    wait_window "Player 2"
    type_into "$W" Bob
    xdotool key Return
    wait_loading 5
    BOX=$WIN
    wait_window Grumbo 2
    W=$WIN
}
sync_box() { starting && W=$BOX; }
# Seed 7, a day sky and no wind: Ann's throw at 40 degrees and 60 hits Bob. CLICKS go to the setup.
hit() {  # hit CLICKS...
    start_game --seed 7
    into_match 81 110 177 104 177 104 177 104 177 104 177 104 "$@"
    throw 40 60
}
in_round() { start_game && into_match && W=$MATCH; }
# Escape is held until the pause box shows: the match looks at the keyboard every 20 ms, later on
# a busy machine.
paused() {
    in_round && xdotool windowfocus --sync "$MATCH" keydown Escape && wait_window "Game Over" &&
        xdotool keyup Escape && W=$WIN
}
game_over() { hit 50 168 50 168 && wait_window "Game Over" 30 && W=$WIN; }
credits() { game_over && click "$W" 127 60 && wait_window "Grumbo Credits" && W=$WIN; }

for stage in title setup players sync_box starting in_round paused game_over; do
    for how in close destroy; do
        $stage
        close_window "$how" "$W" "$stage"
    done
done

# The hit ends the first of three rounds; the next round's city is built behind its loading box,
# which stands for some 20 ms: the match window is closed the moment it shows.
for how in close destroy; do
    hit
    close_window "$how" "$MATCH" "the match behind a new round's loading box" 281x58
done

# "Exit" on the title screen ends the game as well.
title
xdotool mousemove --window "$W" 37 162 click 1
ended "the title's Exit"

# The credits lead back to the title, whose closing ends the game.
for how in close destroy; do
    credits
    "$xlib" "$here/window_manager.py" "$how" "$W"
    wait_window "Grumbo 2 - Kravenmoor" 2
    close_window close "$WIN" "the title after the credits' $how"
done

# Standard error that nobody reads any more: the toolkit's first words (the runtime folder is open
# to others) go nowhere, and the game plays on.
mkdir -m 755 "$WORK/open"
mkfifo "$WORK/stderr"
exec 3<>"$WORK/stderr" 4>"$WORK/stderr" 3<&-  # a pipe whose reader has gone
XDG_RUNTIME_DIR=$WORK/open "$GAME" 2>&4 &
GAME_PID=$!
exec 4>&-
wait_window "Grumbo 2 - Kravenmoor"
close_window close "$WIN" "the title with a closed standard error"
echo "PASS: every window closed or destroyed ends the game at once; a closed standard error is harmless"
