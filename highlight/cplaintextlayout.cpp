#include "highlight/cplaintextlayout.h"

#include <QTextBlock>

namespace {

// What changes in a block that nobody has laid out changes nothing that is seen.
const QRectF g_nowhere(-100, -100, 0, 0);

} // namespace

CPlainTextLayout::CPlainTextLayout(QTextDocument *pDocument) : QPlainTextDocumentLayout(pDocument)
{
}

void CPlainTextLayout::setFormats(const QTextBlock &block,
                                  const QVector<QTextLayout::FormatRange> &lstFormats)
{
    QTextLayout *pLayout = block.layout();
    const bool bLaidOut = pLayout->lineCount() > 0;
    const qreal dHeight = bLaidOut ? blockBoundingRect(block).height() : 0;
    pLayout->setFormats(lstFormats);
    // Qt has noted the change and would count it into the next edit if it were not marked.
    m_nFormatsAt = block.position();
    document()->markContentsDirty(block.position(), block.length());
    m_nFormatsAt = -1;
    if (!bLaidOut) {
        emit update(g_nowhere);
    } else if (blockBoundingRect(block).height() == dHeight) {
        emit updateBlock(block);
    } else {
        emit update();
    }
}

// An edit that is under way has been noted, too, and then the extent is another one.
void CPlainTextLayout::documentChanged(int nFrom, int nRemoved, int nAdded)
{
    const bool bFormatsOnly = nFrom == m_nFormatsAt && nRemoved == nAdded
        && nAdded == document()->findBlock(nFrom).length();
    if (!bFormatsOnly) {
        QPlainTextDocumentLayout::documentChanged(nFrom, nRemoved, nAdded);
    }
}
