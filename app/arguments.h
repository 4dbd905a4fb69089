#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

// The paths among a program's arguments (its own name first): trimmed, empty ones left out. A path
// that names an existing file or folder becomes absolute, because the instance that opens it may
// have been started in another folder. All others stay as they are.
QStringList pathsFromArguments(const QStringList &lstArguments,
                               const QDir &folder = QDir::current());

// The message that hands paths to a running instance. The paths are joined with blanks, and each is
// quoted unless it already begins with a quote.
QString messageFromPaths(const QStringList &lstPaths);

// The paths in such a message. May hold empty ones.
QStringList pathsFromMessage(const QString &strMessage);
