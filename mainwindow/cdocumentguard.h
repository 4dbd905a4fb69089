#pragma once

#include "mainwindow/cdraftkeeper.h"
#include "mainwindow/cfilewatch.h"
#include "mainwindow/cnoticebar.h"

#include <QHash>
#include <QObject>
#include <QSet>

class CDocument;

// Sees to it that nothing is lost: keeps drafts of modified documents, notices when another program
// changes their files, and asks in the notice bar before a save destroys something. Never opens a
// box, never changes the current tab.
class CDocumentGuard : public QObject
{
    Q_OBJECT

public:
    // strFolder: where the drafts lie. pBar is not owned.
    CDocumentGuard(const QString &strFolder, CNoticeBar *pBar, QObject *pParent);

    // What happens to documents, as it happens.
    void documentOpened(const CDocument &document);
    void documentChanged(const CDocument &document) { m_drafts.documentChanged(document); }
    void documentSaved(const CDocument &document, const QString &strOldPath);
    void documentReloaded(const CDocument &document);
    void documentClosed(const CDocument &document);
    void currentChanged(const CDocument &document);

    // Not all of the file can be shown; saving would lose the rest.
    void setNotWhole(const CDocument &document);

    // False: the bar has asked the user, whose answer may be saveWanted().
    bool maySave(const CDocument &document);

    // Shows what an earlier run left unsaved, if anything.
    void offerRecovery();
    void flush() { m_drafts.flush(); }

public slots:
    void checkFiles() { m_watch.check(); }

signals:
    // All for the current document.
    void saveWanted();
    void refreshWanted();
    void recoverWanted(SDraft draft);

private:
    void onFileChanged(const QString &strPath);
    void setNotice(QObject *pKey, const SNotice &notice);
    void showNotice();
    SNotice changedNotice(const QString &strPath);

    CNoticeBar *m_pBar;
    CFileWatch m_watch;
    CDraftKeeper m_drafts;
    QHash<QObject *, QString> m_paths; // The watched file of each document.
    QHash<QObject *, SNotice> m_notices;
    QSet<QObject *> m_notWhole;
    QSet<QObject *> m_saveAnyway; // The user has answered for the next save.
    SNotice m_recovery; // Shown where the current document has nothing to tell.
    QObject *m_pCurrent = nullptr;
};
