#pragma once

#include "app/cdraftstore.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

class CDocument;

// Keeps a draft on the disk for every modified document. It is written a few seconds after the last
// change, on another thread. The class listens to the documents' signals.
class CDraftKeeper : public QObject
{
    Q_OBJECT

public:
    CDraftKeeper(const QString &strFolder, QObject *pParent);
    // Waits for the drafts that are being written.
    ~CDraftKeeper() override;

    void add(CDocument *pDocument);
    // The document takes over a draft that is already on the disk.
    void adopt(CDocument *pDocument, const SDraft &draft);

    // Keeps the document's present text in a separate draft, which no later save removes.
    SDraft keep(const CDocument &document, SDraft::Reason reason);
    void discard(const SDraft &draft);

    // Writes all due drafts now. Called at the end of the program, which may drop unsaved
    // documents, and before anything that can crash it.
    void flush();
    // Waits for running writes, and writes nothing more.
    void finish();

    // The drafts of earlier runs, without the texts; see CDraftStore::takeAbandoned().
    QVector<SDraft> takeAbandoned() { return m_store.takeAbandoned(CDraftStore::Parts::Head); }
    // Adds the text; false when it cannot be read.
    bool read(SDraft *pDraft) { return m_store.read(pDraft->strId, pDraft); }

    // For tests. A draft is written after so many milliseconds without a change, and after nLongest
    // milliseconds in any case.
    void setDelays(int nPause, int nLongest);

    // False while drafts cannot be written; why() gives the system's reason.
    bool isWorking() const { return m_strFailure.isEmpty(); }
    QString why() const { return m_strFailure; }

signals:
    // Drafts could be written and no longer can, or the other way round.
    void workingChanged();

private:
    struct SEntry
    {
        QString strId; // Empty while there is no draft.
        bool bDue = false;
    };

    void onChanged(CDocument *pDocument);
    void onSettled(const CDocument *pDocument);
    void writeDue();
    void writeEntry(const CDocument &document, SEntry *pEntry);
    void write(const SDraft &wanted);
    void onWritten(const QString &strId, const QString &strFailure);

    CDraftStore m_store;
    QHash<const CDocument *, SEntry> m_entries;
    QHash<QString, SDraft> m_unwritten; // Drafts that are kept but not yet on the disk, by id.
    QString m_strFailure;
    int m_nGeneration = 0; // The number of the store's folder.
    int m_nPause = 3000;
    int m_nLongestDelay = 20000;
    QTimer m_timer {this};
    QElapsedTimer m_sinceFirstChange;
    QThreadPool m_pool; // One thread: the writes of a draft stay in order.
};
