#!/usr/bin/env bash
# Builds and runs every test without a display of the user's; the last line is 'N passed, N failed'.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cd "$here"
"$here/scripts/setup.sh" test || exit 1

mkdir -p build
log="$here/build/test-build.log"
if ! { cmake --preset test && cmake --build --preset test; } >"$log" 2>&1; then
    tail -n 60 "$log"
    echo "The build failed; the whole log is in build/test-build.log."
    echo "0 passed, 1 failed"
    exit 1
fi

# One more than there are processors, because many tests wait for windows.
ctest --preset test --parallel "$(($(nproc) + 1))" "$@" | tee build/test-run.log
summary=$(grep -E '^[0-9]+% tests passed, [0-9]+ tests failed out of [0-9]+' build/test-run.log | tail -n 1)
failed=$(sed -E 's/.* ([0-9]+) tests failed.*/\1/' <<<"$summary")
total=$(sed -E 's/.*out of ([0-9]+).*/\1/' <<<"$summary")
if [ -z "$summary" ]; then
    echo "0 passed, 1 failed"
    exit 1
fi
cases=$(grep -hE '^Totals: ' build/test/Testing/Temporary/LastTest.log | awk '{ n += $2 } END { print n + 0 }')
echo "$total test programs ran $cases test cases."
echo "$((total - failed)) passed, $failed failed"
[ "$failed" -eq 0 ]
