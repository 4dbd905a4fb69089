#!/usr/bin/env bash
# Runs every case of bench_responsiveness in a process of its own under Xvfb and prints the figures.
# Argument: the build folder (default build/bench).
set -euo pipefail
cd "$(dirname "$0")/../.."
program=$(find "${1:-build/bench}" -name bench_responsiveness -type f)
for case in million-ours million-bare line-ours line-bare; do
    echo "== $case"
    scripts/private-run.sh --display "$program" "$case"
done
