#pragma once

#include <QString>

// The rules of automatic indenting and closing brackets, without a widget.

// The line's leading white space.
QString leadingBlanks(const QString &strLine);

// True when the line ends with an opening brace; white space may follow.
bool endsWithOpeningBrace(const QString &strLine);

// How many characters one step of outdenting takes off the line's start: a tab, or up to four
// spaces.
int outdentLength(const QString &strLine);

// The closing partner of the bracket or quote just typed; null for any other text.
QChar closingCharacter(const QString &strTyped);
