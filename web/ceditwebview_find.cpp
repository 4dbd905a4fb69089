// Find and replace in the rendered page.
#include "web/ceditwebview.h"

#include "app/csettings.h"
#include "web/pagescript.h"

#include <QRegularExpression>
#include <QUndoStack>

void CEditWebView::moveToSearchEdge()
{
    evaluate(PageScript::ensureCaret());
    triggerEdit(g_pSettings->m_bFindSearchUp ? QWebPage::MoveToEndOfDocument
                                             : QWebPage::MoveToStartOfDocument);
}

bool CEditWebView::findPageText(const QString &strText, bool bFromEdge)
{
    if (bFromEdge)
        moveToSearchEdge();
    QWebPage::FindFlags flags;
    flags.setFlag(QWebPage::FindBackward, !g_pSettings->m_bFindSearchUp);
    flags.setFlag(QWebPage::FindCaseSensitively, g_pSettings->m_bFindMatchCase);
    flags.setFlag(QWebPage::FindWrapsAroundDocument, g_pSettings->m_bFindWrapSearch);
    flags.setFlag(QWebPage::FindAtWordBeginningsOnly, g_pSettings->m_bFindMatchWholeWord);
    return findAndFollow(strText, flags);
}

bool CEditWebView::findAndFollow(const QString &strText, QWebPage::FindFlags flags)
{
    const bool bFound = page()->findText(strText, flags);
    enterFrame(page()->currentFrame());
    return bFound;
}

bool CEditWebView::findPageTextReverse(const QString &strText, bool bFromEdge)
{
    g_pSettings->m_bFindSearchUp = !g_pSettings->m_bFindSearchUp;
    const bool bFound = findPageText(strText, bFromEdge);
    g_pSettings->m_bFindSearchUp = !g_pSettings->m_bFindSearchUp;
    return bFound;
}

bool CEditWebView::replacePageText(const QString &strText, const QString &strReplacement)
{
    do {
        if (!findAndFollow(strText, QWebPage::FindFlags()))
            return false;
    } while (m_bInSubframe); // Text in a frame belongs to another file.
    replaceSelection(strReplacement);
    return true;
}

// Plain text replaces the text inside its element, so that no link is cut in two.
void CEditWebView::replaceSelection(const QString &strReplacement)
{
    static const QRegularExpression regExpMarkup(QStringLiteral("[<&\\r\\n]"));
    bool bReplaced = false;
    if (!strReplacement.isEmpty() && !strReplacement.contains(regExpMarkup)) {
        endStep();
        page()->undoStack()->beginMacro(QString());
        runEditable(
            [&] { bReplaced = evaluate(PageScript::replaceWithin(strReplacement)).toBool(); });
        page()->undoStack()->endMacro();
    }
    if (!bReplaced)
        insertHtml(strReplacement);
}

bool CEditWebView::replaceAllPageText(const QString &strText, const QString &strReplacement)
{
    moveToSearchEdge();
    page()->undoStack()->beginMacro(QString());
    int nCount = 0;
    while (replacePageText(strText, strReplacement))
        ++nCount;
    page()->undoStack()->endMacro();
    emit replaceNum(nCount);
    return true;
}

QRect CEditWebView::selectedSpot() const
{
    const QVariantList lstSpot = evaluate(PageScript::selectedSpot()).toList();
    if (lstSpot.size() != 4)
        return QRect();
    const double dZoom = zoomFactor();
    const QRectF spot(lstSpot.at(0).toDouble() * dZoom, lstSpot.at(1).toDouble() * dZoom,
                      lstSpot.at(2).toDouble() * dZoom, lstSpot.at(3).toDouble() * dZoom);
    return {mapToGlobal(spot.topLeft().toPoint()), spot.size().toSize()};
}
