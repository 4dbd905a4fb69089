# Qt's base for Windows, with the tools that run on this machine. No OpenGL: nothing here draws with it.
# The source package lacks the header of graphics tablets, so these go. The system's own TLS is used.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack qtbase-opensource-src
# Names of libraries as a disk has them that tells capitals from others.
sed -i -e 's/-lSecur32/-lsecur32/' -e 's/-lCrypt32/-lcrypt32/' \
    "$results/sources/qtbase-opensource-src/src/network/ssl/ssl.pri"
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
