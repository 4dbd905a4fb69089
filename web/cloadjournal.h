#pragma once

#include <QMultiHash>
#include <QSharedPointer>
#include <QString>

// Notes on the disk what is being loaded into an engine that may end the program: a page, a
// picture. A note that its program did not take back tells the next start what it was. Each note is
// a file of its own that its program holds locked, so that several programs share a folder.
//
// A note counts for the file as it was then: once the file is changed, it is forgotten. Where the
// folder cannot be written nothing is noted. No widgets; one thread.
class CLoadJournal
{
public:
    // The folder is made with the first note, readable by the user alone. Notes about files that
    // are no more as they were go.
    explicit CLoadJournal(const QString &strFolder);
    // What is still being loaded did not end the program.
    ~CLoadJournal();

    // Call before the load starts, and when it has ended in any way. Calls may be nested, also for
    // the same file.
    void begin(const QString &strPath);
    void end(const QString &strPath);

    // True when a program ended while it loaded this file as it is now.
    bool isBlamed(const QString &strPath) const;
    // The user wants to see it all the same. Should it end the program again, that is noted again.
    void forgive(const QString &strPath);

private:
    class CNote;

    QStringList leftNotes() const;

    QString m_strFolder;
    QMultiHash<QString, QSharedPointer<CNote>> m_hashNotes; // By the path.
};
