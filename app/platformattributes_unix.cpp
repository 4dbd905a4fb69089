// Carries over what belongs to a file besides its bytes: owner, permissions, access lists,
// attributes, capabilities.

#include "app/platformfiles.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

namespace {

const mode_t g_nPermissions = 07777;

bool isOwnMode(int nHandle, mode_t nMode)
{
    struct stat info = {};
    return fstat(nHandle, &info) == 0 && (info.st_mode & g_nPermissions) == nMode;
}

bool carryOwner(const struct stat &old, int nHandle)
{
    struct stat now = {};
    if (fstat(nHandle, &now) != 0)
        return false;
    return (old.st_uid == now.st_uid && old.st_gid == now.st_gid)
        || fchown(nHandle, old.st_uid, old.st_gid) == 0;
}

#ifdef Q_OS_LINUX
const char g_szCapabilities[] = "security.capability";

// Signatures of the content, which is about to change.
bool isOfContent(const QByteArray &name)
{
    return name == "security.ima" || name == "security.evm";
}

// The call tells the size first. Null if it fails, also because another program changed the value
// in between.
template<class Call> QByteArray attributeBytes(const Call &call)
{
    const ssize_t nSize = call(nullptr, 0);
    if (nSize <= 0)
        return nSize == 0 ? QByteArray("") : QByteArray();
    QByteArray bytes(int(nSize), '\0');
    const ssize_t nDone = call(bytes.data(), size_t(nSize));
    return nDone < 0 ? QByteArray() : bytes.left(int(nDone));
}

QByteArrayList namesIn(const QByteArray &list)
{
    QByteArrayList lstNames = list.split('\0');
    lstNames.removeAll(QByteArray());
    return lstNames;
}

QByteArray attributeOf(int nHandle, const char *szName)
{
    return attributeBytes([&](char *p, size_t n) { return fgetxattr(nHandle, szName, p, n); });
}

bool carryAttributes(const char *szPath, int nHandle)
{
    const QByteArrayList lstOld =
        namesIn(attributeBytes([&](char *p, size_t n) { return listxattr(szPath, p, n); }));
    const QByteArrayList lstNew =
        namesIn(attributeBytes([&](char *p, size_t n) { return flistxattr(nHandle, p, n); }));
    // The access list that the new file inherits from its folder may let in others.
    for (const QByteArray &name : lstNew)
        if (!lstOld.contains(name) && fremovexattr(nHandle, name.constData()) != 0)
            return false;
    for (const QByteArray &name : lstOld) {
        const char *szName = name.constData();
        const QByteArray value =
            attributeBytes([&](char *p, size_t n) { return getxattr(szPath, szName, p, n); });
        if (value.isNull())
            return false;
        const bool bSame = lstNew.contains(name) && attributeOf(nHandle, szName) == value;
        if (!bSame && !isOfContent(name)
            && fsetxattr(nHandle, szName, value.constData(), size_t(value.size()), 0) != 0)
            return false;
    }
    return true;
}
#else
bool carryAttributes(const char *, int)
{
    return true;
}
#endif

} // namespace

bool Platform::carryOver(const QString &strPath, int nHandle)
{
    const QByteArray path = QFile::encodeName(strPath);
    struct stat old = {};
    if (stat(path.constData(), &old) != 0)
        return false;
    const mode_t nMode = old.st_mode & g_nPermissions;
    // The order matters: a new owner clears set-id bits, and an access list changes the
    // permissions.
    return carryOwner(old, nHandle) && carryAttributes(path.constData(), nHandle)
        && fchmod(nHandle, nMode) == 0 && isOwnMode(nHandle, nMode);
}

Platform::SPrivileges Platform::privilegesOf(int nHandle)
{
    SPrivileges privileges;
    struct stat info = {};
    if (fstat(nHandle, &info) == 0)
        privileges.nMode = info.st_mode & g_nPermissions;
#ifdef Q_OS_LINUX
    privileges.capabilities = attributeOf(nHandle, g_szCapabilities);
#endif
    return privileges;
}

// Privileges that only the administrator may give are dropped: the file gets narrower, never wider.
void Platform::restorePrivileges(int nHandle, const SPrivileges &privileges)
{
    if (!isOwnMode(nHandle, privileges.nMode) && fchmod(nHandle, privileges.nMode) != 0)
        return;
#ifdef Q_OS_LINUX
    const QByteArray &value = privileges.capabilities;
    if (!value.isEmpty() && attributeOf(nHandle, g_szCapabilities) != value)
        fsetxattr(nHandle, g_szCapabilities, value.constData(), size_t(value.size()), 0);
#endif
}
