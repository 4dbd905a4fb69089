#pragma once

#include "editor/linesearch.h"

class QTextCursor;
class QTextDocument;

// Searching in a document, line by line; matches never span lines. Positions are the
// document's, in UTF-16 units.

// Where a search starts: behind the cursor or its selection, or searching up before it; bFromEnd:
// at the document's start, or searching up at its end. Below 0 or behind the end nothing is left.
// Behind a selection made from right to left the search skips one character.
int searchStart(const QTextCursor &cursor, bool bSearchUp, bool bFromEnd);

// The document's last position.
int documentEnd(const QTextDocument *pDocument);

struct SDocumentMatch
{
    int nStart = -1;
    int nLength = 0;
    bool isValid() const { return nStart >= 0; }
};

// The first candidate that counts, each line giving one.
SDocumentMatch findFrom(QTextDocument *pDocument, const CLineSearch &search, int nStart);
