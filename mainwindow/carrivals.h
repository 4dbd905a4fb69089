#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class CDocument;
class CTabWidget;
class MainWindow;

// Large texts that are still being loaded, as the window tells of them: in their tabs, and in the
// status bar with a button that stops them. One that cannot be loaded to its end is closed.
class CArrivals : public QObject
{
    Q_OBJECT

public:
    // close: closes a document as the user would. All outlive this object.
    CArrivals(MainWindow *pWindow, CTabWidget *pTabs, std::function<void(CDocument *)> close);

    void add(CDocument *pDocument);

private:
    void onChanged(CDocument *pDocument);
    void onFailed(CDocument *pDocument, const QString &strReason, bool bPartial);
    void stop(CDocument *pDocument);

    MainWindow *m_pWindow;
    CTabWidget *m_pTabs;
    std::function<void(CDocument *)> m_close;
    QHash<const QObject *, int> m_mapWorks; // What the status bar shows for a document.
};
