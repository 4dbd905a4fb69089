#pragma once

#include <QList>
#include <QScrollArea>
#include <QStringList>

class CLinkButton;
class QAction;
class QLabel;
class QVBoxLayout;

// Shows in a window without documents what can be done now. It covers the empty area, which gets
// the clicks beside the links. It opens nothing by itself.
class CStartPanel : public QScrollArea
{
    Q_OBJECT

public:
    // lstActions are the commands to begin with, each shown with its key.
    CStartPanel(const QList<QAction *> &lstActions, QWidget *pParent);

    // Shows these files as links, in this order.
    void showRecentFiles(const QStringList &lstPaths);
    // Offers to open these files again; an empty list removes the offer.
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
