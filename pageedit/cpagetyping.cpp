#include "pageedit/cpagetyping.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"
#include "widgets/typedkeys.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWebElement>
#include <QWebFrame>

namespace {

bool isModifier(const QKeyEvent *pEvent)
{
    switch (pEvent->key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
        return true;
    default:
        return false;
    }
}

bool isTyped(const QKeyEvent *pEvent)
{
    const bool bCommand = pEvent->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)
        && !(pEvent->modifiers() & Qt::AltModifier);
    return !bCommand && !pEvent->text().isEmpty() && pEvent->text().at(0).isPrint();
}

} // namespace

CPageTyping::CPageTyping(CEditWebView *pPage) : QObject(pPage), m_pPage(pPage)
{
    pPage->installEventFilter(this);
}

CPageTyping *CPageTyping::of(CEditWebView *pPage)
{
    auto *pTyping = pPage->findChild<CPageTyping *>(QString(), Qt::FindDirectChildrenOnly);
    return pTyping ? pTyping : new CPageTyping(pPage);
}

void CPageTyping::choose(const QString &strMark, bool bOn)
{
    m_chosen.insert(strMark, bOn);
    emit chosenChanged();
}

void CPageTyping::choosePlain()
{
    m_chosen = {{QStringLiteral("*"), false}};
    emit chosenChanged();
}

void CPageTyping::takeColorOff(CEditWebView *pPage, bool bBackground)
{
    const QString strProperty =
        bBackground ? QStringLiteral("background-color") : QStringLiteral("color");
    const QVariantMap answer = askPage(pPage, QStringLiteral("selected")).toMap();
    if (answer.value(QStringLiteral("selected")).toBool())
        runPageCommand(pPage, QStringLiteral("uncolor"),
                       {{QStringLiteral("property"), strProperty}});
    else
        of(pPage)->choose(strProperty, false);
}

void CPageTyping::forget()
{
    if (m_chosen.isEmpty())
        return;
    m_chosen.clear();
    emit chosenChanged();
}

bool CPageTyping::eventFilter(QObject *pObject, QEvent *pEvent)
{
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
        forget();
        break;
    case QEvent::InputMethod:
        if (takeComposed(static_cast<QInputMethodEvent *>(pEvent)))
            return true;
        break;
    case QEvent::KeyPress:
        if (takeKey(static_cast<QKeyEvent *>(pEvent)))
            return true;
        break;
    default:
        break;
    }
    return QObject::eventFilter(pObject, pEvent);
}

bool CPageTyping::takeKey(const QKeyEvent *pEvent)
{
    if (isModifier(pEvent) || !m_pPage->page()->isContentEditable())
        return false;
    if (isTyped(pEvent))
        return takeText(pEvent->text());
    forget();
    const bool bPlain = !(pEvent->modifiers() & ~Qt::KeypadModifier);
    if (bPlain && isEnter(pEvent))
        return takeEnter();
    if (bPlain && pEvent->key() == Qt::Key_Tab)
        return takeTab(false);
    return pEvent->key() == Qt::Key_Backtab && takeTab(true);
}

bool CPageTyping::takeEnter()
{
    if (runPageCommand(m_pPage, QStringLiteral("enter")))
        return true;
    if (!askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("pre")).toBool())
        return false;
    m_pPage->triggerEdit(QWebPage::InsertLineSeparator);
    return true;
}

// In an item, Tab is never typed.
bool CPageTyping::takeTab(bool bBack)
{
    if (!askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("item")).toBool())
        return false;
    runPageCommand(m_pPage, bBack ? QStringLiteral("outdent") : QStringLiteral("indent"));
    return true;
}

// The web view types the first text of a page into nothing, and text with chosen formats as old
// elements.
bool CPageTyping::takeText(const QString &strText)
{
    if (m_chosen.isEmpty() && !isFirstText())
        return false;
    QVariantList lstOn;
    QVariantList lstOff;
    for (auto it = m_chosen.cbegin(); it != m_chosen.cend(); ++it)
        (it.value() ? lstOn : lstOff).append(it.key());
    const bool bDone = runInsteadOfSelection(m_pPage, QStringLiteral("type"),
                                             {{QStringLiteral("text"), strText},
                                              {QStringLiteral("on"), lstOn},
                                              {QStringLiteral("off"), lstOff}});
    forget();
    return bDone;
}

bool CPageTyping::isFirstText() const
{
    const QWebElement body = m_pPage->page()->mainFrame()->findFirstElement(QStringLiteral("body"));
    return body.firstChild().isNull()
        && askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("empty")).toBool();
}

// What an input method has composed replaces its own letters.
bool CPageTyping::takeComposed(const QInputMethodEvent *pEvent)
{
    if (m_chosen.isEmpty() || pEvent->commitString().isEmpty())
        return false;
    const QString strText = pEvent->commitString();
    const QHash<QString, bool> chosen = m_chosen;
    m_chosen.clear();
    QInputMethodEvent cancel;
    QCoreApplication::sendEvent(m_pPage, &cancel);
    m_chosen = chosen;
    return takeText(strText);
}
