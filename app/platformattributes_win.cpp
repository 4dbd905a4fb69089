// Carries over what belongs to a file besides its bytes.
#include "app/platform.h"
#include "app/platformfiles.h"
#include "app/systemcalls_win.h"

#include <cstring>

#include <aclapi.h>
#include <io.h>
#include <qt_windows.h>

namespace {

constexpr DWORD g_nSharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// An open file, which the end of the scope closes.
class COpenFile
{
public:
    explicit COpenFile(HANDLE hFile) : m_hFile(hFile) { }
    ~COpenFile()
    {
        if (isOpen())
            CloseHandle(m_hFile);
    }
    COpenFile(const COpenFile &) = delete;
    COpenFile &operator=(const COpenFile &) = delete;
    bool isOpen() const { return m_hFile != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return m_hFile; }

private:
    HANDLE m_hFile;
};

HANDLE opened(const QString &strPath, DWORD nAccess)
{
    return CreateFileW(nativePath(strPath).c_str(), nAccess, g_nSharedWithAll, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// The access list of an open file. Unknown if the file system has no such lists.
class CAccessList
{
public:
    explicit CAccessList(HANDLE hFile)
    {
        SECURITY_DESCRIPTOR_CONTROL nControl = 0;
        DWORD nRevision = 0;
        m_bKnown = GetSecurityInfo(hFile, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                   nullptr, &m_pList, nullptr, &m_pDescriptor)
                == ERROR_SUCCESS
            && GetSecurityDescriptorControl(m_pDescriptor, &nControl, &nRevision);
        m_bProtected = nControl & SE_DACL_PROTECTED;
    }
    ~CAccessList() { LocalFree(m_pDescriptor); }
    CAccessList(const CAccessList &) = delete;
    CAccessList &operator=(const CAccessList &) = delete;

    bool isKnown() const { return m_bKnown; }

    bool isEqual(const CAccessList &other) const
    {
        if (m_bProtected != other.m_bProtected || !m_pList != !other.m_pList)
            return false;
        return !m_pList
            || (m_pList->AclSize == other.m_pList->AclSize
                && std::memcmp(m_pList, other.m_pList, m_pList->AclSize) == 0);
    }

    // The file was opened with WRITE_DAC.
    bool giveTo(HANDLE hFile) const
    {
        const DWORD nInheritance = m_bProtected ? PROTECTED_DACL_SECURITY_INFORMATION
                                                : UNPROTECTED_DACL_SECURITY_INFORMATION;
        return SetSecurityInfo(hFile, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | nInheritance,
                               nullptr, nullptr, m_pList, nullptr)
            == ERROR_SUCCESS;
    }

private:
    PSECURITY_DESCRIPTOR m_pDescriptor = nullptr;
    PACL m_pList = nullptr; // A pointer into it; null lets everybody do everything.
    bool m_bProtected = false; // The file inherits nothing from its folder.
    bool m_bKnown = false;
};

bool carryAccessList(HANDLE hOld, HANDLE hNew)
{
    const CAccessList list(hOld);
    if (!list.isKnown() || list.isEqual(CAccessList(hNew)))
        return true;
    const COpenFile file(ReOpenFile(hNew, WRITE_DAC, g_nSharedWithAll, 0));
    return file.isOpen() && list.giveTo(file.handle());
}

// The streams besides the one with the file's bytes.
bool hasFurtherStreams(const QString &strPath)
{
    WIN32_FIND_STREAM_DATA data = {};
    const HANDLE hFound =
        FindFirstStreamW(nativePath(strPath).c_str(), FindStreamInfoStandard, &data, 0);
    if (hFound == INVALID_HANDLE_VALUE)
        return false;
    const bool bFurther = FindNextStreamW(hFound, &data);
    FindClose(hFound);
    return bFurther;
}

} // namespace

bool Platform::mustWriteInPlace(const QString &strPath)
{
    const COpenFile file(opened(strPath, 0));
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!file.isOpen() || !GetFileInformationByHandle(file.handle(), &info))
        return false;
    const DWORD nOfTheDisk = FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_ENCRYPTED;
    return info.nNumberOfLinks > 1 || info.dwFileAttributes & nOfTheDisk
        || hasFurtherStreams(strPath);
}

bool Platform::carryOver(const QString &strPath, int nHandle)
{
    const COpenFile old(opened(strPath, READ_CONTROL | FILE_READ_ATTRIBUTES));
    FILE_BASIC_INFO info = {};
    if (!old.isOpen()
        || !GetFileInformationByHandleEx(old.handle(), FileBasicInfo, &info, sizeof info))
        return succeeded(false);
    const auto hNew = reinterpret_cast<HANDLE>(_get_osfhandle(nHandle));
    // Keeps hidden files hidden, and the time of their creation. A time of zero changes nothing.
    info.LastAccessTime = info.LastWriteTime = info.ChangeTime = {};
    return succeeded(SetFileInformationByHandle(hNew, FileBasicInfo, &info, sizeof info)
                     && carryAccessList(old.handle(), hNew));
}
