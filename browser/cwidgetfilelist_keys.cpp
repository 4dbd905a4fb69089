// The keys of the list and of the folder box.
#include "browser/cmenulistview.h"
#include "browser/cwidgetfilelist.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

static bool isEnter(int nKey)
{
    return nKey == Qt::Key_Return || nKey == Qt::Key_Enter;
}

bool CWidgetFileList::eventFilter(QObject *pWatched, QEvent *pEvent)
{
    const bool bOverride = pEvent->type() == QEvent::ShortcutOverride;
    if (!bOverride && pEvent->type() != QEvent::KeyPress)
        return QWidget::eventFilter(pWatched, pEvent);
    auto *pKey = static_cast<QKeyEvent *>(pEvent);
    if (pWatched == m_pListView)
        return bOverride ? claimListKey(pKey) : handleListKey(*pKey);
    if (pWatched == m_pComboFolder->lineEdit() && !bOverride && isEnter(pKey->key())) {
        // The edit leaves this key to its parent, and the box hands it back: Enter would count
        // twice.
        m_pComboFolder->lineEdit()->event(pKey);
        pKey->accept();
        return true;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

static bool isListKey(const QKeyEvent &key)
{
    const bool bPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return bPlain
        && (isEnter(key.key()) || key.key() == Qt::Key_Backspace || key.key() == Qt::Key_F5);
}

// A shortcut of the window on the same key must not take it from the list.
bool CWidgetFileList::claimListKey(QKeyEvent *pKey)
{
    if (isListKey(*pKey))
        pKey->accept();
    return false;
}

bool CWidgetFileList::handleListKey(const QKeyEvent &key)
{
    if (!isListKey(key))
        return false;
    if (key.key() == Qt::Key_Backspace)
        onUpper();
    else if (key.key() == Qt::Key_F5)
        onRefresh();
    else
        openSelection();
    return true;
}
