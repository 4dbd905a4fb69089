#pragma once

#include "app/cdescriptor.h"
#include "app/filestate.h"

#include <QByteArray>
#include <QString>

// A new file that is finished beside its place and then put there. At any moment, and after a power
// cut, the place holds the whole old file or the whole new one. A file that is never put in place
// is removed. Any thread, one at a time.
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
    bool sync(); // Waits for the disk and closes the file, so that nothing can fail later.
    bool putInPlace();

    int handle() const { return m_file.handle(); }

    // The state of the file that this object put in place. What another program has written there
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
