#pragma once

#include "editor/ccarets.h"

#include <QString>

// A caret with a selection for each occurrence of the text in the same letter case; with bWords,
// only for those that no word character touches. The main caret is the one at nMain. Without an
// occurrence there is a single caret there.
//
// strDocument has one character at each line's end.
CCarets caretsOfOccurrences(const QString &strDocument, const QString &strText, bool bWords,
                            int nMain);
