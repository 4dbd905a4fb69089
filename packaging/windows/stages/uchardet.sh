# The detector of encodings, linked into the program.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack uchardet
cmake_library uchardet -DBUILD_SHARED_LIBS=OFF -DBUILD_BINARY=OFF
