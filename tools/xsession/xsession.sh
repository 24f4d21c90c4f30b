# Drives the real game on a private X server, as a player would: find windows, click, type, look.
# Source it, then call e2e_begin with the game's binary; E2E_SCREEN=WxH sets the screen size.
# Exits 77 (skipped) when a tool is missing; `./build.sh test` installs them. The README's pictures
# and the runs of the real game under Xvfb (tests/e2e/) both use it.

e2e_begin() {  # e2e_begin GAME_BINARY
    GAME=$1
    local tool i
    for tool in Xvfb xdotool xwininfo import awk; do
        command -v "$tool" >/dev/null || { echo "SKIP: $tool is not installed"; exit 77; }
    done
    WORK=$(mktemp -d)
    chmod 700 "$WORK"
    # The test runner may ask for the headless platform; this test wants the X server.
    export XDG_RUNTIME_DIR=$WORK SDL_AUDIODRIVER=dummy QT_QPA_PLATFORM=xcb
    GAME_PID= XVFB_PID=
    trap e2e_end EXIT
    # Xvfb chooses a free display and writes its number, so parallel runs never meet.
    # -noreset: a game started right after another one ended must not meet a server resetting.
    Xvfb -displayfd 3 -screen 0 "${E2E_SCREEN:-1024x768}x24" -nolisten tcp -noreset \
        3>"$WORK/display" 2>"$WORK/xvfb.log" &
    XVFB_PID=$!
    for i in $(seq 100); do [ -s "$WORK/display" ] && break; sleep 0.1; done
    [ -s "$WORK/display" ] || fail "Xvfb did not start: $(cat "$WORK/xvfb.log")"
    export DISPLAY=:$(cat "$WORK/display")
}

e2e_end() {
    [ -n "$GAME_PID" ] && kill "$GAME_PID" 2>/dev/null
    [ -n "$XVFB_PID" ] && kill "$XVFB_PID" 2>/dev/null
    wait 2>/dev/null
    rm -rf "$WORK"
}

fail() {
    echo "FAIL: $*" >&2
    [ -f "$WORK/game.log" ] && sed 's/^/game: /' "$WORK/game.log" >&2
    exit 1
}

now_ms() { echo $(($(date +%s%N) / 1000000)); }

start_game() {  # start_game [ARGS...]
    "$GAME" "$@" >"$WORK/game.log" 2>&1 &
    GAME_PID=$!
}

# Waits up to SECONDS (10) for the game to end on its own; STATUS is then its exit status and
# TOOK the milliseconds it took.
wait_end() {  # wait_end WHAT [SECONDS]
    local start
    start=$(now_ms)
    while kill -0 "$GAME_PID" 2>/dev/null; do
        [ $(($(now_ms) - start)) -lt $((${2:-10} * 1000)) ] || fail "$1: the game still runs ${2:-10} s later"
        sleep 0.02
    done
    wait "$GAME_PID"
    STATUS=$?
    TOOK=$(($(now_ms) - start))
    GAME_PID=
}

# Sets WIN to the visible window whose whole title matches the pattern TITLE once it shows (at
# most SECONDS); with PID, only a window of that process, which must not end meanwhile.
wait_window() {  # wait_window TITLE [SECONDS] [PID]
    local deadline=$(($(now_ms) + ${2:-10} * 1000)) pid=${3:-$GAME_PID}
    WIN=
    while [ "$(now_ms)" -lt "$deadline" ]; do
        WIN=$(xdotool search --all --onlyvisible ${3:+--pid "$3"} --name "^$1\$" 2>/dev/null | head -n1)
        [ -n "$WIN" ] && return 0
        kill -0 "$pid" 2>/dev/null || fail "process $pid ended while waiting for \"$1\""
        sleep 0.1
    done
    fail "no window \"$1\" after ${2:-10} s; visible: $(xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null | tr '\n' '|')"
}

wait_gone() {  # wait_gone TITLE [SECONDS]
    local deadline=$(($(now_ms) + ${2:-10} * 1000))
    while [ "$(now_ms)" -lt "$deadline" ]; do
        xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "window \"$1\" is still there"
}

expect_size() {  # expect_size WINDOW WIDTHxHEIGHT
    local size
    size=$(xwininfo -id "$1" | awk '/Width:/ {w=$2} /Height:/ {h=$2} END {print w "x" h}')
    [ "$size" = "$2" ] || fail "window $(xdotool getwindowname "$1") is $size, not $2"
}

# Clicks at game coordinates; S is the scale the windows are drawn at.
click() {  # click WINDOW X Y
    xdotool mousemove --window "$1" $(($2 * ${S:-1})) $(($3 * ${S:-1})) click 1
    sleep 0.2
}

# Without a window manager nothing gives the focus; the player clicks into the window first.
type_into() {  # type_into WINDOW TEXT
    xdotool windowfocus --sync "$1"
    xdotool type --delay 40 "$2"
    sleep 0.2
}

press() {  # press WINDOW KEY
    xdotool windowfocus --sync "$1"
    xdotool key "$2"
    sleep 0.2
}

# From the title through setup (clicking there at each X Y given first) and the passes of Ann and
# Bob: MATCH is the match window.
into_match() {  # into_match [X Y]...
    wait_window "Grumbo 2 - Kravenmoor"
    click "$WIN" 286 162  # Start
    wait_window "Setup"
    while [ $# -ge 2 ]; do click "$WIN" "$1" "$2"; shift 2; done
    click "$WIN" 286 162  # Next
    wait_window "Player 1"
    local player=$WIN
    type_into "$player" Ann
    press "$player" Return
    wait_window "Player 2"
    type_into "$player" Bob
    press "$player" Return
    wait_window "Ann - 0 pts" 60
    MATCH=$WIN
}

throw() {  # throw ANGLE VELOCITY: typed into the match window's boxes, then "Throw"
    click "$MATCH" 445 489
    xdotool type --delay 60 "$1"
    click "$MATCH" 577 488
    xdotool type --delay 60 "$2"
    click "$MATCH" 677 487
}

# Window pictures are plain-text PPM files (P3), so that one awk pass reads them; every
# ImageMagick call costs a second on a busy machine.
shot() {  # shot WINDOW FILE
    import -window "$1" -depth 8 -compress none "ppm:$2"
}

# Runs an awk body over the pixels of a PPM picture: x, y and r, g, b are set for each pixel.
ppm_pixels() {  # ppm_pixels AWK_BODY AWK_END FILE [-v VAR=VALUE...]
    local body=$1 end=$2 file=$3
    shift 3
    awk "$@" 'BEGIN { RS = "[ \t\n]+" }
        NR == 2 { w = $0 } NR <= 4 { next }
        { i = NR - 5; c = i % 3; v[c] = $0
          if (c == 2) { p = (i - 2) / 3; x = p % w; y = int(p / w); r = v[0]; g = v[1]; b = v[2]; '"$body"' } }
        END { '"$end"' }' "$file"
}

inside='x >= X && x < X + W && y >= Y && y < Y + H'

# How many pixels of the rectangle differ between two pictures of the same size.
count_changed() {  # count_changed FILE1 FILE2 W H X Y
    local a b
    a=$(ppm_pixels "if ($inside) print r, g, b" '' "$1" -v W="$3" -v H="$4" -v X="$5" -v Y="$6")
    b=$(ppm_pixels "if ($inside) print r, g, b" '' "$2" -v W="$3" -v H="$4" -v X="$5" -v Y="$6")
    diff <(echo "$a") <(echo "$b") | grep -c '^<' || true
}
