// Selecting a block, by keys and by the mouse with Alt.
#include "editor/chighlightedit.h"

#include "editor/ctextlines.h"

#include <QMouseEvent>
#include <QTextBlock>

void CHighlightEdit::extendBlockLeft()
{
    extendBlock(0, -1);
}

void CHighlightEdit::extendBlockRight()
{
    extendBlock(0, 1);
}

void CHighlightEdit::extendBlockUp()
{
    extendBlock(-1, 0);
}

void CHighlightEdit::extendBlockDown()
{
    extendBlock(1, 0);
}

void CHighlightEdit::extendBlock(int nLines, int nColumns)
{
    const CDocumentLines lines(document());
    const SCaretBlock before = m_block.value_or(blockOfCaret(lines, carets().main()));
    SCaretBlock block = before;
    block.nLine = qBound(0, block.nLine + nLines, lines.lastLine());
    block.nColumn = qBound(0, block.nColumn + nColumns, widestColumn(lines, before));
    if (block.nLine == before.nLine && block.nColumn == before.nColumn)
        tell(tr("The block ends here."));
    else
        showBlock(block);
}

void CHighlightEdit::showBlock(const SCaretBlock &block)
{
    setCarets(caretsOfBlock(CDocumentLines(document()), block));
    m_block = block;
}

// The corner of a block at a point of the viewport. Columns continue after a line's end.
SCaretBlock CHighlightEdit::blockAt(const QPoint &point) const
{
    const QTextCursor cursor = cursorForPosition(point);
    const int nBeyond = point.x() - cursorRect(cursor).left();
    const int nWidth = qMax(1, fontMetrics().horizontalAdvance(QLatin1Char('X')));
    SCaretBlock block;
    block.nLine = block.nAnchorLine = cursor.blockNumber();
    block.nColumn = shownColumn(cursor.block().text(), cursor.positionInBlock());
    if (cursor.atBlockEnd() && nBeyond > 0)
        block.nColumn += (nBeyond + nWidth / 2) / nWidth;
    block.nAnchorColumn = block.nColumn;
    return block;
}

void CHighlightEdit::mousePressEvent(QMouseEvent *pEvent)
{
    const bool bBlock = pEvent->button() == Qt::LeftButton
        && (pEvent->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier && !isReadOnly();
    if (!bBlock) {
        leaveCarets();
        QPlainTextEdit::mousePressEvent(pEvent);
        return;
    }
    m_bDraggingBlock = true;
    showBlock(blockAt(pEvent->pos()));
    pEvent->accept();
}

void CHighlightEdit::mouseMoveEvent(QMouseEvent *pEvent)
{
    if (!m_bDraggingBlock) {
        QPlainTextEdit::mouseMoveEvent(pEvent);
        return;
    }
    if (!m_block) // A key has ended it.
        return;
    const SCaretBlock corner = blockAt(pEvent->pos());
    SCaretBlock block = *m_block;
    block.nLine = corner.nLine;
    block.nColumn = corner.nColumn;
    showBlock(block);
}

void CHighlightEdit::mouseReleaseEvent(QMouseEvent *pEvent)
{
    if (m_bDraggingBlock && pEvent->button() == Qt::LeftButton)
        m_bDraggingBlock = false;
    else
        QPlainTextEdit::mouseReleaseEvent(pEvent);
}
