#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

// Identity and state of a file at one moment. A comparison with a later state shows whether the
// file was changed. Times are nanoseconds since 1970. A value; any thread.
struct SFileState
{
    bool bExists = false;
    quint64 nDevice = 0;
    quint64 nInode = 0;
    qint64 nSize = 0; // Bytes.
    qint64 nModifiedNs = 0; // When the content was last changed.
    qint64 nChangedNs = 0; // When content, name or permissions were. 0 if unknown.
    // SHA-1 of the content. Empty if unknown.
    QByteArray hash;
    // True when the times alone cannot be trusted: a file system's clock ticks slowly, and a second
    // write within a tick leaves all of them as they are. There is a hash then.
    bool bFresh = false;
};

// Two files that do not exist are equal. Hashes are compared where both sides have one. bFresh does
// not count.
bool operator==(const SFileState &one, const SFileState &two);
bool operator!=(const SFileState &one, const SFileState &two);

// True when both mean the same file on the disk, whatever was written to it meanwhile.
bool isSameFile(const SFileState &one, const SFileState &two);

// The state as the system tells it, without a hash. Links are followed. A file that cannot be
// looked at counts as one that does not exist.
SFileState fileStateOf(const QString &strPath);
SFileState fileStateOf(int nHandle);

// True when the file was changed so lately that a further change could leave the times as they are.
bool isFresh(const SFileState &state);

// The algorithm of the hashes in states.
QByteArray hashOfContent(const QByteArray &bytes);

// Conversion to and from JSON, for drafts. Anything that is no state reads as a file that does not
// exist.
QJsonObject toJson(const SFileState &state);
SFileState fileStateFromJson(const QJsonObject &object);
