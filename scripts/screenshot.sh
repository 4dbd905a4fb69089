#!/usr/bin/env bash
# screenshot.sh PICTURE PROGRAM [ARGUMENT]...: starts the program under Xvfb with a window manager,
# waits until its window has settled, writes a picture of the screen and ends the program.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if [ "${QUILLAN_INSIDE_DISPLAY-}" != yes ]; then
    export QUILLAN_INSIDE_DISPLAY=yes
    exec "$here/private-run.sh" --display "$0" "$@"
fi

picture=$1
shift
xsetroot -solid '#5a6a7a' 2>/dev/null || true
"$@" >/dev/null 2>&1 &
program=$!
trap 'kill "$program" 2>/dev/null || true' EXIT

window=""
for _ in $(seq 200); do
    window=$(xdotool search --onlyvisible --pid "$program" --name Quillan 2>/dev/null | tail -n 1) && [ -n "$window" ] && break
    kill -0 "$program" 2>/dev/null || { echo "The program ended before it showed a window." >&2; exit 1; }
    sleep 0.1
done
[ -n "$window" ] || { echo "No window appeared." >&2; exit 1; }

# Settled: two pictures in a row are equal.
last=""
for _ in $(seq 40); do
    import -window root "$picture"
    now=$(convert "$picture" rgb:- | cksum)
    [ "$now" = "$last" ] && break
    last=$now
    sleep 0.3
done
echo "No display: the editor ran under Xvfb, its picture is ${picture}."
