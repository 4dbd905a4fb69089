#pragma once

#include "findinfiles/findquery.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <memory>

class CSearchJob;

// Searches the files of a folder on threads of its own. GUI thread only; no widgets.
//
// cancel() and start() do not wait for the threads of a search that goes on; none of its results
// comes afterwards. The destructor waits for them, at most 5000 ms: a thread that a dead network
// disk holds longer is left behind and touches nothing of this.
class CFindInFiles : public QObject
{
    Q_OBJECT

public:
    explicit CFindInFiles(QObject *pParent = nullptr);
    ~CFindInFiles() override;

    // Ends the search that runs, without its finished(). Nothing is searched, and finished() comes,
    // for an empty text or a folder that does not exist.
    void start(const SFindQuery &query);
    // Ends the search; finished() comes before this returns.
    void cancel();
    bool isRunning() const { return m_pJob != nullptr; }

signals:
    // Some thousand matches at most, files in no special order; each file comes once.
    void found(const QVector<SFileMatches> &lstFound);
    // Now and then while the search goes on.
    void progress(const SFindCounts &counts);
    void finished(const SFindCounts &counts);

private:
    void run(const std::shared_ptr<CSearchJob> &pJob, void (CSearchJob::*pWork)());
    void dropJob();
    void onTick();

    std::shared_ptr<CSearchJob> m_pJob;
    QVector<QPointer<QThread>> m_lstThreads; // Also of earlier searches, until they have ended.
    QTimer m_timer;
    SFindCounts m_counts;
};
