#pragma once

#include <QPoint>
#include <QString>

class CHighlightEdit;

// A place in a document, to open the document again as it was left. The file may have changed
// since, so a place beyond its end means its end.
struct SPlace
{
    QString strPath; // Empty for a document without a file, which cannot be opened again.
    bool bSource = false; // True for a page that shows its source.
    // In a code editor, the number of UTF-16 units before the caret. In a page, the units of text
    // between the caret and the last start tag before it.
    int nCaret = 0;
    int nElements = 0; // In a page, the start tags before the caret; 0 without a caret.
    // In a code editor, pixels to the right, and lines above the first visible one. In a page,
    // pixels.
    QPoint scroll;
};

// Fills in the editor's part of a place; the rest stays.
void notePlace(const CHighlightEdit &editor, SPlace *pPlace);
void goToPlace(CHighlightEdit *pEditor, const SPlace &place);
