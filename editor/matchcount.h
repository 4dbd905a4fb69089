#pragma once

#include "editor/linesearch.h"

#include <functional>

class CLineStore;

// How many matches a text has, and which of them one is, counted from the text's start.
struct SMatchCount
{
    int nIndex = 0; // Counts from 1; 0: none of them.
    int nCount = 0;
};

// Counts all that the search could select, one behind the other, on any thread. The match to place
// begins in the line at the place. nVersion: of the text meant; when it is another one meanwhile,
// or the count was cancelled, nothing is counted and nCount is -1.
SMatchCount countMatches(const CLineStore &lines, uint nVersion, const CLineSearch &search,
                         int nLine, int nPlace, const std::function<bool()> &isCancelled);
