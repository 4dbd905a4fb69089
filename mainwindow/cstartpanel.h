#pragma once

#include <QList>
#include <QScrollArea>
#include <QStringList>

class CLinkButton;
class QAction;
class QLabel;
class QVBoxLayout;

// What a window without documents says: what can be done now. Lies over the empty area and leaves
// clicks beside its links to it. Opens nothing by itself.
class CStartPanel : public QScrollArea
{
    Q_OBJECT

public:
    // lstActions: the commands to begin with, each shown with its key.
    CStartPanel(const QList<QAction *> &lstActions, QWidget *pParent);

    // As links, in this order.
    void showRecentFiles(const QStringList &lstPaths);
    // The offer to open these files again; none for an empty list.
    void showLastSession(const QStringList &lstPaths);

signals:
    void recentFileChosen(int nIndex);
    void lastSessionChosen();

private:
    CLinkButton *addLink(const QString &strText);

    QWidget *m_pContent;
    QVBoxLayout *m_pLayout;
    QLabel *m_pRecent; // Above the recent files.
    QList<CLinkButton *> m_lstRecent;
    CLinkButton *m_pLastSession;
};
