#include "app/filewriter.h"

#include "app/cnewfile.h"
#include "app/filereader.h"
#include "app/filestate.h"
#include "app/inplacewriter.h"
#include "app/platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDevice>
#include <QFileInfo>

namespace {

// The file at the end of a chain of links, even if that file does not exist yet. A shortcut of
// Windows counts as an ordinary file.
QString linkTarget(const QString &strPath)
{
    const int nMaxLinks = 40; // As many as Linux follows; a loop ends here, still a link.
    QFileInfo info(strPath);
    for (int n = 0; n < nMaxLinks && info.isSymbolicLink(); ++n) {
        // Starts from the folder's real path, because a ".." in the link counts from there.
        const QDir dir(QFileInfo(info.absolutePath()).canonicalFilePath());
        info.setFile(QFileInfo(dir, info.fileName()).symLinkTarget());
    }
    return info.filePath();
}

class CFileReplacement
{
    Q_DECLARE_TR_FUNCTIONS(CFileReplacement)

public:
    enum class Outcome { Done, Failed, InPlaceInstead };

    // Replaces the file by a finished copy.
    static Outcome replace(const QString &strTarget, const QByteArray &data, QString *pError,
                           SFileState *pState);

private:
    static Outcome failed(QString *pError)
    {
        *pError = Platform::errorText();
        return Outcome::Failed;
    }
};

CFileReplacement::Outcome CFileReplacement::replace(const QString &strTarget,
                                                    const QByteArray &data, QString *pError,
                                                    SFileState *pState)
{
    const bool bExists = QFileInfo::exists(strTarget);
    const auto closedOr = [&] {
        return bExists && Platform::isFolderClosed() ? Outcome::InPlaceInstead : failed(pError);
    };
    // A read-only file stays read-only, even if its folder may be written.
    if (bExists && !Platform::mayWrite(strTarget))
        return failed(pError);
    CNewFile file(strTarget);
    // Permissions and attributes are copied last: they decide who may read the new file.
    if (!file.create(bExists ? Platform::FilePrivacy::OnlyMe : Platform::FilePrivacy::AsUsual))
        return closedOr();
    if (!file.write(data))
        return failed(pError);
    if (bExists && !Platform::carryOver(strTarget, file.handle()))
        return Outcome::InPlaceInstead;
    if (!file.sync()) {
        *pError = tr("The disk did not keep what was written: %1").arg(Platform::errorText());
        return Outcome::Failed;
    }
    if (!file.putInPlace())
        return closedOr();
    *pState = file.state();
    pState->hash = hashOfContent(data);
    pState->bFresh = true;
    if (Platform::syncFolder(QFileInfo(strTarget).absolutePath()))
        return Outcome::Done;
    *pError = tr("The folder may not have kept what was written: %1").arg(Platform::errorText());
    return Outcome::Failed;
}

bool writeTarget(const QString &strTarget, const QByteArray &data, QString *pError,
                 SFileState *pState)
{
    const bool bLoop = QFileInfo(strTarget).isSymbolicLink();
    if (!bLoop && !Platform::mustWriteInPlace(strTarget)) {
        const auto outcome = CFileReplacement::replace(strTarget, data, pError, pState);
        if (outcome != CFileReplacement::Outcome::InPlaceInstead)
            return outcome == CFileReplacement::Outcome::Done;
    }
    return writeInPlace(strTarget, data, pError, pState);
}

} // namespace

bool writeAll(QIODevice *pDevice, const QByteArray &data)
{
    qint64 nDone = 0;
    while (nDone < data.size()) {
        const qint64 nWritten = pDevice->write(data.constData() + nDone, data.size() - nDone);
        if (nWritten <= 0)
            return false;
        nDone += nWritten;
    }
    // Without flush() an error that occurs while the buffer is written would be overlooked.
    auto *pFile = qobject_cast<QFileDevice *>(pDevice);
    return !pFile || pFile->flush();
}

bool writeFile(const QString &strPath, const QByteArray &data, QString *pError, SFileState *pState)
{
    Platform::surviveFailingWrites();
    QString strError;
    SFileState state;
    const bool bDone = writeTarget(linkTarget(strPath), data, &strError, &state);
    if (!bDone && pError)
        *pError = strError;
    if (pState && state.bExists) // Else nothing was written.
        *pState = state;
    return bDone;
}
