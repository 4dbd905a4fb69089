#include "editor/linereplace.h"

#include <QStringList>

#include <algorithm>

namespace {

// Works on the rest of the line, in place. The character before the rest stands for the finished
// text, because word tests and assertions look one character back. If there is no finished text,
// the rest begins a line, and "^" matches there.
class CForwardReplacer
{
public:
    CForwardReplacer(const CLineSearch &search, const QString &strLine, const QString &strReplace)
        : m_search(search),
          m_strReplace(strReplace),
          m_strBuffer(strLine.constData(), strLine.length()),
          m_strView(QString::fromRawData(m_strBuffer.constData(), m_strBuffer.length()))
    {
    }

    SLineReplacement run(SLineMatch match)
    {
        m_result.strText.reserve(m_strBuffer.length());
        while (match.isValid()) {
            ++m_result.nMatches;
            take(match);
            match = m_search.find(m_strView, m_nTaken);
        }
        m_result.strText.append(m_strView.constData() + m_nTaken, m_strView.length() - m_nTaken);
        return std::move(m_result);
    }

private:
    void take(const SLineMatch &match)
    {
        QString &strDone = m_result.strText;
        strDone.append(m_strView.constData() + m_nTaken, match.nStart - m_nTaken);
        const QChar *pMatch = m_strView.constData() + match.nStart;
        m_nTaken = match.end();
        if (!matchesAlone(pMatch, match.nLength)) {
            strDone.append(pMatch, match.nLength);
            return;
        }
        m_result.lstEdits.append({strDone.length(), match.nLength});
        strDone.append(m_strReplace);
        if (strDone.isEmpty())
            startAnew();
        else
            m_strBuffer[m_nStart + m_nTaken - 1] = strDone.at(strDone.length() - 1);
    }

    // Only a regular expression can depend on more than the match itself.
    bool matchesAlone(const QChar *pMatch, int nLength) const
    {
        return !m_search.options().bRegExp
            || m_search.matchesExactly(QString::fromRawData(pMatch, nLength));
    }

    void startAnew()
    {
        m_nStart += m_nTaken;
        m_nTaken = 0;
        m_strView = QString::fromRawData(m_strBuffer.constData() + m_nStart,
                                         m_strBuffer.length() - m_nStart);
    }

    const CLineSearch &m_search;
    const QString m_strReplace;
    QString m_strBuffer; // It is never shared, so the characters of the view stay in place.
    QString m_strView; // The buffer from m_nStart on, without a copy.
    int m_nStart = 0;
    int m_nTaken = 0; // How many characters of the view are done.
    SLineReplacement m_result;
};

SLineReplacement replaceUpwards(const CLineSearch &search, QString strLine, SLineMatch match,
                                const QString &strReplace)
{
    SLineReplacement result;
    QStringList lstTail; // The parts that no later match can reach, the last part first.
    const int nReach = search.reach();
    while (match.isValid()) {
        ++result.nMatches;
        if (search.matchesExactly(strLine.mid(match.nStart, match.nLength))) {
            result.lstEdits.append(match);
            QString strBehind = strReplace + strLine.mid(match.end());
            if (nReach >= 0 && strBehind.length() > nReach) {
                lstTail.append(strBehind.mid(nReach));
                strBehind.truncate(nReach);
            }
            strLine.truncate(match.nStart);
            strLine.append(strBehind);
        }
        result.bAtLineStart = match.nStart == 0;
        match = result.bAtLineStart ? SLineMatch() : search.find(strLine, match.nStart - 1);
    }
    std::reverse(lstTail.begin(), lstTail.end());
    result.strText = strLine + lstTail.join(QString());
    return result;
}

} // namespace

SLineReplacement replaceInLine(const CLineSearch &search, const QString &strLine,
                               const SLineMatch &first, const QString &strReplace)
{
    if (search.options().bSearchUp)
        return replaceUpwards(search, strLine, first, strReplace);
    return CForwardReplacer(search, strLine, strReplace).run(first);
}
