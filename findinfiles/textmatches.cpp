#include "findinfiles/textmatches.h"

#include "editor/cstandins.h"
#include "editor/linesearch.h"

#include <algorithm>

namespace {

// How many characters are searched at once: few enough to end soon when the search is cancelled.
const int g_nRunLength = 256 * 1024;
// How many characters of the line are shown before and after a match.
const int g_nBefore = 60;
const int g_nBehind = 200;

// Moves a cut that would split a surrogate pair back by one.
int wholeCharacter(const QString &strText, int nPosition)
{
    const bool bInside = nPosition > 0 && nPosition < strText.length()
        && strText.at(nPosition).isLowSurrogate() && strText.at(nPosition - 1).isHighSurrogate();
    return bInside ? nPosition - 1 : nPosition;
}

void addExcerpt(const QString &strLine, SFileMatch *pMatch)
{
    const int nFrom = wholeCharacter(strLine, std::max(0, pMatch->nColumn - g_nBefore));
    const int nTo =
        wholeCharacter(strLine, std::min(strLine.length(), pMatch->nColumn + g_nBehind));
    pMatch->strExcerpt = strLine.mid(nFrom, nTo - nFrom);
    pMatch->nExcerptColumn = pMatch->nColumn - nFrom;
}

// The matches of some whole lines of a text.
class CRunSearch
{
public:
    CRunSearch(const CLineSearch &search, int nMost, const std::atomic<bool> &bCancel)
        : m_search(search), m_nMost(nMost), m_bCancel(bCancel)
    {
    }

    bool isDone() const { return m_bCancel || m_lstMatches.size() >= m_nMost; }

    void searchRun(const QString &strRun)
    {
        int nCounted = 0; // The lines up to here are counted.
        int nOffset = 0;
        while (!isDone()) {
            const SRunMatch found = m_search.findInRun(strRun, nOffset);
            if (!found.isValid())
                break;
            m_nLine += countLines(strRun, nCounted, found.nLineStart);
            nCounted = found.nLineStart;
            add(strRun.mid(found.nLineStart, found.nLineLength), found.match);
            nOffset = found.nLineStart + found.match.end();
        }
        m_nLine += countLines(strRun, nCounted, strRun.length()) + 1;
    }

    QVector<SFileMatch> takeMatches() { return std::move(m_lstMatches); }

private:
    static int countLines(const QString &strRun, int nFrom, int nTo)
    {
        return int(std::count(strRun.cbegin() + nFrom, strRun.cbegin() + nTo,
                              QChar(QChar::ParagraphSeparator)));
    }

    void add(const QString &strLine, const SLineMatch &match)
    {
        SFileMatch found;
        found.nLine = m_nLine;
        found.nColumn = match.nStart;
        found.nLength = match.nLength;
        addExcerpt(strLine, &found);
        m_lstMatches.append(found);
    }

    const CLineSearch &m_search;
    const int m_nMost;
    const std::atomic<bool> &m_bCancel;
    int m_nLine = 1;
    QVector<SFileMatch> m_lstMatches;
};

} // namespace

QString linesOfText(const QString &strText)
{
    QString strLines = CStandIns().hide(strText);
    const auto itEnd = strLines.end();
    auto itTo = strLines.begin();
    for (auto it = strLines.begin(); it != itEnd; ++it) {
        const bool bReturn = *it == QLatin1Char('\r');
        if (bReturn && it + 1 != itEnd && *(it + 1) == QLatin1Char('\n'))
            ++it;
        *itTo++ = bReturn || *it == QLatin1Char('\n') ? QChar(QChar::ParagraphSeparator) : *it;
    }
    strLines.resize(int(itTo - strLines.begin()));
    return strLines;
}

QVector<SFileMatch> findMatches(const CLineSearch &search, const QString &strText, int nMost,
                                const std::atomic<bool> &bCancel)
{
    const QString strLines = linesOfText(strText);
    CRunSearch run(search, nMost, bCancel);
    int nFrom = 0;
    while (!run.isDone()) {
        const int nLook = std::min(strLines.length(), nFrom + g_nRunLength);
        int nEnd = strLines.indexOf(QChar::ParagraphSeparator, nLook);
        if (nEnd < 0)
            nEnd = strLines.length();
        // Makes no copy of the text, because matches are copied while it exists.
        run.searchRun(QString::fromRawData(strLines.constData() + nFrom, nEnd - nFrom));
        if (nEnd == strLines.length())
            break;
        nFrom = nEnd + 1;
    }
    return run.takeMatches();
}
