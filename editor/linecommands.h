#pragma once

#include "editor/ccarets.h"
#include "editor/textedits.h"

class CTextLines;

// The commands on lines, as functions of a text and its carets. A caret means the lines that its
// selection touches; a selection that ends at a line's start does not touch that line. A command
// without anything to do gives no edits.

// Swaps the lines of carets with the line above or below. Lines at the text's edge stay.
SCommand lineMoveUp(const CTextLines &lines, const CCarets &carets);
SCommand lineMoveDown(const CTextLines &lines, const CCarets &carets);

// Copies the lines below themselves; the carets go to the copies.
SCommand lineDuplicate(const CTextLines &lines, const CCarets &carets);

// Deletes the lines. The carets go to the same column of the line that takes their place.
SCommand lineDelete(const CTextLines &lines, const CCarets &carets);

// Joins the selected lines, or the caret's line and the next. Blanks and tabs around each joint
// become one blank, or none if there is no text on one side.
SCommand lineJoin(const CTextLines &lines, const CCarets &carets);

// Inserts a new line with the same indentation and puts the caret there.
SCommand lineNewBelow(const CTextLines &lines, const CCarets &carets);
SCommand lineNewAbove(const CTextLines &lines, const CCarets &carets);

// Sorts the selected lines by the numbers of their characters; without a selection all lines except
// an empty last one. Equal lines keep their order.
SCommand lineSort(const CTextLines &lines, const CCarets &carets);

// Changes the letter case of the selections, or of the words at the carets. Selections stay.
SCommand textUpperCase(const CTextLines &lines, const CCarets &carets);
SCommand textLowerCase(const CTextLines &lines, const CCarets &carets);

// Indents each line with text or a caret by one step.
SCommand lineIndent(const CTextLines &lines, const CCarets &carets);
SCommand lineOutdent(const CTextLines &lines, const CCarets &carets);
