#include "app/cdraftstore.h"

#include "app/draftfiles.h"

#include <QDir>
#include <QUuid>

#include <cerrno>

namespace {

const char g_szLock[] = "lock";

QString lockPath(const QString &strFolder)
{
    return QDir(strFolder).filePath(QLatin1String(g_szLock));
}

bool readParts(const QString &strPath, CDraftStore::Parts parts, SDraft *pDraft)
{
    return parts == CDraftStore::Parts::All ? DraftFiles::read(strPath, pDraft, nullptr)
                                            : DraftFiles::readHead(strPath, pDraft);
}

// Takes the lock of a folder that some program made; false while that program runs. If the lock is
// no file, somebody else made it, and it holds nothing.
bool lockAbandoned(const QString &strFolder, CDescriptor *pLock)
{
    const QString strLock = lockPath(strFolder);
    const Platform::FileKind kind = Platform::kindOfPath(strLock);
    if (kind != Platform::FileKind::Regular && kind != Platform::FileKind::Missing)
        return true;
    *pLock = CDescriptor(kind == Platform::FileKind::Missing
                             ? Platform::createFile(strLock, Platform::FilePrivacy::OnlyMe)
                             : Platform::openFile(strLock, Platform::FileAccess::ReadWrite));
    // The folder belongs to this user, so a lock that may not be opened was made by somebody else.
    return pLock->isOpen() ? Platform::lockFile(pLock->handle()) != Platform::FileLock::AnothersNow
                           : errno == EACCES;
}

// An interrupted write leaves its copy behind; the draft itself is still the earlier one.
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
    if (makeFolder())
        return true;
    if (pError)
        *pError = Platform::errorText();
    return false;
}

bool CDraftStore::makeFolder() const
{
    const QString strLock = lockPath(m_strOwnFolder);
    m_lock.close();
    if (!DraftFiles::makeFolder(m_strFolder, nullptr)
        || !DraftFiles::makeFolder(m_strOwnFolder, nullptr))
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
    return hasFolder(pError) && DraftFiles::write(filePath(draft.strId), draft, pError);
}

bool CDraftStore::read(const QString &strId, SDraft *pDraft, QString *pError) const
{
    pDraft->strId = strId;
    return DraftFiles::read(filePath(strId), pDraft, pError);
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
        if (strFolder != m_strOwnFolder)
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
    lock.close(); // Windows keeps the name until then.
    QDir().rmdir(strFolder); // Only when nothing is left in it.
}
