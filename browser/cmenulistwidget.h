#pragma once

#include <QListWidget>
#include <QMenu>
#include <QStringList>

// A list widget with a context menu made from a list of texts. The menu is the same everywhere in
// the list; the owner acts on the selection.
class CMenuListWidget : public QListWidget
{
    Q_OBJECT

public:
    explicit CMenuListWidget(QWidget *pParent = nullptr);

    // The menu's entries from top to bottom; "separator" makes a separator. An empty list means no
    // menu.
    void setActions(const QStringList &lstActions);

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
