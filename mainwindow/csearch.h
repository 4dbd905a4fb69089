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
    // Searches without the dialog; bBackward reverses the direction of the settings.
    void findAgain(bool bBackward);

    // The commands of the dialog's buttons.
    void findNext();
    void replace();
    void replaceAll();

    // Shows the outcome in the dialog's line, or by message() while the dialog is closed.
    void tellTop();
    void tellBottom();
    void tellMiss();
    void tellReplaced(int nCount);
    // Shows which match was found, and of how many.
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
