#pragma once

#include <QObject>

#include <functional>

class CDocument;
class CPastTabs;
class CTabWidget;
class MainWindow;

// Asks before a document is closed, and carries out the answer. An answer is for the document that
// was asked about, whatever the event loop of the box does meanwhile.
class CClosing : public QObject
{
    Q_OBJECT

public:
    // save saves a document as the user would; false if it could not. All arguments outlive this
    // object.
    CClosing(MainWindow *pWindow, CTabWidget *pTabs, CPastTabs *pPastTabs,
             std::function<bool(CDocument *)> save);

    // False when the user keeps the document.
    bool close(CDocument *pDocument);
    // Asks for all documents, from the last to the first; false when the user keeps one.
    bool closeAll();
    // Asks when a modified page is about to show another address.
    bool mayLeavePage(CDocument *pDocument);

private:
    enum class Leaving { Stays, Settled, Unsaved };

    Leaving askBeforeClosing(CDocument *pDocument);
    bool closeForGood(CDocument *pDocument, bool *pYesToAll);

    MainWindow *m_pWindow;
    CTabWidget *m_pTabs;
    CPastTabs *m_pPastTabs;
    std::function<bool(CDocument *)> m_save;
};
