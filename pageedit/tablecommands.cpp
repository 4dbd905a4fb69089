#include "pageedit/tablecommands.h"

#include "pageedit/ctablegrid.h"
#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QHash>
#include <QRect>

namespace {

// The present table, and the result of a command.
struct STableChange
{
    CTableGrid grid;
    QVector<STableRow> before;
    QVector<bool> heads; // Whether a row is in the table's head.
    QVector<int> selected;
    QRect place; // The rectangle of the selected cells.
    QVariantMap columns; // What happens to the columns.
    QPoint caret {-1, -1}; // The column and row of the cell where the caret goes.
    bool bMerge = false;
};

STableRow rowFrom(const QVariantMap &map)
{
    STableRow row {
        map.value(QStringLiteral("id")).toInt(), map.value(QStringLiteral("group")).toInt(), {}};
    const QVariantList lstCells = map.value(QStringLiteral("cells")).toList();
    for (const QVariant &varCell : lstCells) {
        const QVariantMap cell = varCell.toMap();
        row.cells.append({cell.value(QStringLiteral("id")).toInt(),
                          cell.value(QStringLiteral("columns")).toInt(),
                          cell.value(QStringLiteral("rows")).toInt()});
    }
    return row;
}

STableChange tableAtCaret(const CEditWebView *pPage)
{
    STableChange change;
    const QVariantMap answer = askPage(pPage, QStringLiteral("table")).toMap();
    const QVariantList lstRows = answer.value(QStringLiteral("rows")).toList();
    for (const QVariant &varRow : lstRows) {
        change.before.append(rowFrom(varRow.toMap()));
        change.heads.append(varRow.toMap().value(QStringLiteral("head")).toBool());
    }
    const QVariantList lstSelected = answer.value(QStringLiteral("selected")).toList();
    for (const QVariant &varId : lstSelected)
        change.selected.append(varId.toInt());
    change.grid = CTableGrid(change.before);
    change.place = change.grid.around(change.selected);
    return change;
}

QVariantList rowsForPage(const QVector<STableRow> &rows)
{
    QVariantList lstRows;
    for (const STableRow &row : rows) {
        QVariantList lstCells;
        for (const STableCell &cell : row.cells)
            lstCells.append(QVariantMap {{QStringLiteral("id"), cell.nId},
                                         {QStringLiteral("columns"), cell.nColumns},
                                         {QStringLiteral("rows"), cell.nRows}});
        lstRows.append(QVariantMap {{QStringLiteral("id"), row.nId},
                                    {QStringLiteral("group"), row.nGroup},
                                    {QStringLiteral("cells"), lstCells}});
    }
    return lstRows;
}

QVector<int> idsOf(const QVector<STableRow> &rows)
{
    QVector<int> ids;
    for (const STableRow &row : rows)
        for (const STableCell &cell : row.cells)
            ids.append(cell.nId);
    return ids;
}

// The row of the cell that covers a place, and its index in the row; an empty list for none.
QVariantList cellForCaret(const CTableGrid &grid, const QPoint &place)
{
    const QVector<STableRow> rows = grid.rows();
    if (place.y() < 0 || place.y() >= rows.size() || rows.at(place.y()).cells.isEmpty())
        return {};
    const QVector<STableCell> &cells = rows.at(place.y()).cells;
    for (int n = 0; n < cells.size(); ++n) {
        const QRect cell = grid.placeOf(cells.at(n).nId);
        if (cell.left() <= place.x() && place.x() <= cell.right())
            return {place.y(), n};
    }
    return {place.y(), qBound(0, place.x(), cells.size() - 1)};
}

bool insertRow(STableChange *pChange, bool bAbove)
{
    const int nRow = bAbove ? pChange->place.top() : pChange->place.bottom() + 1;
    // A new row below the table's head begins the body; one above the body's first row joins that
    // body.
    const bool bHead = !bAbove && nRow < pChange->heads.size() && pChange->heads.at(nRow - 1)
        && !pChange->heads.at(nRow);
    pChange->caret = QPoint(pChange->place.left(), nRow);
    return pChange->grid.insertRow(nRow, !bAbove && !bHead);
}

bool insertColumn(STableChange *pChange, bool bLeft)
{
    const int nColumn = bLeft ? pChange->place.left() : pChange->place.right() + 1;
    pChange->columns.insert(QStringLiteral("insert"), nColumn);
    return pChange->grid.insertColumn(nColumn);
}

bool removeColumns(STableChange *pChange)
{
    const QRect &place = pChange->place;
    pChange->columns.insert(QStringLiteral("remove"), place.left());
    pChange->columns.insert(QStringLiteral("size"), place.width());
    pChange->caret = QPoint(qMax(0, place.left() - 1), place.top());
    return pChange->grid.removeColumns(place.left(), place.width());
}

bool removeRows(STableChange *pChange)
{
    pChange->caret = QPoint(pChange->place.left(), qMax(0, pChange->place.top() - 1));
    return pChange->grid.removeRows(pChange->place.top(), pChange->place.height());
}

bool moveColumn(STableChange *pChange, bool bRight)
{
    const int nColumn = pChange->place.left();
    pChange->columns.insert(QStringLiteral("from"), nColumn);
    pChange->columns.insert(QStringLiteral("to"), nColumn + (bRight ? 1 : -1));
    return pChange->grid.moveColumn(nColumn, bRight);
}

bool change(STableChange *pChange, const QString &strCommand)
{
    using Command = bool (*)(STableChange *);
    static const QHash<QString, Command> s_commands = {
        {QStringLiteral("rowAbove"), [](STableChange *p) { return insertRow(p, true); }},
        {QStringLiteral("rowBelow"), [](STableChange *p) { return insertRow(p, false); }},
        {QStringLiteral("columnLeft"), [](STableChange *p) { return insertColumn(p, true); }},
        {QStringLiteral("columnRight"), [](STableChange *p) { return insertColumn(p, false); }},
        {QStringLiteral("deleteRows"), removeRows},
        {QStringLiteral("deleteColumns"), removeColumns},
        {QStringLiteral("rowUp"),
         [](STableChange *p) { return p->grid.moveRow(p->place.top(), false); }},
        {QStringLiteral("rowDown"),
         [](STableChange *p) { return p->grid.moveRow(p->place.top(), true); }},
        {QStringLiteral("moveLeft"), [](STableChange *p) { return moveColumn(p, false); }},
        {QStringLiteral("moveRight"), [](STableChange *p) { return moveColumn(p, true); }},
        {QStringLiteral("merge"),
         [](STableChange *p) {
             p->bMerge = true;
             return p->grid.merge(p->place);
         }},
        {QStringLiteral("split"),
         [](STableChange *p) { return p->grid.split(p->selected.constFirst()); }},
    };
    const Command command = s_commands.value(strCommand);
    return command && command(pChange);
}

// The content of all merged cells is moved to the first one.
void addMerged(const STableChange &change, QVariantMap *pArguments)
{
    const QVector<int> left = idsOf(change.grid.rows());
    const QVector<int> before = idsOf(change.before);
    QVariantList lstMerged;
    for (const int nId : before) {
        const QRect place = CTableGrid(change.before).placeOf(nId);
        if (place.topLeft() == change.place.topLeft())
            pArguments->insert(QStringLiteral("into"), nId);
        if (!left.contains(nId))
            lstMerged.append(nId);
    }
    pArguments->insert(QStringLiteral("merged"), lstMerged);
}

bool isWholeTable(const STableChange &change, const QString &strCommand)
{
    return change.grid.isRegular()
        && ((strCommand == QLatin1String("deleteRows")
             && change.place.height() == change.grid.rowCount())
            || (strCommand == QLatin1String("deleteColumns")
                && change.place.width() == change.grid.columnCount()));
}

} // namespace

QStringList possibleTableCommands(const CEditWebView *pPage, const QStringList &lstNames)
{
    QStringList lstPossible;
    if (!pPage->isBodyEdited())
        return lstPossible;
    const STableChange table = tableAtCaret(pPage);
    for (const QString &strName : lstNames) {
        STableChange tried = table;
        if (!table.selected.isEmpty() && (isWholeTable(table, strName) || change(&tried, strName)))
            lstPossible.append(strName);
    }
    return lstPossible;
}

bool runTableCommand(CEditWebView *pPage, const QString &strCommand)
{
    if (!pPage->isBodyEdited())
        return false;
    STableChange table = tableAtCaret(pPage);
    if (table.selected.isEmpty())
        return false;
    if (isWholeTable(table, strCommand))
        return runPageCommand(pPage, QStringLiteral("deleteTable"));
    const int nColumns = table.grid.columnCount();
    if (!change(&table, strCommand))
        return false;
    QVariantMap arguments {{QStringLiteral("rows"), rowsForPage(table.grid.rows())}};
    if (table.bMerge)
        addMerged(table, &arguments);
    if (!table.columns.isEmpty()) {
        table.columns.insert(QStringLiteral("count"), nColumns);
        arguments.insert(QStringLiteral("columns"), table.columns);
    }
    const QVariantList lstCaret = cellForCaret(table.grid, table.caret);
    if (!lstCaret.isEmpty())
        arguments.insert(QStringLiteral("caret"), lstCaret);
    return runPageCommand(pPage, QStringLiteral("layoutTable"), arguments);
}

bool goToNextCell(CEditWebView *pPage, bool bBack)
{
    if (!pPage->isBodyEdited())
        return false;
    const QVariantMap answer =
        askPage(pPage, QStringLiteral("nextCell"), {{QStringLiteral("back"), bBack}}).toMap();
    if (!answer.value(QStringLiteral("inside")).toBool())
        return false;
    if (!answer.value(QStringLiteral("moved")).toBool() && !bBack
        && runTableCommand(pPage, QStringLiteral("rowBelow")))
        askPage(pPage, QStringLiteral("rowStart"));
    return true;
}
