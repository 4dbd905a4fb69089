#include "pageedit/picturefiles.h"

#include "app/filereader.h"
#include "app/platformfiles.h"
#include "web/localresources.h"
#include "web/pictureheader.h"
#include "web/pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QUrl>

namespace {

const int g_nMostNames = 10000;

const char *const g_suffixes[] = {"png", "jpg", "jpeg", "gif", "svg", "webp", "bmp", "ico"};

SReadLimits limits()
{
    SReadLimits limits;
    limits.nMaxSize = g_nMaxPictureBytes;
    return limits;
}

// Writes a new file. If it exists already, or the disk is full, nothing of ours stays.
bool writeNew(const QString &strPath, const QByteArray &arrData)
{
    const int nHandle = Platform::createFile(strPath, Platform::FilePrivacy::AsUsual);
    if (nHandle < 0)
        return false;
    const bool bWritten = Platform::writeBytes(nHandle, arrData.constData(), arrData.size())
        && Platform::syncFile(nHandle);
    const bool bClosed = Platform::closeFile(nHandle);
    if (!bWritten || !bClosed)
        QFile::remove(strPath);
    return bWritten && bClosed;
}

QString store(const QDir &folder, const QString &strBase, const QString &strSuffix, int nFirst,
              const QByteArray &arrData, QString *pError)
{
    for (int n = nFirst; n < g_nMostNames; ++n) {
        const QString strNumber = n > 0 ? QStringLiteral("-%1").arg(n) : QString();
        QString strPath = folder.filePath(strBase + strNumber + strSuffix);
        const bool bThere = Platform::kindOfPath(strPath) != Platform::FileKind::Missing;
        if (bThere && nFirst == 0 && readFile(strPath, limits()).bytes == arrData)
            return strPath;
        if (bThere)
            continue;
        if (writeNew(strPath, arrData))
            return strPath;
        *pError = Platform::errorText();
        return QString();
    }
    return QString();
}

} // namespace

bool isPictureFile(const QString &strPath)
{
    const QString strSuffix = QFileInfo(strPath).suffix().toLower();
    for (const char *szSuffix : g_suffixes)
        if (strSuffix == QLatin1String(szSuffix))
            return true;
    return false;
}

QSize pictureSize(const QString &strPath)
{
    const SFileContent content = readFile(strPath, limits());
    const SPictureHeader header = pictureHeader(content.bytes);
    return header.kind != SPictureHeader::Kind::Svg && isReasonable(header, true)
        ? header.size
        : readPicture(strPath).size();
}

QString pictureFile(const QString &strPage, const QString &strAddress)
{
    const QUrl url = QUrl::fromLocalFile(strPage).resolved(QUrl(strAddress));
    const QString strFile = url.isLocalFile() ? url.toLocalFile() : QString();
    return isOnMachineOf(strPage, strFile) ? strFile : QString();
}

QString storeBeside(const QString &strPage, const QString &strName, const QByteArray &arrData,
                    QString *pError)
{
    const QFileInfo info(strName);
    const QString strSuffix =
        info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return store(QFileInfo(strPage).dir(), info.completeBaseName(), strSuffix, 0, arrData, pError);
}

QString storeNew(const QString &strPage, const QByteArray &arrPng, QString *pError)
{
    return store(QFileInfo(strPage).dir(), QFileInfo(strPage).completeBaseName(),
                 QStringLiteral(".png"), 1, arrPng, pError);
}

QString copyBeside(const QString &strPage, const QString &strFile, QString *pError)
{
    const SFileContent content = readFile(strFile, limits());
    if (!content.isWhole()) {
        *pError = content.strError;
        return QString();
    }
    return storeBeside(strPage, QFileInfo(strFile).fileName(), content.bytes, pError);
}
