#pragma once

#include <QRegExp>
#include <QString>

// Replacing in one line by its definition: find the candidate, replace it, search again after the
// inserted text, or when searching up before it. Slow on purpose.
struct SLiteralLineOptions
{
    bool bMatchCase = false;
    bool bWholeWord = false;
    bool bSearchUp = false;
    bool bRegExp = false;
    Qt::CaseSensitivity sensitivity() const
    {
        return bMatchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    }
};

inline bool literalFindInLine(const QString &strLine, const QString &strText, int nOffset,
                              const SLiteralLineOptions &options, int *pIndex, int *pLength)
{
    QRegExp regExp(strText, options.sensitivity(), QRegExp::RegExp);
    int nIndex = -1;
    int nLength = strText.length();
    if (options.bRegExp) {
        nIndex = options.bSearchUp ? regExp.lastIndexIn(strLine, nOffset)
                                   : regExp.indexIn(strLine, nOffset);
        nLength = regExp.matchedLength();
    } else if (options.bSearchUp) {
        // The position behind the last character means the line's end.
        const int nFrom = nOffset == strLine.length() ? -1 : nOffset;
        nIndex = strLine.lastIndexOf(strText, nFrom, options.sensitivity());
    } else {
        nIndex = strLine.indexOf(strText, nOffset, options.sensitivity());
    }
    if (nIndex < 0 || nLength <= 0)
        return false;
    if (options.bWholeWord) {
        if (nIndex > 0 && strLine.at(nIndex - 1).isLetterOrNumber())
            return false;
        const int nBehind = nIndex + nLength;
        if (nBehind < strLine.length() && strLine.at(nBehind).isLetterOrNumber())
            return false;
    }
    *pIndex = nIndex;
    *pLength = nLength;
    return true;
}

inline bool literalMatchesSelection(const QString &strSelected, const QString &strText,
                                    const SLiteralLineOptions &options)
{
    if (!options.bRegExp) {
        return strSelected.startsWith(strText, options.sensitivity())
            && strSelected.length() == strText.length();
    }
    QRegExp regExp(strText, options.sensitivity(), QRegExp::RegExp);
    return regExp.indexIn(strSelected, 0) == 0 && regExp.matchedLength() == strSelected.length();
}

// Gives the new line, and the number of matches in *pCount.
inline QString literalReplaceInLine(QString strLine, const QString &strText, int nOffset,
                                    const QString &strReplace, const SLiteralLineOptions &options,
                                    int *pCount)
{
    int nIndex = 0;
    int nLength = 0;
    *pCount = 0;
    while (literalFindInLine(strLine, strText, nOffset, options, &nIndex, &nLength)) {
        ++*pCount;
        const bool bReplace =
            literalMatchesSelection(strLine.mid(nIndex, nLength), strText, options);
        if (bReplace)
            strLine.replace(nIndex, nLength, strReplace);
        if (options.bSearchUp)
            nOffset = nIndex - 1;
        else
            nOffset = nIndex + (bReplace ? strReplace.length() : nLength);
        if (nOffset < 0)
            break;
    }
    return strLine;
}
