#include "findinfiles/cfindresultdelegate.h"

#include "editor/linesearch.h"
#include "findinfiles/cfindresults.h"
#include "findinfiles/findquery.h"
#include "findinfiles/resulttext.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace {

// Dark on light, whatever the desktop's colours are.
QTextLayout::FormatRange rangeOf(const SLineMatch &place, const QColor &background, bool bGoes)
{
    QTextLayout::FormatRange range;
    range.start = place.nStart;
    range.length = place.nLength;
    range.format.setForeground(Qt::black);
    range.format.setBackground(background);
    range.format.setFontStrikeOut(bGoes);
    return range;
}

QVector<QTextLayout::FormatRange> formatsOf(const SResultText &text)
{
    const QColor clrMatch(0xff, 0xe0, 0x82);
    const QColor clrGoes(0xff, 0xcd, 0xd2);
    const QColor clrComes(0xc8, 0xe6, 0xc9);
    if (!text.replacement.isValid())
        return {rangeOf(text.match, clrMatch, false)};
    return {rangeOf(text.match, clrGoes, true), rangeOf(text.replacement, clrComes, false)};
}

void drawText(QPainter *pPainter, const QStyleOptionViewItem &option, const QRect &rect,
              const SResultText &text)
{
    QTextLayout layout(text.strText, option.font);
    QTextOption textOption(Qt::AlignLeft);
    textOption.setWrapMode(QTextOption::NoWrap);
    textOption.setTextDirection(option.direction);
    layout.setTextOption(textOption);
    layout.setFormats(formatsOf(text));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(rect.width());
    layout.endLayout();
    const bool bSelected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group =
        option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    pPainter->save();
    pPainter->setClipRect(rect);
    pPainter->setPen(
        option.palette.color(group, bSelected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(pPainter, QPointF(rect.left(), rect.top() + (rect.height() - line.height()) / 2));
    pPainter->restore();
}

} // namespace

CFindResultDelegate::CFindResultDelegate(QObject *pParent) : QStyledItemDelegate(pParent) { }

void CFindResultDelegate::paint(QPainter *pPainter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    const auto *pResults = static_cast<const CFindResults *>(index.model());
    const SFileMatch *pMatch = pResults->matchOf(index);
    if (!pMatch) {
        QStyledItemDelegate::paint(pPainter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle *pStyle = item.widget ? item.widget->style() : QApplication::style();
    const QRect rect = pStyle->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    item.text.clear(); // The style draws the rest: background, focus, check box.
    pStyle->drawControl(QStyle::CE_ItemViewItem, &item, pPainter, item.widget);
    const int nMargin = pStyle->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    drawText(pPainter, item, rect.adjusted(nMargin, 0, -nMargin, 0), pResults->textOf(*pMatch));
}
