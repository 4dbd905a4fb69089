#!/usr/bin/env bash
# Parses every source as a Windows compiler would, so that no Windows branch rots where only Linux
# builds run: MinGW's g++ with its own system headers and Qt's. Nothing is linked. The headers are
# those of a Linux build of Qt; what they declare for Windows follows the compiler's own macros. The page
# engine is the stand-in of noengine/, which so keeps up with what the program uses of the engine.
#   check-windows-syntax.sh [FILE.cpp]...     all sources when none is named
set -euo pipefail
cd "$(dirname "$0")/.."

# With POSIX threads, as Qt for MinGW is built; the other variant lacks parts of the library.
compiler=x86_64-w64-mingw32-g++-posix
command -v "$compiler" >/dev/null || { echo "Missing: $compiler (g++-mingw-w64-x86-64-posix)" >&2; exit 1; }
qmake=$(command -v qmake || echo /usr/lib/qt5/bin/qmake)
headers=$("$qmake" -query QT_INSTALL_HEADERS)
uic=$("$qmake" -query QT_HOST_BINS)/uic
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# What CMake and uic would write.
folders=(app widgets spelling highlight editor web browser findinfiles pageedit document mainwindow taster noengine)
mkdir "$work/app"
version=$(sed -nE 's/^project\(quillan VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
sed "s/@PROJECT_VERSION@/$version/" app/version.h.in >"$work/app/version.h"
while read -r form; do
    "$uic" "$form" -o "$work/ui_$(basename "$form" .ui).h"
done < <(find "${folders[@]}" -name '*.ui')

flags=(-fsyntax-only -std=c++17 -Wall -Wextra -Wshadow -Werror -I. "-I$work" -DUNICODE -D_UNICODE
       -DQT_NO_CAST_TO_ASCII -DQT_NO_URL_CAST_FROM_STRING -DQT_NO_FOREACH -DQT_STRICT_ITERATORS
       -DQT_USE_QSTRINGBUILDER -isystem "$headers" -Inoengine -DQUILLAN_NO_ENGINE)
for module in QtCore QtGui QtWidgets QtXml QtNetwork QtPrintSupport; do
    flags+=(-isystem "$headers/$module")
done
flags+=(-isystem "$(pkg-config --variable=includedir uchardet)/uchardet"
        -isystem "$(pkg-config --variable=includedir hunspell)/hunspell")

sources=("$@")
if [ ${#sources[@]} -eq 0 ]; then
    mapfile -t sources < <(find "${folders[@]}" -name '*.cpp' ! -name '*_unix.cpp' | sort)
fi
# The sources of a folder as one, so that Qt's headers are read once for all of them.
for source in "${sources[@]}"; do
    echo "#include \"$source\"" >>"$work/$(dirname "$source" | tr / _).cpp"
done
printf '%s\0' "$work"/*.cpp | xargs -0 -n 1 -P "$(nproc)" "$compiler" "${flags[@]}"
echo "${#sources[@]} sources parse for Windows."
