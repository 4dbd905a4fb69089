#!/usr/bin/env bash
# Measures how well encodings are found, with texts that were not written for the tests: words of the
# dictionaries in Debian's hunspell packages, six at a time, in the old encodings of their language. The
# packages are only unpacked, into a temporary folder. Prints the table of docs/encodings.md.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset dev >/dev/null
cmake --build --preset dev --target measureencodings >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
west="ISO-8859-1 IBM850"
central="ISO-8859-2 windows-1250"
# Language, package, word list, encodings.
list="German|hunspell-de-de|de_DE|$west
French|hunspell-fr-classical|fr|$west
Spanish|hunspell-es|es_ES|$west
Swedish|hunspell-sv|sv_SE|$west
Danish|hunspell-da|da_DK|$west
Polish|hunspell-pl|pl_PL|$central
Czech|hunspell-cs|cs_CZ|$central
Slovak|hunspell-sk|sk_SK|$central
Hungarian|hunspell-hu|hu_HU|$central
Croatian|hunspell-hr|hr_HR|$central
Lithuanian|hunspell-lt|lt_LT|windows-1257
Turkish|hunspell-tr|tr_TR|windows-1254
Russian|hunspell-ru|ru_RU|KOI8-R windows-1251 IBM866 ISO-8859-5
Ukrainian|hunspell-uk|uk_UA|KOI8-U windows-1251
Bulgarian|hunspell-bg|bg_BG|windows-1251
Greek|hunspell-el|el_GR|windows-1253
Hebrew|hunspell-he|he_IL|windows-1255
Arabic|hunspell-ar|ar|windows-1256
Thai|hunspell-th|th_TH|TIS-620"
(cd "$work" && apt-get -qq download $(cut -d'|' -f2 <<<"$list") 2>/dev/null &&
    for package in *.deb; do dpkg-deb -x "$package" .; done)
printf '| language | encoding | texts | right | wrong and sure | as Chinese |\n|---|---|---|---|---|---|\n'
while IFS='|' read -r language _ name codecs; do
    words=$work/usr/share/hunspell/$name
    encoding=$(sed -nE 's/^SET[ \t]+([A-Za-z0-9-]+).*/\1/p' "$words.aff" | head -n 1)
    iconv -c -f "${encoding/ISO8859/ISO-8859}" -t UTF-8 "$words.dic" >"$work/words"
    build/dev/tests/app/measureencodings "$work/words" $codecs | sed "s/^/| $language /"
done <<<"$list"
