# Qt's base for Windows, with the tools that run on this machine. No OpenGL: nothing here draws with it.
# The source package lacks the header of graphics tablets, so these go. The system's own TLS is used.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack qtbase-opensource-src
# Names of libraries as a disk has them that tells capitals from others.
sed -i -e 's/-lSecur32/-lsecur32/' -e 's/-lCrypt32/-lcrypt32/' \
    "$results/sources/qtbase-opensource-src/src/network/ssl/ssl.pri"
# Qt's own GB18030, which a Qt without ICU has, reads characters outside the first plane a plane too
# high, and cuts them to 16 bits.
gb18030=$results/sources/qtbase-opensource-src/src/corelib/codecs/qgb18030codec.cpp
grep -q highSurrogate "$gb18030" ||
    sed -i -e 's/gb4lin - 0xE248;/gb4lin - 0x1E248;/' -e 's/^\( *\)resultData\[unicodeLen\] = qValidChar(u);/\1if (QChar::requiresSurrogates(u)) {\
\1    resultData[unicodeLen++] = QChar::highSurrogate(u);\
\1    u = QChar::lowSurrogate(u);\
\1}\n&/' "$gb18030"
build=$results/build/qtbase
mkdir -p "$build"
cd "$build"
if [ ! -e configured ]; then
    "$results/sources/qtbase-opensource-src/configure" -release -opensource -confirm-license \
        -prefix "$prefix" -xplatform win32-g++ -device-option "CROSS_COMPILE=$target-" \
        -nomake examples -nomake tests -no-compile-examples -shared \
        -no-opengl -no-icu -no-dbus -no-openssl -schannel -no-feature-sql -no-feature-tabletevent \
        -qt-zlib -qt-libpng -qt-libjpeg -qt-pcre -qt-harfbuzz -qt-freetype -qt-doubleconversion
    touch configured
fi
make -j "$jobs"
make install
