#pragma once

#include "editor/linesearch.h"

#include <functional>

class CLineStore;

// The number of matches in a text, and the index of one of them, counted from the text's start.
struct SMatchCount
{
    int nIndex = 0; // Counts from 1; 0 means none of them.
    int nCount = 0;
};

// Counts all matches that the search could select. Any thread. The match whose index is wanted
// begins in the given line at the given place. nVersion is the version of the text. If the text has
// another version by now, or the count was cancelled, nCount is -1.
SMatchCount countMatches(const CLineStore &lines, uint nVersion, const CLineSearch &search,
                         int nLine, int nPlace, const std::function<bool()> &isCancelled);
