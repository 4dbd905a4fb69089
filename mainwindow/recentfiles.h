#pragma once

#include <QString>
#include <QStringList>

const int g_nMaxRecentFiles = 6;

// The recent files, newest first, after strPath was used: moved or put to the front in native
// separators, the oldest dropped where there are too many.
QStringList withRecentFile(QStringList lstFiles, const QString &strPath);
