#pragma once

#include "editor/linesearch.h"
#include "findinfiles/findquery.h"

#include <QString>

// A match as one line for a list: its line's number, what stands before it, the match, what it
// would be replaced by, and what stands behind it. Nothing in it is markup, and nothing hides.
struct SResultText
{
    QString strText;
    SLineMatch match;
    SLineMatch replacement; // Not valid where nothing is to be replaced.
};

// pReplace is null where nothing is to be replaced.
SResultText resultText(const SFileMatch &match, const QString *pReplace);
