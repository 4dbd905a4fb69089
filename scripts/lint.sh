#!/usr/bin/env bash
# clang-tidy over the program's sources, as .clang-tidy says; with --clazy also clazy.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build
cmake --preset lint >build/lint.log
# The forms, meta-object code and resources that the sources include.
cmake --build build/lint --target help | sed -n 's/^\([a-z_]*_autogen\):.*/\1/p' |
    grep '^quillan' | xargs cmake --build build/lint --target >>build/lint.log

mapfile -t sources < <(git ls-files '*.cpp' | grep -E '^(app|highlight|editor|web|browser|mainwindow)/' | grep -v '_win\.cpp$')
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint 2>/dev/null
if [ "${1-}" = --clazy ]; then
    printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clazy-standalone -p build/lint -checks=level1,no-range-loop-reference
fi
echo "${#sources[@]} sources are clean."
