#!/usr/bin/env bash
# Builds the Debian package as a packager would and lets Debian's own checker judge it: no error,
# no warning and no note (a note that would be wrong to act on is overridden, with its reason, in
# dist/lintian-overrides). The program answers --version with the package's version.
#   check_package.sh CPACK BUILD_DIR PROGRAM
# Exits 77 (skipped) without cpack, dpkg-deb or lintian.
set -u
cpack=$1 build=$2 program=$3
for tool in "$cpack" dpkg-deb lintian; do
    command -v "$tool" >/dev/null || { echo "no $tool: skipped"; exit 77; }
done

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$cpack" -G DEB -B "$out" --config "$build/CPackConfig.cmake" >"$out/cpack.log" 2>&1 ||
    { cat "$out/cpack.log"; echo "FAIL: cpack exited with an error"; exit 1; }
deb=$(ls "$out"/*.deb)

failures=0
lintian --pedantic --display-info --fail-on error,warning,info "$deb" 2>&1 | grep -v "^running with root privileges"
[ "${PIPESTATUS[0]}" -eq 0 ] || { echo "FAIL: lintian found errors, warnings or notes"; failures=1; }
version=$(dpkg-deb --field "$deb" Version)
said=$("$program" --version)
[ "$said" = "grumbo2 $version" ] ||
    { echo "FAIL: the package is version $version, the program says: $said"; failures=$((failures + 1)); }
echo "package check: $failures failure(s)"
[ "$failures" -eq 0 ]
