#pragma once

#include <QString>

class QDateTime;
class QFileInfo;

// A size in bytes as people read it: powers of 1024, numbers by the default locale.
QString getSizeText(qint64 nSize);

// Date and time in the system locale's short format.
QString getDateText(const QDateTime &dateTime);

// Order of folder listings: folders, then files; roots first; then the lower-cased name.
bool lessFileInfo(const QFileInfo &a, const QFileInfo &b);

// Shows the file in the system's file manager. False when no file manager could be asked.
bool openFilePosition(const QString &strPath);
