#pragma once

#include "editor/ccarets.h"
#include "editor/textedits.h"

#include <QStringList>

#include <functional>

class CTextLines;

// Typing and deleting at carets, as functions of a text and its carets.

// The text that replaces a caret's selection, and how far before its end the caret is then.
struct SInsertion
{
    QString strText; // "\n" ends a line.
    int nBack = 0;
};

// One insertion for each caret, or one for all of them.
SCommand textTyped(const CCarets &carets, const QVector<SInsertion> &lstInsertions);

// Begins a new line at each caret, indented like the one that it ends. After an opening brace
// another line is put in between, one step further in, and the caret goes there.
QVector<SInsertion> lineEnds(const CTextLines &lines, const CCarets &carets);

// Pastes a text: one line to each caret if there are as many lines as carets, otherwise all of it
// to each. An empty last line does not count.
QVector<SInsertion> pastedParts(const QString &strText, const CCarets &carets);

// Removes the selections. A caret without one removes the text up to the place that otherEnd gives
// for it.
SCommand textErased(const CCarets &carets, const std::function<int(int)> &otherEnd);

// The selections as lines, in the order of the text.
QStringList selectedTexts(const CTextLines &lines, const CCarets &carets);

// The text with one kind of line end, divided as a text document would divide it.
QString withPlainLineEnds(QString strText);
