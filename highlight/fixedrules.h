#pragma once

#include <QString>

// The two rules that hold for every language, as hand-written scanners. Each gives the end of the
// match that begins at nAt and ends by nTo, or nAt if there is none. Called from left to right,
// each time after the last match, they find what a search with their QRegExp finds, which prefers
// the longest match.

// ((((0[xX])|#)[a-fA-F0-9]+)|([\+\-]{0,1}\d+([.]\d*){0,1}([eE][\+\-]{0,1}\d*){0,1})): no word
// boundaries, so that digits inside of names count too.
int endOfNumber(const QString &strText, int nAt, int nTo);

// (([\+\-\*\/\~\^\!]{1,2})|([*\/+-\!\^~><]{0,1}={1,3})), where "+-\!" is the range from "!" to "+".
int endOfOperator(const QString &strText, int nAt, int nTo);

// The characters that they can begin with.
bool mayStartNumber(int nSymbol);
bool mayStartOperator(int nSymbol);
