#pragma once

#include "document/cdocuments.h"

#include <QMainWindow>

#include <functional>
#include <memory>

namespace Ui {
class MainWindow;
}

class CArrivals;
class CClosing;
class CDocument;
class CEditWebView;
class CFindDock;
class CFormatMenus;
class CHighlightEdit;
class CHighlightMgt;
class CHtmlToolBar;
class CNoticeBar;
class COpener;
class CPageObjects;
class CPageToolBar;
class CPastTabs;
class CRecentMenu;
class CSearch;
class CSidePanels;
class CStatusLabels;
class CTabWidget;
class CWorkProgress;

// The single top-level window: wires actions, documents, docks and dialogs, and computes nothing.
// By concern: mainwindow.cpp the frame, _states.cpp what it shows of the current document,
// _keys.cpp keys, _documents.cpp how documents speak to it, _open.cpp the ways by which files come
// in, _files.cpp saving and reading again, _closing.cpp closing, _commands.cpp and _page.cpp what
// menus and tool bars give to the current document, _panels.cpp docks and panes. Parts with a state
// of their own are classes beside it.
//
// A question on the screen belongs to the document that it was asked about, because its event loop
// may change the current one.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *pParent = nullptr);
    ~MainWindow() override;

    // Without a tab it is the document that refuses everything.
    CDocument &currentDocument() const;
    CDocuments &documents() { return *m_pDocuments; }
    const CHighlightMgt *highlightMgt() const { return m_pHighlightMgt; }
    // Shows work that takes long.
    CWorkProgress &workProgress() const { return *m_pWork; }

public slots:
    // A hand-over message from a later start: see pathsFromMessage().
    void parseArgument(const QString &strArg);
    // Comes to the front and opens every path that exists.
    void parseArguments(const QStringList &lstArgs);
    void topWindow();
    // Tells that later starts cannot hand their files over.
    void tellThatItIsAlone();

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
    void setupDocuments();
    void setupPastTabs();
    void setupConnections();
    void refreshWindow();
    void updateTitle();
    void updateActions();
    void updateStatus();
    void showNotice();
    void showStatusMessage(const QString &strText);

    // mainwindow_keys.cpp
    void addKey(const char *szKey, const std::function<void()> &fnActivated);
    void setupShortcuts();
    void setupTabKeys();

    // mainwindow_documents.cpp
    void connectDocument(CDocument *pDocument);
    void connectEditor(CHighlightEdit *pEditor);
    void connectPage(CEditWebView *pPage);

    // mainwindow_files.cpp
    bool saveDocument(CDocument *pDocument, bool bAnyway);
    bool saveDocumentAs(CDocument *pDocument, const QString &strAgreed = QString());
    void refreshDocument(CDocument *pDocument);

    // mainwindow_open.cpp
    void openFiles(const QStringList &lstPaths);

    // mainwindow_commands.cpp
    void finish(const CResult &result);

    // mainwindow_page.cpp
    void setupHtmlToolBar();
    void setupPageToolBar();
    CEditWebView *shownPage() const;

    std::unique_ptr<Ui::MainWindow> m_pUi;
    CTabWidget *m_pTabs = nullptr;
    CHighlightMgt *m_pHighlightMgt = nullptr;
    std::unique_ptr<CDocuments> m_pDocuments;
    CNoticeBar *m_pNotice = nullptr;
    CStatusLabels *m_pStatus = nullptr;
    CWorkProgress *m_pWork = nullptr;
    CHtmlToolBar *m_pHtmlTools = nullptr;
    CPageToolBar *m_pPageTools = nullptr;
    CPageObjects *m_pPageObjects = nullptr;
    CFormatMenus *m_pFormats = nullptr;
    CRecentMenu *m_pRecent = nullptr;
    CSearch *m_pSearch = nullptr;
    CSidePanels *m_pPanels = nullptr;
    CFindDock *m_pFindDock = nullptr;
    CPastTabs *m_pPastTabs = nullptr;
    COpener *m_pOpener = nullptr;
    CClosing *m_pClosing = nullptr;
    CArrivals *m_pArrivals = nullptr;
    QByteArray m_arrClosedState; // The layout when the window was closed; empty while it is open.
    QString m_strLastPath; // The last file chosen in the open or save dialogs.
    bool m_bLoading = false; // While a document is being created or loaded.
};

// Set in main.cpp only.
extern MainWindow *g_pMainWindow;
