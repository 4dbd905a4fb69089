#pragma once

#include "app/cdescriptor.h"
#include "app/filestate.h"

#include <QByteArray>
#include <QString>

// A file that is finished beside its place and then put there, so that whoever looks finds the old
// one or the new one whole, after a power cut, too. What is not put there is removed.
// Any thread, one at a time.
class CNewFile
{
public:
    explicit CNewFile(const QString &strTarget) : m_strTarget(strTarget) { }
    ~CNewFile();
    CNewFile(const CNewFile &) = delete;
    CNewFile &operator=(const CNewFile &) = delete;

    // Each returns false when it failed; Platform::errorText() has the reason. In this order:
    bool create(Platform::FilePrivacy privacy);
    bool write(const QByteArray &data);
    bool sync(); // To the disk, and closed: nothing can fail late.
    bool putInPlace();

    int handle() const { return m_file.handle(); }

    // What this object wrote, as it is behind putInPlace(). What another program wrote over it
    // since is not in it.
    SFileState state() const { return m_state; }

private:
    QString m_strTarget;
    QString m_strName; // Where it is written; empty when nothing is to be removed.
    CDescriptor m_file;
    SFileState m_state;
};

// Writes the bytes there for this user alone, as above, without waiting for the folder.
bool writePrivateFile(const QString &strPath, const QByteArray &data);
