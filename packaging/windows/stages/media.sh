# The page engine's own decoders of pictures.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack libjpeg-turbo
cmake_library libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DWITH_SIMD=OFF
unpack libpng1.6
cmake_library libpng1.6 -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF
