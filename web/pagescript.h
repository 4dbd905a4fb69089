#pragma once

#include <QString>

// Scripts that the page editor itself runs in a page whose own scripts never run. Pure functions
// that give the text of the script.
//
// The document's functions are taken from their prototypes: in a page, an element named
// "execCommand" would otherwise stand in their place.
namespace PageScript {

// strCommand is one of our own names, strValue (anything) comes from the user.
QString execute(const QString &strCommand, const QString &strValue);
// The same with styles instead of the old font elements.
QString executeStyled(const QString &strCommand, const QString &strValue);
QString queryState(const QString &strCommand);
QString queryValue(const QString &strCommand);

// True for a caret, false for a selected range.
QString isCaret();
// The size at the selection's start in pixels, as a number; 0 when there is none.
QString fontPixels();
// A page knows seven sizes only. So the largest is given as a mark, and the marked elements then
// get the wished size, any length of CSS.
QString setFontSize(const QString &strCss);
// The mark for a caret: what is typed next gets it,
QString markTyping();
// and this then turns it into the wished size.
QString sizeTyped(const QString &strCss);
// Puts the caret at the start of a page without a selection, so that moves have a beginning.
QString ensureCaret();

// Where the caret stands: the number of start tags before it, of characters of text behind the last
// of them, and its height in the view (0 top, 1 bottom); an empty list without a caret. The same
// for what is at the top of the view, and for a caret to be set there and scrolled into view.
QString caretPlace();
QString topPlace();
QString setCaret(int nElements, int nText);
// Left, top, width and height of the selection in the view, in pixels of the page.
QString selectedSpot();
// Replaces the selection, where it lies in one piece of text, with a text. False where it does not.
QString replaceWithin(const QString &strText);
// What is typed next is undone by itself: a selection that is set ends the step of typing.
QString endTyping();

} // namespace PageScript
