#include "editor/bracketmatch.h"

namespace {

const QLatin1String g_strOpening("([{");
const QLatin1String g_strClosing(")]}");

bool isInside(const QBitArray &inside, int nInLine)
{
    return nInLine < inside.size() && inside.testBit(nInLine);
}

// Goes through lines and keeps the count of brackets that are still open.
class CBracketCounter
{
public:
    CBracketCounter(QChar cBracket, bool bInside) : m_cBracket(cBracket), m_bInside(bInside)
    {
        const int nOpener = QString(g_strOpening).indexOf(cBracket);
        m_bForward = nOpener >= 0;
        m_cPartner = m_bForward ? g_strClosing.at(nOpener)
                                : g_strOpening.at(QString(g_strClosing).indexOf(cBracket));
    }

    bool isForward() const { return m_bForward; }

    enum Step { GoOn, Partner, Stop };
    // Searches the current line from that place on. If the partner is found, *pInLine is its place.
    Step lookThrough(CBracketLines *pLines, int *pInLine)
    {
        const QString strText = pLines->text();
        // A line without such a bracket need not be searched for comments.
        if (!m_bInside && !strText.contains(m_cBracket) && !strText.contains(m_cPartner))
            return GoOn;
        const QBitArray inside = pLines->inside();
        const int nBy = m_bForward ? 1 : -1;
        for (int &n = *pInLine; n >= 0 && n < strText.length(); n += nBy) {
            if (isInside(inside, n) != m_bInside) {
                if (m_bInside)
                    return Stop; // The comment or string ends here.
                continue;
            }
            if (strText.at(n) == m_cBracket)
                ++m_nOpen;
            else if (strText.at(n) == m_cPartner && --m_nOpen == 0)
                return Partner;
        }
        return GoOn;
    }

private:
    QChar m_cBracket;
    QChar m_cPartner;
    bool m_bInside;
    bool m_bForward;
    int m_nOpen = 0;
};

} // namespace

bool isBracket(QChar c)
{
    return QString(g_strOpening).contains(c) || QString(g_strClosing).contains(c);
}

SBracketMatch matchingBracket(CBracketLines *pLines, int nLineCount, int nLine, int nInLine)
{
    SBracketMatch match;
    if (!pLines->goTo(nLine)) {
        match.result = SBracketMatch::Beyond;
        return match;
    }
    CBracketCounter counter(pLines->text().at(nInLine), isInside(pLines->inside(), nInLine));
    const int nBy = counter.isForward() ? 1 : -1;
    for (;;) {
        const CBracketCounter::Step step = counter.lookThrough(pLines, &nInLine);
        if (step == CBracketCounter::Partner)
            return {SBracketMatch::Found, nLine, nInLine};
        nLine += nBy;
        if (step == CBracketCounter::Stop || nLine < 0 || nLine >= nLineCount)
            return match;
        if (!pLines->goTo(nLine)) {
            match.result = SBracketMatch::Beyond;
            return match;
        }
        nInLine = counter.isForward() ? 0 : pLines->text().length() - 1;
    }
}
