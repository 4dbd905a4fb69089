// Paints around the text: the band behind the cursor's line, and further carets.
#include "editor/chighlightedit.h"

#include "app/csettings.h"
#include "spelling/cspelling.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

#include <algorithm>

namespace {

const char g_szBracketColor[] = "#d5e5fb";
const char g_szBracketFrameColor[] = "#6b98d6";

// Gives the rectangle of a place in a block, relative to the block's corner.
QRectF placeRect(const QTextBlock &block, int nInBlock, qreal dWidth)
{
    const QTextLayout *pLayout = block.layout();
    const QTextLine line = pLayout->lineForTextPosition(nInBlock);
    if (!line.isValid())
        return QRectF();
    return {line.cursorToX(nInBlock), line.y(), dWidth, line.height()};
}

// The rectangles of a range in a block. If the range continues after the block, the line's end gets
// a mark.
void addRangeRects(const QTextBlock &block, int nStart, int nEnd, const QPointF &corner,
                   QVector<QRectF> *pRects)
{
    const QTextLayout *pLayout = block.layout();
    for (int n = 0; n < pLayout->lineCount(); ++n) {
        const QTextLine line = pLayout->lineAt(n);
        const int nFrom = qMax(nStart, line.textStart());
        const int nTo = qMin(nEnd, line.textStart() + line.textLength());
        const bool bLineEnd = n == pLayout->lineCount() - 1 && nEnd >= block.length();
        if (nFrom > nTo || (nFrom == nTo && !bLineEnd))
            continue;
        const qreal dFrom = line.cursorToX(nFrom);
        const qreal dTo = line.cursorToX(nTo) + (bLineEnd ? line.height() / 4 : 0);
        pRects->append(
            QRectF(QPointF(qMin(dFrom, dTo), line.y()), QSizeF(qAbs(dTo - dFrom), line.height()))
                .translated(corner));
    }
}

} // namespace

void CHighlightEdit::paintEvent(QPaintEvent *pEvent)
{
    followVisibleLines();
    {
        QPainter painter(viewport());
        const QRectF rect = blockBoundingGeometry(textCursor().block());
        painter.fillRect(rect.translated(contentOffset()).toRect(), m_clrCurrentLine);
        paintBrackets(&painter);
        if (hasSeveralCarets())
            paintSelections(&painter);
    }
    QPlainTextEdit::paintEvent(pEvent);
    m_lstShownCarets = linesOfCarets();
    const bool bSpelling = g_pSpelling && g_pSettings->m_bTextSpelling;
    if (!hasSeveralCarets() && !bSpelling)
        return;
    QPainter painter(viewport());
    if (hasSeveralCarets())
        paintCarets(&painter);
    if (bSpelling)
        paintSpelling(&painter);
}

// The visible carets except the main one, which the base class paints.
QVector<int> CHighlightEdit::linesOfCarets() const
{
    QVector<int> lstLines;
    if (hasSeveralCarets())
        forVisibleCarets([&](const SCaret &, const QTextBlock &block, const QPointF &) {
            lstLines.append(block.blockNumber());
        });
    return lstLines;
}

// Repaints the lines that show further carets, or are about to.
void CHighlightEdit::repaintCarets()
{
    repaintLines(m_lstShownCarets + linesOfCarets());
}

// New colours may have changed the partner, which then is outside of the area that is painted now.
void CHighlightEdit::paintBrackets(QPainter *pPainter)
{
    followBrackets();
    const SBracketPair &pair = m_shownPair;
    if (pair.nPartner < 0)
        return;
    const int nFirst = qMin(pair.nBracket, pair.nPartner);
    const int nLast = qMax(pair.nBracket, pair.nPartner);
    const QVector<QRectF> lstRects = rectsOf({{nFirst, nFirst + 1}, {nLast, nLast + 1}});
    for (const QRectF &spot : lstRects) {
        pPainter->fillRect(spot, QColor(QLatin1String(g_szBracketColor)));
        pPainter->setPen(QColor(QLatin1String(g_szBracketFrameColor)));
        pPainter->drawRect(spot.adjusted(0, 0, -1, -1));
    }
}

// Gives the rectangles of the parts of the ranges that can be seen.
QVector<QRectF> CHighlightEdit::rectsOf(const QVector<SCaret> &lst) const
{
    QVector<QRectF> lstRects;
    forVisible(lst, [&](const SCaret &range, const QTextBlock &block, const QPointF &corner) {
        addRangeRects(block, range.start() - block.position(), range.end() - block.position(),
                      corner, &lstRects);
    });
    return lstRects;
}

void CHighlightEdit::forVisibleCarets(const CaretPainter &paint) const
{
    forVisible(
        m_carets.list(),
        [&](const SCaret &caret, const QTextBlock &block, const QPointF &corner) {
            if (!(caret == m_carets.main()))
                paint(caret, block, corner);
        });
}

// Calls the function for each visible range and each of its blocks, with the block's corner in the
// view. The ranges are in order.
void CHighlightEdit::forVisible(const QVector<SCaret> &lst, const CaretPainter &paint) const
{
    QTextBlock block = firstVisibleBlock();
    QPointF corner = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    auto it = std::lower_bound(
        lst.cbegin(), lst.cend(), block.position(),
        [](const SCaret &caret, int nPosition) { return caret.end() < nPosition; });
    while (block.isValid() && corner.y() <= viewport()->height() && it != lst.cend()) {
        const int nEnd = block.position() + block.length();
        for (auto inBlock = it; inBlock != lst.cend() && inBlock->start() < nEnd; ++inBlock)
            paint(*inBlock, block, corner);
        while (it != lst.cend() && it->end() < nEnd)
            ++it;
        corner.ry() += blockBoundingRect(block).height();
        block = block.next();
    }
}

void CHighlightEdit::paintSelections(QPainter *pPainter) const
{
    QVector<QRectF> lstRects;
    forVisibleCarets([&](const SCaret &caret, const QTextBlock &block, const QPointF &corner) {
        addRangeRects(block, caret.start() - block.position(), caret.end() - block.position(),
                      corner, &lstRects);
    });
    for (const QRectF &rect : qAsConst(lstRects))
        pPainter->fillRect(rect, palette().brush(QPalette::Highlight));
}

void CHighlightEdit::paintCarets(QPainter *pPainter) const
{
    forVisibleCarets([&](const SCaret &caret, const QTextBlock &block, const QPointF &corner) {
        const int nInBlock = caret.nPosition - block.position();
        if (nInBlock >= 0 && nInBlock < block.length())
            pPainter->fillRect(placeRect(block, nInBlock, cursorWidth()).translated(corner),
                               palette().brush(QPalette::Text));
    });
}
