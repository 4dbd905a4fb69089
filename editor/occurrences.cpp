#include "editor/occurrences.h"

#include "editor/words.h"

#include <QStringMatcher>

namespace {

bool isWholeWord(const QString &strDocument, int nStart, int nEnd)
{
    return (nStart == 0 || !isWordCharacter(strDocument.at(nStart - 1)))
        && (nEnd == strDocument.length() || !isWordCharacter(strDocument.at(nEnd)));
}

} // namespace

CCarets caretsOfOccurrences(const QString &strDocument, const QString &strText, bool bWords,
                            int nMain)
{
    const QStringMatcher matcher(strText);
    QVector<SCaret> lst;
    int nMainIndex = 0;
    int nAt = strText.isEmpty() ? -1 : matcher.indexIn(strDocument);
    while (nAt >= 0) {
        const int nEnd = nAt + strText.length();
        if (!bWords || isWholeWord(strDocument, nAt, nEnd)) {
            if (nAt <= nMain)
                nMainIndex = lst.size();
            lst.append({nAt, nEnd});
        }
        nAt = matcher.indexIn(strDocument, nEnd);
    }
    if (lst.isEmpty())
        return CCarets({nMain, nMain});
    return {lst, nMainIndex};
}
