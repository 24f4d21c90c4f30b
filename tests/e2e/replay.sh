#!/usr/bin/env bash
# A match is its record, on the real binary under Xvfb: a person's match, typed and thrown, to
# the game-over box leaves a record in the player's data folder; --replay plays it in
# the match window to the same final board, pixel for pixel, --check prints the same figures
# without a window, and whatever stands where a record should ends the program with status 2 and
# one line naming the file, never a signal or a hang.
# Usage: replay.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/xsession.sh"
e2e_begin "$1"
export XDG_DATA_HOME=$WORK/data
FIELD="722 466 0 0"  # the play field of the match window: W H X Y

# --- the match, played ---
# Seed 7, a day sky, frag limit 1 and no wind: Ann's throw at 40 degrees and 60 hits Bob.
start_game --seed 7
into_match 81 110 50 168 50 168 177 104 177 104 177 104 177 104 177 104
throw 40 60
wait_window "Game Over" 300
box=$WIN
shot "$MATCH" "$WORK/live.ppm"
click "$box" 211 60  # "Quit"
wait_end "Quit"
record=$(ls "$XDG_DATA_HOME"/grumbo2/replays/match-*.txt 2>/dev/null | head -n1)
[ -n "$record" ] || fail "no record in $XDG_DATA_HOME/grumbo2/replays"
size=$(stat -c %s "$record")
echo "the record: $(basename "$record"), $size bytes"

# --- the same match, played again ---
start_game --replay "$record"
wait_window "Replay - .*" 10
replay=$WIN
wait_window "Game Over" 300
shot "$replay" "$WORK/replayed.ppm"
differ=$(count_changed "$WORK/live.ppm" "$WORK/replayed.ppm" $FIELD)
[ "$differ" -eq 0 ] || fail "the replay's final board differs from the match's in $differ pixels"
kill "$GAME_PID"
wait "$GAME_PID" 2>/dev/null
GAME_PID=
board=$("$GAME" --replay "$record" --check 2>&1) || fail "--check failed: $board"
[ "$(printf '%s\n' "$board" | wc -l)" -eq 2 ] || fail "--check does not print two rows: $board"
printf '%s\n' "$board" | head -n1 | grep -q "^Ann	1	" || fail "Ann's frag is not on top: $board"
echo "the same final board, and --check prints it:"
printf '%s\n' "$board" | sed 's/^/    /'

# --- bad records ---
# What a record may hold wrongly is read on the model; here, what may stand in its place.
bad() {  # bad NAME FILE
    local out status
    out=$(timeout 10 "$GAME" --replay "$2" --check 2>&1)
    status=$?
    [ "$status" -eq 2 ] || fail "$1: exit status $status ($out)"
    [ "$(printf '%s\n' "$out" | wc -l)" -eq 1 ] || fail "$1: more than one line: $out"
    case "$out" in *"$2"*) ;; *) fail "$1: the message does not name the file: $out" ;; esac
    echo "$1: $out"
}
dir=$WORK/bad
mkdir -p "$dir/folder"
mkfifo "$dir/pipe"
head -c 3000 /dev/urandom >"$dir/garbled"
head -c 1200000 /dev/zero | tr '\0' 'x' >"$dir/huge"
bad "missing" "$dir/none"
bad "garbled" "$dir/garbled"
bad "a folder" "$dir/folder"
bad "a named pipe" "$dir/pipe"
bad "over 1 MB" "$dir/huge"
# The window's way fails the same, before any window opens.
out=$(timeout 10 "$GAME" --replay "$dir/garbled" 2>&1)
[ $? -eq 2 ] || fail "--replay of a garbled record without --check: status not 2 ($out)"
echo "PASS: a match, its record ($size bytes), its replay to the same final board, and bad records"
