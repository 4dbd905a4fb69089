// Find and replace in the rendered page.
#include "web/ceditwebview.h"

#include "app/csettings.h"
#include "web/pagescript.h"

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
    return page()->findText(strText, flags);
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
    if (!page()->findText(strText))
        return false;
    insertHtml(strReplacement);
    return true;
}

bool CEditWebView::replaceAllPageText(const QString &strText, const QString &strReplacement)
{
    moveToSearchEdge();
    while (replacePageText(strText, strReplacement)) { }
    return true;
}
