#pragma once

#include "editor/ccarets.h"
#include "editor/textedits.h"

#include <QStringList>

#include <functional>

class CTextLines;

// Typing and deleting at carets, as functions of a text and its carets.

// What comes in the place of a caret's selection, and how far before its end the caret goes.
struct SInsertion
{
    QString strText; // "\n" ends a line.
    int nBack = 0;
};

// One insertion for each caret, or one for all of them.
SCommand textTyped(const CCarets &carets, const QVector<SInsertion> &lstInsertions);

// A new line for each caret, indented like the one that it ends; behind an opening brace with a
// line in between, one step further in, for the caret.
QVector<SInsertion> lineEnds(const CTextLines &lines, const CCarets &carets);

// A text pasted: line by line when there are as many lines as carets, else whole for each. A last
// line end does not count as a line.
QVector<SInsertion> pastedParts(const QString &strText, const CCarets &carets);

// The selections go; a caret without one takes what lies up to the other end, which otherEnd tells
// for its place.
SCommand textErased(const CCarets &carets, const std::function<int(int)> &otherEnd);

// The selections, line by line, in the order of the text.
QStringList selectedTexts(const CTextLines &lines, const CCarets &carets);

// The text with one kind of line end, as a text document would part it.
QString withPlainLineEnds(QString strText);
