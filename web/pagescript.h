#pragma once

#include <QString>

// Scripts that the page editor itself runs in a page whose own scripts never run. Pure functions
// that give the text of a script.
//
// The scripts take the document's functions from their prototypes, because in a page an element
// named "execCommand" would hide the function.
namespace PageScript {

// strCommand is one of our own names; strValue comes from the user and may be anything.
QString execute(const QString &strCommand, const QString &strValue);
// The same with styles instead of the old font elements.
QString executeStyled(const QString &strCommand, const QString &strValue);
QString queryState(const QString &strCommand);
QString queryValue(const QString &strCommand);

// True for a caret, false for a selected range.
QString isCaret();
// The size at the selection's start in pixels, as a number; 0 when there is none.
QString fontPixels();
// A page knows only seven font sizes. So the largest is set as a mark, and the marked elements then
// get the wished size, which may be any length of CSS.
QString setFontSize(const QString &strCss);
// The mark for a caret: text typed next gets it,
QString markTyping();
// and this then turns it into the wished size.
QString sizeTyped(const QString &strCss);
// Puts the caret at the start of a page without a selection, so that moves have a beginning.
QString ensureCaret();

// The place of the caret: the number of start tags before it, the number of characters after the
// last of them, and its height in the view (0 top, 1 bottom). An empty list if there is no caret.
// The other scripts give the same for the top of the view, and set the caret at a place and scroll
// to it.
QString caretPlace();
QString topPlace();
QString setCaret(int nElements, int nText);
// Left, top, width and height of the selection in the view, in pixels of the page.
QString selectedSpot();
// Replaces the selection with a text if it is inside one piece of text. Otherwise gives false.
QString replaceWithin(const QString &strText);
// Makes the next typing a separate step of undo, because setting the selection ends the step.
QString endTyping();

} // namespace PageScript
