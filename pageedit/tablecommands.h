#pragma once

#include <QStringList>

class CEditWebView;

// Commands on the rows, columns and cells of the table at a page's selection. Each is one step of
// undo. GUI thread only.

// "rowAbove", "rowBelow", "columnLeft", "columnRight": a new one beside the selected cells;
// "deleteRows", "deleteColumns": those of the selected cells, the last of the table with it;
// "rowUp", "rowDown", "moveLeft", "moveRight": the row or column moves by one; "merge", "split":
// the selected cells. False, with nothing changed, if it cannot be done.
bool runTableCommand(CEditWebView *pPage, const QString &strCommand);

// The commands among these names that would change something. Asks the page once.
QStringList possibleTableCommands(const CEditWebView *pPage, const QStringList &lstNames);

// Moves the caret to the next or the previous cell; after the last cell into a new row. False
// outside of tables.
bool goToNextCell(CEditWebView *pPage, bool bBack);
