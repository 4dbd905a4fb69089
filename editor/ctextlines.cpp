#include "editor/ctextlines.h"

#include <QTextBlock>
#include <QTextDocument>

int CDocumentLines::count() const
{
    return m_pDocument->blockCount();
}

QString CDocumentLines::text(int nLine) const
{
    return m_pDocument->findBlockByNumber(nLine).text();
}

int CDocumentLines::length(int nLine) const
{
    return m_pDocument->findBlockByNumber(nLine).length() - 1;
}

int CDocumentLines::start(int nLine) const
{
    return m_pDocument->findBlockByNumber(nLine).position();
}

int CDocumentLines::lineAt(int nPosition) const
{
    return m_pDocument->findBlock(nPosition).blockNumber();
}
