#pragma once

#include "highlight/highlightline.h"

#include <cstddef>
#include <vector>

// The ranges of a line as bytes, in their order: two for most ranges of code, where they take
// twelve as a struct and twenty-four as Qt's formats. Reentrant.

// Appends to the bytes.
void packRanges(const std::vector<SHighlightRange> &lstRanges, std::vector<uchar> *pBytes);
// The bytes of one line, all of them.
std::vector<SHighlightRange> unpackRanges(const uchar *pBytes, size_t nBytes);
