#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class CDocument;
class CTabWidget;
class MainWindow;

// Shows large texts that are being loaded in their tabs and in the status bar, with a button that
// stops them. Closes a text that cannot be loaded to its end.
class CArrivals : public QObject
{
    Q_OBJECT

public:
    // close closes a document as the user would. All arguments outlive this object.
    CArrivals(MainWindow *pWindow, CTabWidget *pTabs, std::function<void(CDocument *)> close);

    void add(CDocument *pDocument);

private:
    void onChanged(CDocument *pDocument);
    void onFailed(CDocument *pDocument, const QString &strReason, bool bPartial);
    void stop(CDocument *pDocument);

    MainWindow *m_pWindow;
    CTabWidget *m_pTabs;
    std::function<void(CDocument *)> m_close;
    QHash<const QObject *, int> m_mapWorks; // The work that the status bar shows for a document.
};
