#pragma once

#include <QListView>
#include <QMenu>
#include <QStringList>

// A list view with a context menu made from a list of texts. The menu is the same everywhere in the
// list; the owner acts on the selection.
class CMenuListView : public QListView
{
    Q_OBJECT

public:
    explicit CMenuListView(QWidget *pParent = nullptr);

    // The menu's entries from top to bottom; "separator" makes a separator. An empty list means no
    // menu.
    void setActions(const QStringList &lstActions);

    // True while an entry is edited in place.
    bool isEditing() const { return state() == EditingState; }

signals:
    // The text of the entry that was chosen.
    void clickAction(QString strText);

public slots:
    void onClickAction();

protected:
    void contextMenuEvent(QContextMenuEvent *pEvent) override;

private:
    QStringList m_lstActions;
    QMenu m_menuActions;
};
