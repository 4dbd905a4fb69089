#include "app/cinplacejournal.h"

#include "app/cnewfile.h"
#include "app/filereader.h"
#include "app/filestate.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>

#include <cerrno>
#include <cstring>

namespace {

QString g_strJournalFolder;

const char g_szCopy[] = ".old";
const char g_szNote[] = ".note";

QString journalFile(const QString &strId, const char *szEnding)
{
    return QDir(CInPlaceJournal::folder()).filePath(strId + QLatin1String(szEnding));
}

// Reads the file from its present place to its end and calls use(bytes) for each piece. False if
// either failed.
template<class Use> bool forEachPiece(int nHandle, const Use &use)
{
    QByteArray piece(1 << 20, Qt::Uninitialized);
    for (;;) {
        const qint64 nRead = Platform::readSome(nHandle, piece.data(), piece.size());
        if (nRead <= 0)
            return nRead == 0;
        if (!use(piece.constData(), nRead))
            return false;
    }
}

bool isZero(const char *p, qint64 n)
{
    return n > 0 && *p == 0 && std::memcmp(p, p + 1, size_t(n - 1)) == 0;
}

// Copies one file over the other, from the beginning, so that both end with the same byte. Holes
// stay holes: a large file on a full disk may consist mostly of them.
bool copyOver(int nFrom, int nTo, qint64 *pSize)
{
    *pSize = 0;
    const auto put = [&](const char *p, qint64 n) {
        const qint64 nStart = *pSize;
        *pSize += n;
        return isZero(p, n) && Platform::makeHole(nTo, nStart, n) ? Platform::moveTo(nTo, *pSize)
                                                                  : Platform::writeBytes(nTo, p, n);
    };
    return Platform::moveTo(nFrom, 0) && Platform::moveTo(nTo, 0) && forEachPiece(nFrom, put)
        && Platform::resizeFile(nTo, *pSize) && Platform::syncFile(nTo);
}

struct SJournalNote
{
    SCutOffWriting writing;
    qint64 nNewSize = 0;
    QByteArray newHash;
};

bool readNote(const QString &strId, SJournalNote *pNote)
{
    const QJsonObject note =
        QJsonDocument::fromJson(readFile(journalFile(strId, g_szNote)).bytes).object();
    pNote->writing.strId = strId;
    pNote->writing.strPath = note.value(QStringLiteral("path")).toString();
    pNote->writing.strCopy = journalFile(strId, g_szCopy);
    pNote->writing.nSize = qint64(note.value(QStringLiteral("oldSize")).toDouble(-1));
    pNote->writing.nTime = qint64(note.value(QStringLiteral("time")).toDouble());
    pNote->nNewSize = qint64(note.value(QStringLiteral("newSize")).toDouble(-1));
    pNote->newHash =
        QByteArray::fromHex(note.value(QStringLiteral("newHash")).toString().toLatin1());
    return !pNote->writing.strPath.isEmpty() && pNote->writing.nSize >= 0;
}

// A copy without a note belongs to a program that is about to write the note, or to one that ended
// before it did.
bool isAbandoned(int nCopy)
{
    const qint64 nAge = 60000; // Milliseconds.
    return fileStateOf(nCopy).nModifiedNs / 1000000 < QDateTime::currentMSecsSinceEpoch() - nAge;
}

// True when the file holds all the old bytes or all the new ones.
bool isFileWhole(const SJournalNote &note, int nCopy)
{
    if (Platform::kindOfPath(note.writing.strPath) != Platform::FileKind::Regular)
        return false;
    const CDescriptor file(Platform::openFile(note.writing.strPath, Platform::FileAccess::Read));
    if (!file.isOpen())
        return false;
    const qint64 nSize = fileStateOf(file.handle()).nSize;
    if (nSize != note.nNewSize && nSize != note.writing.nSize)
        return false;
    const QByteArray hash = hashOfOpenFile(file.handle());
    return !hash.isEmpty()
        && ((nSize == note.nNewSize && hash == note.newHash)
            || (nSize == note.writing.nSize && hash == hashOfOpenFile(nCopy)));
}

} // namespace

void CInPlaceJournal::setFolder(const QString &strFolder)
{
    g_strJournalFolder = strFolder;
}

QString CInPlaceJournal::folder()
{
    if (!g_strJournalFolder.isEmpty())
        return g_strJournalFolder;
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    return data.filePath(QStringLiteral("in-place"));
}

CInPlaceJournal::~CInPlaceJournal()
{
    if (!m_bKeep)
        end();
}

bool CInPlaceJournal::begin(const QString &strPath, int nHandle, const QByteArray &newBytes)
{
    if (!QDir().mkpath(folder())) {
        errno = EACCES;
        return false;
    }
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_strId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_copy = CDescriptor(
        Platform::createFile(journalFile(m_strId, g_szCopy), Platform::FilePrivacy::OnlyMe));
    if (!m_copy.isOpen())
        return false;
    Platform::lockFile(m_copy.handle());
    return copyOver(nHandle, m_copy.handle(), &m_nSize) && writeNote(strPath, newBytes)
        && Platform::syncFolder(folder());
}

bool CInPlaceJournal::writeNote(const QString &strPath, const QByteArray &newBytes) const
{
    const QJsonObject note = {
        {QStringLiteral("path"), QFileInfo(strPath).absoluteFilePath()},
        {QStringLiteral("time"), double(QDateTime::currentMSecsSinceEpoch())},
        {QStringLiteral("oldSize"), double(m_nSize)},
        {QStringLiteral("newSize"), double(newBytes.size())},
        {QStringLiteral("newHash"), QString::fromLatin1(hashOfContent(newBytes).toHex())},
    };
    return writePrivateFile(journalFile(m_strId, g_szNote), QJsonDocument(note).toJson());
}

bool CInPlaceJournal::putBack(int nHandle)
{
    qint64 nSize = 0;
    m_bKeep = !copyOver(m_copy.handle(), nHandle, &nSize) || nSize != m_nSize;
    return !m_bKeep;
}

void CInPlaceJournal::end()
{
    const int nError = errno;
    if (m_copy.isOpen()) {
        // Removes the note first, because a copy without a note means nothing.
        Platform::removeFile(journalFile(m_strId, g_szNote));
        Platform::removeFile(journalFile(m_strId, g_szCopy));
        m_copy.close();
    }
    errno = nError;
}

QVector<SCutOffWriting> CInPlaceJournal::cutOff()
{
    QVector<SCutOffWriting> lstWritings;
    const QStringList lstNames =
        QDir(folder()).entryList({QLatin1Char('*') + QLatin1String(g_szCopy)}, QDir::Files);
    for (const QString &strName : lstNames) {
        const QString strId = strName.chopped(int(sizeof g_szCopy) - 1);
        const CDescriptor copy(
            Platform::openFile(journalFile(strId, g_szCopy), Platform::FileAccess::ReadWrite));
        if (!copy.isOpen() || Platform::lockFile(copy.handle()) == Platform::FileLock::AnothersNow)
            continue; // Its program is running.
        SJournalNote note;
        const bool bNote = readNote(strId, &note);
        note.writing.strId = strId;
        // The copy is written first, then the note, then the file.
        const bool bBegun = bNote && fileStateOf(copy.handle()).nSize == note.writing.nSize;
        if (bBegun && !isFileWhole(note, copy.handle()))
            lstWritings.append(note.writing);
        else if (bNote || isAbandoned(copy.handle()))
            forget(note.writing);
    }
    return lstWritings;
}

bool CInPlaceJournal::restore(const SCutOffWriting &writing, QString *pError)
{
    errno = 0;
    const CDescriptor copy(Platform::openFile(writing.strCopy, Platform::FileAccess::Read));
    CDescriptor file(Platform::openFile(writing.strPath, Platform::FileAccess::ReadWrite));
    qint64 nSize = 0;
    const bool bReady = copy.isOpen() && file.isOpen()
        && fileStateOf(copy.handle()).nSize == writing.nSize
        && Platform::kindOfHandle(file.handle()) == Platform::FileKind::Regular;
    if (!bReady || !copyOver(copy.handle(), file.handle(), &nSize) || !file.close()) {
        errno = errno == 0 ? EIO : errno; // The copy is incomplete, or the file is no regular file.
        *pError = Platform::errorText();
        return false;
    }
    forget(writing);
    return true;
}

void CInPlaceJournal::forget(const SCutOffWriting &writing)
{
    Platform::removeFile(journalFile(writing.strId, g_szNote));
    Platform::removeFile(journalFile(writing.strId, g_szCopy));
}
