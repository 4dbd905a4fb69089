#pragma once

#include <QRect>
#include <QVector>

// One cell as a row of HTML writes it.
struct STableCell
{
    int nId = -1; // The owner's; -1 for a new cell.
    int nColumns = 1; // That it spans.
    int nRows = 1;
    bool operator==(const STableCell &other) const
    {
        return nId == other.nId && nColumns == other.nColumns && nRows == other.nRows;
    }
};

struct STableRow
{
    int nId = -1; // The owner's; -1 for a new row.
    int nGroup = 0; // The part of the table (head, bodies, foot) that it stands in.
    QVector<STableCell> cells;
    bool operator==(const STableRow &other) const
    {
        return nId == other.nId && nGroup == other.nGroup && cells == other.cells;
    }
};

// The cells of a table by rows and columns, and what can be done to them. Cells that span a border
// grow with what is inserted in them and shrink with what is removed. A row or column in which no
// cell begins any more goes. A command that cannot be done
// gives false and changes nothing. A value; needs no page.
//
// Cells reach no further than their group. Where a row ends early, cells may be missing.
class CTableGrid
{
public:
    CTableGrid() = default;
    explicit CTableGrid(const QVector<STableRow> &rows);

    // False for cells that overlap: of these nothing can be said, and every command refuses.
    bool isRegular() const { return m_bRegular; }
    QVector<STableRow> rows() const;

    int rowCount() const { return m_rows.size(); }
    int columnCount() const { return m_nColumns; }
    // Columns and rows of a cell; empty for one that is not there.
    QRect placeOf(int nId) const;
    // The smallest rectangle of whole cells around the cells.
    QRect around(const QVector<int> &ids) const;

    // Inserts before the row or column of that number, or behind the last. A new row joins the
    // group of the row above it, or of the one below it.
    bool insertRow(int nRow, bool bLikeAbove);
    bool insertColumn(int nColumn);
    // The last row or column stays.
    bool removeRows(int nFirst, int nCount);
    bool removeColumns(int nFirst, int nCount);
    // Moves by one within the group; false if a cell spans a border that would be moved.
    bool moveRow(int nRow, bool bDown);
    bool moveColumn(int nColumn, bool bRight);
    // The first cell of the rectangle (see around()) takes the place of all. False for one cell,
    // and across groups.
    bool merge(const QRect &place);
    // The cell keeps its first place; the others get new ones.
    bool split(int nId);

private:
    struct SRow
    {
        int nId = -1;
        int nGroup = 0;
        QVector<int> cells; // The number in m_cells of each column's cell; -1 for none.
    };
    void place(int nRow, const STableCell &cell, int *pColumn);
    void widen(int nColumns);
    int newCell();
    int cellAt(int nRow, int nColumn) const { return m_rows.at(nRow).cells.at(nColumn); }
    QRect placeOfCell(int nCell) const;
    void dropEmpty();
    bool isCutBetween(int nRow) const;
    bool isCutBetweenColumns(int nColumn) const;

    QVector<SRow> m_rows;
    QVector<int> m_ids; // Of the cells, by their own numbers.
    int m_nColumns = 0;
    bool m_bRegular = true;
};
