#!/usr/bin/env bash
# The check of includes, on folders made for it.
#   test-layers.sh CHECK
set -u
check=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/layers.XXXXXX")
trap 'rm -rf "$work"' EXIT
folders=(app highlight editor web browser document mainwindow)
failed=0
# try FOLDER LINE: the check's answer to a source of that folder with that line, "ok" or "climbs".
try() {
    rm -rf "${work:?}"/*
    (cd "$work" && mkdir "${folders[@]}" && echo >app/empty.h && printf '#pragma once\n%s\n' "$2" >"$1/${3-a.h}")
    "$check" "$work" >"$work/said" && answer=ok || answer=climbs
}
expect() {
    try "$2" "$3" "${4-a.h}"
    [ "$answer" = "$1" ] || { echo "FAIL $2/${4-a.h}: $3 is $answer"; failed=1; }
}

for ((own = 0; own < ${#folders[@]}; ++own)); do
    for ((other = 0; other < ${#folders[@]}; ++other)); do
        wanted=climbs
        [ "$other" -le "$own" ] && wanted=ok
        [ "${folders[own]} ${folders[other]}" = "browser web" ] && wanted=climbs
        expect $wanted "${folders[own]}" "#include \"${folders[other]}/x.h\""
    done
    expect ok "${folders[own]}" '#include "res/icons.h"'
    expect ok "${folders[own]}" '#include <QString>'
    expect climbs "${folders[own]}" '#include "tests/support/files.h"'
done
expect climbs app ' #  include	"editor/x.h"' a.cpp
expect ok app '// #include "editor/x.h"' a.cpp
expect ok app '#include "mainwindow/mainwindow.h"' main.cpp
expect climbs editor '<header>mainwindow/x.h</header>' a.ui
try web '#include "browser/x.h"'
grep -qx 'web/a.h:2: web/ must not include browser/x.h' "$work/said" ||
    { echo "FAIL the place is told: $(cat "$work/said")"; failed=1; }
exit $failed
