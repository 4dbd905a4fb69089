#pragma once

#include "app/cdescriptor.h"

#include <QByteArray>
#include <QString>
#include <QVector>

// A file that the program was writing in place when it was ended.
struct SCutOffWriting
{
    QString strId;
    QString strPath; // The file, which may now be a mixture of old and new bytes.
    QString strCopy; // A file of this program's own with all the old bytes.
    qint64 nSize = 0; // The size of the copy in bytes.
    qint64 nTime = 0; // Milliseconds since 1970.
};

// Keeps the old bytes of a file on the disk while the file is written in place. One object per
// writing. Any thread.
class CInPlaceJournal
{
public:
    CInPlaceJournal() = default;
    ~CInPlaceJournal();
    CInPlaceJournal(const CInPlaceJournal &) = delete;
    CInPlaceJournal &operator=(const CInPlaceJournal &) = delete;

    // Sets the folder of the copies; call it before the first writing. The default is "in-place" in
    // the program's data.
    static void setFolder(const QString &strFolder);
    static QString folder();

    // Copies the open file and waits for the disk. False, with the reason in
    // Platform::errorText(), when there is no such copy.
    bool begin(const QString &strPath, int nHandle, const QByteArray &newBytes);

    // Gives the open file its old bytes back. If that fails as well, the copy stays for the next
    // start.
    bool putBack(int nHandle);

    // Removes the copy, because the new bytes are on the disk.
    void end();

    // The writings that were cut off, by programs that no longer run. Files that turn out to be
    // whole, old or new, are not among them. It reads the files in question, which takes time for
    // large ones.
    static QVector<SCutOffWriting> cutOff();

    // restore() gives the file its old bytes back and forgets the writing; if it fails, it gives
    // false and forgets nothing. The other function leaves the file as it is.
    static bool restore(const SCutOffWriting &writing, QString *pError);
    static void forget(const SCutOffWriting &writing);

private:
    bool writeNote(const QString &strPath, const QByteArray &newBytes) const;

    QString m_strId;
    CDescriptor m_copy; // Locked while this program runs.
    qint64 m_nSize = 0;
    bool m_bKeep = false;
};
