#pragma once

#include <QString>

class QTextDocument;

// How many characters of a line the preview shows: all, but of a line that takes long to lay out,
// because its characters depend on those beside them (marks, Thai, Arabic …), a page full.
int shownLength(const QString &strLine);

// Cuts such lines and says so by a sign at their ends.
void cutLongLines(QTextDocument *pDocument);
