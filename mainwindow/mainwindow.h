#pragma once

#include "mainwindow/cdocument.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace Ui {
class MainWindow;
}

class CDlgFind;
class CDlgGo;
class CDocumentGuard;
class CEditWebView;
class CHighlightEdit;
class CHighlightMgt;
class CHtmlToolBar;
class CNoticeBar;
class CPreviewWidget;
class CStatusLabels;
class CTabWidget;
class CWidgetFavorFileList;
class QDockWidget;
struct SDraft;

// The single top-level window: wires actions, documents, docks and dialogs, and computes nothing.
// By concern: mainwindow.cpp frame and states, _documents.cpp and _files.cpp the life of documents,
// _edit.cpp editing commands, _format.cpp language, codec and line ends, _search.cpp find and go
// to, _page.cpp HTML toolbar and page commands, _preview.cpp the docks.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *pParent = nullptr);
    ~MainWindow() override;

    CDocument currentDocument() const;
    const CHighlightMgt *highlightMgt() const { return m_pHighlightMgt; }

public slots:
    // A hand-over message from a later start: see pathsFromMessage().
    void parseArgument(const QString &strArg);
    // Comes to the front and opens every path that exists.
    void parseArguments(const QStringList &lstArgs);
    void topWindow();

    // Opens a file in the right kind of view, or selects the tab that shows this very path.
    void openFile(const QString &strPathFileName);
    void openFileWithFolder(const QString &strPathFileName);

    void on_actionNewText_triggered();
    void on_actionNewHtml_triggered();
    void on_actionOpen_triggered();
    bool on_actionSave_triggered();
    bool on_actionSave_As_triggered();
    void on_actionSave_All_triggered();
    void on_actionExit_triggered();
    void on_actionRecent_File_1_triggered();
    void on_actionRecent_File_2_triggered();
    void on_actionRecent_File_3_triggered();
    void on_actionRecent_File_4_triggered();
    void on_actionRecent_File_5_triggered();
    void on_actionRecent_File_6_triggered();
    void on_actionRefresh_triggered();
    void on_actionAbout_triggered();

    void on_actionUndo_triggered();
    void on_actionRedo_triggered();
    void on_actionCut_triggered();
    void on_actionCopy_triggered();
    void on_actionPaste_triggered();
    void on_actionSelect_All_triggered();
    void on_actionToggle_Comment_triggered();
    void on_actionVerify_Valid_triggered();
    void on_actionFormatting_triggered();
    void on_actionLine_Wrap_triggered();
    void on_actionColor_Dialog_triggered();

    void on_actionFind_triggered();
    void on_actionFind_Next_triggered();
    void on_actionFind_Previous_triggered();
    void on_actionReplace_triggered();
    void on_actionGo_to_Line_triggered();

    void on_actionBold_triggered();
    void on_actionItalic_triggered();
    void on_actionUnderline_triggered();
    void on_actionLeft_to_Right_triggered();
    void on_actionRight_to_Left_triggered();
    void on_actionBack_triggered();
    void on_actionForward_triggered();
    void on_actionSwapHtml_triggered();

    void on_actionWindows_triggered();
    void on_actionUnix_triggered();
    void on_actionOSX_triggered();

    void onTabCurrentChanged(int nIndex);
    void onTabCloseRequested(int nIndex);
    void onTabClickAction(const QString &strText);
    void onTabDbClick(int nIndex);

    void onLangClick();
    void onClickAtionTextCodec();
    void onModifiedChanged();
    void onEditPageContentChanged();
    void onSelectionChanged();
    void onWidgetFocusIn();
    void onLoadFinished(bool bOk);
    void onOverUrl(const QString &strUrl);
    void onLinkLeft(const QString &strUrl);

    void onFindToTop();
    void onFindToBottom();
    void onCannotFound();
    void onReplaceNum(int nVal);
    void onFindNext();
    void onReplace();
    void onReplaceAll();
    void onGoToLine(int nLine);

    void onCurrentFontNameChanged();
    void onCurrentFontSizeChanged();
    void onDockPreviewChanged(bool bVisible);
    void onRootPathChanged(const QString &strPath);
    void onFileSelectionChanged(const QString &strPath);
    void clipboardDataChanged();

protected:
    void closeEvent(QCloseEvent *pEvent) override;
    void dragEnterEvent(QDragEnterEvent *pEvent) override;
    void dropEvent(QDropEvent *pEvent) override;
    void changeEvent(QEvent *pEvent) override;
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    // mainwindow.cpp
    void setupTabs();
    void setupShortcuts();
    void setupConnections();
    void refreshWindow();
    void updateTitle();
    void updateActions();
    void updateEditActions(const CDocument &document);
    void updatePageActions(const CDocument &document);
    void updateStatus();
    void showStatusMessage(const QString &strText);

    // mainwindow_documents.cpp
    CHighlightEdit *addTextDocument();
    CEditWebView *addPageDocument();
    void connectEditor(CHighlightEdit *pEditor);
    int indexOfPath(const QString &strPath) const;
    void openPage(const QString &strPath);
    void openImage(const QString &strPath);
    void openText(const QString &strPath);
    void showTextFile(CHighlightEdit *pEditor, const QString &strPath);
    bool askBeforeClosing(const CDocument &document);
    bool closeTabForGood(int nIndex, bool *pYesToAll);

    // mainwindow_files.cpp
    void openFiles(const QStringList &lstPaths);
    void addRecentFile(const QString &strPath);
    void updateRecentFiles();
    void openRecentFile(int nIndex);
    void pointBrowserAt(const QString &strFolder);

    // mainwindow_format.cpp
    void setupLanguageMenu();
    void setupTextCodecMenu();
    void setReturnFormat(int nFormat);
    void updateReturnFormat(const CDocument &document);
    void updateLanguage(const CDocument &document);
    void chooseLanguage(CHighlightEdit *pEditor, const QString &strFileName);

    // mainwindow_search.cpp
    CDlgFind *findDialog();
    CDlgFind *findDialogForSelection();
    void searchAgain(bool bBackward);
    void showSearchMessage(const QString &strText);

    // mainwindow_page.cpp
    void setupHtmlToolBar();
    void pageCommand(int nWebAction);
    void swapTabWidget(int nIndex, QWidget *pNew);
    void showPageColor(const QColor &clr, bool bBackground);

    // mainwindow_guard.cpp
    void setupGuard();
    void recover(const SDraft &draft);
    void recoverText(const SDraft &draft);
    void recoverPage(const SDraft &draft);

    // mainwindow_preview.cpp
    void setupDocks();
    void previewCurrentDocument();
    void stepPane(int nBy);

    std::unique_ptr<Ui::MainWindow> m_pUi;
    CTabWidget *m_pTabs = nullptr;
    CHighlightMgt *m_pHighlightMgt = nullptr;
    CDocumentGuard *m_pGuard = nullptr;
    CNoticeBar *m_pNotice = nullptr;
    CStatusLabels *m_pStatus = nullptr;
    CHtmlToolBar *m_pHtmlTools = nullptr;
    CPreviewWidget *m_pPreview = nullptr;
    CWidgetFavorFileList *m_pBrowser = nullptr;
    QDockWidget *m_pDockPreview = nullptr;
    QDockWidget *m_pDockBrowser = nullptr;
    CDlgFind *m_pDlgFind = nullptr; // Created on first use, kept.
    CDlgGo *m_pDlgGo = nullptr; // The same.
    QTimer m_timerPreview;
    QString m_strLastPath; // The last file chosen in the open or save dialogs.
    bool m_bBrowserWasHidden = false;
    bool m_bLoading = false; // While a document is being created or loaded.
};

// Set in main.cpp only.
extern MainWindow *g_pMainWindow;
