#include "editor/indentation.h"

namespace {

const int g_nSpacesPerStep = 4;

// Paired by position.
const QLatin1String g_strOpeners("{[(\"'");
const QLatin1String g_strClosers("}])\"'");

} // namespace

QString leadingBlanks(const QString &strLine)
{
    int nLength = 0;
    while (nLength < strLine.length() && strLine.at(nLength).isSpace())
        ++nLength;
    return strLine.left(nLength);
}

bool endsWithOpeningBrace(const QString &strLine)
{
    int nEnd = strLine.length();
    while (nEnd > 0 && strLine.at(nEnd - 1).isSpace())
        --nEnd;
    return nEnd > 0 && strLine.at(nEnd - 1) == QLatin1Char('{');
}

int outdentLength(const QString &strLine)
{
    if (strLine.startsWith(QLatin1Char('\t')))
        return 1;
    int nSpaces = 0;
    while (nSpaces < qMin(strLine.length(), g_nSpacesPerStep)
           && strLine.at(nSpaces) == QLatin1Char(' '))
        ++nSpaces;
    return nSpaces;
}

QChar closingCharacter(const QString &strTyped)
{
    const int nPair = strTyped.isEmpty() ? -1 : QString(g_strOpeners).indexOf(strTyped);
    return nPair < 0 ? QChar() : QChar(g_strClosers.at(nPair));
}
