#include "editor/linesearch.h"

CLineSearch::CLineSearch(const QString &strText, const SearchOptions &options)
    : m_strText(strText),
      m_options(options),
      m_case(options.bMatchCase ? Qt::CaseSensitive : Qt::CaseInsensitive)
{
    if (options.bRegExp)
        m_regExp = QRegExp(strText, m_case, QRegExp::RegExp);
}

LineMatch CLineSearch::find(const QString &strLine, int nOffset) const
{
    const LineMatch match = candidate(strLine, nOffset);
    return match.isValid() && passesWordTest(strLine, match) ? match : LineMatch();
}

LineMatch CLineSearch::candidate(const QString &strLine, int nOffset) const
{
    LineMatch match;
    if (m_options.bRegExp) {
        match.nStart = m_options.bSearchUp ? m_regExp.lastIndexIn(strLine, nOffset)
                                           : m_regExp.indexIn(strLine, nOffset);
        match.nLength = m_regExp.matchedLength();
    } else if (m_options.bSearchUp) {
        // QString::lastIndexOf() finds nothing at all from the position behind the last character,
        // which is where a search from a line's end starts.
        const int nFrom = nOffset >= strLine.length() ? -1 : nOffset;
        match.nStart = strLine.lastIndexOf(m_strText, nFrom, m_case);
        match.nLength = m_strText.length();
    } else {
        match.nStart = strLine.indexOf(m_strText, nOffset, m_case);
        match.nLength = m_strText.length();
    }
    return match.nLength > 0 ? match : LineMatch();
}

bool CLineSearch::matchesExactly(const QString &strSelected) const
{
    if (m_options.bRegExp) {
        return m_regExp.indexIn(strSelected, 0) == 0
            && m_regExp.matchedLength() == strSelected.length();
    }
    return strSelected.length() == m_strText.length() && strSelected.startsWith(m_strText, m_case);
}

bool CLineSearch::passesWordTest(const QString &strLine, const LineMatch &match) const
{
    if (!m_options.bWholeWord)
        return true;
    const bool bBefore = match.nStart > 0 && strLine.at(match.nStart - 1).isLetterOrNumber();
    const bool bAfter =
        match.end() < strLine.length() && strLine.at(match.end()).isLetterOrNumber();
    return !bBefore && !bAfter;
}
