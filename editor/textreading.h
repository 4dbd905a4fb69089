#pragma once

#include "app/filereader.h"

// What an editor reads: at most what memory can hold with all that an editor makes of it.
SReadLimits editorLimits();

// All of a file for an editor. Any thread; blocks while the disk does.
SFileContent readForEditor(const QString &strPath);

// Bytes. A larger file is read in the background and shown in slices.
qint64 mostShownAtOnce();
// True for a larger file that can be read, and for a smaller one with a line that the user is asked
// about. Reads the latter.
bool isShownInSlices(const QString &strPath);
// For tests. GUI thread, while nothing is loaded.
void setMostShownAtOnce(qint64 nBytes);

// The user is asked before a heavier line is shown (see SHeaviestLine). Qt lays out the whole line
// each time it is drawn: a million letters take a quarter of a second.
int heaviestLineUnasked();
// For tests, as above.
void setHeaviestLineUnasked(int nWeight);

// The bytes as a file opened as text gives them: without CR.
QByteArray readAsText(const QByteArray &arrData);
