#pragma once

#include <QString>
#include <QStringList>

// The name of its language that a text gives in its first lines: "-*- mode: python -*-", "vim: set
// ft=python:", or the program after "#!" without its path and version. A mode line counts before
// the program. Empty when the text says nothing.
QString modeOf(const QStringList &lstFirstLines);
