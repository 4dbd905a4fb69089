#pragma once

#include "highlight/highlightline.h"

#include <cstddef>
#include <vector>

// The ranges of a line as bytes, in their order. Most ranges take two bytes, instead of twelve as a
// struct and twenty-four as Qt's formats. Reentrant.

// Appends the packed ranges to the bytes.
void packRanges(const std::vector<SHighlightRange> &lstRanges, std::vector<uchar> *pBytes);
// Takes all the bytes of one line.
std::vector<SHighlightRange> unpackRanges(const uchar *pBytes, size_t nBytes);
