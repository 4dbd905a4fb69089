#include "highlight/cplaintextlayout.h"

#include <QScopedValueRollback>
#include <QTextDocument>

#include <climits>
#include <utility>

namespace {

// What changes in a block that nobody has laid out changes nothing that is seen.
const QRectF g_nowhere(-100, -100, 0, 0);

const int g_nNoWidth = INT_MAX / 256; // As wide as it likes, in Qt's words.
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
        pLayout->setCacheEnabled(true); // The glyphs of laying it out are there for painting it.
    noteFormats(block, lstFormats);
    if (!bLaidOut)
        emit update(g_nowhere);
    else if (blockBoundingRect(block).height() == dHeight)
        emit updateBlock(block);
    else
        emit update();
}

// Qt counts the block into the change that is under way.
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

// Qt has noted the change and would count it into the next edit if it were not marked.
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

// An edit begins with a new revision, tells its listeners, and ends with documentChanged(), where
// Qt has taken note of it and drops what is noted besides. Before that, a note of formats would
// change the note of the edit: the block is laid out without its formats and gets them from the
// event loop.
void CPlainTextLayout::fetchFormats(const QTextBlock &block)
{
    if (!m_bInChange && document()->revision() != m_nRevision) {
        m_lstWaiting.append(QTextCursor(block));
        // Started anew by each edit, it would not come before the last of many.
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

// An edit that is under way has been noted, too, and then the extent is another one.
void CPlainTextLayout::documentChanged(int nFrom, int nRemoved, int nAdded)
{
    const QTextBlock line = std::exchange(m_line, QTextBlock());
    const bool bFormatsOnly = nFrom == m_nFormatsAt && nRemoved == nAdded
        && nAdded == document()->findBlock(nFrom).length();
    // A text set anew has no rows of the old one.
    if (!bFormatsOnly && nFrom == 0 && nAdded >= document()->characterCount() - 1)
        m_dWidestRow = 0;
    // Qt adds up what was removed and what was added, and takes the lines behind for changed.
    if (line.isValid()) {
        nFrom = line.position();
        nRemoved = 0;
        nAdded = 1;
    }
    const QScopedValueRollback<bool> inChange(m_bInChange, true);
    if (!bFormatsOnly && !changeLines() && !changeRows(nFrom, nRemoved + nAdded))
        QPlainTextDocumentLayout::documentChanged(nFrom, nRemoved, nAdded);
    m_nBlocks = document()->blockCount();
    m_nRevision = document()->revision();
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
    // Qt may have laid it out as one row by itself.
    if (block.isValid() && isInRows(block) && block.layout()->lineCount() < 2)
        const_cast<CPlainTextLayout *>(this)->layOutInRows(block);
    const QTextLayout *pLayout = block.isValid() ? block.layout() : nullptr;
    if (!pLayout || pLayout->lineCount() != 1 || !block.isVisible())
        return QPlainTextDocumentLayout::blockBoundingRect(block);
    // The same for a line that is laid out already, in a third of the time: for every key all
    // blocks that can be seen are asked several times.
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

// Works like the base class except for the length of the rows. Qt's analysis of the text is kept,
// because it reads the whole line; the glyphs of a row are made when it is painted.
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

// True when the change is one within a line in rows, and has been dealt with.
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

// True when changes of several lines were noted, and have been dealt with. Qt has the whole view
// painted for them. Each block is laid out anew, for it may have come from another place.
bool CPlainTextLayout::changeLines()
{
    const int nLines = std::exchange(m_nLines, 0);
    if (nLines == 0)
        return false;
    bool bSameHeights = true;
    QTextBlock block = m_firstLine;
    for (int n = 0; n < nLines; ++n, block = block.next()) {
        // One that is not laid out may be new, in the place of one that was.
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
