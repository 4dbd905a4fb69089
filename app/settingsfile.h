#pragma once

#include <QByteArray>
#include <QString>

// Damaged settings must not crash the program at its start. QSettings decodes every value while it
// reads the file, and "@Variant(...)" as a stream of any type: a damaged one asks for absurd
// amounts of memory or nests without end. This program stores nothing that way, so such values can
// go.

// The bytes of a settings file (Qt's INI dialect) without the lines whose values are streams.
// Nothing at all when a stream is spread over lines, which QSettings never writes.
QByteArray withoutStreamedValues(const QByteArray &ini);

// The same for the file of QSettings for the two names. It is only rewritten if it holds such
// lines. A file that cannot be written stays as it is.
void dropStreamedValues(const QString &strOrganization, const QString &strApplication);
