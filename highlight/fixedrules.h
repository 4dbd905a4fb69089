#pragma once

#include <QString>

// The two rules that hold for every language, scanned by hand. Each gives the end of what begins at
// nAt and lies before nTo, nAt itself when nothing does; asked from left to right, always behind
// the last match, they find what searching the line for their QRegExp, which prefers the longest
// match, would find.

// ((((0[xX])|#)[a-fA-F0-9]+)|([\+\-]{0,1}\d+([.]\d*){0,1}([eE][\+\-]{0,1}\d*){0,1})): no word
// boundaries, so that digits inside of names count too.
int endOfNumber(const QString &strText, int nAt, int nTo);

// (([\+\-\*\/\~\^\!]{1,2})|([*\/+-\!\^~><]{0,1}={1,3})), where "+-\!" is the range from "!" to "+".
int endOfOperator(const QString &strText, int nAt, int nTo);

// What they can begin with.
bool mayStartNumber(int nSymbol);
bool mayStartOperator(int nSymbol);
