# Unicode for the page engine. Its tools are built for this machine first. Of its data,
# what names languages, countries, currencies, units and time zones in all languages is left out: a page
# whose scripts do not run never asks for it.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack icu
common=(--disable-samples --disable-tests --disable-extras --disable-layoutex --disable-icuio)
mkdir -p "$results/build/icu-tools" "$results/build/icu"
cd "$results/build/icu-tools"
[ -e Makefile ] || "$results/sources/icu/source/configure" "${common[@]}"
make -j "$jobs"

whole=$results/sources/icu/source/data/in/icudt72l.dat
[ -e "$whole.whole" ] || cp "$whole" "$whole.whole"
export LD_LIBRARY_PATH="$results/build/icu-tools/lib"
"$results/build/icu-tools/bin/icupkg" --list "$whole.whole" >names
grep -E '^(curr|lang|region|unit|zone|rbnf|translit)/' names |
    grep -vE '/(root|res_index|pool|supplementalData|en|tzdbNames)\.res$' >left-out || true
"$results/build/icu-tools/bin/icupkg" --remove left-out "$whole.whole" "$whole"

cd "$results/build/icu"
[ -e Makefile ] || "$results/sources/icu/source/configure" "${common[@]}" --host="$target" \
    --with-cross-build="$results/build/icu-tools" --prefix="$prefix" --disable-tools
make -j "$jobs"
make install
# Windows looks for libraries beside programs.
mkdir -p "$prefix/bin"
find "$prefix/lib" -maxdepth 1 -name 'icu*.dll' -exec mv -t "$prefix/bin" {} +
