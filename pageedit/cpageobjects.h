#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

class CEditWebView;
class QAction;
class QMenu;
class QToolBar;

// The buttons of the Page tool bar for pictures and tables. A child of the tool bar. GUI thread
// only.
class CPageObjects : public QObject
{
    Q_OBJECT

public:
    explicit CPageObjects(QToolBar *pToolBar);

    // Sets the page in front; null for none, which disables everything.
    void follow(CEditWebView *pPage);
    // All actions, for the keys of the window.
    QList<QAction *> actions() const;

private:
    QAction *addButton(const char *szName, const QString &strText, const char *szIcon);
    void addTableMenu();
    void addTableCommands();
    void showTableState();
    void askPicture();
    void insertTable(int nRows, int nColumns);
    void runTable(const QString &strCommand);

    QToolBar *m_pToolBar;
    QPointer<CEditWebView> m_pPage;
    QAction *m_pPicture = nullptr;
    QAction *m_pTable = nullptr;
    QAction *m_pHeader = nullptr;
    QMenu *m_pTableMenu = nullptr;
    QList<QAction *> m_tableActions; // Enabled while the caret is in a table.
};
