#pragma once

#include "highlight/highlightline.h"

#include <QString>

// The two rules that hold for every language, scanned by hand. Each gives what searching the line
// for its QRegExp, which prefers the longest match, would give; both look from nFrom up to nTo.

// ((((0[xX])|#)[a-fA-F0-9]+)|([\+\-]{0,1}\d+([.]\d*){0,1}([eE][\+\-]{0,1}\d*){0,1})): no word
// boundaries, so that digits inside of names count too.
void addNumbers(const QString &strText, int nFrom, int nTo, std::vector<HighlightRange> *pRanges);

// (([\+\-\*\/\~\^\!]{1,2})|([*\/+-\!\^~><]{0,1}={1,3})), where "+-\!" is the range from "!" to "+".
void addOperators(const QString &strText, int nFrom, int nTo, std::vector<HighlightRange> *pRanges);
