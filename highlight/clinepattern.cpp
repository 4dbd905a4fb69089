#include "highlight/clinepattern.h"

#include <algorithm>

CLinePattern::CLinePattern(const QString &strPattern, Qt::CaseSensitivity sensitivity)
    : m_bEmpty(strPattern.isEmpty()), m_sensitivity(sensitivity), m_rx(strPattern, sensitivity)
{
    m_bValid = m_rx.isValid();
    if (m_bEmpty || !m_bValid) {
        return;
    }
    if (const std::optional<PatternNode> node = readPattern(strPattern, sensitivity)) {
        m_required = RequiredCharacters(*node, sensitivity);
    }
    if (sensitivity == Qt::CaseSensitive) {
        m_strPlain = plainText(strPattern);
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

int CLinePattern::indexIn(const QString &strText, int nFrom, int nLast) const
{
    m_bSearchedAll = true;
    if (m_bEmpty || !m_bValid) {
        return -1;
    }
    if (!m_strPlain.isEmpty()) {
        return indexOfPlain(strText, nFrom);
    }
    if (!m_machine) {
        m_machine.emplace(m_rx.pattern(), m_sensitivity);
    }
    if (m_machine->isUsable()) {
        const int nStart = indexByAutomaton(strText, nFrom, nLast);
        if (nStart >= -1) {
            m_bSearchedAll = nLast < 0;
            return nStart;
        }
    }
    const int nStart = m_rx.indexIn(strText, nFrom);
    m_nLength = m_rx.matchedLength();
    return nStart;
}

int CLinePattern::indexOfPlain(const QString &strText, int nFrom) const
{
    const QChar chFirst = m_strPlain.at(0);
    m_nLength = m_strPlain.size();
    int nAt = strText.indexOf(chFirst, nFrom);
    while (nAt >= 0 && strText.midRef(nAt, m_nLength) != m_strPlain) {
        nAt = strText.indexOf(chFirst, nAt + 1);
    }
    return nAt;
}

// -2 when the automaton cannot tell: letters that equal others only when case does not count are
// QRegExp's business, and so is a pattern whose machine has grown too large.
int CLinePattern::indexByAutomaton(const QString &strText, int nFrom, int nLast) const
{
    const QChar *const pch = strText.constData();
    const int nSize = strText.size();
    const int nLimit = nLast < 0 ? nSize : std::min(nSize, nLast);
    const bool bFolds = m_sensitivity == Qt::CaseInsensitive;
    for (int n = nFrom; n <= nLimit; ++n) {
        while (n < nSize && n <= nLimit && !m_machine->mayStartWith(symbolOf(pch[n]))) {
            if (bFolds && foldsToAscii(pch[n])) {
                return -2;
            }
            ++n;
        }
        if (n > nLimit) {
            break;
        }
        if (bFolds && n < nSize && foldsToAscii(pch[n])) {
            return -2;
        }
        const int nEnd = m_machine->endOfMatch(strText, n);
        if (!m_machine->isUsable() || (bFolds && m_machine->takeDoubt())) {
            return -2;
        }
        if (nEnd >= 0) {
            m_nLength = nEnd - n;
            return n;
        }
    }
    m_nLength = -1;
    return -1;
}
