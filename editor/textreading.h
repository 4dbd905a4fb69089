#pragma once

#include "app/filereader.h"

// All of a file for an editor; refused where memory could not hold it with all that an editor makes
// of it. Any thread; blocks while the disk does.
SFileContent readForEditor(const QString &strPath);
