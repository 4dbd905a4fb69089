#pragma once

#include <QByteArray>
#include <QString>

// QSettings decodes every value of a file as it reads it, "@Variant(...)" as a stream of any type.
// A damaged stream asks for absurd amounts of memory or nests without end, and ends the program
// before its window is there. Nothing of ours is stored that way.

// The bytes of a settings file (Qt's INI dialect) without the lines whose values are streams.
// Nothing at all when a stream is spread over lines, which QSettings never writes.
QByteArray withoutStreamedValues(const QByteArray &ini);

// The same for the file that QSettings keeps for the two names, which is written anew only if it
// holds such lines. No file, or one that cannot be written, stays as it is.
void dropStreamedValues(const QString &strOrganization, const QString &strApplication);
