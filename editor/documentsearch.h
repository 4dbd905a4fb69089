#pragma once

#include "editor/linesearch.h"

#include <QTextBlock>

class QTextCursor;
class QTextDocument;

// Searching and replacing in a document, line by line; matches never span lines. Positions are the
// document's, in UTF-16 units.

// Where a search starts: behind the cursor or its selection, or searching up before it; bFromEnd:
// at the document's start, or searching up at its end. Below 0 or behind the end nothing is left.
// Behind a selection made from right to left the search skips one character.
int searchStart(const QTextCursor &cursor, bool bSearchUp, bool bFromEnd);

// The document's last position.
int documentEnd(const QTextDocument *pDocument);

struct DocumentMatch
{
    QTextBlock block; // Invalid when nothing was found.
    LineMatch range; // In the block.
    bool isValid() const { return range.isValid(); }
};

// The first candidate that counts, each line giving one.
DocumentMatch findFrom(const QTextDocument *pDocument, const CLineSearch &search, int nStart);

// Replaces every match from the document's one end to its other; returns their number. The document
// is left as by finding and replacing them one by one on pEdit. Lines that hold an end of keep are
// changed match by match, so that cursors in them stay with their text; in every other changed line
// the whole text is set at once, many times faster. No undo step is made: pEdit may be in an edit
// block.
//
// strReplace must not hold ends of lines (see holdsBlockEnd()).
int replaceEverywhere(QTextCursor *pEdit, const CLineSearch &search, const QString &strReplace,
                      const QTextCursor &keep);

// True when a text document would begin a new block in the text.
bool holdsBlockEnd(const QString &strText);
