#!/usr/bin/env bash
# One match on two real programs over loopback under Xvfb, the computer at every seat: the host
# holds player 2's seat open, the joiner takes it with the code, and both play to the final board
# and the game-over box, with the same final board pixel for pixel and a record on each side.
# Then the faults: a wrong code, garbage and a 100 MB message from a raw socket (the host plays
# on), the joiner killed mid-match (the host says who left), the host killed (the joiner says the
# host left).
# Usage: network.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
FIELD="722 466 0 0"
PORT=$((20000 + RANDOM % 20000))
MATCH_TITLE='.* - -?[0-9]+ pts'

# Sets WIN to the visible window of process PID titled TITLE (a pattern), within SECONDS.
wait_own() {  # wait_own PID TITLE [SECONDS]
    local deadline=$(($(now_ms) + ${3:-10} * 1000)) w
    WIN=
    while [ "$(now_ms)" -lt "$deadline" ]; do
        for w in $(xdotool search --onlyvisible --pid "$1" 2>/dev/null); do
            if xdotool getwindowname "$w" 2>/dev/null | grep -qxE -- "$2"; then
                WIN=$w
                return 0
            fi
        done
        kill -0 "$1" 2>/dev/null || fail "process $1 ended while waiting for \"$2\""
        sleep 0.1
    done
    fail "no window \"$2\" of process $1 after ${3:-10} s; visible: $(xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null | tr '\n' '|')"
}

start_as() {  # start_as NAME ARGS...: PID_<NAME> is the process
    local name=$1
    shift
    mkdir -p "$WORK/$name"
    XDG_DATA_HOME=$WORK/$name "$GAME" "$@" >"$WORK/$name.log" 2>&1 &
    eval "PID_$name=$!"
}

host_lobby() {  # host_lobby LIMIT: the host's program up to its waiting box; frag limit 1 or 3
    start_as host --seed 7 --remote 2 --computer 1 --port "$PORT" --code "red apple"
    wait_own "$PID_host" "Grumbo 2 - Kravenmoor"
    click "$WIN" 286 162  # Start
    wait_own "$PID_host" "Setup"
    if [ "$1" -eq 1 ]; then
        click "$WIN" 50 168
        click "$WIN" 50 168
    fi
    click "$WIN" 286 162  # Next
    wait_own "$PID_host" "Player 1"
    click "$WIN" 151 213  # Next: the computer's seat
    wait_own "$PID_host" "Player 2"
    click "$WIN" 151 213  # Next: the seat left to the network
    wait_own "$PID_host" "Grumbo 2 - Kravenmoor"
}

joiner_in() {  # joiner_in CODE: the joiner's program through its player page
    start_as joiner --join "127.0.0.1:$PORT" --code "$1" --computer 1
    wait_own "$PID_joiner" "Player 2" 15
    click "$WIN" 151 213  # Next
}

# --- a whole match ---
host_lobby 1
joiner_in "RED  apple"
wait_own "$PID_host" "Game Over" 300
for who in host joiner; do
    pid=PID_$who
    wait_own "${!pid}" "Game Over" 60
    match=$(xdotool search --onlyvisible --pid "${!pid}" --name ' pts$' | head -n1)
    [ -n "$match" ] || fail "no match window of the $who"
    shot "$match" "$WORK/$who.ppm"
done
differ=$(count_changed "$WORK/host.ppm" "$WORK/joiner.ppm" $FIELD)
[ "$differ" -eq 0 ] || fail "the final boards differ in $differ pixels"
# Each machine keeps its record of the match, and both play again to the same board. The joiner
# leaves first: the host would tell him it left.
for who in joiner host; do
    pid=PID_$who
    wait_own "${!pid}" "Game Over"
    xdotool windowraise "$WIN"  # the two boxes stand in the same place
    click "$WIN" 211 60  # Quit
    for _ in $(seq 100); do kill -0 "${!pid}" 2>/dev/null || break; sleep 0.1; done
    kill -0 "${!pid}" 2>/dev/null && fail "Quit did not end the $who's program"
    record=$(ls "$WORK/$who"/grumbo2/replays/match-*.txt 2>/dev/null | head -n1)
    [ -n "$record" ] || fail "the $who kept no record"
    "$GAME" --replay "$record" --check >"$WORK/$who.board" 2>&1 || fail "$who: $(cat "$WORK/$who.board")"
done
cmp -s "$WORK/host.board" "$WORK/joiner.board" || fail "the records end otherwise: $(cat "$WORK"/*.board)"
echo "the same final board on both machines, and in both records:"
sed 's/^/    /' "$WORK/host.board"

# --- faults, in matches long enough to be cut short ---
host_lobby 3
start_as joiner --join "127.0.0.1:$PORT" --code "green pear" --computer 1
wait_own "$PID_joiner" "Network Match" 15
echo "a wrong code: the joiner is told"
kill "$PID_joiner"
head -c 3000 /dev/urandom >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
printf '\x06\x00\x00\x00' | cat - <(head -c 1000000 /dev/zero) >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
kill -0 "$PID_host" || fail "the host fell to garbage"
joiner_in "red apple"
wait_own "$PID_host" "$MATCH_TITLE" 60
sleep 6
kill -9 "$PID_joiner"
wait_own "$PID_host" "Network Match" 40
echo "the joiner killed: the host is told"
kill "$PID_host"
wait "$PID_host" 2>/dev/null

host_lobby 3
joiner_in "red apple"
wait_own "$PID_joiner" "$MATCH_TITLE" 60
sleep 4
kill -9 "$PID_host"
wait_own "$PID_joiner" "Network Match" 40
echo "the host killed: the joiner is told"
kill "$PID_joiner"
echo "PASS: a networked match to the same final board, and its faults"
