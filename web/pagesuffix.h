#pragma once

#include <QString>

// Whether files of this suffix, in lower case, are opened as pages.
inline bool isPageSuffix(const QString &strSuffix)
{
    return strSuffix == QLatin1String("html") || strSuffix == QLatin1String("htm");
}
