#include "app/nativepath_win.h"

#include <QDir>

#include <qt_windows.h>

namespace {

// A folder must leave room for a short name in it.
const int g_nLongestPlain = MAX_PATH - 13;

} // namespace

std::wstring nativePath(const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    const QString strPrefix = QStringLiteral("\\\\?\\");
    if (strNative.size() <= g_nLongestPlain || strNative.startsWith(strPrefix)
        || !QDir::isAbsolutePath(strPath))
        return strNative.toStdWString();
    const QString strClean = QDir::toNativeSeparators(QDir::cleanPath(strPath));
    const bool bServer = strClean.startsWith(QLatin1String("\\\\"));
    return (bServer ? QStringLiteral("\\\\?\\UNC") : strPrefix).toStdWString()
        + strClean.mid(bServer ? 1 : 0).toStdWString();
}

bool isDeviceName(const QString &strPath)
{
    // The system itself knows which names are devices; it gives them this beginning.
    wchar_t arrFull[MAX_PATH];
    const DWORD nLength = GetFullPathNameW(nativePath(strPath).c_str(), MAX_PATH, arrFull, nullptr);
    return nLength > 0 && nLength < MAX_PATH
        && QString::fromWCharArray(arrFull, int(nLength)).startsWith(QLatin1String("\\\\.\\"));
}
