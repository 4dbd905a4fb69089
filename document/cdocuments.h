#pragma once

#include "app/cdraftstore.h"
#include "document/cdocument.h"
#include "document/cdraftkeeper.h"
#include "document/cfilewatch.h"
#include "document/crecovery.h"
#include "web/cloadjournal.h"

#include <QList>
#include <QObject>

class CPageDocument;

// The open documents of a window. Sees to it that nothing they hold is lost: keeps drafts of what
// is modified, notices when a file changes on the disk, and offers what was dropped. Never opens a
// box.
class CDocuments : public QObject
{
    Q_OBJECT

public:
    // strFolder: the program's data; drafts lie in "recovery" below it, notes of loads in
    // "loading".
    CDocuments(const QString &strFolder, QObject *pParent);
    ~CDocuments() override;

    // Writes the drafts that are due and deletes the documents with their views.
    void clear();

    // Takes the document over.
    void add(CDocument *pDocument);
    // Closes the document and its views. The caller has saved its text or may lose it. The last
    // copy of a deleted file is kept as a draft and offered.
    void close(CDocument *pDocument);
    // The same for a document whose unsaved text nobody asked about: it is kept and offered.
    void closeDropping(CDocument *pDocument);
    // A document for a draft was added: gives it the draft's text.
    void restore(CDocument *pDocument, const SDraft &draft);

    const QList<CDocument *> &all() const { return m_lstDocuments; }
    // The document that a tab's widget shows; for none (null) the one that refuses everything.
    CDocument &of(const QWidget *pWidget);
    // Call it before a page or a picture is given to an engine that can crash the program: it
    // writes the drafts and notes the load on the disk.
    void beginLoad(const QString &strPath);
    void endLoad(const QString &strPath);
    // A page loads on after it was asked to.
    void endLoadWith(CPageDocument *pDocument, const QString &strPath);
    CLoadJournal &loads() { return m_loads; }

    // The first whose path is spelled exactly so; null for none.
    CDocument *withPath(const QString &strPath) const;

    // Compares every file with what is known of it; for places where the system tells nothing of
    // changes, network drives for example.
    void checkFiles();

public slots:
    // A file or folder has another name now: the documents of that file, or of files below that
    // folder, follow.
    void followRenamed(const QString &strOld, const QString &strNew);

public:
    CDraftKeeper &drafts() { return m_drafts; }
    CRecovery &recovery() { return m_recovery; }

private:
    void watchFiles();
    void onSaved(const CDocument *pDocument);

    QList<CDocument *> m_lstDocuments; // In the order in which they were opened.
    CDocument m_none;
    CFileWatch m_watch;
    CDraftKeeper m_drafts;
    CRecovery m_recovery;
    CLoadJournal m_loads;
};
