#include "findinfiles/resulttext.h"

#include "app/plaintext.h"
#include "editor/linesearch.h"

namespace {

QString shown(QString strText)
{
    return visibleName(strText.replace(QLatin1Char('\t'), QLatin1Char(' ')));
}

QString withoutIndentation(const QString &strText)
{
    int n = 0;
    while (n < strText.length() && strText.at(n).isSpace())
        ++n;
    return strText.mid(n);
}

} // namespace

SResultText resultText(const SFileMatch &match, const QString *pReplace)
{
    const auto append = [](QString *pText, const QString &strPart) {
        const SLineMatch place {pText->length(), strPart.length()};
        pText->append(strPart);
        return place;
    };
    SResultText result;
    result.strText = QStringLiteral("%1: ").arg(match.nLine);
    append(&result.strText, shown(withoutIndentation(match.strExcerpt.left(match.nExcerptColumn))));
    result.match =
        append(&result.strText, shown(match.strExcerpt.mid(match.nExcerptColumn, match.nLength)));
    if (pReplace)
        result.replacement = append(&result.strText, shown(*pReplace));
    append(&result.strText, shown(match.strExcerpt.mid(match.nExcerptColumn + match.nLength)));
    return result;
}
