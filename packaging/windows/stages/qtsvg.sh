# Qt's drawings: the library, the plug-ins for pictures and icons. Compressed ones are read by the zlib
# of the prefix, whose header the compiler finds before that of Qt's own.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack qtsvg-opensource-src
project=$results/sources/qtsvg-opensource-src/src/svg/svg.pro
grep -q -- '-lz' "$project" || echo "LIBS_PRIVATE += -L$prefix/lib -lz" >>"$project"
mkdir -p "$results/build/qtsvg"
cd "$results/build/qtsvg"
"$prefix/bin/qmake" "$results/sources/qtsvg-opensource-src/qtsvg.pro"
make -j "$jobs"
make install
