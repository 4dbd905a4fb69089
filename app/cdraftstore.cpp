#include "app/cdraftstore.h"

#include "app/cnewfile.h"
#include "app/filereader.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QUuid>

#include <algorithm>
#include <cerrno>

namespace {

const char g_szLock[] = "lock";
const char g_szKept[] = "kept";
const qint64 g_nKeptFor = qint64(24) * 60 * 60 * 1000; // Milliseconds.

QString lockPath(const QString &strFolder)
{
    return QDir(strFolder).filePath(QLatin1String(g_szLock));
}

bool makePrivateFolder(const QString &strFolder)
{
    errno = 0;
    if (!QDir().mkpath(strFolder)) {
        errno = errno != 0 ? errno : EACCES;
        return false;
    }
    QFile::setPermissions(strFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return true;
}

bool fail(QString *pError)
{
    if (pError)
        *pError = Platform::errorText();
    return false;
}

bool writeDraft(const QString &strPath, const SDraft &draft, QString *pError)
{
    if (draft.strText.size() > g_nMaxReadable / 2) {
        errno = EFBIG;
        return fail(pError);
    }
    SDraft stamped = draft;
    stamped.nTime = QDateTime::currentMSecsSinceEpoch();
    Platform::surviveFailingWrites();
    return writePrivateFile(strPath, draftToBytes(stamped)) || fail(pError);
}

bool readDraft(const QString &strPath, SDraft *pDraft, QString *pError)
{
    SReadLimits limits;
    limits.nMaxSize = g_nMaxReadable;
    limits.nMemoryPerByte = 3; // The bytes and at most two units for each.
    const SFileContent content = readFile(strPath, limits);
    if (content.isWhole() && draftFromBytes(content.bytes, pDraft))
        return true;
    if (pError)
        *pError = content.strError;
    return false;
}

bool readHeadOf(const QString &strPath, SDraft *pDraft)
{
    const int nLongest = 1 << 16; // Bytes: a path and few words.
    const CDescriptor file(Platform::openFile(strPath, Platform::FileAccess::Read));
    if (!file.isOpen() || Platform::kindOfHandle(file.handle()) != Platform::FileKind::Regular)
        return false;
    QByteArray bytes(nLongest, Qt::Uninitialized);
    const qint64 nRead = Platform::readSome(file.handle(), bytes.data(), nLongest);
    return nRead > 0 && draftHeadFromBytes(bytes.left(int(nRead)), pDraft);
}

bool readParts(const QString &strPath, CDraftStore::Parts parts, SDraft *pDraft)
{
    return parts == CDraftStore::Parts::All ? readDraft(strPath, pDraft, nullptr)
                                            : readHeadOf(strPath, pDraft);
}

// The lock of a folder that some program made; false while that is running. What is no file was
// made by somebody else and holds nothing.
bool lockAbandoned(const QString &strFolder, CDescriptor *pLock)
{
    const QString strLock = lockPath(strFolder);
    const Platform::FileKind kind = Platform::kindOfPath(strLock);
    if (kind != Platform::FileKind::Regular && kind != Platform::FileKind::Missing)
        return true;
    *pLock = CDescriptor(kind == Platform::FileKind::Missing
                             ? Platform::createFile(strLock, Platform::FilePrivacy::OnlyMe)
                             : Platform::openFile(strLock, Platform::FileAccess::ReadWrite));
    // A lock that may not be opened is none of this user's, while the folder is.
    return pLock->isOpen() ? Platform::lockFile(pLock->handle()) != Platform::FileLock::AnothersNow
                           : errno == EACCES;
}

// A write that was cut off leaves its copy; the draft itself is the one before.
bool isLeftOver(const QStringList &lstNames, const QString &strName)
{
    const int nDot = strName.indexOf(QLatin1Char('.'));
    return nDot > 0 && lstNames.contains(strName.left(nDot));
}

} // namespace

CDraftStore::CDraftStore(const QString &strFolder)
    : m_strFolder(strFolder), m_strOwnFolder(QDir(strFolder).filePath(newId()))
{
    hasFolder(nullptr);
    kept(); // What is too old goes.
}

QString CDraftStore::newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString CDraftStore::filePath(const QString &strId) const
{
    return QDir(m_strOwnFolder).filePath(strId);
}

bool CDraftStore::isValid() const
{
    const QMutexLocker locker(&m_mutex);
    return m_lock.isOpen();
}

int CDraftStore::generation() const
{
    const QMutexLocker locker(&m_mutex);
    return m_nGeneration;
}

// Looks each time: the folder may be gone, with the lock still open.
bool CDraftStore::hasFolder(QString *pError) const
{
    const QMutexLocker locker(&m_mutex);
    if (m_lock.isOpen()
        && isSameFile(fileStateOf(m_lock.handle()), fileStateOf(lockPath(m_strOwnFolder))))
        return true;
    return makeFolder() || fail(pError);
}

bool CDraftStore::makeFolder() const
{
    const QString strLock = lockPath(m_strOwnFolder);
    m_lock.close();
    if (!makePrivateFolder(m_strFolder) || !makePrivateFolder(m_strOwnFolder))
        return false;
    m_lock = CDescriptor(Platform::createFile(strLock, Platform::FilePrivacy::OnlyMe));
    if (!m_lock.isOpen() && errno == EEXIST)
        m_lock = CDescriptor(Platform::openFile(strLock, Platform::FileAccess::ReadWrite));
    if (!m_lock.isOpen())
        return false;
    Platform::lockFile(m_lock.handle());
    ++m_nGeneration;
    return true;
}

bool CDraftStore::write(const SDraft &draft, QString *pError) const
{
    return hasFolder(pError) && writeDraft(filePath(draft.strId), draft, pError);
}

bool CDraftStore::read(const QString &strId, SDraft *pDraft, QString *pError) const
{
    pDraft->strId = strId;
    return readDraft(filePath(strId), pDraft, pError);
}

void CDraftStore::remove(const QString &strId) const
{
    Platform::removeFile(filePath(strId));
}

QVector<SDraft> CDraftStore::takeAbandoned(Parts parts) const
{
    QVector<SDraft> lstDrafts;
    if (!hasFolder(nullptr))
        return lstDrafts;
    const QStringList lstFolders =
        QDir(m_strFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &strName : lstFolders) {
        const QString strFolder = QDir(m_strFolder).filePath(strName);
        if (strFolder != m_strOwnFolder && strName != QLatin1String(g_szKept))
            takeFrom(strFolder, parts, &lstDrafts);
    }
    return lstDrafts;
}

void CDraftStore::takeFrom(const QString &strFolder, Parts parts, QVector<SDraft> *pDrafts) const
{
    CDescriptor lock;
    if (!lockAbandoned(strFolder, &lock)) // Its program is running.
        return;
    const QDir folder(strFolder);
    const QStringList lstNames = folder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString &strName : lstNames) {
        SDraft draft;
        const QString strPath = folder.filePath(strName);
        if (isLeftOver(lstNames, strName)) {
            Platform::removeFile(strPath);
            continue;
        }
        if (strName == QLatin1String(g_szLock) || !readParts(strPath, parts, &draft))
            continue;
        draft.strId = newId();
        if (Platform::renameFile(strPath, filePath(draft.strId)))
            pDrafts->append(draft);
    }
    Platform::removeFile(lockPath(strFolder));
    QDir().rmdir(strFolder); // Only when nothing is left in it.
}

QString CDraftStore::keptPath(const QString &strId) const
{
    return QDir(m_strFolder).filePath(QLatin1String(g_szKept) + QLatin1Char('/') + strId);
}

bool CDraftStore::keep(const SDraft &draft, QString *pError) const
{
    return ((makePrivateFolder(m_strFolder) && makePrivateFolder(keptPath(QString())))
            || fail(pError))
        && writeDraft(keptPath(newId()), draft, pError);
}

QVector<SDraft> CDraftStore::kept() const
{
    QVector<SDraft> lstDrafts;
    const qint64 nNow = QDateTime::currentMSecsSinceEpoch();
    const QStringList lstNames =
        QDir(keptPath(QString())).entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString &strName : lstNames) {
        SDraft draft;
        draft.strId = strName;
        const bool bDraft = readHeadOf(keptPath(strName), &draft);
        const qint64 nTime =
            bDraft ? draft.nTime : fileStateOf(keptPath(strName)).nModifiedNs / 1000000;
        if (qAbs(nNow - nTime) > g_nKeptFor) // Also what a wrong clock put into the future.
            removeKept(strName);
        else if (bDraft && !strName.contains(QLatin1Char('.')))
            lstDrafts.append(draft);
    }
    std::sort(lstDrafts.begin(), lstDrafts.end(),
              [](const SDraft &one, const SDraft &two) { return one.nTime > two.nTime; });
    return lstDrafts;
}

bool CDraftStore::readKept(const QString &strId, SDraft *pDraft, QString *pError) const
{
    pDraft->strId = strId;
    return readDraft(keptPath(strId), pDraft, pError);
}

void CDraftStore::removeKept(const QString &strId) const
{
    Platform::removeFile(keptPath(strId));
}
