# Spelling, linked into the program. Whoever reads its header has to know that it is no DLL.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack hunspell
mkdir -p "$results/build/hunspell"
cd "$results/build/hunspell"
[ -e Makefile ] || "$results/sources/hunspell/configure" --host="$target" --prefix="$prefix" \
    --disable-shared --enable-static --disable-nls --without-readline --without-ui \
    CPPFLAGS=-DHUNSPELL_STATIC
make -C src/hunspell -j "$jobs"
make -C src/hunspell install
make install-pkgconfDATA
grep -q HUNSPELL_STATIC "$prefix/lib/pkgconfig/hunspell.pc" ||
    sed -i 's/^Cflags:.*/& -DHUNSPELL_STATIC/' "$prefix/lib/pkgconfig/hunspell.pc"
