#!/usr/bin/env bash
# Builds the Debian package, checks it with the usual tools, unpacks it into a separate prefix, starts the
# program from there under Xvfb with a file, and waits for the window that shows it.
set -euo pipefail
cd "$(dirname "$0")/.."
source=$PWD
"$source/scripts/setup.sh" check

fail() { echo "check-package.sh: $*" >&2; exit 1; }

cmake --preset package >/dev/null
cmake --build --preset package >build/package/build.log 2>&1 ||
    { tail -n 40 build/package/build.log >&2; fail "the build failed"; }
rm -f build/package/*.deb
(cd build/package && cpack) >build/package/cpack.log 2>&1 ||
    { tail -n 40 build/package/cpack.log >&2; fail "packing failed"; }
package=$(ls build/package/quillan_*.deb)
echo "Built ${package##*/}, $(stat -c %s "$package") bytes."

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb -x "$package" "$root"
dpkg-deb -f "$package" Depends | grep -q libqt5svg5 || fail "the SVG plug-ins are not asked for"

desktop-file-validate "$root/usr/share/applications/quillan.desktop"
appstreamcli validate --pedantic --no-net "$root"/usr/share/metainfo/*.metainfo.xml
lintian --allow-root --fail-on error,warning --info=no "$package" 2>/dev/null ||
    lintian --allow-root --fail-on error,warning "$package"
diff -r highlighter "$root/usr/lib/quillan/highlighter" || fail "language definitions differ"
[ -z "$(find "$root/usr/lib/quillan" -type l)" ] || fail "links among the language definitions"
[ -x "$root/usr/lib/quillan/quillan-taste" ] || fail "the helper of the preview is missing"
for size in 16 24 32 48 64 128 256; do
    identify "$root/usr/share/icons/hicolor/${size}x$size/apps/quillan.png" |
        grep -q " ${size}x$size " || fail "the icon of $size pixels"
done
[ "$("$root/usr/bin/quillan" --version)" = "Quillan $(dpkg-deb -f "$package" Version)" ] ||
    fail "--version and the package disagree"

# The launcher gets a relative name with a blank.
cat >"$root/start.sh" <<'END'
cd "$1/home files"
"$1/usr/bin/quillan" 'first words.txt' &
program=$!
for _ in $(seq 300); do
    window=$(xdotool search --onlyvisible --name '^Quillan\(first words\.txt\)$' 2>/dev/null) && break
    kill -0 "$program" 2>/dev/null || { echo 'The program ended before it showed a window.'; exit 1; }
    sleep 0.1
done
[ -n "$window" ] || { echo 'No window shows the file.'; exit 1; }
xdotool getwindowname "$window"
kill -TERM "$program"
wait "$program"
END
mkdir "$root/home files"
echo 'Some words.' >"$root/home files/first words.txt"
scripts/private-run.sh --display bash "$root/start.sh" "$root" || fail "the installed program"
echo "The package is sound."
