#pragma once

#include <QPoint>
#include <QString>

class CHighlightEdit;

// Where somebody was in a document: what has to be known to open it again as it was left. None of
// it has to fit the file, which may have changed since: whoever goes there stops at its ends.
struct SPlace
{
    QString strPath; // Empty for a document without a file, which cannot be opened again.
    bool bSource = false; // A page that shows its source.
    // Of a code editor: UTF-16 units before the caret. A page: those of text between the caret and
    // the last start tag before it.
    int nCaret = 0;
    int nElements = 0; // A page: start tags before the caret; 0 when it has none.
    // A code editor: pixels to the right, and lines of the text above the first one shown. A page:
    // pixels.
    QPoint scroll;
};

// The editor's part of a place; what the editor does not know stays.
void notePlace(const CHighlightEdit &editor, SPlace *pPlace);
void goToPlace(CHighlightEdit *pEditor, const SPlace &place);
