#include "app/filewriter.h"

#include "app/filestate.h"
#include "app/platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// The file at the end of a chain of links; also where that file does not exist yet.
QString linkTarget(const QString &strPath)
{
    const int nMaxLinks = 40; // As many as Linux follows; a loop ends here, still a link.
    QFileInfo info(strPath);
    for (int n = 0; n < nMaxLinks && info.isSymLink(); ++n) {
        // From the folder as it really lies: there a ".." in the link counts.
        const QDir dir(QFileInfo(info.absolutePath()).canonicalFilePath());
        info.setFile(QFileInfo(dir, info.fileName()).symLinkTarget());
    }
    return info.filePath();
}

bool replaceFile(QSaveFile *pFile, const QByteArray &data)
{
    if (!writeAll(pFile, data)) {
        pFile->cancelWriting();
        return false;
    }
    return pFile->commit();
}

bool overwrite(QFile *pFile, const QByteArray &data)
{
    return pFile->seek(0) && writeAll(pFile, data) && pFile->resize(data.size());
}

bool writeInPlace(QFile *pFile, const QByteArray &data)
{
    if (pFile->isSequential()) // A pipe or a terminal: nothing there to keep.
        return writeAll(pFile, data);
    const QByteArray old = pFile->readAll();
    if (data.size() > old.size() && !Platform::reserveFileSpace(pFile->handle(), data.size())) {
        pFile->resize(old.size());
        return false;
    }
    if (overwrite(pFile, data))
        return true;
    overwrite(pFile, old);
    return false;
}

bool succeeded(bool bDone, const QFileDevice &file, QString *pError)
{
    if (!bDone && pError)
        *pError = file.errorString();
    return bDone;
}

bool writeTarget(const QString &strPath, const QByteArray &data, QString *pError)
{
    const QString strTarget = linkTarget(strPath);
    const bool bLoop = QFileInfo(strTarget).isSymLink();
    if (!bLoop && !Platform::mustWriteInPlace(strTarget)) {
        QSaveFile file(strTarget);
        if (file.open(QIODevice::WriteOnly))
            return succeeded(replaceFile(&file, data), file, pError);
        if (!QFileInfo::exists(strTarget))
            return succeeded(false, file, pError);
    }
    QFile file(strTarget);
    const bool bRegular = QFileInfo(strTarget).isFile();
    const bool bOpen =
        file.open(bRegular ? QIODevice::ReadWrite : QIODevice::WriteOnly | QIODevice::Unbuffered);
    return succeeded(bOpen && writeInPlace(&file, data), file, pError);
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
    // QSaveFile::commit() overlooks what fails on the way out of the buffer, and would put the
    // beginning of a small file in the place of the old one.
    auto *pFile = qobject_cast<QFileDevice *>(pDevice);
    return !pFile || pFile->flush();
}

bool writeFile(const QString &strPath, const QByteArray &data, QString *pError, SFileState *pState)
{
    const bool bDone = writeTarget(strPath, data, pError);
    if (pState) {
        *pState = fileStateOf(strPath);
        pState->hash = bDone ? hashOfContent(data) : QByteArray();
    }
    return bDone;
}
