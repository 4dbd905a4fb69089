// Pasting and dropping markup, which is checked like a loaded page.
#include "web/ceditwebview.h"

#include "web/pagehazards.h"
#include "web/pagescript.h"
#include "web/pastedhtml.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>

// True when it was pasted here; otherwise the web view may paste it unchanged.
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
        emit statusMessage(tr("Pasted as text, because %1.").arg(pageHazardReason(hazard)));
        return true;
    }
    const QString strSafe = harmlessPaste(strHtml);
    if (strSafe == strHtml)
        return false;
    insertHtml(strSafe);
    return true;
}

// If the markup may not be dropped unchanged, its text is dropped.
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

// The middle button pastes the last selection, on systems that have this.
void CEditWebView::mouseReleaseEvent(QMouseEvent *pEvent)
{
    const QClipboard *pClipboard = QGuiApplication::clipboard();
    const bool bPastes = pEvent->button() == Qt::MiddleButton && page()->isContentEditable()
        && pClipboard->supportsSelection();
    if (!bPastes || !pasteHarmful(pClipboard->mimeData(QClipboard::Selection)))
        QWebView::mouseReleaseEvent(pEvent);
}
