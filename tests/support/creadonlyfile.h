#pragma once

#include <QFile>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

// Makes a file read-only while the object lives. It mounts the file read-only, because that stops
// root as well. Only this thread sees the mount. Linux only.
class CReadOnlyFile
{
public:
    explicit CReadOnlyFile(const QString &strPath) : m_path(QFile::encodeName(strPath))
    {
        QFile::setPermissions(strPath, QFile::ReadOwner);
        if (access(m_path.constData(), W_OK) != 0 || unshare(CLONE_NEWNS) != 0)
            return;
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        m_bMounted = mount(m_path.constData(), m_path.constData(), nullptr, MS_BIND, nullptr) == 0;
        mount(nullptr, m_path.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr);
    }

    ~CReadOnlyFile()
    {
        if (m_bMounted)
            umount2(m_path.constData(), MNT_DETACH);
    }

    CReadOnlyFile(const CReadOnlyFile &) = delete;
    CReadOnlyFile &operator=(const CReadOnlyFile &) = delete;

    // False where the system lets nobody do this.
    bool isReadOnly() const { return access(m_path.constData(), W_OK) != 0; }

private:
    QByteArray m_path;
    bool m_bMounted = false;
};
