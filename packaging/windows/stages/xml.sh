# The page engine's readers of XML and its transformations, without what reaches files of other kinds or
# the network, and its store, which it does not build without.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack libxml2
cmake_library libxml2 -DBUILD_SHARED_LIBS=OFF -DLIBXML2_WITH_ICU=OFF -DLIBXML2_WITH_ICONV=OFF \
    -DLIBXML2_WITH_LZMA=OFF -DLIBXML2_WITH_ZLIB=OFF -DLIBXML2_WITH_PYTHON=OFF \
    -DLIBXML2_WITH_PROGRAMS=OFF -DLIBXML2_WITH_TESTS=OFF -DLIBXML2_WITH_FTP=OFF -DLIBXML2_WITH_HTTP=OFF
unpack libxslt
cmake_library libxslt -DBUILD_SHARED_LIBS=OFF -DLIBXSLT_WITH_PYTHON=OFF -DLIBXSLT_WITH_CRYPTO=OFF \
    -DLIBXSLT_WITH_PROGRAMS=OFF -DLIBXSLT_WITH_TESTS=OFF
# One file of C that is the same for every system; this machine's tools make it.
unpack sqlite3
mkdir -p "$results/build/sqlite3"
cd "$results/build/sqlite3"
[ -e Makefile ] || "$results/sources/sqlite3/configure" --disable-tcl
make sqlite3.c
