#include "app/draftfiles.h"

#include "app/cdescriptor.h"
#include "app/cdraftstore.h"
#include "app/cnewfile.h"
#include "app/filereader.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cerrno>

namespace {

bool failDraft(QString *pError)
{
    if (pError)
        *pError = Platform::errorText();
    return false;
}

} // namespace

bool DraftFiles::makeFolder(const QString &strFolder, QString *pError)
{
    errno = 0;
    if (!QDir().mkpath(strFolder)) {
        errno = errno != 0 ? errno : EACCES;
        return failDraft(pError);
    }
    QFile::setPermissions(strFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return true;
}

bool DraftFiles::write(const QString &strPath, const SDraft &draft, QString *pError)
{
    if (draft.strText.size() > g_nMaxReadable / 2) {
        errno = EFBIG;
        return failDraft(pError);
    }
    SDraft stamped = draft;
    stamped.nTime = QDateTime::currentMSecsSinceEpoch();
    Platform::surviveFailingWrites();
    return writePrivateFile(strPath, draftToBytes(stamped)) || failDraft(pError);
}

bool DraftFiles::read(const QString &strPath, SDraft *pDraft, QString *pError)
{
    SReadLimits limits;
    limits.nMaxSize = g_nMaxReadable;
    limits.nMemoryPerByte = 3; // The bytes, and at most two UTF-16 units for each.
    const SFileContent content = readFile(strPath, limits);
    if (!content.isWhole()) {
        if (pError)
            *pError = content.strError;
        return false;
    }
    errno = EBADMSG;
    return draftFromBytes(content.bytes, pDraft) || failDraft(pError);
}

bool DraftFiles::readHead(const QString &strPath, SDraft *pDraft)
{
    const int nLongest = 1 << 16; // Bytes; enough for a path and a few words.
    const CDescriptor file(Platform::openFile(strPath, Platform::FileAccess::Read));
    if (!file.isOpen() || Platform::kindOfHandle(file.handle()) != Platform::FileKind::Regular)
        return false;
    QByteArray bytes(nLongest, Qt::Uninitialized);
    const qint64 nRead = Platform::readSome(file.handle(), bytes.data(), nLongest);
    return nRead > 0 && draftHeadFromBytes(bytes.left(int(nRead)), pDraft);
}
