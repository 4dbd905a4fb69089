#include "editor/ctextslices.h"

#include <utility>

CTextSlices::CTextSlices(QString strText, int nFrom, std::vector<int> lstEnds)
    : m_strText(std::move(strText)), m_lstEnds(std::move(lstEnds)), m_nAt(nFrom)
{
}

CTextSlices::CTextSlices(QByteArray ascii, int nFrom, std::vector<int> lstEnds)
    : m_ascii(std::move(ascii)), m_lstEnds(std::move(lstEnds)), m_nAt(nFrom)
{
}

QString CTextSlices::take()
{
    const int nEnd = m_lstEnds[m_nTaken++];
    const int nFrom = std::exchange(m_nAt, nEnd);
    return m_ascii.isEmpty() ? m_strText.mid(nFrom, nEnd - nFrom)
                             : QString::fromLatin1(m_ascii.constData() + nFrom, nEnd - nFrom);
}
