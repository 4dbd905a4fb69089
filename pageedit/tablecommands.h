#pragma once

#include <QStringList>

class CEditWebView;

// Commands on the rows, columns and cells of the table that a page's selection stands in. Each is
// one step of undo. GUI thread only.

// "rowAbove", "rowBelow", "columnLeft", "columnRight": a new one beside the selected cells;
// "deleteRows", "deleteColumns": those of the selected cells, the last of the table with it;
// "rowUp", "rowDown", "moveLeft", "moveRight": the row or column moves by one;
// "merge", "split": the selected cells. False where it cannot be done: nothing has changed.
bool runTableCommand(CEditWebView *pPage, const QString &strCommand);

// Those of the names that would change something. Asks the page once.
QStringList possibleTableCommands(const CEditWebView *pPage, const QStringList &lstNames);

// The caret to the next or the previous cell; behind the last one in a new row. False outside of
// tables.
bool goToNextCell(CEditWebView *pPage, bool bBack);
