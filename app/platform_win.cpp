#include "app/platform.h"

#include "app/platformfiles.h"
#include "app/systemcalls_win.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSharedMemory>

#include <algorithm>
#include <climits>

#include <io.h>
#include <malloc.h>
#include <qt_windows.h>
#include <shellapi.h>

namespace {

HANDLE g_hLock = nullptr; // The semaphore of the shared segment while it is locked, or null.

} // namespace

QStringList Platform::processArguments(int, char **)
{
    // The wide command line, because argv has lost what the start-up code page cannot hold.
    QStringList lstArguments;
    int nCount = 0;
    wchar_t **ppArguments = CommandLineToArgvW(GetCommandLineW(), &nCount);
    for (int n = 0; n < nCount; ++n)
        lstArguments.append(QString::fromWCharArray(ppArguments[n]));
    LocalFree(ppArguments);
    return lstArguments;
}

bool Platform::isFileName(const QString &strName)
{
    const auto isForbidden = [](QChar c) {
        return c < QLatin1Char(' ') || QStringLiteral("<>:\"/\\|?*").contains(c);
    };
    // The system drops dots and blanks at the end, so the file would get another name.
    const bool bCut = strName.endsWith(QLatin1Char('.')) || strName.endsWith(QLatin1Char(' '));
    return !strName.isEmpty() && !bCut
        && std::none_of(strName.cbegin(), strName.cend(), isForbidden) && !isDeviceName(strName);
}

bool Platform::isSamePath(const QString &strLeft, const QString &strRight)
{
    const std::wstring left = QDir::toNativeSeparators(strLeft).toStdWString();
    const std::wstring right = QDir::toNativeSeparators(strRight).toStdWString();
    // Compares by the system's own table of cases, which its disks use as well.
    const BOOL bIgnoreCase = TRUE;
    return CompareStringOrdinal(left.c_str(), int(left.size()), right.c_str(), int(right.size()),
                                bIgnoreCase)
        == CSTR_EQUAL;
}

bool Platform::hasUtf8Names()
{
    return false;
}

void Platform::leaveOutOpenGl()
{
    // Qt loads it here when a window first asks for it.
}

void Platform::restoreEnvironment() { }

Platform::SegmentOwner Platform::ownerOfSegment(const QString &)
{
    return SegmentOwner::Me; // The system keeps the names of each session's user apart.
}

bool Platform::lockSegment(const QString &strKey, int nMilliseconds)
{
    // What QSharedMemory itself locks with; the handle stays for unlockSegment().
    const QString strName = QSharedMemory(strKey).nativeKey().replace(
        QLatin1String("qipc_sharedmemory_"), QLatin1String("qipc_systemsem_"));
    g_hLock =
        CreateSemaphoreW(nullptr, 1, LONG_MAX, reinterpret_cast<const wchar_t *>(strName.utf16()));
    return g_hLock && WaitForSingleObject(g_hLock, DWORD(nMilliseconds)) == WAIT_OBJECT_0;
}

void Platform::unlockSegment(const QString &)
{
    ReleaseSemaphore(g_hLock, 1, nullptr);
    CloseHandle(g_hLock);
    g_hLock = nullptr;
}

void Platform::releaseDeadSegment(const QString &)
{
    // The system frees a segment with its last owner.
}

void Platform::quitOnTermination(QObject *)
{
    // The end of a session arrives as window messages, which Qt answers.
}

bool Platform::revealFile(const QString &strPath)
{
    QProcess process;
    process.setProgram(QStringLiteral("explorer.exe"));
    // Passed without escaping, because the program reads its command line by rules of its own, and
    // a path here holds no quotes.
    process.setNativeArguments(
        QStringLiteral("/select, \"%1\"").arg(QDir::toNativeSeparators(strPath)));
    return process.startDetached();
}

QString Platform::fileIconKind(const QFileInfo &)
{
    // Programs and links carry icons of their own, folders may. Qt looks an icon up when it is
    // painted, and once for each suffix where that is enough.
    return QString();
}

bool Platform::renameWithoutReplacing(const QString &strOld, const QString &strNew, QString *pError)
{
    const bool bDone = MoveFileExW(nativePath(strOld).c_str(), nativePath(strNew).c_str(), 0) != 0;
    if (!bDone && pError)
        *pError = qt_error_string(int(GetLastError()));
    return bDone;
}

void Platform::forgetTrashed(const QString &strPathInTrash)
{
    // A file is "$R" and some letters there, its note "$I" and the same.
    const QFileInfo info(strPathInTrash);
    if (info.fileName().startsWith(QLatin1String("$R")))
        QFile::remove(info.dir().filePath(QLatin1String("$I") + info.fileName().mid(2)));
}

int Platform::openRegularFile(const QString &strPath, qint64 *pSize)
{
    const QFileInfo info(strPath);
    if (!info.isFile() || info.isSymbolicLink() || isDeviceName(strPath))
        return -1;
    *pSize = info.size();
    return openFile(strPath, FileAccess::Read);
}

bool Platform::reserveFileSpace(int nHandle, qint64 nSize)
{
    return _chsize_s(nHandle, nSize) == 0;
}

bool Platform::keepsSettingsInFiles()
{
    return false;
}

int Platform::defaultReturnFormat()
{
    return 0;
}

void Platform::returnFreedMemory()
{
    _heapmin();
}
