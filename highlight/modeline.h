#pragma once

#include <QString>
#include <QStringList>

// The name under which a text says its language in its first lines, for other editors or for the
// system: "-*- mode: python -*-", "vim: set ft=python:", or the program behind "#!" without its
// path and version. A mode line goes before the program. Empty when the text says nothing.
QString modeOf(const QStringList &lstFirstLines);
