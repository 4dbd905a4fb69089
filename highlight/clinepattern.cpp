#include "highlight/clinepattern.h"

CLinePattern::CLinePattern(const QString &strPattern)
    : m_bEmpty(strPattern.isEmpty()), m_strPlain(plainText(strPattern))
{
    if (m_strPlain.isEmpty()) {
        m_rx = QRegExp(strPattern);
    }
}

QString CLinePattern::plainText(const QString &strPattern)
{
    QString strPlain;
    for (int n = 0; n < strPattern.size(); ++n) {
        QChar ch = strPattern.at(n);
        if (ch == QLatin1Char('\\')) {
            ++n;
            // A letter or digit behind the backslash has a meaning of its own.
            if (n == strPattern.size() || strPattern.at(n).isLetterOrNumber()) {
                return QString();
            }
            ch = strPattern.at(n);
        } else if (QLatin1String("^$.[](){}*+?|").contains(ch)) {
            return QString();
        }
        strPlain += ch;
    }
    return strPlain;
}

int CLinePattern::indexIn(const QString &strText, int nFrom) const
{
    if (!m_strPlain.isEmpty()) {
        const QChar chFirst = m_strPlain.at(0);
        int nAt = strText.indexOf(chFirst, nFrom);
        while (nAt >= 0 && strText.midRef(nAt, m_strPlain.size()) != m_strPlain) {
            nAt = strText.indexOf(chFirst, nAt + 1);
        }
        return nAt;
    }
    return !m_bEmpty && m_rx.isValid() ? m_rx.indexIn(strText, nFrom) : -1;
}

int CLinePattern::matchedLength() const
{
    return m_strPlain.isEmpty() ? m_rx.matchedLength() : m_strPlain.size();
}
