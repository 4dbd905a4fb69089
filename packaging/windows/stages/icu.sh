# Unicode for the page engine. The tools that pack its data are those of this machine, which has the same
# version. Of the data, what names languages, countries, currencies, units and time zones in all languages
# is left out: a page whose scripts do not run never asks for it.
set -euo pipefail
. "$(dirname "$0")/../common.sh"

unpack icu
common=(--disable-samples --disable-tests --disable-extras --disable-layoutex --disable-icuio)
tools=$results/build/icu-tools
mkdir -p "$tools/bin" "$results/build/icu"
cd "$tools"
[ -e Makefile ] || "$results/sources/icu/source/configure" "${common[@]}"
dpkg -L icu-devtools | grep -E '^/usr/s?bin/' | xargs -I{} ln -sf {} bin/

data=$results/sources/icu/source/data/in/icudt72l.dat
# icupkg knows the order of bytes by the last letter of a name, and a list by its ending.
mkdir -p whole
[ -e whole/icudt72l.dat ] || cp "$data" whole/
bin/icupkg --list whole/icudt72l.dat >names.txt
grep -E '^(curr|lang|region|unit|zone|rbnf|translit)/' names.txt |
    grep -vE '/(root|res_index|pool|supplementalData|en|tzdbNames)\.res$' >left-out.txt
bin/icupkg --remove left-out.txt whole/icudt72l.dat "$data"

cd "$results/build/icu"
[ -e Makefile ] || "$results/sources/icu/source/configure" "${common[@]}" --host="$target" \
    --with-cross-build="$tools" --prefix="$prefix" --disable-tools
make -j "$jobs"
make install
# Windows looks for libraries beside programs.
mkdir -p "$prefix/bin"
find "$prefix/lib" -maxdepth 1 -name 'icu*.dll' -exec mv -t "$prefix/bin" {} +
