#include "highlight/clinepattern.h"

#include "highlight/csymbolline.h"
#include "highlight/patternsyntax.h"

#include <algorithm>
#include <cstring>

CLinePattern::CLinePattern(const QString &strPattern, Qt::CaseSensitivity sensitivity)
    : m_bEmpty(strPattern.isEmpty()), m_sensitivity(sensitivity), m_rx(strPattern, sensitivity)
{
    m_bValid = m_rx.isValid();
    if (m_bEmpty || !m_bValid)
        return;
    if (const std::optional<SPatternNode> node = readPattern(strPattern, sensitivity))
        m_required = CRequiredCharacters(*node, sensitivity);
    if (sensitivity == Qt::CaseSensitive)
        m_strPlain = plainText(strPattern);
}

QString CLinePattern::plainText(const QString &strPattern)
{
    QString strPlain;
    for (int n = 0; n < strPattern.size(); ++n) {
        QChar ch = strPattern.at(n);
        if (ch == QLatin1Char('\\')) {
            ++n;
            // A letter or digit after a backslash has a special meaning.
            if (n == strPattern.size() || strPattern.at(n).isLetterOrNumber())
                return QString();
            ch = strPattern.at(n);
        } else if (QLatin1String("^$.[](){}*+?|").contains(ch)) {
            return QString();
        }
        strPlain += ch;
    }
    return strPlain;
}

CAnchoredPattern *CLinePattern::machineFor(const CSymbolLine &line) const
{
#ifdef QUILLAN_WITHOUT_STATE_MACHINES
    Q_UNUSED(line)
    return nullptr;
#else
    if (m_bEmpty || !m_bValid || (m_sensitivity == Qt::CaseInsensitive && line.hasFolding()))
        return nullptr;
    if (!m_machine)
        m_machine.emplace(m_rx.pattern(), m_sensitivity);
    return m_machine->isUsable() ? &*m_machine : nullptr;
#endif
}

int CLinePattern::indexIn(const CSymbolLine &line, int nFrom) const
{
    if (m_bEmpty || !m_bValid)
        return -1;
    if (!m_strPlain.isEmpty())
        return indexOfPlain(line, nFrom);
    if (CAnchoredPattern *const pMachine = machineFor(line)) {
        const int nStart = indexByAutomaton(pMachine, line, nFrom);
        if (pMachine->isUsable())
            return nStart;
    }
    const int nStart = m_rx.indexIn(line.text(), nFrom);
    m_nLength = m_rx.matchedLength();
    return nStart;
}

int CLinePattern::indexOfPlain(const CSymbolLine &line, int nFrom) const
{
    const QChar chFirst = m_strPlain.at(0);
    m_nLength = m_strPlain.size();
    if (m_nLength == 1 && CharacterClass::isAscii(chFirst)) {
        const uchar *const pSymbols = line.symbols();
        const int nCount = std::max(0, line.size() - nFrom);
        const void *const pAt = memchr(pSymbols + nFrom, chFirst.unicode(), size_t(nCount));
        return pAt ? int(static_cast<const uchar *>(pAt) - pSymbols) : -1;
    }
    const QString &strText = line.text();
    int nAt = strText.indexOf(chFirst, nFrom);
    while (nAt >= 0 && strText.midRef(nAt, m_nLength) != m_strPlain)
        nAt = strText.indexOf(chFirst, nAt + 1);
    return nAt;
}

int CLinePattern::indexByAutomaton(CAnchoredPattern *pMachine, const CSymbolLine &line,
                                   int nFrom) const
{
    const uchar *const pSymbols = line.symbols();
    const int nSize = line.size();
    const SymbolSet &first = pMachine->mayStartWith();
    const int nOnly = pMachine->onlyStart();
    for (int n = nFrom; n <= nSize; ++n) {
        if (nOnly >= 0 && n < nSize) {
            const void *const pNext = memchr(pSymbols + n, nOnly, size_t(nSize - n));
            n = pNext ? int(static_cast<const uchar *>(pNext) - pSymbols) : nSize;
        } else if (n < nSize && !first[pSymbols[n]]) {
            continue;
        }
        const int nEnd = pMachine->endOfMatch(line, n);
        if (nEnd >= 0) {
            m_nLength = nEnd - n;
            return n;
        }
    }
    m_nLength = -1;
    return -1;
}
