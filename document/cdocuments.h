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

// The open documents of a window. It makes sure that no text is lost: it keeps drafts of modified
// documents, notices when a file changes on the disk, and offers dropped text. It never opens a
// box.
class CDocuments : public QObject
{
    Q_OBJECT

public:
    // strFolder is the folder of the program's data. Drafts are in "recovery" below it, notes of
    // loads in "loading".
    CDocuments(const QString &strFolder, QObject *pParent);
    ~CDocuments() override;

    // Writes the drafts that are due and deletes the documents with their views.
    void clear();

    // Takes ownership of the document.
    void add(CDocument *pDocument);
    // Closes the document and its views. The caller has saved its text or may lose it. The last
    // copy of a deleted file is kept as a draft and offered.
    void close(CDocument *pDocument);
    // The same for a document whose unsaved text nobody was asked about: the text is kept and
    // offered.
    void closeDropping(CDocument *pDocument);
    // Gives a newly added document the text of a draft.
    void restore(CDocument *pDocument, const SDraft &draft);

    const QList<CDocument *> &all() const { return m_lstDocuments; }
    // The document that a tab's widget shows. For null it is the one that refuses everything.
    CDocument &of(const QWidget *pWidget);
    // Call it before a page or a picture is given to an engine that can crash the program: it
    // writes the drafts and notes the load on the disk.
    void beginLoad(const QString &strPath);
    void endLoad(const QString &strPath);
    // Lasts until the page has loaded.
    void endLoadWith(CPageDocument *pDocument, const QString &strPath);
    CLoadJournal &loads() { return m_loads; }

    // The first document with exactly this path; null for none.
    CDocument *withPath(const QString &strPath) const;

    // Compares every file with its known state, because on network drives, for example, the system
    // does not report changes.
    void checkFiles();

public slots:
    // A file or folder was renamed: the documents of that file, or of files below that folder,
    // follow.
    void followRenamed(const QString &strOld, const QString &strNew);

public:
    CDraftKeeper &drafts() { return m_drafts; }
    CRecovery &recovery() { return m_recovery; }

private:
    void watchFiles();
    void onSaved(const CDocument *pDocument);

    QList<CDocument *> m_lstDocuments; // In the order of opening.
    CDocument m_none;
    CFileWatch m_watch;
    CDraftKeeper m_drafts;
    CRecovery m_recovery;
    CLoadJournal m_loads;
};
