#!/usr/bin/env bash
# Fails on an include that climbs: a folder of the program includes only itself and those before it in
# the order below (web, browser and findinfiles stand side by side, and so do spelling and highlight);
# res is for all.
#   check-layers.sh [ROOT]     the sources below ROOT; this project when none is named
set -euo pipefail
cd "${1-$(dirname "$0")/..}"
# main() puts the program together and belongs to no folder.
mapfile -t sources < <(find app widgets spelling highlight editor web browser findinfiles pageedit document mainwindow taster \
    \( -name '*.h' -o -name '*.cpp' -o -name '*.ui' \) ! -path app/main.cpp 2>/dev/null | sort)
[ ${#sources[@]} -gt 0 ] || { echo "check-layers.sh: no sources here" >&2; exit 2; }
awk '
    BEGIN {
        split("res app widgets highlight editor web pageedit document mainwindow", order)
        for (n in order) floor[order[n]] = n + 0
        floor["browser"] = floor["findinfiles"] = floor["web"]
        floor["spelling"] = floor["highlight"]
        floor["taster"] = floor["mainwindow"]
    }
    /^[ \t]*#[ \t]*include[ \t]*"[a-z]+\// { split($0, part, "\""); check(part[2]) }
    /<header[^>]*>[a-z]+\// { split($0, part, /[<>]/); check(part[3]) }
    function check(header,   own, other) {
        own = FILENAME; sub("/.*", "", own)
        other = header; sub("/.*", "", other)
        if (own == other || (other in floor && floor[other] < floor[own])) return
        printf "%s:%d: %s/ must not include %s\n", FILENAME, FNR, own, header
        climbs = 1
    }
    END { exit climbs }
' "${sources[@]}" && echo "No include climbs."
