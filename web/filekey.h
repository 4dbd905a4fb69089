#pragma once

#include <QByteArray>
#include <QString>

// Names a file in the state in which it is now: another content, another key. Empty for what does
// not exist.
QByteArray fileKey(const QString &strPath);
