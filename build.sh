#!/usr/bin/env bash
# One entry point for players and developers on Debian 12 or Ubuntu:
#   ./build.sh run       installs what is missing, builds and starts the game
#   ./build.sh test      installs what is missing, builds and runs the tests
#   ./build.sh sanitize  the test suite built with address and undefined-behaviour sanitizers
#                        (without the soak run and the runs of the real program under Xvfb)
#   ./build.sh bench     builds and runs the benchmarks
set -euo pipefail
cd "$(dirname "$0")"

packages=(cmake ninja-build g++ pkg-config python3 qt6-base-dev libxcb1-dev libsdl2-mixer-dev
          libsndfile1-dev libfluidsynth-dev timgm6mb-soundfont fonts-wine libgtest-dev libgmock-dev
          libbenchmark-dev desktop-file-utils appstream groff-base dpkg-dev file lintian
          xvfb xauth xdotool x11-utils imagemagick python3-xlib)

install_missing() {
    local missing=()
    for p in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=()
    [ "$(id -u)" -ne 0 ] && sudo=(sudo)
    echo "Installing: ${missing[*]}"
    "${sudo[@]}" apt-get update -q
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
}

build() {  # build DIR [cmake options...]
    local dir=$1; shift
    cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
    cmake --build "$dir"
}

run_tests() {  # run_tests DIR [CTEST OPTIONS...]
    local dir=$1; shift
    QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy \
        ctest --test-dir "$dir" --output-on-failure --timeout 300 "$@"
}

export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
install_missing
case "${1:-run}" in
    run)
        build build -DCMAKE_BUILD_TYPE=RelWithDebInfo
        exec build/game/grumbo2 ;;
    test)
        build build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
            -DGRUMBO_BENCH=ON  # built, not run: a benchmark that no longer compiles fails here
        run_tests build ;;
    sanitize)
        build build-sanitize -DCMAKE_BUILD_TYPE=Debug -DGRUMBO_SANITIZE=ON \
            -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
        ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp \
            UBSAN_OPTIONS=print_stacktrace=1 run_tests build-sanitize -E "OnXvfb" -LE soak ;;
    bench)
        build build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGRUMBO_BENCH=ON
        build/bench/grumbo_bench ;;
    *)
        echo "usage: $0 [run|test|sanitize|bench]" >&2
        exit 2 ;;
esac
