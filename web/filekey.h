#pragma once

#include <QByteArray>
#include <QString>

// A key for a file in its present state: it changes with the content. Empty if the file does not
// exist.
QByteArray fileKey(const QString &strPath);
