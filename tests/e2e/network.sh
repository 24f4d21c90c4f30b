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

start_as() {  # start_as NAME ARGS...: PID_<NAME> is the process
    local name=$1
    shift
    mkdir -p "$WORK/$name"
    XDG_DATA_HOME=$WORK/$name "$GAME" "$@" >"$WORK/$name.log" 2>&1 &
    eval "PID_$name=$!"
}

host_lobby() {  # host_lobby LIMIT: the host's program up to its waiting box; frag limit 1 or 3
    start_as host --seed 7 --remote 2 --computer 1 --port "$PORT" --code "red apple"
    wait_window "Grumbo 2 - Kravenmoor" 10 "$PID_host"
    click "$WIN" 286 162  # Start
    wait_window "Setup" 10 "$PID_host"
    if [ "$1" -eq 1 ]; then
        click "$WIN" 50 168
        click "$WIN" 50 168
    fi
    click "$WIN" 286 162  # Next
    wait_window "Player 1" 10 "$PID_host"
    click "$WIN" 151 213  # Next: the computer's seat
    wait_window "Player 2" 10 "$PID_host"
    click "$WIN" 151 213  # Next: the seat left to the network
    wait_window "Grumbo 2 - Kravenmoor" 10 "$PID_host"
}

joiner_in() {  # joiner_in CODE: the joiner's program through its player page
    start_as joiner --join "127.0.0.1:$PORT" --code "$1" --computer 1
    wait_window "Player 2" 15 "$PID_joiner"
    click "$WIN" 151 213  # Next
}

# --- a whole match ---
host_lobby 1
joiner_in "RED  apple"
wait_window "Game Over" 300 "$PID_host"
for who in host joiner; do
    pid=PID_$who
    wait_window "Game Over" 60 "${!pid}"
    wait_window "$MATCH_TITLE" 1 "${!pid}"
    # The two match windows stand in the same place: the one shot must be on top and drawn.
    xdotool windowraise "$WIN"
    sleep 1
    shot "$WIN" "$WORK/$who.ppm"
done
differ=$(count_changed "$WORK/host.ppm" "$WORK/joiner.ppm" $FIELD)
[ "$differ" -eq 0 ] || fail "the final boards differ in $differ pixels"
# Each machine keeps its record of the match, and both play again to the same board. The joiner
# leaves first: the host would tell him it left.
for who in joiner host; do
    pid=PID_$who
    wait_window "Game Over" 10 "${!pid}"
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
wait_window "Network Match" 15 "$PID_joiner"
echo "a wrong code: the joiner is told"
kill "$PID_joiner"
head -c 3000 /dev/urandom >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
printf '\x06\x00\x00\x00' | cat - <(head -c 1000000 /dev/zero) >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
kill -0 "$PID_host" || fail "the host fell to garbage"
joiner_in "red apple"
wait_window "$MATCH_TITLE" 60 "$PID_host"
sleep 6
kill -9 "$PID_joiner"
wait_window "Network Match" 40 "$PID_host"
echo "the joiner killed: the host is told"
kill "$PID_host"
wait "$PID_host" 2>/dev/null

host_lobby 3
joiner_in "red apple"
wait_window "$MATCH_TITLE" 60 "$PID_joiner"
sleep 4
kill -9 "$PID_host"
wait_window "Network Match" 40 "$PID_joiner"
echo "the host killed: the joiner is told"
kill "$PID_joiner"
echo "PASS: a networked match to the same final board, and its faults"
