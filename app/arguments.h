#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The paths among a program's arguments (its own name first): trimmed, empty ones left out.
QStringList pathsFromArguments(const QList<QByteArray> &lstArguments);

// The message that hands paths to a running instance: each quoted unless it already begins with a
// quote, joined with blanks.
QString messageFromPaths(const QStringList &lstPaths);

// The paths in such a message. May hold empty ones.
QStringList pathsFromMessage(const QString &strMessage);
