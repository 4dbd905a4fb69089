#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

// Shared by the fuzz targets. Each target is one file with LLVMFuzzerTestOneInput(): any bytes in,
// no crash, no sanitizer report, and every require() met.

// A promise of the tested code; the fuzzer keeps the input that breaks it.
inline void require(bool bHolds, const char *szPromise)
{
    if (bHolds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", szPromise);
    std::abort();
}

// The input without a copy; it does not outlive the call.
inline QByteArray bytesOf(const uint8_t *pData, size_t nSize)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(pData), int(nSize));
}

// The input as UTF-8, zero characters too.
inline QString textOf(const QByteArray &data)
{
    return QString::fromUtf8(data.constData(), data.size());
}

// The input as UTF-16, any units in any order.
inline QString unitsOf(const uint8_t *pData, size_t nSize)
{
    QString strText;
    for (size_t n = 0; n + 1 < nSize; n += 2)
        strText.append(QChar(ushort(pData[n] | pData[n + 1] << 8)));
    return strText;
}
