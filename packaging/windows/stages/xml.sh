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
unpack sqlite3
cd "$results/sources/sqlite3"
[ -e Makefile ] || ./configure --host="$target" --disable-tcl --disable-shared --prefix="$prefix"
make sqlite3.c
