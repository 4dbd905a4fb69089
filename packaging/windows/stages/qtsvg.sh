# Qt's drawings: the library, the plug-ins for pictures and icons.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack qtsvg-opensource-src
mkdir -p "$results/build/qtsvg"
cd "$results/build/qtsvg"
"$prefix/bin/qmake" "$results/sources/qtsvg-opensource-src/qtsvg.pro"
make -j "$jobs"
make install
