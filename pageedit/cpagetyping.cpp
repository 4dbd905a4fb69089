#include "pageedit/cpagetyping.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"
#include "web/pagescript.h"
#include "widgets/typedkeys.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QUndoStack>
#include <QWebElement>
#include <QWebFrame>

#include <utility>

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

CPageTyping::CPageTyping(CEditWebView *pPage) : QObject(pPage), m_pPage(pPage), m_blanks(pPage)
{
    pPage->installEventFilter(this);
    // It is never removed, because this object is destroyed with the page.
    pPage->setEditTaker([this](QWebPage::WebAction action) { return takeFormat(action); });
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
    m_bFormatted = false;
    if (m_chosen.isEmpty())
        return;
    m_chosen.clear();
    emit chosenChanged();
}

bool CPageTyping::eventFilter(QObject *pObject, QEvent *pEvent)
{
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
        m_blanks.leave();
        m_bMoved = true;
        forget();
        break;
    case QEvent::InputMethod:
        if (takeComposed(static_cast<QInputMethodEvent *>(pEvent)))
            return true;
        break;
    case QEvent::ShortcutOverride:
        if (static_cast<QKeyEvent *>(pEvent)->modifiers() & Qt::ControlModifier)
            m_blanks.finish(); // A save may follow.
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
    // While Control is held the page is not editable; AltGr may come as Control and Alt.
    const bool bAltGr =
        isTyped(pEvent) && pEvent->modifiers() & Qt::ControlModifier && m_pPage->isBodyEdited();
    if (isModifier(pEvent) || (!m_pPage->page()->isContentEditable() && !bAltGr))
        return false;
    if (isTyped(pEvent)) {
        m_blanks.type(pEvent->text());
        return takeText(pEvent->text());
    }
    m_blanks.press(pEvent->key());
    m_bMoved = true;
    forget();
    if (takeDeletion(pEvent))
        return true;
    const bool bPlain = !(pEvent->modifiers() & ~Qt::KeypadModifier);
    if (bPlain && isEnter(pEvent))
        return takeEnter();
    if (bPlain && pEvent->key() == Qt::Key_Tab)
        return takeTab(false);
    return pEvent->key() == Qt::Key_Backtab && takeTab(true);
}

// When a deletion joins paragraphs, the web view writes the style of one into the other.
bool CPageTyping::takeDeletion(const QKeyEvent *pEvent)
{
    const bool bBack = pEvent->key() == Qt::Key_Backspace;
    if ((!bBack && pEvent->key() != Qt::Key_Delete) || pEvent->modifiers() & ~Qt::KeypadModifier
        || !joinsParagraphs(bBack))
        return false;
    const QString strCommand = bBack ? QStringLiteral("delete") : QStringLiteral("forwardDelete");
    m_pPage->endStep();
    changeUnstyled([this, strCommand] {
        m_pPage->page()->mainFrame()->documentElement().evaluateJavaScript(
            PageScript::execute(strCommand, QString()));
    });
    return true;
}

bool CPageTyping::joinsParagraphs(bool bBack) const
{
    return askPage(m_pPage, QStringLiteral("joins"), {{QStringLiteral("back"), bBack}})
        .toMap()
        .value(QStringLiteral("joins"))
        .toBool();
}

// Makes one step, without the styles that the web view adds.
void CPageTyping::changeUnstyled(const std::function<void()> &change)
{
    m_pPage->page()->undoStack()->beginMacro(QString());
    m_pPage->runEditable(change);
    runPageCommand(m_pPage, QStringLiteral("unstyle"));
    m_pPage->page()->undoStack()->endMacro();
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

// Tab in a list item changes its level and is never typed.
bool CPageTyping::takeTab(bool bBack)
{
    if (!askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("item")).toBool())
        return false;
    runPageCommand(m_pPage, bBack ? QStringLiteral("outdent") : QStringLiteral("indent"));
    return true;
}

// The web view would type the first text of a page, and text between blocks, outside of any
// paragraph, and text with chosen formats with outdated elements.
bool CPageTyping::takeText(const QString &strText, bool bComposedBegins)
{
    const bool bBegins = bComposedBegins || beginsParagraph();
    if (m_chosen.isEmpty() && !m_bFormatted && !bBegins)
        return false;
    QVariantList lstOn;
    QVariantList lstOff;
    for (auto it = m_chosen.cbegin(); it != m_chosen.cend(); ++it)
        (it.value() ? lstOn : lstOff).append(it.key());
    const QVariantMap arguments {{QStringLiteral("text"), strText},
                                 {QStringLiteral("length"), strText.size()},
                                 {QStringLiteral("composed"), bComposedBegins},
                                 {QStringLiteral("on"), lstOn},
                                 {QStringLiteral("off"), lstOff}};
    const bool bDone = bBegins ? runInsteadOfSelection(m_pPage, QStringLiteral("type"), arguments)
                               : typeDressed(strText, arguments);
    forget();
    return bDone;
}

// The web view handles its own formats. The elements that it writes for them are corrected in the
// same step.
bool CPageTyping::typeDressed(const QString &strText, const QVariantMap &arguments)
{
    askPage(m_pPage, QStringLiteral("formats"));
    m_pPage->page()->undoStack()->beginMacro(QString());
    m_pPage->runEditable([&] {
        m_pPage->page()->mainFrame()->documentElement().evaluateJavaScript(
            PageScript::execute(QStringLiteral("insertText"), strText));
    });
    runPageCommand(m_pPage, QStringLiteral("dress"), arguments);
    m_pPage->page()->undoStack()->endMacro();
    return true;
}

// The web view handles bold and italic, except for the elements that this page uses for them.
bool CPageTyping::takeFormat(QWebPage::WebAction action)
{
    if (action == QWebPage::Cut && m_pPage->isBodyEdited() && joinsParagraphs(true)) {
        m_pPage->endStep();
        changeUnstyled([=] { m_pPage->triggerPageAction(action, false); });
        return true;
    }
    const bool bRespelled = action == QWebPage::ToggleBold || action == QWebPage::ToggleItalic;
    if ((!bRespelled && action != QWebPage::ToggleUnderline) || !m_pPage->isBodyEdited())
        return false;
    const QVariantMap formats = askPage(m_pPage, QStringLiteral("formats")).toMap();
    if (formats.value(QStringLiteral("caret")).toBool()) {
        m_bFormatted = true;
        return false;
    }
    if (!bRespelled || !formats.value(QStringLiteral("respelled")).toBool())
        return false;
    m_pPage->endStep();
    m_pPage->page()->undoStack()->beginMacro(QString());
    m_pPage->runEditable([=] { m_pPage->triggerPageAction(action, false); });
    runPageCommand(m_pPage, QStringLiteral("respell"));
    m_pPage->page()->undoStack()->endMacro();
    return true;
}

// Asks the page once where the caret has moved.
bool CPageTyping::beginsParagraph()
{
    if (isFirstText())
        return true;
    return std::exchange(m_bMoved, false)
        && askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("gap")).toBool();
}

bool CPageTyping::isFirstText() const
{
    const QWebElement body = m_pPage->page()->mainFrame()->findFirstElement(QStringLiteral("body"));
    return body.firstChild().isNull()
        && askPage(m_pPage, QStringLiteral("keys")).toMap().value(QStringLiteral("empty")).toBool();
}

// The composed text of an input method replaces its own letters.
bool CPageTyping::takeComposed(const QInputMethodEvent *pEvent)
{
    // While letters are composed, they stand in the page.
    if (!std::exchange(m_bComposing, !pEvent->preeditString().isEmpty()))
        m_bComposedBegins = m_pPage->page()->isContentEditable() && beginsParagraph();
    if ((m_chosen.isEmpty() && !m_bFormatted && !m_bComposedBegins)
        || pEvent->commitString().isEmpty())
        return false;
    const QString &strText = pEvent->commitString();
    const QHash<QString, bool> chosen = m_chosen;
    const bool bFormatted = m_bFormatted;
    const bool bBegins = std::exchange(m_bComposedBegins, false);
    m_chosen.clear();
    QInputMethodEvent cancel;
    QCoreApplication::sendEvent(m_pPage, &cancel);
    m_chosen = chosen;
    m_bFormatted = bFormatted;
    return takeText(strText, bBegins);
}
