#pragma once

#include "editor/ccarets.h"
#include "editor/textedits.h"

class CTextLines;

// The commands on lines, as functions of a text and its carets. A caret stands for the lines that
// its selection touches; one that ends in front of a line does not touch it. All of them do nothing
// when there is nothing to do.

// Lines with carets trade places with the line above or below. Lines at the text's edge stay.
SCommand lineMoveUp(const CTextLines &lines, const CCarets &carets);
SCommand lineMoveDown(const CTextLines &lines, const CCarets &carets);

// A copy below; the carets go there.
SCommand lineDuplicate(const CTextLines &lines, const CCarets &carets);

// The carets go to the same column of the line that comes in the place.
SCommand lineDelete(const CTextLines &lines, const CCarets &carets);

// The selected lines, or the caret's and the next, become one; blanks and tabs around each joint
// become one blank, or none beside nothing.
SCommand lineJoin(const CTextLines &lines, const CCarets &carets);

// A new line with the same indentation, and the caret there.
SCommand lineNewBelow(const CTextLines &lines, const CCarets &carets);
SCommand lineNewAbove(const CTextLines &lines, const CCarets &carets);

// The selected lines, or without a selection all but an empty last one, by the numbers of their
// characters. Equal lines keep their order.
SCommand lineSort(const CTextLines &lines, const CCarets &carets);

// The selections, or the words at the carets. Selections stay.
SCommand textUpperCase(const CTextLines &lines, const CCarets &carets);
SCommand textLowerCase(const CTextLines &lines, const CCarets &carets);

// One step for each line that holds text or a caret.
SCommand lineIndent(const CTextLines &lines, const CCarets &carets);
SCommand lineOutdent(const CTextLines &lines, const CCarets &carets);
