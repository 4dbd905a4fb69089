#pragma once

#include "editor/ccarets.h"

#include <QString>

// A caret with a selection for each occurrence of the text, in the letter case it has. bWords: only
// those that no word character touches. The main one is the one at nMain. None: a single caret
// there.
//
// strDocument: the lines, with one character at each line's end.
CCarets caretsOfOccurrences(const QString &strDocument, const QString &strText, bool bWords,
                            int nMain);
