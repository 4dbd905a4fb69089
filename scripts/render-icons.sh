#!/usr/bin/env bash
# Renders res/icons/*.svg to the pictures that the program carries, writes res/quillan.qrc, and makes
# the icon of the Windows program. Needs rsvg-convert (librsvg2-bin) and convert (imagemagick).
#   res/res/NAME.png     16 pixels: menus, tabs, buttons      res/res/24/NAME.png  24 pixels: toolbars
#   NAME@2x.png beside each: double size, for screens of high density
set -euo pipefail
export LC_ALL=C
cd "$(dirname "$0")/.."

draw() { rsvg-convert -w "$2" -h "$2" "res/icons/$1.svg" -o "$3"; }

rm -rf res/res
mkdir -p res/res/24 res/share packaging/windows
for drawing in res/icons/*.svg; do
    name=$(basename "$drawing" .svg)
    case "$name" in quillan*) continue ;; esac
    draw "$name" 16 "res/res/$name.png"
    draw "$name" 32 "res/res/$name@2x.png"
    draw "$name" 24 "res/res/24/$name.png"
    draw "$name" 48 "res/res/24/$name@2x.png"
done

# The program's own icon: up to 24 pixels the simpler drawing.
sizes=(16 24 32 48 64 128 256)
for size in "${sizes[@]}"; do
    drawing=quillan
    [ "$size" -le 24 ] && drawing=quillan-small
    draw "$drawing" "$size" "res/share/quillan-$size.png"
done
pictures=("${sizes[@]/#/res/share/quillan-}")
convert "${pictures[@]/%/.png}" packaging/windows/quillan.ico

{
    echo '<!DOCTYPE RCC>'
    echo '<!-- Written by scripts/render-icons.sh. -->'
    echo '<RCC version="1.0">'
    echo '    <qresource prefix="/">'
    for file in res/res/*.png res/res/24/*.png res/share/*; do
        echo "        <file>${file#res/}</file>"
    done
    for name in html_text new_text; do
        echo "        <file alias=\"res/$name.svg\">icons/$name.svg</file>"
    done
    echo '        <file alias="share/quillan.png">share/quillan-256.png</file>'
    echo '    </qresource>'
    echo '</RCC>'
} >res/quillan.qrc
