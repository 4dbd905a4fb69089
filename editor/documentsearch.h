#pragma once

#include "editor/linesearch.h"

class QTextCursor;
class QTextDocument;

// Searching in a document, line by line; matches never span lines. Positions are the
// document's, in UTF-16 units.

// Where a search starts: after the cursor or its selection; when searching up, before it. With
// bFromEnd it is the document's start; when searching up, its end. A place below 0 or after the end
// means that nothing is left. After a selection made from right to left the search skips one
// character.
int searchStart(const QTextCursor &cursor, bool bSearchUp, bool bFromEnd);

// The document's last position.
int documentEnd(const QTextDocument *pDocument);

struct SDocumentMatch
{
    int nStart = -1;
    int nLength = 0;
    bool isValid() const { return nStart >= 0; }
};

// The first candidate that counts; each line gives one.
SDocumentMatch findFrom(QTextDocument *pDocument, const CLineSearch &search, int nStart);
