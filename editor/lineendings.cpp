#include "editor/lineendings.h"

#include <algorithm>
#include <cstring>

namespace {

bool containsByte(const char *pData, size_t nLength, char c)
{
    return nLength > 0 && std::memchr(pData, c, nLength);
}

bool containsCrLf(const char *pData, size_t nLength)
{
    const char *const pEnd = pData + nLength;
    while (pData < pEnd) {
        const void *pFound = std::memchr(pData, '\r', size_t(pEnd - pData));
        if (!pFound)
            return false;
        pData = static_cast<const char *>(pFound) + 1;
        if (pData < pEnd && *pData == '\n')
            return true;
    }
    return false;
}

} // namespace

int detectReturnFormat(const QByteArray &data, int nPrevious)
{
    const char *pData = data.constData();
    const size_t nLength = qstrnlen(pData, uint(data.size()));
    if (containsCrLf(pData, nLength))
        return ReturnFormatWindows;
    if (containsByte(pData, nLength, '\n'))
        return ReturnFormatUnix;
    if (containsByte(pData, nLength, '\r'))
        return ReturnFormatOsx;
    return nPrevious;
}

QString withLineEnds(const QString &strText, int nReturnFormat)
{
    QString strResult = strText;
    switch (nReturnFormat) {
    case ReturnFormatWindows:
        strResult.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        strResult.replace(QLatin1Char('\r'), QLatin1Char('\n'));
        strResult.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
        break;
    case ReturnFormatUnix:
        strResult.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        strResult.replace(QLatin1Char('\r'), QLatin1Char('\n'));
        break;
    case ReturnFormatOsx:
        strResult.replace(QLatin1String("\r\n"), QLatin1String("\r"));
        strResult.replace(QLatin1Char('\n'), QLatin1Char('\r'));
        break;
    default:
        break;
    }
    return strResult;
}

int lineCount(const QString &strText)
{
    const int nLf = int(std::count(strText.cbegin(), strText.cend(), QLatin1Char('\n')));
    const int nCr = int(std::count(strText.cbegin(), strText.cend(), QLatin1Char('\r')));
    return 1 + nLf + nCr - (nCr > 0 ? strText.count(QLatin1String("\r\n")) : 0);
}
