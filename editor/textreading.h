#pragma once

#include "app/filereader.h"

// What an editor reads: at most what memory can hold with all that an editor makes of it.
SReadLimits editorLimits();

// All of a file for an editor. Any thread; blocks while the disk does.
SFileContent readForEditor(const QString &strPath);

// Bytes. A larger file is read in the background and shown in slices.
qint64 mostShownAtOnce();
// True for a larger file that can be read.
bool isShownInSlices(const QString &strPath);
// For tests. GUI thread, while nothing is loaded.
void setMostShownAtOnce(qint64 nBytes);

// UTF-16 units. Before a longer line is shown, the user is asked: Qt lays a line out as a whole,
// which takes half a second for a million letters, each time it is drawn anew.
int longestLineUnasked();
// For tests, as above.
void setLongestLineUnasked(int nLength);

// The bytes as a file opened as text gives them: without CR.
QByteArray readAsText(const QByteArray &arrData);
