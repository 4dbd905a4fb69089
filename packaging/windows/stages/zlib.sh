# Compression, linked into the program and the page engine: Debian has it for Windows. Only the archive
# is taken, so that no build links to the DLL that stands beside it.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

mkdir -p "$prefix/lib" "$prefix/include"
cp "/usr/$target/lib/libz.a" "$prefix/lib/"
cp "/usr/$target/include/"{zlib,zconf}.h "$prefix/include/"
