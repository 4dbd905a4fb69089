#pragma once

#include <QPoint>
#include <QString>

class CHighlightEdit;

// A place in a document: what it takes to open the document again as it was left. The file may have
// changed since, so a place beyond its end means its end.
struct SPlace
{
    QString strPath; // Empty for a document without a file, which cannot be opened again.
    bool bSource = false; // A page that shows its source.
    // In a code editor: the UTF-16 units before the caret. In a page: those of text between the
    // last start tag before the caret and the caret.
    int nCaret = 0;
    int nElements = 0; // A page: start tags before the caret; 0 when it has none.
    // A code editor: pixels to the right, and lines of the text above the first one shown. A page:
    // pixels.
    QPoint scroll;
};

// The editor's part of a place; what the editor does not know stays.
void notePlace(const CHighlightEdit &editor, SPlace *pPlace);
void goToPlace(CHighlightEdit *pEditor, const SPlace &place);
