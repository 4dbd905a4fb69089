#pragma once

#include <QObject>

class CDlgFind;
class CDlgGo;
class CDocument;
class CHighlightEdit;
class CReplaceAll;
class MainWindow;

// The find and go-to-line dialogs of the window, and the commands that they and the menu give to
// the current document.
class CSearch : public QObject
{
    Q_OBJECT

public:
    explicit CSearch(MainWindow *pWindow);

    void showFind();
    void showReplace();
    void showGoToLine();
    // Without the dialog; bBackward: against the direction that the settings give.
    void findAgain(bool bBackward);

    // What the dialog's buttons ask for.
    void findNext();
    void replace();
    void replaceAll();

    // What came of it, for the dialog's line or, while it is closed, for message().
    void tellTop();
    void tellBottom();
    void tellMiss();
    void tellReplaced(int nCount);
    // Which match was found, and of how many.
    void tellCount(int nIndex, int nCount);

signals:
    // One line for the status bar.
    void message(QString strText);

private:
    CDlgFind *dialog();
    CDlgFind *dialogForSelection();
    CDocument &document() const;
    void showProgress(CReplaceAll *pJob);
    void tell(const QString &strText);

    MainWindow *m_pWindow;
    CDlgFind *m_pDlgFind = nullptr; // Created on first use, kept.
    CDlgGo *m_pDlgGo = nullptr; // The same.
};
