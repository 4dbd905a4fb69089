#pragma once

#include "app/cdraftstore.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

class CDocument;

// Keeps a draft on the disk for every modified document, a few seconds after its last change and
// off the thread on which the user types.
class CDraftKeeper : public QObject
{
    Q_OBJECT

public:
    CDraftKeeper(const QString &strFolder, QObject *pParent);
    // Waits for the drafts that are being written.
    ~CDraftKeeper() override;

    // The document's text or modified state changed. A clean document loses its draft at once.
    void documentChanged(const CDocument &document);
    // The document is being closed on the user's word: its draft goes.
    void documentClosed(const CDocument &document);
    // Writes what is due, now. For the end of the program, which may drop unsaved documents.
    void flush();

    // What an earlier run left unsaved; see CDraftStore::takeAbandoned().
    QVector<SDraft> takeAbandoned() { return m_store.takeAbandoned(); }
    void discard(const SDraft &draft) { m_store.remove(draft.strId); }

private:
    struct SEntry
    {
        QString strId; // Empty: no draft yet.
        bool bDue = false;
    };

    void writeDue();
    void writeDraft(QObject *pKey, SEntry *pEntry);
    void removeDraft(SEntry *pEntry);

    CDraftStore m_store;
    QHash<QObject *, SEntry> m_entries; // By the page editor or else the code editor.
    QTimer m_timer;
    QElapsedTimer m_sinceFirstChange;
    QThreadPool m_pool; // One thread: the writes of a draft stay in order.
};
