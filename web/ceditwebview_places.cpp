// Carries the caret and the visible place between the page and its source.
#include "web/ceditwebview.h"

#include "web/pagescript.h"

#include <QScrollBar>
#include <QTextBlock>

namespace {

// Every line end is one character in the source editor's document.
int documentPosition(const QString &strSource, int nPosition)
{
    return nPosition - strSource.leftRef(nPosition).count(QLatin1String("\r\n"));
}

int sourcePosition(const QString &strSource, int nDocumentPosition)
{
    int nPosition = 0;
    for (int n = 0; n < nDocumentPosition && nPosition < strSource.size(); ++n)
        nPosition += strSource.midRef(nPosition, 2) == QLatin1String("\r\n") ? 2 : 1;
    return nPosition;
}

CPageMerge::SPlace placeFrom(const QVariantList &lstPlace)
{
    return {lstPlace.value(0).toInt(), lstPlace.value(1).toInt()};
}

} // namespace

// Puts the page's caret into the pushed source, with its line at the same height.
void CEditWebView::moveSourceCaret()
{
    const QVariantList lstCaret = evaluate(PageScript::caretPlace()).toList();
    // The source is shown again, and neither the page nor its caret has moved.
    if (lstCaret.isEmpty() || (m_nSourceCaret >= 0 && placeFrom(lstCaret) == m_placeLeft))
        return;
    CPageMerge places(m_strPushed, toHtml());
    const auto positionOf = [&](const QVariantList &lstPlace) {
        return documentPosition(m_strPushed, places.sourcePosition(placeFrom(lstPlace)));
    };
    QTextCursor cursor = m_pSourceEdit->textCursor();
    cursor.setPosition(qMin(positionOf(lstCaret), m_pSourceEdit->document()->characterCount() - 1));
    m_pSourceEdit->setTextCursor(cursor);
    m_nSourceCaret = cursor.position();
    m_placeLeft = placeFrom(lstCaret);

    QVariantList lstSeen = lstCaret;
    double dHeight = lstSeen.value(2).toDouble();
    if (dHeight < 0 || dHeight > 1) {
        lstSeen = evaluate(PageScript::topPlace()).toList();
        dHeight = 0;
    }
    const QTextBlock block = m_pSourceEdit->document()->findBlock(positionOf(lstSeen));
    const int nLinesSeen =
        m_pSourceEdit->viewport()->height() / qMax(1, m_pSourceEdit->fontMetrics().lineSpacing());
    m_pSourceEdit->verticalScrollBar()->setValue(block.firstLineNumber()
                                                 - int(dHeight * nLinesSeen));
}

// Puts the source's caret into the page, once it has loaded.
void CEditWebView::movePageCaret()
{
    if (m_nCaretToShow < 0)
        return;
    CPageMerge places(isSourceEdited() ? editedSource() : m_strPushed, toHtml());
    const CPageMerge::SPlace place =
        places.placeOf(sourcePosition(places.source(), m_nCaretToShow));
    m_nCaretToShow = -1;
    setCaretPlace(place);
    m_placeLeft = placeFrom(evaluate(PageScript::caretPlace()).toList());
}

std::optional<CPageMerge::SPlace> CEditWebView::caretPlace() const
{
    const QVariantList lstCaret = evaluate(PageScript::caretPlace()).toList();
    return lstCaret.isEmpty() ? std::nullopt : std::make_optional(placeFrom(lstCaret));
}

void CEditWebView::setCaretPlace(const CPageMerge::SPlace &place)
{
    evaluate(PageScript::setCaret(place.nElements, place.nText));
}
