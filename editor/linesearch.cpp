#include "editor/linesearch.h"

CLineSearch::CLineSearch(const QString &strText, const SSearchOptions &options)
    : m_strText(strText),
      m_options(options),
      m_case(options.bMatchCase ? Qt::CaseSensitive : Qt::CaseInsensitive)
{
    if (options.bRegExp)
        m_regExp = QRegExp(strText, m_case, QRegExp::RegExp);
    else
        m_matcher = QStringMatcher(strText, m_case);
}

SLineMatch CLineSearch::find(const QString &strLine, int nOffset) const
{
    const SLineMatch match = candidate(strLine, nOffset);
    return match.isValid() && passesWordTest(strLine, match) ? match : SLineMatch();
}

SLineMatch CLineSearch::findAny(const QString &strLine, int nOffset) const
{
    for (;;) {
        const SLineMatch match = rawCandidate(strLine, nOffset);
        if (!match.isValid())
            return match;
        if (match.nLength > 0 && passesWordTest(strLine, match))
            return match;
        nOffset = m_options.bSearchUp ? match.nStart - 1 : match.nStart + 1;
        // Upwards, -1 would be the line's end again.
        if (nOffset < 0 || nOffset > strLine.length())
            return SLineMatch();
    }
}

SLineMatch CLineSearch::candidate(const QString &strLine, int nOffset) const
{
    const SLineMatch match = rawCandidate(strLine, nOffset);
    return match.nLength > 0 ? match : SLineMatch();
}

// May be empty.
SLineMatch CLineSearch::rawCandidate(const QString &strLine, int nOffset) const
{
    SLineMatch match;
    if (m_options.bRegExp) {
        match.nStart = m_options.bSearchUp ? m_regExp.lastIndexIn(strLine, nOffset)
                                           : m_regExp.indexIn(strLine, nOffset);
        match.nLength = m_regExp.matchedLength();
    } else {
        match.nStart = plainIndex(strLine, nOffset);
        match.nLength = m_strText.length();
    }
    return match;
}

int CLineSearch::plainIndex(const QString &strText, int nOffset) const
{
    if (m_options.bSearchUp) {
        // QString::lastIndexOf() finds nothing from the position after the last character, where a
        // search from a line's end starts.
        const int nFrom = nOffset >= strText.length() ? -1 : nOffset;
        return strText.lastIndexOf(m_strText, nFrom, m_case);
    }
    // For a single character QString is faster than the matcher.
    return m_strText.length() == 1 ? strText.indexOf(m_strText, nOffset, m_case)
                                   : m_matcher.indexIn(strText, nOffset);
}

bool CLineSearch::matchesExactly(const QString &strSelected) const
{
    if (m_options.bRegExp) {
        return m_regExp.indexIn(strSelected, 0) == 0
            && m_regExp.matchedLength() == strSelected.length();
    }
    return strSelected.length() == m_strText.length() && strSelected.startsWith(m_strText, m_case);
}

bool CLineSearch::passesWordTest(const QString &strText, const SLineMatch &match) const
{
    if (!m_options.bWholeWord)
        return true;
    const bool bBefore = match.nStart > 0 && strText.at(match.nStart - 1).isLetterOrNumber();
    const bool bAfter =
        match.end() < strText.length() && strText.at(match.end()).isLetterOrNumber();
    return !bBefore && !bAfter;
}

SRunMatch CLineSearch::findInRun(const QString &strRun, int nOffset) const
{
    return m_options.bRegExp ? findExpressionInRun(strRun, nOffset)
                             : findPlainInRun(strRun, nOffset);
}

namespace {

int lineStart(const QString &strRun, int nPosition)
{
    return nPosition == 0 ? 0 : strRun.lastIndexOf(QChar::ParagraphSeparator, nPosition - 1) + 1;
}

int lineEnd(const QString &strRun, int nPosition)
{
    const int nEnd = strRun.indexOf(QChar::ParagraphSeparator, nPosition);
    return nEnd < 0 ? strRun.length() : nEnd;
}

} // namespace

// A plain text contains no line end, so all lines are searched at once.
SRunMatch CLineSearch::findPlainInRun(const QString &strRun, int nOffset) const
{
    SRunMatch result;
    if (m_strText.contains(QChar::ParagraphSeparator))
        return result;
    while (nOffset <= strRun.length()) {
        const SLineMatch match {plainIndex(strRun, nOffset), m_strText.length()};
        if (!match.isValid())
            break;
        const int nStart = lineStart(strRun, match.nStart);
        const int nEnd = lineEnd(strRun, match.end());
        if (passesWordTest(strRun, match)) {
            result.nLineStart = nStart;
            result.nLineLength = nEnd - nStart;
            result.match = {match.nStart - nStart, match.nLength};
            break;
        }
        if (m_options.bSearchUp && nStart == 0)
            break;
        nOffset = m_options.bSearchUp ? nStart - 1 : nEnd + 1;
    }
    return result;
}

SRunMatch CLineSearch::findExpressionInRun(const QString &strRun, int nOffset) const
{
    SRunMatch result;
    const int nPosition = nOffset < 0 ? strRun.length() : nOffset;
    int nStart = lineStart(strRun, nPosition);
    int nEnd = lineEnd(strRun, nPosition);
    int nInLine = nOffset < 0 ? -1 : nOffset - nStart;
    for (;;) {
        result.nLineStart = nStart;
        result.nLineLength = nEnd - nStart;
        // Makes no copy, because the run outlives the search.
        result.match =
            find(QString::fromRawData(strRun.constData() + nStart, nEnd - nStart), nInLine);
        if (result.isValid() || (m_options.bSearchUp ? nStart == 0 : nEnd == strRun.length()))
            return result;
        if (m_options.bSearchUp) {
            nEnd = nStart - 1;
            nStart = lineStart(strRun, nEnd);
            nInLine = -1;
        } else {
            nStart = nEnd + 1;
            nEnd = lineEnd(strRun, nStart);
            nInLine = 0;
        }
    }
}
