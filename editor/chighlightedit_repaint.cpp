// Repaints only the lines whose look has changed.
#include "editor/chighlightedit.h"
#include "editor/clinenumberarea.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"

#include <QTextBlock>

// Each block that can be seen, with its number and its strip of the view.
void CHighlightEdit::forVisibleBlocks(const BlockVisitor &visit) const
{
    if (!isVisible())
        return; // What is shown later is painted whole.
    QTextBlock block = firstVisibleBlock();
    int nBlock = block.blockNumber();
    qreal dTop = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && dTop <= viewport()->height(); block = block.next(), ++nBlock) {
        const qreal dHeight = blockBoundingRect(block).height();
        visit(nBlock, QRectF(0, dTop, viewport()->width(), dHeight).toAlignedRect());
        dTop += dHeight;
    }
}

void CHighlightEdit::repaintLines(const QVector<int> &lstLines)
{
    forVisibleBlocks([&](int nBlock, const QRect &strip) {
        if (lstLines.contains(nBlock))
            viewport()->update(strip);
    });
}

// The band moves with the cursor from line to line. If the number of lines changed, the base class
// repaints.
void CHighlightEdit::highlightCurrentLine()
{
    const int nLine = textCursor().blockNumber();
    if (nLine != m_nBandLine)
        repaintLines({m_nBandLine, nLine});
    m_nBandLine = nLine;
    followBrackets();
}

CHighlightEdit::SLines CHighlightEdit::markedLines() const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        const int nLine = cursor.blockNumber();
        return {nLine, nLine};
    }
    return {document()->findBlock(cursor.selectionStart()).blockNumber(),
            document()->findBlock(cursor.selectionEnd()).blockNumber()};
}

// The highlighter colours the visible lines first.
void CHighlightEdit::followVisibleLines()
{
    const int nFirst = firstVisibleBlock().blockNumber();
    const int nHeight = viewport()->height();
    if (nFirst == m_nFirstSeen && nHeight == m_nHeightSeen && blockCount() == m_nBlocksSeen)
        return;
    m_nFirstSeen = nFirst;
    m_nHeightSeen = nHeight;
    m_nBlocksSeen = blockCount();
    m_pHighlighter->setVisibleLines(nFirst, lastVisibleBlock().blockNumber());
}

// Follows the marked numbers of the gutter. The number of a wrapped line may be above the part of
// the text that is repainted.
void CHighlightEdit::followMarkedLines()
{
    const SLines lines = markedLines();
    if (lines == m_shownMarked)
        return;
    const SLines before = std::exchange(m_shownMarked, lines);
    forVisibleBlocks([&](int nBlock, const QRect &strip) {
        if (before.contains(nBlock) != lines.contains(nBlock))
            m_pLineNumberArea->update(0, strip.top(), m_pLineNumberArea->width(),
                                      strip.height() + g_nNumberBelowLine);
    });
}
