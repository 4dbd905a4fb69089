#pragma once

#include <QObject>
#include <QString>

#include <functional>

class CDocument;
class CHighlightEdit;
class CWidgetFindInFiles;
class MainWindow;
class QDockWidget;

// The dock "Find in Files": hidden at first, its panel made when it is first shown.
class CFindDock : public QObject
{
    Q_OBJECT

public:
    // folder gives the folder of a search if the user chooses none.
    CFindDock(MainWindow *pWindow, std::function<QString()> folder);

    QDockWidget *dock() const { return m_pDock; }
    QWidget *panel() const; // Null before it was first shown.

    // Shows the dock with the text to search for, which may be empty.
    void show(const QString &strText);

signals:
    // One line for the status bar.
    void message(QString strText);

private:
    CWidgetFindInFiles *makePanel();
    QString whyNotWrite(const QString &strPath) const;
    void onMatchActivated(const QString &strPath, int nLine, int nColumn, int nLength);
    void selectMatch(CDocument *pDocument, int nLine, int nColumn, int nLength);
    void selectInEditor(CHighlightEdit *pEditor, int nLine, int nColumn, int nLength);
    void onFileReplaced(const QString &strPath);
    void onBusyChanged(bool bBusy, const QString &strWhat);

    MainWindow *m_pWindow;
    std::function<QString()> m_folder;
    QDockWidget *m_pDock;
    CWidgetFindInFiles *m_pPanel = nullptr;
    int m_nWork = 0; // The work that is shown.
};
