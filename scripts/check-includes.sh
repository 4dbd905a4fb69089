#!/usr/bin/env bash
# Fails when a source does not include what it names (scripts/check-includes.py tells the rules), or when a
# header or source of the program or a benchmark does not compile alone. All other builds in CI take the
# sources of a folder as one, which hides both.
#   check-includes.sh [FILE]...     all sources when none is named
set -uo pipefail
cd "$(dirname "$0")/.."
python3 scripts/check-includes.py "$@" || exit 1

qmake=$(command -v qmake || echo /usr/lib/qt5/bin/qmake)
headers=$("$qmake" -query QT_INSTALL_HEADERS)
uic=$("$qmake" -query QT_HOST_BINS)/uic
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# What CMake and uic would write.
mkdir "$work/app"
sed "s/@PROJECT_VERSION@/0/" app/version.h.in >"$work/app/version.h"
while read -r form; do
    "$uic" "$form" -o "$work/ui_$(basename "$form" .ui).h"
done < <(git ls-files '*.ui')

flags=(-std=c++17 -fPIC -w -I. "-I$work" -Itests -Ibench -Ibench/highlight -isystem "$headers"
       -DQT_NO_CAST_TO_ASCII -DQT_NO_URL_CAST_FROM_STRING -DQT_NO_FOREACH -DQT_STRICT_ITERATORS
       -DQT_USE_QSTRINGBUILDER -DQT_GUI_LIB -DQT_WIDGETS_LIB
       -DQUILLAN_SOURCE_DIR='""' -DQUILLAN_BINARY_DIR='""')
modules=(QtCore QtGui QtWidgets QtXml QtNetwork QtDBus QtWebKit QtWebKitWidgets QtTest)
for module in "${modules[@]}"; do
    flags+=(-isystem "$headers/$module")
done
for library in uchardet hunspell; do
    flags+=(-isystem "$(pkg-config --variable=includedir $library)/$library")
done

# Qt's headers are read once for all sources. The first check has told whether a source includes those
# of Qt that it needs.
printf '#include <%s>\n' "${modules[@]}" >"$work/qt.h"
# Their templates are instantiated once, too, which makes the check three times as fast.
clang++-14 "${flags[@]}" -fpch-instantiate-templates -x c++-header "$work/qt.h" -o "$work/qt.pch" || exit 1

# The tests are compiled one by one by every build. Some benchmarks need peers that are not installed everywhere.
sources=("$@")
[ ${#sources[@]} -gt 0 ] || mapfile -t sources < <(
    git ls-files '*.h' '*.cpp' ':!tests/*.cpp' ':!noengine' ':!fuzz/*.cpp' ':!*_win.*' |
    xargs grep -LE '<(KSyntaxHighlighting/|Qsci/)')
# A header that a source includes first need not be compiled by itself.
mapfile -t first < <(printf '%s\n' "${sources[@]}" | grep '\.cpp$' |
                     xargs -r awk 'FNR == 1 { done = 0 } /^#include/ && !done { done = 1; split($0, part, "\""); print part[2] }')
mapfile -t units < <(printf '%s\n' "${sources[@]}" | grep -vxFf <(printf '%s\n' "${first[@]}" | grep .))
printf '%s\0' "${units[@]}" | xargs -0 -n 20 -P "$(nproc)" \
    clang++-14 "${flags[@]}" -fsyntax-only -include-pch "$work/qt.pch" -x c++ || exit 1
echo "${#sources[@]} sources compile alone."
