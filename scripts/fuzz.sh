#!/usr/bin/env bash
# Builds the fuzz targets and runs each on the corpus: fuzz.sh [--repeatable] [SECONDS [TARGET]...]
# 20 seconds each and all targets by default, with inputs that are new every time and grow from those
# of earlier runs. --repeatable tries the same 2000 inputs every time, or as many of the first of them
# as the seconds allow, so that a run fails only for what changed in the program.
# Failing inputs are kept in build/fuzz/findings; the last line counts the targets that failed.
set -uo pipefail
cd "$(dirname "$0")/.."
[ -w /dev/shm ] && export TMPDIR=/dev/shm # Thousands of small files a second are nothing for a disk.
repeatable=no
[ "${1-}" = --repeatable ] && { repeatable=yes; shift; }
seconds=${1:-20}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(ls fuzz/corpus)

mkdir -p build
if ! { cmake --preset fuzz && cmake --build --preset fuzz; } >build/fuzz-build.log 2>&1; then
    tail -n 40 build/fuzz-build.log
    echo "The fuzz targets do not build; the whole log is in build/fuzz-build.log."
    exit 1
fi

run() {
    local target=$1 grown=build/fuzz/grown/$1 options=()
    [ -f "fuzz/$target.dict" ] && options+=("-dict=fuzz/$target.dict")
    if [ "$repeatable" = yes ]; then
        # Neither earlier runs nor the clock nor the order in a hash may choose the next input.
        grown=build/fuzz/repeated/$target
        rm -rf "$grown"
        options+=(-seed=1 -runs=2000 -reload=0)
        export QT_HASH_SEED=0
    fi
    mkdir -p "$grown" build/fuzz/findings
    # Leaks are not reported, because the libraries keep memory for good; the limit finds what grows.
    ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
        scripts/private-run.sh "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=25 \
        -rss_limit_mb=1024 -artifact_prefix="build/fuzz/findings/$target-" -print_final_stats=1 \
        "${options[@]}" "$grown" "fuzz/corpus/$target" >"build/fuzz/$target.log" 2>&1
}

failed=0
for target in "${targets[@]}"; do
    if run "$target"; then
        echo "$target: $(sed -nE 's/^stat::number_of_executed_units: //p' "build/fuzz/$target.log") inputs, nothing found"
    else
        tail -n 30 "build/fuzz/$target.log"
        failed=$((failed + 1))
    fi
done
echo "Fuzzing: ${#targets[@]} targets for up to $seconds seconds each, $failed failed."
[ "$failed" -eq 0 ]
