#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

// The paths among a program's arguments (its own name first): trimmed, empty ones left out. What
// names an existing file or folder from the folder of the start becomes absolute, as the instance
// that opens it may have been started elsewhere; all others stay as they are.
QStringList pathsFromArguments(const QStringList &lstArguments,
                               const QDir &folder = QDir::current());

// The message that hands paths to a running instance: each quoted unless it already begins with a
// quote, joined with blanks.
QString messageFromPaths(const QStringList &lstPaths);

// The paths in such a message. May hold empty ones.
QStringList pathsFromMessage(const QString &strMessage);
