#!/usr/bin/env bash
# Installs the built game as a player would into a prefix of his own, and as a package would under
# /usr, and checks that a desktop finds everything where it looks: the program, its data, the icon
# in every size and the software-centre metadata, which must pass its validator. The menu entry,
# the man page, the licence and the changelog are for Debian's checker to judge in the package.
#   check_install.sh CMAKE BUILD_DIR SOURCE_DATA_DIR
set -u
cmake=$1 build=$2 source_data=$3

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# The data must lie where the program looks for it from its own folder, all of it.
check_program_and_data() {  # LAYOUT BIN_FOLDER DATA_FOLDER
    local layout=$1 bin=$2 data=$3 expected installed
    [ -x "$bin/grumbo2" ] || fail "$layout: no program ${bin#"$root"/}/grumbo2"
    expected=$(cd "$source_data" && find . -type f | sort)
    installed=$(cd "$data" 2>/dev/null && find . -type f | sort)
    [ "$expected" = "$installed" ] || {
        fail "$layout: ${data#"$root"/} differs from data/:"
        diff <(echo "$expected") <(echo "$installed") | sed -n 's/^[<>]/  &/p'
    }
}

# Under /usr, Debian's games layout; the rest below is checked in the player's own prefix.
DESTDIR=$root/package "$cmake" --install "$build" --prefix /usr >/dev/null ||
    fail "cmake --install --prefix /usr exited with $?"
check_program_and_data "under /usr" "$root/package/usr/games" "$root/package/usr/share/games/grumbo2"
[ ! -e "$root/package/usr/bin" ] || fail "under /usr: a usr/bin beside usr/games"

prefix=$root/prefix
"$cmake" --install "$build" --prefix "$prefix" >/dev/null || fail "cmake --install exited with $?"
bin=$prefix/bin share=$prefix/share
check_program_and_data "own prefix" "$bin" "$share/grumbo2"

# The menu entry's icon in every size a desktop asks for, in the hicolor theme, really a PNG
# that many pixels square.
icon=$(sed -n 's/^Icon=//p' "$share/applications/grumbo2.desktop" 2>/dev/null)
for n in 16 22 24 32 48 64 128 256; do
    [ "$(identify -format '%m %w %h' "$share/icons/hicolor/${n}x${n}/apps/$icon.png" 2>/dev/null)" = "PNG $n $n" ] ||
        fail "no $n x $n PNG icons/hicolor/${n}x${n}/apps/$icon.png"
done

# The software-centre metadata: valid, named after its id, launching the installed menu entry
# and providing the installed program.
m=$(ls "$share"/metainfo/*.metainfo.xml 2>/dev/null)
field() { sed -n "s:.*<$1>\(.*\)</${1%% *}>.*:\1:p" "$m"; }
report=$(appstreamcli validate --no-net "$m" 2>&1) || fail "appstreamcli validate ${m:-(none)}: $report"
! grep -q '@[A-Za-z_]*@' "$m" || fail "${m##*/} has an unfilled @VARIABLE@"
[ "${m##*/}" = "$(field id).metainfo.xml" ] || fail "${m##*/} does not match its id '$(field id)'"
launch=$(field 'launchable type="desktop-id"')
[ -n "$launch" ] && [ -f "$share/applications/$launch" ] || fail "launchable '$launch' is not installed"
binary=$(field binary)
[ -n "$binary" ] && [ -x "$bin/$binary" ] || fail "provided binary '$binary' is not in bin/"

echo "install check: $failures failure(s)"
[ "$failures" -eq 0 ]
