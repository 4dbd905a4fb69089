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
// cancel() and start() do not wait for the threads of a running search; no result of the old search
// comes afterwards. The destructor waits for them, at most 5000 ms: a thread that hangs longer on a
// dead network disk is left behind and uses nothing of this object.
class CFindInFiles : public QObject
{
    Q_OBJECT

public:
    explicit CFindInFiles(QObject *pParent = nullptr);
    ~CFindInFiles() override;

    // Ends a running search without its finished(). For an empty text, or a folder that does not
    // exist, nothing is searched, and finished() comes at once.
    void start(const SFindQuery &query);
    // Ends the search; finished() comes before this returns.
    void cancel();
    bool isRunning() const { return m_pJob != nullptr; }

signals:
    // At most some thousand matches. Files come in no special order, each once.
    void found(const QVector<SFileMatches> &lstFound);
    // Emitted now and then during the search.
    void progress(const SFindCounts &counts);
    void finished(const SFindCounts &counts);

private:
    void run(const std::shared_ptr<CSearchJob> &pJob, void (CSearchJob::*pWork)());
    void dropJob();
    void onTick();

    std::shared_ptr<CSearchJob> m_pJob;
    // The threads of this search, and of earlier ones until they have ended.
    QVector<QPointer<QThread>> m_lstThreads;
    QTimer m_timer;
    SFindCounts m_counts;
};
