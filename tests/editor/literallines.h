#pragma once

#include "editor/ccarets.h"

#include <QRegularExpression>

// A slow, literal version of the commands on lines, on a plain list of strings.

struct SLiteralLine
{
    QString strText;
    bool bTouched;
};

class CLiteralLines
{
public:
    CLiteralLines(const QString &strText, const CCarets &carets)
    {
        const QStringList lstTexts = strText.split('\n');
        int nStart = 0;
        for (const QString &strLine : lstTexts) {
            const int nEnd = nStart + strLine.length();
            bool bTouched = false;
            for (const SCaret &caret : carets.list()) {
                bTouched |= caret.hasSelection() ? caret.start() <= nEnd && caret.end() > nStart
                                                 : caret.start() >= nStart && caret.start() <= nEnd;
            }
            m_lst.append({strLine, bTouched});
            nStart = nEnd + 1;
        }
    }

    QString text() const
    {
        QStringList lst;
        for (const SLiteralLine &line : m_lst)
            lst.append(line.strText);
        return lst.join('\n');
    }

    void moveUp()
    {
        for (int n = 1; n < m_lst.size(); ++n)
            if (m_lst.at(n).bTouched && !m_lst.at(n - 1).bTouched)
                m_lst.swapItemsAt(n, n - 1);
    }
    void moveDown()
    {
        for (int n = m_lst.size() - 2; n >= 0; --n)
            if (m_lst.at(n).bTouched && !m_lst.at(n + 1).bTouched)
                m_lst.swapItemsAt(n, n + 1);
    }
    void duplicate()
    {
        QVector<SLiteralLine> lstResult;
        QVector<SLiteralLine> lstRun;
        for (const SLiteralLine &line : qAsConst(m_lst)) {
            if (!line.bTouched) {
                lstResult += lstRun;
                lstRun.clear();
            } else {
                lstRun.append(line);
            }
            lstResult.append(line);
        }
        m_lst = lstResult + lstRun;
    }
    void remove()
    {
        m_lst.erase(
            std::remove_if(
                m_lst.begin(), m_lst.end(), [](const SLiteralLine &line) { return line.bTouched; }),
            m_lst.end());
    }
    void sort()
    {
        for (int nRound = 0; nRound < m_lst.size(); ++nRound) {
            for (int n = 1; n < m_lst.size(); ++n)
                if (m_lst.at(n - 1).bTouched && m_lst.at(n).bTouched
                    && m_lst.at(n).strText < m_lst.at(n - 1).strText)
                    m_lst.swapItemsAt(n - 1, n);
        }
    }
    void indent()
    {
        for (SLiteralLine &line : m_lst)
            if (line.bTouched)
                line.strText.prepend('\t');
    }
    void outdent()
    {
        for (SLiteralLine &line : m_lst)
            if (line.bTouched)
                line.strText.remove(QRegularExpression("^(\t| {1,4})"));
    }

private:
    QVector<SLiteralLine> m_lst;
};

// The lines that a single caret joins, as one text.
inline QString literallyJoined(const QString &strText, const SCaret &caret)
{
    const QStringList lst = strText.split('\n');
    const int nFirst = strText.leftRef(caret.start()).count('\n');
    const int nEnd = caret.hasSelection() ? caret.end() - 1 : caret.end();
    int nLast = strText.leftRef(nEnd).count('\n');
    if (nLast == nFirst)
        nLast = qMin(nLast + 1, lst.size() - 1);
    if (nLast == nFirst)
        return strText;
    QString strJoined = QStringList(lst.mid(nFirst, nLast - nFirst + 1)).join('\n');
    strJoined.remove(QRegularExpression("\\A[ \t]*\n[ \t\n]*|[ \t]*\n[ \t\n]*\\z"));
    strJoined.replace(QRegularExpression("[ \t]*\n[ \t\n]*"), " ");
    return (QStringList(lst.mid(0, nFirst)) << strJoined << lst.mid(nLast + 1)).join('\n');
}
