#!/usr/bin/env bash
# Makes a C++ file of 10 MB, a log of 100 MB and a line of 5 MB, and lets the whole window and a bare
# QPlainTextEdit take turns with each in processes of their own. Arguments: the build folder (default
# build/bench), the number of keys (default 40).
set -euo pipefail
cd "$(dirname "$0")/../.."
programs="${1:-build/bench}/bench/typing"
keys=${2:-40}
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
# With the definitions of the languages, as the program is installed.
ln -sfn "$PWD/highlighter" "$programs/highlighter"
: >"$data/10.cpp"
while [ "$(stat -c %s "$data/10.cpp")" -lt 10000000 ]; do
    cat app/*.cpp editor/*.cpp highlight/*.cpp >>"$data/10.cpp"
done
awk 'BEGIN { for (n = 0; size < 100000000; ++n) {
    line = sprintf("Nov 22 07:%02d:%02d host service[%d]: request %d from 10.0.%d.%d took %d ms, \"GET /item/%d\" -> %d",
                   n / 60 % 60, n % 60, 1000 + n % 77, n, n % 256, n / 256 % 256, n % 997, n * 7 % 100000, 200 + n % 3)
    size += length(line) + 1; print line } }' >"$data/100.log"
awk 'BEGIN { for (n = 0; size < 5000000; ++n) {
    item = sprintf("{\"id\": %d, \"name\": \"item %d\", \"price\": %.2f, \"tags\": [\"a\", \"b\"]}, ", n, n, n / 4)
    size += length(item); printf "%s", item } }' >"$data/line.json"
for file in 10.cpp 100.log line.json; do
    for program in bare window; do
        echo "== $file, $program"
        "$programs/typing_$program" "$data/$file" "$keys"
    done
done
