#pragma once

#include <QString>
#include <QStringList>

const int g_nMaxRecentFiles = 6;

// The recent files, newest first, after strPath was used. It is put or moved to the front, with
// native separators. The oldest are dropped if there are too many.
QStringList withRecentFile(QStringList lstFiles, const QString &strPath);
