# The page engine: the widget library only, without what its pages may not do anyway. Most of its files
# are compiled ten at a time.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack qtwebkit-opensource-src
source=$results/sources/qtwebkit-opensource-src/Source
cmp -s "$source_dir/packaging/windows/QtWebKitUnity.cmake" "$source/QtWebKitUnity.cmake" ||
    cp "$source_dir/packaging/windows/QtWebKitUnity.cmake" "$source/"
for part in JavaScriptCore WebCore; do
    grep -q QtWebKitUnity "$source/$part/CMakeLists.txt" ||
        printf 'include(../QtWebKitUnity.cmake)\nunite(%s)\n' "$part" >>"$source/$part/CMakeLists.txt"
done

export SQLITE3SRCDIR="$results/build/sqlite3"
cmake_library qtwebkit-opensource-src -DPORT=Qt -DCMAKE_POLICY_DEFAULT_CMP0074=NEW \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache \
    -DCMAKE_C_FLAGS="-DLIBXML_STATIC -DLIBXSLT_STATIC" \
    -DCMAKE_CXX_FLAGS="-DLIBXML_STATIC -DLIBXSLT_STATIC -w" \
    -DENABLE_TOOLS=OFF -DENABLE_API_TESTS=OFF -DENABLE_WEBKIT2=OFF -DENABLE_INSPECTOR_UI=OFF \
    -DENABLE_JIT=OFF -DENABLE_DFG_JIT=OFF -DENABLE_FTL_JIT=OFF -DUSE_SYSTEM_MALLOC=ON \
    -DENABLE_OPENGL=OFF -DENABLE_WEBGL=OFF -DENABLE_VIDEO=OFF -DENABLE_WEB_AUDIO=OFF \
    -DUSE_QT_MULTIMEDIA=OFF -DUSE_GSTREAMER=OFF -DENABLE_NETSCAPE_PLUGIN_API=OFF \
    -DENABLE_GEOLOCATION=OFF -DENABLE_DEVICE_ORIENTATION=OFF -DENABLE_GAMEPAD_DEPRECATED=OFF \
    -DENABLE_QT_WEBCHANNEL=OFF -DENABLE_DATABASE_PROCESS=OFF -DENABLE_INDEXED_DATABASE=OFF \
    -DENABLE_PRINT_SUPPORT=ON -DENABLE_XSLT=ON -DUSE_LIBHYPHEN=OFF -DUSE_WOFF2=OFF \
    -DPYTHON_EXECUTABLE=/usr/bin/python3
