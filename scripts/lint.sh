#!/usr/bin/env bash
# clang-tidy over the program's sources, as .clang-tidy says: lint.sh [--clazy] [FOLDER]...
# Fails when anything is found. --clazy runs clazy instead, whose findings need a closer look.
# The sources of a folder are read as one (a unity build), which takes a fifth of the time. So a name that is
# local to a file must be unique in its folder.
set -uo pipefail
cd "$(dirname "$0")/.."
tool=(clang-tidy --quiet)
# Two checks are off because we do this on purpose: slots connected by name, and getters among the slots.
clazy=level1,no-connect-by-name,no-const-signal-or-slot
[ "${1-}" = --clazy ] && { tool=(clazy-standalone "-checks=$clazy"); shift; }
folders=("$@")
# The slowest folders come first, so that the processors finish together.
[ ${#folders[@]} -gt 0 ] || folders=(mainwindow document pageedit findinfiles web browser editor highlight spelling widgets app)

mkdir -p build
# The preset builds the headers made of forms.
if ! { cmake --preset lint && cmake --build --preset lint; } >build/lint.log 2>&1; then
    tail -n 40 build/lint.log
    echo "The headers do not build; the whole log is in build/lint.log."
    exit 1
fi

# Checks one unit and prints its output in one piece, without the number of warnings in system headers.
check() {
    local found status
    found=$("${tool[@]}" -p build/lint "$1" 2>&1)
    status=$?
    grep -vE '^$|^[0-9]+ warnings? generated' <<<"$found"
    return "$status"
}

units=()
for folder in "${folders[@]}"; do
    units+=("build/lint/$folder/CMakeFiles/quillan_$folder.dir/Unity/unity_0_cxx.cxx")
    # main() belongs to no library.
    [ "$folder" = app ] && units+=(build/lint/CMakeFiles/quillan.dir/Unity/unity_0_cxx.cxx)
done

pids=()
for unit in "${units[@]}"; do
    [ "$(jobs -rp | wc -l)" -lt "$(nproc)" ] || wait -n
    check "$unit" &
    pids+=($!)
done
failed=0
for pid in "${pids[@]}"; do
    wait "$pid" || failed=1
done
[ "$failed" -eq 0 ] && echo "${folders[*]}: clean."
exit "$failed"
