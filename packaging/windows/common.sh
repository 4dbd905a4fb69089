# What the stages of cross-build.sh have in common; sourced by it and by each of them.

source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
results=$(realpath -m "${QUILLAN_WINDOWS_RESULTS:-$source_dir/build/windows-results}")
target=x86_64-w64-mingw32
prefix=$results/prefix # Qt and all libraries for Windows.
jobs=$(nproc)
stages=(packages sources compiler zlib uchardet hunspell qtbase translations qtsvg icu xml media qtwebkit
        quillan package)

# The compiler's wrappers come first; see stages/compiler.sh.
export PATH="$results/bin:$PATH"
export CCACHE_DIR="${CCACHE_DIR:-$results/ccache}"
# Only what is made here may be found, nothing that the machine has for itself.
export PKG_CONFIG_LIBDIR="$prefix/lib/pkgconfig" PKG_CONFIG_PATH=

# unpack NAME: the source package NAME with Debian's changes, unpacked once into sources/NAME.
unpack() {
    local name=$1
    [ -e "$results/sources/$name" ] && return
    rm -rf "$results/sources/$name.part"
    dpkg-source --no-check -x "$results/packages/$name"_*.dsc "$results/sources/$name.part"
    mv "$results/sources/$name.part" "$results/sources/$name"
}

# cmake_library NAME [OPTION]...: builds and installs sources/NAME, a project of CMake.
cmake_library() {
    local name=$1 build=$results/build/${1%-opensource-src}
    shift
    cmake -G Ninja -S "$results/sources/$name" -B "$build" \
        -DCMAKE_TOOLCHAIN_FILE="$source_dir/cmake/MingwToolchain.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_FIND_ROOT_PATH="$prefix" -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    # All that stands in the way is seen in one run.
    cmake --build "$build" -j "$jobs" --target install -- -k 0
}
