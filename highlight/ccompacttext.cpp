#include "highlight/ccompacttext.h"

namespace {

bool isLatin1(const QString &strText)
{
    // Without a branch for each character, so that the compiler can vectorise the loop.
    ushort nAll = 0;
    for (const QChar c : strText)
        nAll |= c.unicode();
    return nAll < 0x100;
}

} // namespace

QString CCompactText::mid(int nFrom, int nLength) const
{
    return m_bWide ? m_strWide.mid(nFrom, nLength)
                   : QString::fromLatin1(m_arrNarrow.constData() + nFrom, nLength);
}

void CCompactText::insert(int nAt, const QString &strText)
{
    if (!m_bWide && isLatin1(strText)) {
        m_arrNarrow.insert(nAt, strText.toLatin1());
        return;
    }
    if (!m_bWide) {
        m_strWide = QString::fromLatin1(m_arrNarrow);
        m_arrNarrow = QByteArray();
        m_bWide = true;
    }
    m_strWide.insert(nAt, strText);
}

void CCompactText::remove(int nFrom, int nLength)
{
    if (m_bWide)
        m_strWide.remove(nFrom, nLength);
    else
        m_arrNarrow.remove(nFrom, nLength);
}

CCompactText CCompactText::part(int nFrom) const
{
    CCompactText text;
    text.insert(0, mid(nFrom, size() - nFrom));
    return text;
}

void CCompactText::squeeze()
{
    m_arrNarrow.squeeze();
    m_strWide.squeeze();
}
