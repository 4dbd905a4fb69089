#!/usr/bin/env bash
# Tests under the address and undefined-behaviour sanitizers: sanitize.sh [FOLDER]..., folders of
# tests/; without one, all.
set -euo pipefail
cd "$(dirname "$0")/.."
targets=(all)
chosen=()
if [ $# -gt 0 ]; then
    targets=("${@/#/tests/}")
    targets=("${targets[@]/%//all}")
    chosen=(--label-regex "^($(IFS='|' && echo "$*"))\$")
fi
mkdir -p build
if ! { cmake --preset asan && cmake --build --preset asan --target "${targets[@]}"; } >build/asan-build.log 2>&1; then
    tail -n 40 build/asan-build.log
    exit 1
fi
# Leaks are not counted: Qt, WebKit and the font libraries keep what they have until the end.
export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
# A test that hangs is ended all the same (see TIMEOUT in cmake/).
export QTEST_FUNCTION_TIMEOUT=850000
# Left out are four tests that only read files and run no code of the program, one that runs it with limits on
# memory and time that leave a sanitizer no room, and one that measures the usual allocator.
ctest --preset asan --parallel "$(($(nproc) + 1))" "${chosen[@]}" \
    --exclude-regex '^tst_(definitions|documents_truth|hostilefiles|launcher|memory|translations)$'
