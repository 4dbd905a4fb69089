// Pasting and dropping markup: it goes through what a loaded page goes through.
#include "web/ceditwebview.h"

#include "web/pagehazards.h"
#include "web/pagescript.h"
#include "web/pastedhtml.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>

// True when it was pasted here; else the web view may have it as it is.
bool CEditWebView::pasteHarmful(const QMimeData *pData)
{
    if (!pData || !pData->hasHtml())
        return false;
    const QString strHtml = pData->html();
    const EPageHazard hazard = pageHazard(strHtml);
    if (hazard != EPageHazard::None) {
        endStep();
        runEditable(
            [&] { evaluate(PageScript::execute(QStringLiteral("insertText"), pData->text())); });
        emit statusMessage(tr("Pasted as text, as %1.").arg(pageHazardReason(hazard)));
        return true;
    }
    const QString strSafe = harmlessPaste(strHtml);
    if (strSafe == strHtml)
        return false;
    insertHtml(strSafe);
    return true;
}

// Markup that may not be dropped as it is comes as its text.
void CEditWebView::dropHtml(QDropEvent *pEvent)
{
    const QString strHtml = pEvent->mimeData()->html();
    if (pageHazard(strHtml) == EPageHazard::None && harmlessPaste(strHtml) == strHtml) {
        QWebView::dropEvent(pEvent);
        return;
    }
    QMimeData text;
    text.setText(pEvent->mimeData()->text());
    QDropEvent event(pEvent->posF(), pEvent->possibleActions(), &text, pEvent->mouseButtons(),
                     pEvent->keyboardModifiers());
    QWebView::dropEvent(&event);
    pEvent->setAccepted(event.isAccepted());
    pEvent->setDropAction(event.dropAction());
}

// The middle button pastes what was selected last, where the system has that.
void CEditWebView::mouseReleaseEvent(QMouseEvent *pEvent)
{
    const QClipboard *pClipboard = QGuiApplication::clipboard();
    const bool bPastes = pEvent->button() == Qt::MiddleButton && page()->isContentEditable()
        && pClipboard->supportsSelection();
    if (!bPastes || !pasteHarmful(pClipboard->mimeData(QClipboard::Selection)))
        QWebView::mouseReleaseEvent(pEvent);
}
