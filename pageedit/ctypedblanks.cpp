#include "pageedit/ctypedblanks.h"

#include "pageedit/pagelibrary.h"
#include "web/ceditwebview.h"

#include <QUndoStack>
#include <QWebView>

#include <utility>

CTypedBlanks::CTypedBlanks(CEditWebView *pPage) : m_pPage(pPage)
{
    m_timerSettle.setSingleShot(true);
    connect(&m_timerSettle, &QTimer::timeout, this, &CTypedBlanks::settle);
    connect(pPage->page()->undoStack(), &QUndoStack::indexChanged, this,
            &CTypedBlanks::onUndoIndexChanged);
    connect(pPage, &QWebView::loadStarted, this, [this] {
        m_state = State::None;
        m_bNoted = false;
    });
}

void CTypedBlanks::type(const QString &strText)
{
    if (m_state == State::Typed && strText != QLatin1String(" ")) {
        m_state = State::Followed;
        m_nBehind = strText.size();
        m_timerSettle.start(0);
        return;
    }
    // Two blanks in a row are meant to be visible. A command may have come between them.
    const bool bSecond = m_state == State::Typed && edit(QStringLiteral("'isBehindBlank'"));
    const bool bFirst = strText == QLatin1String(" ") && !bSecond;
    if (m_state == State::Typed)
        m_state = State::None;
    settle();
    if (!bSecond)
        note();
    m_state = bFirst ? State::Typed : State::None;
    m_nBehind = 0;
    if (m_bNoted && !bFirst)
        m_timerSettle.start(0);
}

void CTypedBlanks::press(int nKey)
{
    // At the end of a line the caret needs a visible space.
    const bool bAside = nKey == Qt::Key_Left || nKey == Qt::Key_Right || nKey == Qt::Key_Backspace
        || nKey == Qt::Key_Delete;
    if (m_state == State::Typed && bAside)
        m_state = State::None;
    settle();
    if (nKey == Qt::Key_Backspace || nKey == Qt::Key_Delete)
        note();
    if (m_bNoted)
        m_timerSettle.start(0);
}

void CTypedBlanks::leave()
{
    settle();
}

void CTypedBlanks::finish()
{
    if (m_state != State::Typed)
        settle();
}

void CTypedBlanks::note()
{
    m_bNoted = m_pPage->isBodyEdited() && edit(QStringLiteral("'noteBlanks'"));
}

void CTypedBlanks::settle()
{
    m_timerSettle.stop();
    const bool bNoted = std::exchange(m_bNoted, false);
    const bool bTyped = std::exchange(m_state, State::None) != State::None;
    if (!m_pPage->isBodyEdited())
        return;
    const bool bKept = bNoted && edit(QStringLiteral("'keepBlanks'"));
    const bool bSettled =
        bTyped && edit(QStringLiteral("'settleBlank', {behind: %1}").arg(m_nBehind));
    if (bKept || bSettled)
        emit m_pPage->page()->contentsChanged();
}

bool CTypedBlanks::edit(const QString &strArguments)
{
    return callPageLibrary(m_pPage, QStringLiteral("edit"), strArguments).toBool();
}

// A blank that was undone cannot be changed any more.
void CTypedBlanks::onUndoIndexChanged(int nIndex)
{
    if (nIndex >= std::exchange(m_nUndoIndex, nIndex))
        return;
    m_state = State::None;
    m_bNoted = false;
}
