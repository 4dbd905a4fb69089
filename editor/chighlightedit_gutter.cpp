#include "editor/chighlightedit.h"

#include "app/csettings.h"
#include "editor/clinenumberarea.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace {

int digits(int nNumber)
{
    int nDigits = 1;
    for (; nNumber >= 10; nNumber /= 10)
        ++nDigits;
    return nDigits;
}

} // namespace

QFont CHighlightEdit::gutterFont() const
{
    QFont fnt = font();
    fnt.setFamily(m_strFontFamily);
    fnt.setPixelSize(qMax(1, qRound(g_pSettings->getTextFontSize() * 0.8)));
    return fnt;
}

int CHighlightEdit::lineNumberAreaWidth() const
{
    const int nDigitWidth = QFontMetrics(gutterFont()).horizontalAdvance(QLatin1Char('9'));
    const int nDigits = digits(qMax(blockCount(), m_nLinesToCome));
    return 2 * (g_pSettings->getTextFontSize() / 2) + nDigits * nDigitWidth;
}

void CHighlightEdit::lineNumberAreaPaintEvent(QPaintEvent *pEvent)
{
    const QFont fntNormal = gutterFont();
    QFont fntBold = fntNormal;
    fntBold.setWeight(QFont::Bold);
    const SLines marked = markedLines();
    const int nWidth = lineNumberAreaWidth() - 1 - g_pSettings->getTextFontSize() / 2;

    QPainter painter(m_pLineNumberArea);
    painter.fillRect(pEvent->rect(), QColor(QStringLiteral("#F9F9F9")));
    QTextBlock block = firstVisibleBlock();
    qreal dTop = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && dTop <= pEvent->rect().bottom(); block = block.next()) {
        const qreal dHeight = blockBoundingRect(block).height();
        // If a region has several pieces, the lines between them are left out.
        const QRectF strip(0, dTop, m_pLineNumberArea->width(), dHeight + g_nNumberBelowLine);
        if (block.isVisible() && pEvent->region().intersects(strip.toAlignedRect())) {
            const int nBlock = block.blockNumber();
            const bool bMarked = marked.contains(nBlock);
            painter.setFont(bMarked ? fntBold : fntNormal);
            painter.setPen(bMarked ? QColor(QStringLiteral("#888"))
                                   : QColor(QStringLiteral("#ccc")));
            painter.drawText(QRectF(0, dTop + 5, nWidth, dHeight), Qt::AlignRight | Qt::AlignTop,
                             QString::number(nBlock + 1));
        }
        dTop += dHeight;
    }
}

void CHighlightEdit::updateLineNumberAreaWidth(int)
{
    // Setting margins lays everything out again, even if they are the same.
    const QMargins margins(lineNumberAreaWidth(), 0, 0, 0);
    if (viewportMargins() != margins)
        setViewportMargins(margins);
}

// A change in a part of the view keeps the numbers, unless there are more or fewer lines.
void CHighlightEdit::updateLineNumberArea(QRect rect, int dy)
{
    const bool bWhole = rect.contains(viewport()->rect());
    const int nWidth = m_pLineNumberArea->width();
    if (dy != 0) {
        m_pLineNumberArea->scroll(0, dy);
        // Numbers reach below their line, so the strip beside a line that is scrolled in or out is
        // painted, too.
        m_pLineNumberArea->update(0, 0, nWidth, qMax(dy, 0) + g_nNumberBelowLine);
    } else if (bWhole) {
        m_pLineNumberArea->update(0, rect.y(), nWidth, rect.height());
    } else if (blockCount() != m_nNumberedLines) {
        m_pLineNumberArea->update(0, rect.y(), nWidth, m_pLineNumberArea->height() - rect.y());
    }
    m_nNumberedLines = blockCount();
    if (bWhole)
        updateLineNumberAreaWidth(0);
}

void CHighlightEdit::resizeEvent(QResizeEvent *pEvent)
{
    QPlainTextEdit::resizeEvent(pEvent);
    const QRect rect = contentsRect();
    m_pLineNumberArea->setGeometry(rect.left(), rect.top(), lineNumberAreaWidth(), rect.height());
}
