# Drives the real game on a private X server, as a player would: find windows, click, type, look.
# Source it, then call e2e_begin with the game's binary; E2E_SCREEN=WxH sets the screen size.
# Exits 77 (skipped) when a tool is missing; `./build.sh test` installs them.

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
    if [ -n "${DISPLAY:-}" ] && [ -n "${E2E_SHOTS:-}" ]; then
        mkdir -p "$E2E_SHOTS" && import -window root "$E2E_SHOTS/failure.png" 2>/dev/null
    fi
    [ -f "$WORK/game.log" ] && sed 's/^/game: /' "$WORK/game.log" >&2
    exit 1
}

now_ms() { echo $(($(date +%s%N) / 1000000)); }

start_game() {  # start_game [ARGS...]
    STARTED_MS=$(now_ms)
    "$GAME" "$@" >"$WORK/game.log" 2>&1 &
    GAME_PID=$!
}

# Sets WIN to the visible window titled exactly TITLE once it shows (at most SECONDS).
wait_window() {  # wait_window TITLE [SECONDS]
    local deadline=$(($(now_ms) + ${2:-10} * 1000))
    WIN=
    while [ "$(now_ms)" -lt "$deadline" ]; do
        WIN=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n1)
        [ -n "$WIN" ] && return 0
        kill -0 "$GAME_PID" 2>/dev/null || fail "the game ended while waiting for \"$1\""
        sleep 0.1
    done
    fail "no window \"$1\" after ${2:-10} s; visible: $(visible_titles)"
}

wait_gone() {  # wait_gone TITLE [SECONDS]
    local deadline=$(($(now_ms) + ${2:-10} * 1000))
    while [ "$(now_ms)" -lt "$deadline" ]; do
        xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "window \"$1\" is still there"
}

visible_titles() {
    local id
    for id in $(xdotool search --onlyvisible --name '.' 2>/dev/null); do
        printf '"%s" ' "$(xdotool getwindowname "$id")"
    done
}

client_size() {  # client_size WINDOW -> WIDTHxHEIGHT
    xwininfo -id "$1" | awk '/Width:/ {w=$2} /Height:/ {h=$2} END {print w "x" h}'
}

expect_size() {  # expect_size WINDOW WIDTHxHEIGHT
    local size
    size=$(client_size "$1")
    [ "$size" = "$2" ] || fail "window $(xdotool getwindowname "$1") is $size, not $2"
}

click() {  # click WINDOW X Y
    xdotool mousemove --window "$1" "$2" "$3" click 1
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

pixel() {  # pixel FILE X Y -> "R G B"
    ppm_pixels 'if (x == X && y == Y) print r, g, b' '' "$1" -v X="$2" -v Y="$3"
}

inside='x >= X && x < X + W && y >= Y && y < Y + H'

# How many pixels of the rectangle differ from the colour "R G B".
count_other_than() {  # count_other_than FILE "R G B" W H X Y
    ppm_pixels "if ($inside && (r \" \" g \" \" b) != C) n++" 'print n + 0' "$1" \
        -v C="$2" -v W="$3" -v H="$4" -v X="$5" -v Y="$6"
}

# How many pixels of the rectangle differ between two pictures of the same size.
count_changed() {  # count_changed FILE1 FILE2 W H X Y
    local a b
    a=$(ppm_pixels "if ($inside) print r, g, b" '' "$1" -v W="$3" -v H="$4" -v X="$5" -v Y="$6")
    b=$(ppm_pixels "if ($inside) print r, g, b" '' "$2" -v W="$3" -v H="$4" -v X="$5" -v Y="$6")
    diff <(echo "$a") <(echo "$b") | grep -c '^<' || true
}

# The bounding box "left top right bottom" of the pixels that differ between two shots of one
# window within rows TOP to BOTTOM; empty when nothing differs.
changed_box() {  # changed_box FILE1 FILE2 TOP BOTTOM
    paste -d' ' \
        <(ppm_pixels 'if (y >= T && y <= B) print x, y, r, g, b' '' "$1" -v T="$3" -v B="$4") \
        <(ppm_pixels 'if (y >= T && y <= B) print r, g, b' '' "$2" -v T="$3" -v B="$4") |
        awk '$3 != $6 || $4 != $7 || $5 != $8 {
                 if (n++ == 0) { l = r = $1; t = b = $2 }
                 if ($1 < l) l = $1; if ($1 > r) r = $1; if ($2 < t) t = $2; if ($2 > b) b = $2 }
             END { if (n) print l, t, r, b }'
}

# Whether two crater boxes are one landing: the collision check runs on its own timer, so a
# crater may lie a tick of flight (up to 12 pixels on every side) away.
same_crater() {  # same_crater "L T R B" "L T R B"
    local a b i d
    read -r -a a <<<"$1"
    read -r -a b <<<"$2"
    [ ${#a[@]} -eq 4 ] && [ ${#b[@]} -eq 4 ] || return 1
    for i in 0 1 2 3; do
        d=$((a[i] - b[i]))
        [ "${d#-}" -le 12 ] || return 1
    done
}
