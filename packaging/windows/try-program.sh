#!/usr/bin/env bash
# Starts the program of a folder under Wine and Xvfb, with nothing but what lies in that folder, and takes a
# picture of the screen once its window names the file: try-program.sh FOLDER PICTURE.png FILE [TITLE]
# TITLE is what the window says instead of the file's name: a page's title.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if [ "${QUILLAN_INSIDE_DISPLAY-}" != yes ]; then
    export QUILLAN_INSIDE_DISPLAY=yes
    exec "$here/../../scripts/private-run.sh" --display "$0" "$@"
fi
folder=$(realpath "$1") picture=$2 file=$(realpath "$3") title=${4:-${3##*/}}

QUILLAN_WINE_BARE=yes "$here/wine-run.sh" "$folder/quillan.exe" "Z:${file//\//\\}" >/dev/null 2>&1 &
program=$!
trap 'kill "$program" 2>/dev/null || true; wait' EXIT
for _ in $(seq 600); do
    xdotool search --onlyvisible --name "^Quillan\(.*$title" >/dev/null 2>&1 && found=yes && break
    kill -0 "$program" 2>/dev/null || { echo "The program ended before it showed the file." >&2; exit 1; }
    sleep 0.1
done
[ "${found-}" = yes ] || { echo "No window shows the file." >&2; exit 1; }

# Settled: two pictures in a row are equal.
last=""
for _ in $(seq 40); do
    import -window root "$picture"
    now=$(convert "$picture" rgb:- | cksum)
    [ "$now" = "$last" ] && break
    last=$now
    sleep 0.5
done
echo "${file##*/}: shown, picture in $picture"
