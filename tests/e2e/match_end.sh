#!/usr/bin/env bash
# A match to its end on the real binary under Xvfb, with the real keyboard and clock, then the
# match again from its record: Escape pauses a flight that then stands still until Space, on the
# box that took the keyboard, resumes it; the deciding hit and the game-over box no sooner than
# 5 s later; the credits left with Escape; a second match, whose player page keeps the keyboard
# after its message, that does not open paused; "Quit" ending the program. The first match's
# record, kept in the player's data folder, plays again with --replay in the match window to the
# same final board, pixel for pixel; --check prints the same figures without a window; and
# whatever stands where a record should ends the program with status 2 and one line naming the
# file, never a signal or a hang.
# Usage: match_end.sh GAME_BINARY
set -uo pipefail
source "$(dirname "$0")/../../tools/xsession/xsession.sh"
e2e_begin "$1"
export XDG_DATA_HOME=$WORK/data
FIELD="722 466 0 0"  # the play field of the match window: W H X Y

# Holds Escape down until the pause box shows: the match looks at the keyboard every 20 ms, and
# later on a busy machine, where a short press may come and go between two looks.
pause() { xdotool keydown Escape && wait_window "Game Over" && xdotool keyup Escape; }

# Seed 7, a day sky, frag limit 1 and no wind: Ann's throw at 40 degrees and 60 hits Bob.
start_game --seed 7
into_match 81 110 50 168 50 168 177 104 177 104 177 104 177 104 177 104
sleep 2.5  # the turn indicator settles
shot "$MATCH" "$WORK/before.ppm"
throw 40 60
sleep 0.6
xdotool windowfocus --sync "$MATCH"
pause
expect_size "$WIN" 256x78
sleep 0.3
shot "$MATCH" "$WORK/paused-1.ppm"
sleep 1.5
shot "$MATCH" "$WORK/paused-2.ppm"
cmp -s "$WORK/paused-1.ppm" "$WORK/paused-2.ppm" || fail "the projectile moves during the pause"
# The box hides the middle of the window's picture; the projectile flies just above it.
[ "$(count_changed "$WORK/before.ppm" "$WORK/paused-1.ppm" 722 214 0 0)" -gt 0 ] ||
    fail "no projectile in the air during the pause"
xdotool key space
wait_gone "Game Over"
resumed_ms=$(now_ms)
wait_window "Game Over" 30
[ $(($(now_ms) - resumed_ms)) -ge 5000 ] || fail "the game-over box came within 5 s of the hit"
shot "$MATCH" "$WORK/live.ppm"

click "$WIN" 127 60  # "View Credits"
wait_window "Grumbo Credits"
wait_gone "Ann - [0-9-]* pts"
expect_size "$WIN" 530x351
# Escape closes the credits while it is down; the next match must not take it for a pause. On
# its way, "Next" with no name brings a message titled as the game: once it is dismissed the
# keyboard is back in the name box, though nothing but the game could give it (no window manager,
# the pointer off the window).
press "$WIN" Escape
wait_window "Grumbo 2 - Kravenmoor"
click "$WIN" 286 162  # Start
wait_window "Setup"
click "$WIN" 286 162  # Next
wait_window "Player 1"
player=$WIN
click "$player" 151 213  # Next
wait_window "Grumbo 2 - Kravenmoor"
press "$WIN" Return
wait_gone "Grumbo 2 - Kravenmoor"
xdotool mousemove 0 0 type --delay 40 "Ann"
xdotool key Return
wait_window "Player 2"
type_into "$player" Bob
press "$player" Return
wait_window "Ann - 0 pts" 60
MATCH=$WIN
sleep 1
xdotool search --onlyvisible --name '^Game Over$' >/dev/null 2>&1 && fail "the second match opens paused"
xdotool windowfocus --sync "$MATCH"
pause
click "$WIN" 211 60  # "Quit"
wait_end "Quit"
[ "$STATUS" -eq 0 ] || fail "Quit ended the game with status $STATUS"

# --- the first match, played again from its record ---
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
kill "$GAME_PID" && wait "$GAME_PID" 2>/dev/null
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
echo "PASS: pause and resume, the match's end, the credits, a second match, Quit; the first match's"
echo "      record ($size bytes), its replay to the same final board, and bad records"
