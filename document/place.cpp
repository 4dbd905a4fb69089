#include "document/place.h"

#include "editor/chighlightedit.h"

#include <QScrollBar>
#include <QTextBlock>

void notePlace(const CHighlightEdit &editor, SPlace *pPlace)
{
    pPlace->nCaret = editor.textCursor().position();
    pPlace->scroll = {editor.horizontalScrollBar()->value(),
                      editor.cursorForPosition(QPoint(0, 0)).blockNumber()};
}

// The scroll bar counts shown lines, including wrapped ones.
void goToPlace(CHighlightEdit *pEditor, const SPlace &place)
{
    pEditor->goToPosition(place.nCaret);
    const QTextBlock first = pEditor->document()->findBlockByNumber(place.scroll.y());
    if (first.isValid())
        pEditor->verticalScrollBar()->setValue(first.firstLineNumber());
    pEditor->horizontalScrollBar()->setValue(place.scroll.x());
}
