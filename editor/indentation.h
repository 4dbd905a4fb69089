#pragma once

#include <QString>

// Rules of the keyboard aids, line by line, without a widget.

// The line's leading white space.
QString leadingBlanks(const QString &strLine);

// True when the line ends with an opening brace and nothing but white space behind it.
bool endsWithOpeningBrace(const QString &strLine);

// How many characters one step of outdenting takes off the line's start: a tab, or up to four
// spaces.
int outdentLength(const QString &strLine);

// What closes the bracket or quote just typed; null for any other text.
QChar closingCharacter(const QString &strTyped);
