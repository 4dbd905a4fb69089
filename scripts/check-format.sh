#!/usr/bin/env bash
# Fails when the layout of a source file differs from .clang-format; --fix lays it out.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
[ ${#files[@]} -eq 0 ] && exit 0
if [ "${1-}" = --fix ]; then
    clang-format -i "${files[@]}"
else
    clang-format --dry-run --Werror "${files[@]}"
fi
