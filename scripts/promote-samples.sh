#!/usr/bin/env bash
# Makes the present colours of tests/highlight/samples/ the expected ones and shows what changed.
# Look at the difference before you commit it. Argument: the build folder (default build/dev).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
cmake --build "$build" --target tst_samples
QUILLAN_PROMOTE_SAMPLES=1 scripts/private-run.sh "$build/tests/highlight/tst_samples" \
    sample_equalsItsGoldenResult | grep -E '^FAIL|^Totals' || true
git diff --stat -- tests/highlight/samples
git status --short -- tests/highlight/samples
