#include "highlight/ccommentscanner.h"

#include "highlight/csymbolline.h"

namespace {

using Line = SHighlightLine;
using Role = HighlightRole;

// Appends a range, unless it is empty, and returns its end.
int addRange(int nStart, int nEnd, Role role, Line *pLine)
{
    if (nEnd > nStart)
        pLine->lstRanges.push_back({nStart, nEnd - nStart, role});
    return nEnd;
}

// Colours up to nEnd, or to the end of the line, which then stays open.
int addOpenRange(int nStart, int nEnd, int nSize, Role role, SHighlightState::Bit state,
                 Line *pLine)
{
    if (nEnd < 0)
        pLine->nState |= state;
    return addRange(nStart, nEnd < 0 ? nSize : nEnd, role, pLine);
}

// Whether the line matches \\s*$, which is a backslash and any number of the letter s.
bool continuesNextLine(const QString &strText)
{
    int n = strText.size() - 1;
    while (n >= 0 && strText.at(n) == QLatin1Char('s'))
        --n;
    return n >= 0 && strText.at(n) == QLatin1Char('\\');
}

// The end of (\\\\)*" if it matches at nFrom (pairs of backslashes, then the quote), else -1.
int endOfEscapedQuote(const QString &strText, int nFrom, QChar chQuote)
{
    int n = nFrom;
    while (n + 1 < strText.size() && strText.at(n) == QLatin1Char('\\')
           && strText.at(n + 1) == QLatin1Char('\\'))
        n += 2;
    return n < strText.size() && strText.at(n) == chQuote ? n + 1 : -1;
}

// The end of the first match of (^|[^\\])(\\\\)*" from nFrom on, with "^" standing for nFrom; -1
// when there is none. The longest match counts: of two quotes at nFrom itself the second one
// closes, because the first may also be the character in front of it.
int endOfQuoted(const QString &strText, int nFrom, QChar chQuote)
{
    const int nAtOnce = endOfEscapedQuote(strText, nFrom, chQuote);
    if (nAtOnce >= 0) {
        const bool bQuoteFirst = strText.at(nFrom) == chQuote;
        return bQuoteFirst ? qMax(nAtOnce, endOfEscapedQuote(strText, nFrom + 1, chQuote))
                           : nAtOnce;
    }
    for (int nQuote = strText.indexOf(chQuote, nFrom); nQuote >= 0;
         nQuote = strText.indexOf(chQuote, nQuote + 1)) {
        int n = nQuote;
        while (n > nFrom && strText.at(n - 1) == QLatin1Char('\\'))
            --n;
        if ((nQuote - n) % 2 == 0)
            return nQuote + 1;
    }
    return -1;
}

// Finds the next start of one kind. A match ahead stays the first one for every position before it,
// so each line is searched only once.
class CNextStart
{
public:
    template<typename Find> int from(int nAt, Find find)
    {
        if (!m_bSearched || (m_nStart >= 0 && m_nStart < nAt)) {
            m_nStart = find(nAt);
            m_bSearched = true;
        }
        return m_nStart;
    }

private:
    int m_nStart = -1;
    bool m_bSearched = false;
};

bool isBefore(int nStart, int nOther)
{
    return nStart >= 0 && (nOther < 0 || nStart < nOther);
}

} // namespace

void CCommentScanner::setSingleLine(const QString &strStart)
{
    m_singleLine = CLinePattern(strStart);
}

void CCommentScanner::setMultiLine(const QString &strStart, const QString &strEnd)
{
    m_multiLineStart = CLinePattern(strStart);
    m_multiLineEnd = CLinePattern(strEnd);
}

int CCommentScanner::endOfComment(const CSymbolLine &line, int nFrom) const
{
    const int nEnd = m_multiLineEnd.indexIn(line, nFrom);
    return nEnd < 0 ? -1 : nEnd + m_multiLineEnd.matchedLength();
}

int CCommentScanner::continueLineBefore(const CSymbolLine &line, int nPreviousState,
                                        Line *pLine) const
{
    const QString &strText = line.text();
    const int nOpen = qMax(0, nPreviousState);
    const int nSize = strText.size();
    constexpr int nContinuedComment =
        SHighlightState::SingleLineComment | SHighlightState::Continued;
    if ((nOpen & nContinuedComment) == nContinuedComment) {
        pLine->nState |= continuesNextLine(strText) ? nContinuedComment : 0;
        return addRange(0, nSize, Role::Comment, pLine);
    }
    if (nOpen & SHighlightState::MultiLineComment) {
        return addOpenRange(0, endOfComment(line, 0), nSize, Role::Comment,
                            SHighlightState::MultiLineComment, pLine);
    }
    if (nOpen & SHighlightState::DoubleQuoted) {
        return addOpenRange(0, endOfQuoted(strText, 0, QLatin1Char('"')), nSize, Role::String,
                            SHighlightState::DoubleQuoted, pLine);
    }
    // No rule here opens a single-quoted string, but a state that says so counts.
    if (nOpen & SHighlightState::SingleQuoted) {
        return addOpenRange(0, endOfQuoted(strText, 0, QLatin1Char('\'')), nSize, Role::String,
                            SHighlightState::SingleQuoted, pLine);
    }
    return 0;
}

// A start counts only if it is strictly before all others. If two begin at the same place, the rest
// of the line keeps its colours.
void CCommentScanner::scan(const CSymbolLine &line, int nPreviousState, Line *pLine) const
{
    const QString &strText = line.text();
    const int nSize = strText.size();
    CNextStart nextLine;
    CNextStart nextMulti;
    CNextStart nextQuote;
    int nAt = continueLineBefore(line, nPreviousState, pLine);
    while (nAt < nSize) {
        const int nLine = nextLine.from(
            nAt, [&](int n) { return m_singleLine.indexIn(line, n); });
        const int nMulti = nextMulti.from(
            nAt, [&](int n) { return m_multiLineStart.indexIn(line, n); });
        const int nQuote =
            nextQuote.from(nAt, [&](int n) { return strText.indexOf(QLatin1Char('"'), n); });
        if (isBefore(nLine, nMulti) && isBefore(nLine, nQuote)) {
            pLine->nState |= SHighlightState::SingleLineComment
                | (continuesNextLine(strText) ? int(SHighlightState::Continued) : 0);
            nAt = addRange(nLine, nSize, Role::Comment, pLine);
        } else if (isBefore(nMulti, nLine) && isBefore(nMulti, nQuote)) {
            // Asks again for the length of a match that was found earlier.
            m_multiLineStart.indexIn(line, nMulti);
            const int nInside = nMulti + m_multiLineStart.matchedLength();
            const int nEnd = addOpenRange(nMulti, endOfComment(line, nInside), nSize, Role::Comment,
                                          SHighlightState::MultiLineComment, pLine);
            if (nEnd == nAt)
                return; // An empty match would repeat forever.
            nAt = nEnd;
        } else if (isBefore(nQuote, nLine) && isBefore(nQuote, nMulti)) {
            nAt = addOpenRange(nQuote, endOfQuoted(strText, nQuote + 1, QLatin1Char('"')), nSize,
                               Role::String, SHighlightState::DoubleQuoted, pLine);
        } else {
            return;
        }
    }
}
