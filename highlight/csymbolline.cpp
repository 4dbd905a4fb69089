#include "highlight/csymbolline.h"

void CSymbolLine::assign(const QString &strText)
{
    m_strText = strText;
    m_bFolding = false;
    m_bFolded = false;
    const auto nSize = size_t(strText.size());
    if (m_lstSymbols.size() <= nSize)
        m_lstSymbols.resize(nSize + 1);
    // The symbol of an ASCII character is the character itself. The compiler vectorises this loop.
    const ushort *const pText = strText.utf16();
    uchar *const pSymbols = m_lstSymbols.data();
    ushort nAll = 0;
    for (size_t n = 0; n < nSize; ++n) {
        nAll |= pText[n];
        pSymbols[n] = uchar(pText[n]);
    }
    pSymbols[nSize] = LineEndSymbol;
    if (nAll >= 128)
        readOthers();
}

void CSymbolLine::readOthers()
{
    for (int n = 0; n < m_strText.size(); ++n) {
        const QChar ch = m_strText.at(n);
        if (!CharacterClass::isAscii(ch)) {
            m_lstSymbols[size_t(n)] = uchar(symbolOf(ch));
            m_bFolding = m_bFolding || foldsToAscii(ch);
        }
    }
}

const uchar *CSymbolLine::folded() const
{
    if (!m_bFolded) {
        m_bFolded = true;
        m_lstFolded.resize(m_lstSymbols.size());
        const uchar *const pSymbols = m_lstSymbols.data();
        uchar *const pFolded = m_lstFolded.data();
        const auto nCount = size_t(m_strText.size()) + 1;
        for (size_t n = 0; n < nCount; ++n) {
            const bool bCapital = uchar(pSymbols[n] - 'A') < 26;
            pFolded[n] = uchar(pSymbols[n] + (bCapital ? 32 : 0));
        }
    }
    return m_lstFolded.data();
}
