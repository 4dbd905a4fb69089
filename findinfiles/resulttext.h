#pragma once

#include "editor/linesearch.h"
#include "findinfiles/findquery.h"

#include <QString>

// A match as one line for a list: the line's number, the text before the match, the match, its
// replacement, and the text after it. No part of it is markup, and all characters are visible.
struct SResultText
{
    QString strText;
    SLineMatch match;
    SLineMatch replacement; // Not valid if there is no replacement.
};

// pReplace is null if there is no replacement.
SResultText resultText(const SFileMatch &match, const QString *pReplace);
