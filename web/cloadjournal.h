#pragma once

#include <QMultiHash>
#include <QSharedPointer>
#include <QString>

// Notes on the disk which page or picture is being loaded, because the page engine may crash the
// program. A note that its program did not remove tells the next start what caused the crash. Each
// note is a file that its program holds locked, so several programs can share a folder.
//
// A note counts only until its file is changed. If the folder cannot be written, nothing is noted.
// No widgets; one thread.
class CLoadJournal
{
public:
    // The folder is made with the first note; only the user can read it. Notes about files that
    // have changed are removed.
    explicit CLoadJournal(const QString &strFolder);
    // Removes the notes of this program: what is still being loaded did not crash it.
    ~CLoadJournal();

    // Call before the load starts, and when it has ended in any way. Calls may be nested, also for
    // the same file.
    void begin(const QString &strPath);
    void end(const QString &strPath);

    // True when a program ended while it loaded this file as it is now.
    bool isBlamed(const QString &strPath) const;
    // The user wants to see the file all the same. If it crashes the program again, that is noted
    // again.
    void forgive(const QString &strPath);

private:
    class CNote;

    QStringList leftNotes() const;

    QString m_strFolder;
    QMultiHash<QString, QSharedPointer<CNote>> m_hashNotes; // By the path.
};
