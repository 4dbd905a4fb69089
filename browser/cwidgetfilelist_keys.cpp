// The keys of the list and of the folder box.
#include "browser/cmenulistview.h"
#include "browser/cwidgetfilelist.h"
#include "widgets/typedkeys.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

bool CWidgetFileList::eventFilter(QObject *pWatched, QEvent *pEvent)
{
    const bool bOverride = pEvent->type() == QEvent::ShortcutOverride;
    if (!bOverride && pEvent->type() != QEvent::KeyPress)
        return QWidget::eventFilter(pWatched, pEvent);
    auto *pKey = static_cast<QKeyEvent *>(pEvent);
    if (pWatched == m_pListView)
        return bOverride ? claimListKey(pKey) : handleListKey(*pKey);
    if (pWatched == m_pComboFolder->lineEdit() && !bOverride && isEnter(pKey)) {
        // The edit passes this key to its parent, and the box passes it back, so Enter would count
        // twice.
        m_pComboFolder->lineEdit()->event(pKey);
        pKey->accept();
        return true;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

namespace {

// A key of the list, with what it does.
struct SListKey
{
    Qt::KeyboardModifiers modifiers;
    int nKey = 0;
    void (CWidgetFileList::*pSlot)() = nullptr;
};

const SListKey g_arrListKeys[] = {
    {Qt::NoModifier, Qt::Key_Backspace, &CWidgetFileList::onUpper},
    {Qt::NoModifier, Qt::Key_F5, &CWidgetFileList::onRefresh},
    {Qt::NoModifier, Qt::Key_F2, &CWidgetFileList::onRename},
    {Qt::NoModifier, Qt::Key_Delete, &CWidgetFileList::onMoveToTrash},
    {Qt::ControlModifier | Qt::AltModifier, Qt::Key_N, &CWidgetFileList::onNewFolder},
    {Qt::ControlModifier, Qt::Key_Z, &CWidgetFileList::onTakeBack},
};

const SListKey *listKey(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    for (const SListKey &listKey : g_arrListKeys)
        if (listKey.nKey == key.key() && listKey.modifiers == modifiers)
            return &listKey;
    return nullptr;
}

bool isPlainEnter(const QKeyEvent &key)
{
    return isEnter(&key) && (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

// A shortcut of the window on the same key must not take it from the list.
bool CWidgetFileList::claimListKey(QKeyEvent *pKey)
{
    if (isPlainEnter(*pKey) || listKey(*pKey))
        pKey->accept();
    return false;
}

bool CWidgetFileList::handleListKey(const QKeyEvent &key)
{
    // The field in which a name is edited passes on the Enter that ends it.
    if (m_pListView->isEditing())
        return true;
    const SListKey *pListKey = listKey(key);
    if (pListKey)
        (this->*pListKey->pSlot)();
    else if (isPlainEnter(key))
        openSelection();
    else
        return false;
    return true;
}
