#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

class CDocument;
class CHighlightMgt;
class CPreviewWidget;
class CWidgetFavorFileList;
class MainWindow;
class QDockWidget;

// The two docks beside the documents: folder browser and preview.
class CSidePanels : public QObject
{
    Q_OBJECT

public:
    // pLanguages outlives this object.
    CSidePanels(MainWindow *pWindow, const CHighlightMgt *pLanguages);
    // Connects the panels to the window's slots, which may ask for this object.
    void start();

    CWidgetFavorFileList *browser() const { return m_pBrowser; }
    CPreviewWidget *preview() const { return m_pPreview; }
    QList<QDockWidget *> docks() const { return {m_pDockPreview, m_pDockBrowser}; }

    // Shows the typed text when the typing pauses.
    void previewSoon() { m_timerPreview.start(); }
    // Shows that file; for a folder only its name.
    void previewFile(const QString &strPath, bool bSelected);
    void onPreviewVisible(bool bVisible);
    // Handles an event of the browser: when it was hidden and is shown again, it lists its folder
    // again.
    void onBrowserShown(bool bShown);

private:
    QDockWidget *addDock(const QString &strName, const QString &strTitle, QWidget *pPanel,
                         Qt::DockWidgetArea area, const QString &strIcon);
    void previewCurrentDocument();
    void onListing(bool bRuns);
    void follow(CDocument *pDocument);

    MainWindow *m_pWindow;
    CPreviewWidget *m_pPreview;
    CWidgetFavorFileList *m_pBrowser;
    QDockWidget *m_pDockPreview;
    QDockWidget *m_pDockBrowser;
    QTimer m_timerPreview;
    // The document whose text the preview shows; null for a file or nothing.
    CDocument *m_pPreviewed = nullptr;
    bool m_bBrowserWasHidden = false;
    int m_nListing = 0; // The work that is shown; 0 for none.
};
