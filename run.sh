#!/usr/bin/env bash
# Builds the editor where needed and opens it on the given files and folders: ./run.sh [FILE|FOLDER]...
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

paths=()
for path in "$@"; do
    case "$path" in
        /*) paths+=("$path") ;;
        *) paths+=("$PWD/$path") ;;
    esac
done

headless=no
[ -z "${DISPLAY-}" ] && [ -z "${WAYLAND_DISPLAY-}" ] && headless=yes

"$here/scripts/setup.sh" run
[ "$headless" = yes ] && "$here/scripts/setup.sh" display

log="$here/build/run.log"
mkdir -p "$here/build"
if ! { cd "$here" && cmake --preset release && cmake --build --preset release --target quillan; } >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    echo "The build failed; the whole log is in build/run.log." >&2
    exit 1
fi

program="$here/build/release/quillan"
if [ "$headless" = no ]; then
    exec "$program" "${paths[@]}"
fi
exec "$here/scripts/screenshot.sh" "$here/build/quillan.png" "$program" "${paths[@]}"
