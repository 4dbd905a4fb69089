#include "editor/words.h"

bool isWordCharacter(QChar c)
{
    // Surrogates count as letters, because characters outside the first plane mostly are.
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate() || c == QLatin1Char('_');
}

SWord wordAt(const QString &strLine, int nPlace)
{
    int nStart = nPlace;
    while (nStart > 0 && isWordCharacter(strLine.at(nStart - 1)))
        --nStart;
    int nEnd = nPlace;
    while (nEnd < strLine.length() && isWordCharacter(strLine.at(nEnd)))
        ++nEnd;
    return {nStart, nEnd - nStart};
}
