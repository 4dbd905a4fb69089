#pragma once

#include "highlight/chighlightmgt.h"

#include <QString>

// Prints each line that differs from the peer's reading, with what is ours alone as "o" and what is
// the peer's alone as "p". strName decides the language.
void printMarkedFile(const CHighlightMgt &registry, const QString &strPath, const QString &strName);
