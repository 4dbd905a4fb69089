// Handles keys, mouse, focus, drag and drop.
#include "web/ceditwebview.h"

#include "web/pagescript.h"
#include "widgets/typedkeys.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QWebFrame>

#include <algorithm>
#include <utility>

namespace {

bool hasLocalFiles(const QMimeData *pMimeData)
{
    const QList<QUrl> lstUrls = pMimeData->urls();
    return std::any_of(lstUrls.cbegin(), lstUrls.cend(),
                       [](const QUrl &url) { return url.isLocalFile(); });
}

// Leaves files to the window, which opens them; the page itself would go to them.
template<typename Event> bool leaveToWindow(Event *pEvent)
{
    if (!hasLocalFiles(pEvent->mimeData()))
        return false;
    pEvent->ignore();
    return true;
}

// True for Escape, and for a letter with Control and Alt: the web view would replace the selection
// by the control character that comes with it. It handles Enter, Tab, Backspace, and keys with
// Control alone.
bool hasControlCharacter(const QKeyEvent *pEvent)
{
    const Qt::KeyboardModifiers modifiers =
        pEvent->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return modifiers != Qt::ControlModifier && pEvent->text().size() == 1
        && pEvent->text().at(0) < QLatin1Char(' ') && !isEnter(pEvent) && !isTab(pEvent)
        && pEvent->key() != Qt::Key_Backspace;
}

} // namespace

bool CEditWebView::event(QEvent *pEvent)
{
    if (pEvent->type() == QEvent::ToolTip && showPictureToolTip(static_cast<QHelpEvent *>(pEvent)))
        return true;
    const QPointer<CEditWebView> pThis(this); // An event may delete this view.
    const bool bOuter = m_bHandlingKey;
    m_bHandlingKey = pEvent->type() == QEvent::KeyPress;
    const bool bDone = QWebView::event(pEvent);
    if (pThis)
        m_bHandlingKey = bOuter;
    return bDone;
}

// A web view moves the focus by sending the page a Tab key, which an editable page takes as typed
// text. If no key was pressed (the view is being hidden), the function of QWidget is called.
bool CEditWebView::focusNextPrevChild(bool bNext)
{
    if (m_bHandlingKey)
        return QWebView::focusNextPrevChild(bNext);
    return QWidget::focusNextPrevChild(bNext); // NOLINT(bugprone-parent-virtual-call): see above.
}

// The page is not editable while Control is held, so that its links can be clicked.
void CEditWebView::keyPressEvent(QKeyEvent *pEvent)
{
    if (zoomByKey(pEvent)) {
        pEvent->accept();
        return;
    }
    if (hasControlCharacter(pEvent)) {
        pEvent->ignore();
        return;
    }
    if (pEvent->matches(QKeySequence::Paste)
        && (page()->isContentEditable() || (m_bControlDown && m_bEditableBeforeControl))) {
        // Otherwise the web view would handle the key without asking its page.
        triggerEdit(QWebPage::Paste);
        pEvent->accept();
        return;
    }
    if (pEvent->key() == Qt::Key_Control) {
        if (!m_bControlDown)
            m_bEditableBeforeControl = page()->isContentEditable();
        m_bControlDown = true;
        setEditable(false);
    } else if (m_bControlDown && m_bEditableBeforeControl
               && pEvent->modifiers().testFlag(Qt::ControlModifier)) {
        if (pEvent->matches(QKeySequence::Paste) && isPasteTaken()) {
            pEvent->accept();
            return;
        }
        // Moving by words, deleting words, paste, and AltGr where it comes as Control and Alt.
        runEditable([=] {
            formatByKey(pEvent);
            followTyping(pEvent);
            QWebView::keyPressEvent(pEvent);
        });
        return;
    }
    const bool bTyped = page()->isContentEditable();
    if (bTyped)
        followTyping(pEvent);
    if (bTyped)
        rememberTyped([=] { QWebView::keyPressEvent(pEvent); });
    else
        QWebView::keyPressEvent(pEvent);
}

// The keys that every editor has and the web view lacks.
void CEditWebView::formatByKey(QKeyEvent *pEvent)
{
    if (pEvent->matches(QKeySequence::Bold))
        triggerEdit(QWebPage::ToggleBold);
    else if (pEvent->matches(QKeySequence::Italic))
        triggerEdit(QWebPage::ToggleItalic);
    else if (pEvent->matches(QKeySequence::Underline))
        triggerEdit(QWebPage::ToggleUnderline);
}

void CEditWebView::keyReleaseEvent(QKeyEvent *pEvent)
{
    if (pEvent->key() == Qt::Key_Control) {
        m_bControlDown = false;
        setEditable(!m_bInSubframe);
    }
    QWebView::keyReleaseEvent(pEvent);
}

void CEditWebView::focusInEvent(QFocusEvent *pEvent)
{
    QWebView::focusInEvent(pEvent);
    if (pEvent->reason() != Qt::MouseFocusReason)
        ensureCaret();
    emit focusIn();
}

// Without a caret typed text would be lost.
void CEditWebView::ensureCaret()
{
    if (page()->isContentEditable())
        evaluate(PageScript::ensureCaret());
}

void CEditWebView::focusOutEvent(QFocusEvent *pEvent)
{
    QWebView::focusOutEvent(pEvent);
    if (!m_bControlDown)
        return;
    // The release of the key will go to another window.
    m_bControlDown = false;
    setEditable(!m_bInSubframe);
}

// A frame's document is another file, so text typed there could not be saved.
void CEditWebView::enterFrame(const QWebFrame *pFrame)
{
    const bool bInSubframe = pFrame && pFrame != page()->mainFrame();
    if (bInSubframe == m_bInSubframe || (bInSubframe && !page()->isContentEditable()))
        return;
    m_bInSubframe = bInSubframe;
    if (!m_bControlDown)
        setEditable(!bInSubframe);
}

void CEditWebView::mousePressEvent(QMouseEvent *pEvent)
{
    enterFrame(page()->frameAt(pEvent->pos()));
    QWebView::mousePressEvent(pEvent);
}

void CEditWebView::mouseMoveEvent(QMouseEvent *pEvent)
{
    QWebView::mouseMoveEvent(pEvent);
    const QUrl url = urlUnderPos(pEvent);
    const QString strUrl = url.isValid() ? url.toString() : QString();
    setLinkUnderMouse(strUrl);
    if (!strUrl.isEmpty())
        emit overUrl(strUrl);
}

void CEditWebView::leaveEvent(QEvent *pEvent)
{
    QWebView::leaveEvent(pEvent);
    setLinkUnderMouse(QString());
}

void CEditWebView::setLinkUnderMouse(const QString &strUrl)
{
    const QString strOld = std::exchange(m_strLinkUnderMouse, strUrl);
    if (strOld != strUrl && !strOld.isEmpty())
        emit linkLeft(strOld);
}

QUrl CEditWebView::urlUnderPos(QMouseEvent *pEvent) const
{
    const QUrl url = page()->mainFrame()->hitTestContent(pEvent->pos()).linkUrl();
    return url.isEmpty() ? QUrl() : url;
}

void CEditWebView::contextMenuEvent(QContextMenuEvent *pEvent)
{
    m_menuContext.popup(mapToGlobal(pEvent->pos()));
}

void CEditWebView::paintEvent(QPaintEvent *pEvent)
{
    QWebView::paintEvent(pEvent);
    QPainter painter(this);
    painter.setClipRegion(pEvent->region());
    emit painted(&painter);
}

void CEditWebView::dragEnterEvent(QDragEnterEvent *pEvent)
{
    if (!leaveToWindow(pEvent))
        QWebView::dragEnterEvent(pEvent);
}

void CEditWebView::dragMoveEvent(QDragMoveEvent *pEvent)
{
    if (!leaveToWindow(pEvent))
        QWebView::dragMoveEvent(pEvent);
}

void CEditWebView::dropEvent(QDropEvent *pEvent)
{
    if (leaveToWindow(pEvent))
        return;
    if (pEvent->mimeData()->hasHtml() && pEvent->source() != this)
        dropHtml(pEvent);
    else
        QWebView::dropEvent(pEvent);
}
