#include "app/platform.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QSocketNotifier>
#include <QUrl>

#include <cerrno>
#include <climits>
#include <clocale>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <langinfo.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

// A signal handler may do little more than write, so it wakes the event loop through this pair of
// sockets.
int g_arrSignalSockets[2] = {-1, -1};

void onSignal(int)
{
    const char c = 1;
    const ssize_t nWritten = write(g_arrSignalSockets[0], &c, 1);
    Q_UNUSED(nWritten)
}

// See the documentation of Qt's X11 plug-in.
const char g_szOpenGlChoice[] = "QT_XCB_GL_INTEGRATION";
bool g_bOpenGlLeftOut = false;

bool openFolderOf(const QString &strPath)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(strPath).absolutePath()));
}

// Gives 0 or the number of an error.
int renameToFreeName(const QByteArray &oldPath, const QByteArray &newPath)
{
    const char *szOld = oldPath.constData();
    const char *szNew = newPath.constData();
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, szOld, AT_FDCWD, szNew, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
#endif
    // The file system does not know the request. Making a hard link never replaces another file
    // either.
    if (link(szOld, szNew) == 0)
        return unlink(szOld) == 0 ? 0 : errno;
    if (errno == EEXIST || errno == ENOENT)
        return errno;
    // A file system without hard links, or a folder, which can have none. A file that takes the
    // name in this very moment is lost.
    struct stat info = {};
    if (lstat(szNew, &info) == 0)
        return EEXIST;
    return rename(szOld, szNew) == 0 ? 0 : errno;
}

} // namespace

QStringList Platform::processArguments(int nArgc, char **ppArgv)
{
    QStringList lstArguments;
    for (int n = 0; n < nArgc; ++n)
        lstArguments.append(QString::fromLocal8Bit(ppArgv[n]));
    return lstArguments;
}

bool Platform::isFileName(const QString &strName)
{
    const bool bDots = strName == QLatin1String(".") || strName == QLatin1String("..");
    return !strName.isEmpty() && !bDots && !strName.contains(QLatin1Char('/'))
        && !strName.contains(QChar(0));
}

bool Platform::isSamePath(const QString &strLeft, const QString &strRight)
{
    return strLeft == strRight;
}

bool Platform::hasUtf8Names()
{
    // Sets the locale as QCoreApplication will.
    std::setlocale(LC_CTYPE, "");
    const QByteArray codeset = nl_langinfo(CODESET);
    return codeset.compare("UTF-8", Qt::CaseInsensitive) == 0 || codeset == "ANSI_X3.4-1968"
        || codeset == "US-ASCII";
}

void Platform::leaveOutOpenGl()
{
    if (qEnvironmentVariableIsSet(g_szOpenGlChoice))
        return;
    g_bOpenGlLeftOut = qputenv(g_szOpenGlChoice, "none");
}

void Platform::restoreEnvironment()
{
    if (g_bOpenGlLeftOut)
        qunsetenv(g_szOpenGlChoice);
    g_bOpenGlLeftOut = false;
}

void Platform::quitOnTermination(QObject *pParent)
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, g_arrSignalSockets) != 0)
        return;
    auto *pNotifier = new QSocketNotifier(g_arrSignalSockets[1], QSocketNotifier::Read, pParent);
    // The byte stays unread: a signal that comes before exec() ends a box that is open, and then
    // exec() itself.
    QObject::connect(pNotifier, &QSocketNotifier::activated, pParent,
                     [] { QCoreApplication::exit(0); });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int nSignal : {SIGTERM, SIGINT, SIGHUP})
        sigaction(nSignal, &action, nullptr);
}

bool Platform::revealFile(const QString &strPath)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return openFolderOf(strPath);
    const QUrl url = QUrl::fromLocalFile(QFileInfo(strPath).absoluteFilePath());
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList(url.toString(QUrl::FullyEncoded)) << QString();
    // A file manager may take seconds to start: the answer is not waited for.
    auto *pWatcher = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(pWatcher, &QDBusPendingCallWatcher::finished, qApp, [strPath, pWatcher] {
        if (QDBusPendingReply<>(*pWatcher).isError())
            openFolderOf(strPath);
        pWatcher->deleteLater();
    });
    return true;
}

QString Platform::fileIconKind(const QFileInfo &info)
{
    // A desktop's icon is that of the MIME type. If exactly one type claims the name, the name
    // alone decides the type; otherwise the content does. Without a desktop it matters whether the
    // file is a link.
    if (!info.isFile())
        return QString();
    const QList<QMimeType> lstTypes = QMimeDatabase().mimeTypesForFileName(info.fileName());
    if (lstTypes.size() != 1)
        return QString();
    return (info.isSymLink() ? QLatin1Char('@') : QLatin1Char('=')) + lstTypes.first().name();
}

bool Platform::renameWithoutReplacing(const QString &strOld, const QString &strNew, QString *pError)
{
    const int nError = renameToFreeName(QFile::encodeName(strOld), QFile::encodeName(strNew));
    if (nError != 0 && pError)
        *pError = qt_error_string(nError);
    return nError == 0;
}

void Platform::forgetTrashed(const QString &strPathInTrash)
{
    const QFileInfo info(strPathInTrash);
    QFile::remove(info.absolutePath() + QLatin1String("/../info/") + info.fileName()
                  + QLatin1String(".trashinfo"));
}

int Platform::openRegularFile(const QString &strPath, qint64 *pSize)
{
    // O_NONBLOCK keeps the call from waiting for a pipe that nobody writes to.
    const int nFlags = O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY;
    const int nHandle = open(QFile::encodeName(strPath).constData(), nFlags);
    if (nHandle < 0)
        return -1;
    struct stat info = {};
    if (fstat(nHandle, &info) != 0 || !S_ISREG(info.st_mode)) {
        close(nHandle);
        return -1;
    }
    *pSize = info.st_size;
    return nHandle;
}

bool Platform::mustWriteInPlace(const QString &strPath)
{
    const QByteArray path = QFile::encodeName(strPath);
    struct stat info = {};
    if (stat(path.constData(), &info) != 0)
        return false;
    return !S_ISREG(info.st_mode) || info.st_nlink > 1 || info.st_uid != geteuid();
}

bool Platform::reserveFileSpace(int nHandle, qint64 nSize)
{
    const int nError = posix_fallocate(nHandle, 0, nSize);
    errno = nError;
    return nError == 0;
}

bool Platform::keepsSettingsInFiles()
{
    return true;
}

int Platform::defaultReturnFormat()
{
    return 1;
}

void Platform::returnFreedMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
