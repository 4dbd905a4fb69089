#!/usr/bin/env bash
# The check of what each file includes, on a folder made for it.
#   test-includes.sh CHECK
set -u
check=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/includes.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/app" "$work/tests"
header() {
    local path=$1
    shift
    printf '%s\n' '#pragma once' "$@" >"$work/$path"
}
header app/part.h '#include <QString>' 'struct SPart' '{' '};' 'SPart partOf(const QString &strText);'
header app/cbase.h '#include <QWidget>' 'class CBase : public QWidget' '{' '    void change();' '};'
header app/later.h 'class SPart;' 'class CLater;'
header app/number.h 'int number();'
header app/empty.h
header app/withpart.h '#include "app/part.h"'
header app/cderived.h '#include "app/cbase.h"' 'class CDerived : public CBase' '{' '};'
header tests/only.h 'struct SOnlyForTests' '{' '};'

# expect ANSWER LINE...: what the check says of a source with these lines; "" for nothing.
files=() wanted=()
expect() {
    local file=app/source${#files[@]}.cpp
    printf '%s\n' "${@:2}" >"$work/$file"
    files+=("$file")
    wanted+=("$1")
}

part='SPart needs #include "app/part.h"'
expect "$part" 'SPart part;'
expect "" '#include "app/part.h"' 'SPart part;'
expect "" '// SPart' 'const char *sz = "SPart";'
expect "" 'class SPart;' 'void use(SPart *pPart);'
expect "" 'struct SPart' '{' '};' 'SPart part;'
expect 'partOf needs #include "app/part.h"' '#include <QString>' 'const auto part = partOf(QString());'
expect "" 'const auto part = other.partOf(1);'
# Through the source's own header, which comes first, and through that of a base class.
expect "" '#include "app/withpart.h"' 'SPart part;'
expect "" '#include "app/cderived.h"' 'QWidget widget;'
expect 'QProcess needs #include <QProcess>' '#include "app/cderived.h"' 'QProcess process;'
expect "" '#include "app/cderived.h"' '#include <QProcess>' 'QProcess process;'
expect "" '#include "app/cderived.h"' 'void use(QKeyEvent *pEvent);' # QWidget declares it.
# Not through any other header.
expect "$part" '#include "app/empty.h"' '#include "app/withpart.h"' 'SPart part;'
expect "$part" '#include "app/empty.h"' '#include "app/later.h"' 'SPart part; CLater *pLater;'
# A name that only the tests define is another one in the program.
expect "" 'int SOnlyForTests;'
# Headers of no use; one whose class is declared elsewhere may complete it.
expect '#include "app/number.h" is of no use' '#include "app/empty.h"' '#include "app/number.h"'
expect "" '#include "app/empty.h"' '#include "app/part.h"'

said=$(python3 "$check" --root "$work" "${files[@]}")
failed=0
for n in "${!files[@]}"; do
    answer=$(sed -n "s|^${files[n]}: ||p" <<<"$said")
    [ "$answer" = "${wanted[n]}" ] && continue
    printf 'FAIL:\n%s\n  wanted: %s\n  said:   %s\n' "$(<"$work/${files[n]}")" "${wanted[n]}" "$answer"
    failed=1
done
[ "$failed" -eq 0 ] && echo "The check of includes answers ${#files[@]} sources rightly."
exit "$failed"
