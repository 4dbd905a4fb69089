#include "findinfiles/filereading.h"

#include "app/platform.h"
#include "app/textcodecs.h"
#include "editor/linesearch.h"
#include "findinfiles/textmatches.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace {

const qint64 g_nHuge = qint64(64) * 1024 * 1024; // Bytes; decoded, a text takes twice as many.
const qint64 g_nBeginning =
    qint64(32) * 1024; // Read first, because most binary files show here that they are no text.

// Many times as fast as the function of QByteArray.
bool holdsZero(const QByteArray &data)
{
    return std::memchr(data.constData(), 0, size_t(data.size())) != nullptr;
}

// A zero byte makes a file binary, as in most search tools. In UTF-16 nearly every letter has one.
bool isBinary(const QByteArray &data)
{
    const bool bUtf16 = data.startsWith("\xff\xfe") || data.startsWith("\xfe\xff");
    return !bUtf16 && holdsZero(data);
}

// Reads on until the buffer holds nTo bytes or the file ends. False after an error.
bool readUpTo(QFile *pFile, qint64 nTo, QByteArray *pData)
{
    qint64 nDone = pData->size();
    pData->resize(int(nTo));
    while (nDone < nTo) {
        const qint64 nRead = pFile->read(pData->data() + nDone, nTo - nDone);
        if (nRead < 0)
            return false;
        if (nRead == 0)
            break;
        nDone += nRead;
    }
    pData->resize(int(nDone));
    return true;
}

} // namespace

FileKind readTextFile(const QString &strPath, QByteArray *pData)
{
    pData->resize(0);
    qint64 nSize = 0;
    const int nHandle = Platform::openRegularFile(strPath, &nSize);
    if (nHandle < 0) {
        const QFileInfo info(strPath);
        return info.isFile() && !info.isSymbolicLink() ? FileKind::Unreadable : FileKind::None;
    }
    QFile file;
    if (!file.open(nHandle, QIODevice::ReadOnly | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle))
        return FileKind::Unreadable;
    if (nSize > g_nHuge)
        return FileKind::Huge;
    if (!readUpTo(&file, std::min(nSize, g_nBeginning), pData))
        return FileKind::Unreadable;
    if (isBinary(*pData))
        return FileKind::Binary;
    if (nSize > g_nBeginning && !readUpTo(&file, nSize, pData))
        return FileKind::Unreadable;
    return nSize > g_nBeginning && isBinary(*pData) ? FileKind::Binary : FileKind::Text;
}

QByteArray fingerprintOf(const QByteArray &data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Sha256);
}

QVector<SFileMatch> findInData(const CLineSearch &search, const CByteFilter &filter,
                               const QByteArray &data, int nMost, const std::atomic<bool> &bCancel)
{
    const bool bAscii = isAscii(data);
    if (filter.isUseful() && !filter.mayMatch(data, bAscii) && (bAscii || isMultiByteUtf8(data)))
        return {};
    const QTextCodec *pCodec = codecForName(codecNameForData(QString(), data));
    return findMatches(search, decodeText(pCodec, data), nMost, bCancel);
}
