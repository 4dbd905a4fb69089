#include "highlight/cplaintextlayout.h"

#include <QScopedValueRollback>
#include <QTextDocument>

#include <climits>
#include <utility>

namespace {

// A rectangle outside of the view. Formats of a block that is not laid out change no pixel.
const QRectF g_nowhere(-100, -100, 0, 0);

const int g_nNoWidth = INT_MAX / 256; // Qt's width of a line that is not wrapped.
const int g_nLongestLine = 100000;
const int g_nRowLength = 1000;

} // namespace

CPlainTextLayout::CPlainTextLayout(QTextDocument *pDocument) : QPlainTextDocumentLayout(pDocument)
{
    m_timerWaiting.setSingleShot(true);
    connect(&m_timerWaiting, &QTimer::timeout, this, &CPlainTextLayout::fetchWaiting);
}

void CPlainTextLayout::setFormats(const QTextBlock &block,
                                  const QVector<QTextLayout::FormatRange> &lstFormats)
{
    QTextLayout *pLayout = block.layout();
    const bool bLaidOut = pLayout->lineCount() > 0;
    const qreal dHeight = bLaidOut ? blockBoundingRect(block).height() : 0;
    if (bLaidOut)
        pLayout->setCacheEnabled(true); // Painting uses the glyphs of the layout.
    noteFormats(block, lstFormats);
    if (!bLaidOut)
        emit update(g_nowhere);
    else if (blockBoundingRect(block).height() == dHeight)
        emit updateBlock(block);
    else
        emit update();
}

// Called during a change. Qt lays the block out at its end, so no note is needed.
void CPlainTextLayout::noteLine(const QTextBlock &block,
                                const QVector<QTextLayout::FormatRange> &lstFormats)
{
    QTextLayout *pLayout = block.layout();
    m_line = block;
    pLayout->setCacheEnabled(true);
    if (lstFormats != pLayout->formats())
        pLayout->setFormats(lstFormats);
}

void CPlainTextLayout::noteLines(const QTextBlock &first, int nCount,
                                 const QVector<QTextBlock> &lstChanged)
{
    m_firstLine = first;
    m_nLines = nCount;
    m_lstChanged = lstChanged;
}

// Marks the block as changed at once, because Qt would otherwise add it to the next edit.
void CPlainTextLayout::noteFormats(const QTextBlock &block,
                                   const QVector<QTextLayout::FormatRange> &lstFormats)
{
    block.layout()->setFormats(lstFormats);
    m_nFormatsAt = block.position();
    document()->markContentsDirty(block.position(), block.length());
    m_nFormatsAt = -1;
}

void CPlainTextLayout::setFormatSource(const FormatSource &source)
{
    m_source = source;
}

// An edit begins with a new revision, then tells its listeners, and ends with documentChanged(). A
// format that is set in between would change the extent that Qt notes for the edit. Therefore a
// block that is laid out during an edit gets its formats later, from the event loop. Within
// documentChanged() they can be set, because Qt ignores what is noted there.
void CPlainTextLayout::fetchFormats(const QTextBlock &block)
{
    if (!m_bInChange && document()->revision() != m_nRevision) {
        m_lstWaiting.append(QTextCursor(block));
        // If each edit restarted the timer, it would not fire until many edits are over.
        if (!m_timerWaiting.isActive())
            m_timerWaiting.start(0);
        return;
    }
    QVector<QTextLayout::FormatRange> lst;
    if (!m_source(block, &lst) || lst == block.layout()->formats())
        return;
    if (m_bInChange)
        block.layout()->setFormats(lst);
    else
        noteFormats(block, lst);
}

void CPlainTextLayout::fetchWaiting()
{
    m_nRevision = document()->revision();
    const QVector<QTextCursor> lstCursors = std::exchange(m_lstWaiting, {});
    for (const QTextCursor &cursor : lstCursors) {
        const QTextBlock block = cursor.block();
        QVector<QTextLayout::FormatRange> lst;
        if (m_source(block, &lst) && lst != block.layout()->formats())
            setFormats(block, lst);
    }
}

// The extent is that of formats alone only if no edit is noted with them.
void CPlainTextLayout::documentChanged(int nFrom, int nRemoved, int nAdded)
{
    // QTextDocument::setPlainText() clears the document first. It may do so within an edit, which
    // then goes on with the same revision.
    const bool bCleared = nAdded == 0 && document()->isEmpty();
    const QTextBlock line = std::exchange(m_line, QTextBlock());
    const bool bFormatsOnly = nFrom == m_nFormatsAt && nRemoved == nAdded
        && nAdded == document()->findBlock(nFrom).length();
    // A new text has none of the old rows.
    if (!bFormatsOnly && nFrom == 0 && nAdded >= document()->characterCount() - 1)
        m_dWidestRow = 0;
    // Qt would add up the removed and the added characters, and also lay out the lines after them.
    if (line.isValid()) {
        nFrom = line.position();
        nRemoved = 0;
        nAdded = 1;
    }
    const QScopedValueRollback<bool> inChange(m_bInChange, true);
    if (!bFormatsOnly && !changeLines() && !changeRows(nFrom, nRemoved + nAdded))
        QPlainTextDocumentLayout::documentChanged(nFrom, nRemoved, nAdded);
    m_nBlocks = document()->blockCount();
    m_nRevision = bCleared ? -1 : document()->revision();
}

int CPlainTextLayout::longestLine()
{
    return g_nLongestLine;
}

int CPlainTextLayout::rowLength()
{
    return g_nRowLength;
}

bool CPlainTextLayout::isInRows(const QTextBlock &block) const
{
    return block.length() > g_nLongestLine
        && document()->defaultTextOption().wrapMode() == QTextOption::NoWrap;
}

QRectF CPlainTextLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (m_source && block.isValid() && block.layout()->lineCount() == 0)
        const_cast<CPlainTextLayout *>(this)->fetchFormats(block);
    // Qt itself may have laid it out as one row.
    if (block.isValid() && isInRows(block) && block.layout()->lineCount() < 2)
        const_cast<CPlainTextLayout *>(this)->layOutInRows(block);
    const QTextLayout *pLayout = block.isValid() ? block.layout() : nullptr;
    if (!pLayout || pLayout->lineCount() != 1 || !block.isVisible())
        return QPlainTextDocumentLayout::blockBoundingRect(block);
    // This gives what the base class gives for a line that is laid out, in a third of the time.
    // Every key asks all visible blocks several times.
    const QTextLine line = pLayout->lineAt(0);
    const qreal dMargin = document()->documentMargin();
    const qreal dText = line.naturalTextWidth();
    const qreal dLine = line.width() < g_nNoWidth ? qMax(line.width(), dText) : dText;
    return QRectF(0, 0, qMax(line.x() + dLine, dText) + dMargin,
                  line.y() + line.height() + (block.next().isValid() ? 0 : dMargin));
}

QSizeF CPlainTextLayout::documentSize() const
{
    return QPlainTextDocumentLayout::documentSize().expandedTo(QSizeF(m_dWidestRow, 0));
}

// Works like the base class except for the length of the rows. Keeps Qt's analysis of the text,
// which reads the whole line. The glyphs of a row are made when it is painted.
void CPlainTextLayout::layOutInRows(QTextBlock block)
{
    QTextLayout *pLayout = block.layout();
    QTextOption option = document()->defaultTextOption();
    option.setWrapMode(QTextOption::WrapAnywhere);
    pLayout->setTextOption(option);
    pLayout->setCacheEnabled(false);
    pLayout->beginLayout();
    qreal dHeight = 0;
    for (QTextLine row = pLayout->createLine(); row.isValid(); row = pLayout->createLine()) {
        row.setLeadingIncluded(true);
        row.setNumColumns(g_nRowLength);
        row.setPosition(QPointF(document()->documentMargin(), dHeight));
        dHeight += row.height();
        m_dWidestRow =
            qMax(m_dWidestRow, row.naturalTextWidth() + 2 * document()->documentMargin());
    }
    pLayout->endLayout();
    pLayout->setCacheEnabled(true);
    const int nRows = pLayout->lineCount();
    if (block.lineCount() != nRows) {
        block.setLineCount(block.isVisible() ? nRows : 0);
        emit documentSizeChanged(documentSize());
    }
}

// Handles a change within a line in rows. False if it is another change.
bool CPlainTextLayout::changeRows(int nFrom, int nChanged)
{
    const QTextBlock block = document()->findBlock(nFrom);
    if (!isInRows(block) || document()->blockCount() != m_nBlocks
        || block != document()->findBlock(qMax(nFrom, nFrom + nChanged - 1)))
        return false;
    const bool bLaidOut = block.layout()->lineCount() > 1;
    const qreal dHeight = bLaidOut ? blockBoundingRect(block).height() : -1;
    block.layout()->clearLayout();
    if (blockBoundingRect(block).height() == dHeight)
        emit updateBlock(block);
    else
        emit update();
    return true;
}

// Handles the change that noteLines() announced. False if there is none. Qt would repaint the whole
// view. Each block is laid out again, because it may have come from another place.
bool CPlainTextLayout::changeLines()
{
    const int nLines = std::exchange(m_nLines, 0);
    if (nLines == 0)
        return false;
    bool bSameHeights = true;
    QTextBlock block = m_firstLine;
    for (int n = 0; n < nLines; ++n, block = block.next()) {
        // A block that is not laid out may replace one that was.
        const bool bLaidOut = block.layout()->lineCount() > 0;
        const qreal dHeight = bLaidOut ? blockBoundingRect(block).height() : 0;
        block.clearLayout();
        if (!bLaidOut || blockBoundingRect(block).height() != dHeight)
            bSameHeights = false;
    }
    const QVector<QTextBlock> lstChanged = std::exchange(m_lstChanged, {});
    if (!bSameHeights) {
        emit update();
        return true;
    }
    for (const QTextBlock &changed : lstChanged)
        emit updateBlock(changed);
    return true;
}
