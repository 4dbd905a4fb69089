#include "highlight/cselectedword.h"

#include <QBrush>
#include <QColor>

CSelectedWord::CSelectedWord(const QString &strWord)
    : m_strWord(strWord), m_rx(strWord, Qt::CaseInsensitive, QRegExp::FixedString)
{
    m_format.setBackground(QBrush(QColor(QStringLiteral("#DD9BFF9B"))));
    m_format.setProperty(QTextFormat::UserProperty, 1);
}

bool CSelectedWord::findMarks(const QString &strLine, QList<QTextLayout::FormatRange> *pMarks,
                              const std::function<bool()> &isAborted) const
{
    pMarks->clear();
    for (int nAt = 0; !m_strWord.isEmpty();) {
        if (isAborted())
            return false;
        nAt = m_rx.indexIn(strLine, nAt);
        if (nAt < 0)
            break;
        pMarks->append({nAt, m_strWord.size(), m_format});
        nAt += m_strWord.size();
    }
    return !isAborted();
}
