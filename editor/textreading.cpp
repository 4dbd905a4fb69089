#include "editor/textreading.h"

SFileContent readForEditor(const QString &strPath)
{
    SReadLimits limits;
    limits.nMaxSize = g_nMaxReadable;
    // Bytes, text, blocks with their layouts, and the highlighter's copy.
    limits.nMemoryPerByte = 12;
    return readFile(strPath, limits);
}
