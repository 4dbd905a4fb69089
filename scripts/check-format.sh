#!/usr/bin/env bash
# Fails when a source file is not laid out as .clang-format says; --fix lays it out.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
[ ${#files[@]} -eq 0 ] && exit 0
if [ "${1-}" = --fix ]; then
    clang-format -i "${files[@]}"
else
    clang-format --dry-run --Werror "${files[@]}"
fi
