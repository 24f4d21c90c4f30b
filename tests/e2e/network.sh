#!/usr/bin/env bash
# Matches on several real programs over loopback under Xvfb, the computer at every seat: the host
# holds seats open, joiners take them with the code, and every program plays to the final board:
# 1 vs 1 on two programs, 2 vs 2 on three, each machine with the same final board pixel for pixel
# and a record of its own. Then the faults: a wrong code, garbage and a 100 MB message from a raw
# socket (the host plays on), another version of the game (told why), a joiner killed mid-match
# (the host and the other joiner say who left), the host killed (the joiner says the host left).
# Usage: network.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/../../tools/xsession/xsession.sh"
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

# The host's program up to its waiting box: PLAYERS player pages, the seats REMOTE left to the
# network, COMPUTER played by its computer; each X Y is clicked in the setup first.
host_lobby() {  # host_lobby PLAYERS REMOTE COMPUTER [X Y]...
    local players=$1 k
    start_as host --seed 7 --remote "$2" --computer "$3" --port "$PORT" --code "red apple"
    shift 3
    wait_window "Grumbo 2 - Kravenmoor" 10 "$PID_host"
    click "$WIN" 286 162  # Start
    wait_window "Setup" 10 "$PID_host"
    while [ $# -ge 2 ]; do click "$WIN" "$1" "$2"; shift 2; done
    click "$WIN" 286 162  # Next
    for k in $(seq "$players"); do
        wait_window "Player $k" 10 "$PID_host"
        click "$WIN" 151 213  # Next
    done
    wait_window "Grumbo 2 - Kravenmoor" 10 "$PID_host"
}

joiner_in() {  # joiner_in NAME CODE: a joiner's program through its player page
    start_as "$1" --join "127.0.0.1:$PORT" --code "$2" --computer 1
    local pid=PID_$1
    wait_window "Player [2-4]" 15 "${!pid}"
    click "$WIN" 151 213  # Next
}

# The machines play to the final board, the same pixel for pixel on each; each keeps a record of
# the match that plays again to the same board. The joiners leave first: the host would tell
# them it left.
same_end() {  # same_end HOST JOINER...
    local who pid record differ
    wait_window "Game Over" 300 "$PID_host"
    for who in "$@"; do
        pid=PID_$who
        wait_window "Game Over" 60 "${!pid}"
        wait_window "$MATCH_TITLE" 1 "${!pid}"
        # The match windows stand in the same place: the one shot must be on top and drawn.
        xdotool windowraise "$WIN"
        sleep 1
        shot "$WIN" "$WORK/$who.ppm"
    done
    for who in "${@:2}" "$1"; do
        differ=$(count_changed "$WORK/$1.ppm" "$WORK/$who.ppm" $FIELD)
        [ "$differ" -eq 0 ] || fail "the final boards of $1 and $who differ in $differ pixels"
        pid=PID_$who
        wait_window "Game Over" 10 "${!pid}"
        xdotool windowraise "$WIN"
        click "$WIN" 211 60  # Quit
        for _ in $(seq 100); do kill -0 "${!pid}" 2>/dev/null || break; sleep 0.1; done
        kill -0 "${!pid}" 2>/dev/null && fail "Quit did not end the $who's program"
        record=$(ls "$WORK/$who"/grumbo2/replays/match-*.txt 2>/dev/null | tail -n1)
        [ -n "$record" ] || fail "the $who kept no record"
        "$GAME" --replay "$record" --check >"$WORK/$who.board" 2>&1 || fail "$who: $(cat "$WORK/$who.board")"
    done
    for who in "${@:2}"; do
        cmp -s "$WORK/$1.board" "$WORK/$who.board" || fail "the records end otherwise: $(cat "$WORK"/*.board)"
    done
    echo "the same final board on $# machines, and in their records:"
    sed 's/^/    /' "$WORK/$1.board"
}

# --- whole matches: 1 vs 1 on two machines, 2 vs 2 on three, to one frag ---
host_lobby 2 2 1 50 168 50 168
joiner_in joiner "RED  apple"
same_end host joiner
host_lobby 4 2,3 1,4 81 69 50 168 50 168
joiner_in left "red apple"
joiner_in right "red apple"
same_end host left right

# --- faults, in matches long enough to be cut short ---
host_lobby 4 2,3 1,4 81 69
start_as joiner --join "127.0.0.1:$PORT" --code "green pear" --computer 1
wait_window "Network Match" 15 "$PID_joiner"
echo "a wrong code: the joiner is told"
kill "$PID_joiner"
head -c 3000 /dev/urandom >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
printf '\x06\x00\x00\x00' | cat - <(head -c 1000000 /dev/zero) >"/dev/tcp/127.0.0.1/$PORT" 2>/dev/null
kill -0 "$PID_host" || fail "the host fell to garbage"
# Another version of the game greets as a joining program would: it is told why, naming both.
hello=$'hello 1\ngame 0.9\ncode red apple\nname Old'
exec 5<>"/dev/tcp/127.0.0.1/$PORT"
printf '\x00\x00\x00'"$(printf '\\x%02x' ${#hello})"'%s' "$hello" >&5
reply=$(timeout 5 cat <&5 | tr -cd '[:print:]')
exec 5<&-
[[ $reply == *"of the game, the joining computer 0.9"* ]] || fail "another version: \"$reply\""
echo "another version: \"$reply\""
joiner_in left "red apple"
joiner_in right "red apple"
wait_window "$MATCH_TITLE" 60 "$PID_right"
sleep 6
kill -9 "$PID_left"
wait_window "Network Match" 40 "$PID_host"
wait_window "Network Match" 20 "$PID_right"
echo "a joiner killed: the host and the other joiner are told"
kill "$PID_host" "$PID_right"
wait "$PID_host" "$PID_right" 2>/dev/null

host_lobby 2 2 1
joiner_in joiner "red apple"
wait_window "$MATCH_TITLE" 60 "$PID_joiner"
sleep 4
kill -9 "$PID_host"
wait_window "Network Match" 40 "$PID_joiner"
echo "the host killed: the joiner is told"
kill "$PID_joiner"
echo "PASS: a networked match to the same final board, and its faults"
