#pragma once

#include <QRect>
#include <QVector>

// A cell as HTML writes it in a row.
struct STableCell
{
    int nId = -1; // The owner's number; -1 for a new cell.
    int nColumns = 1; // The numbers of columns and rows that it spans.
    int nRows = 1;
    bool operator==(const STableCell &other) const
    {
        return nId == other.nId && nColumns == other.nColumns && nRows == other.nRows;
    }
};

struct STableRow
{
    int nId = -1; // The owner's number; -1 for a new row.
    int nGroup = 0; // The part of the table (head, bodies, foot) that contains it.
    QVector<STableCell> cells;
    bool operator==(const STableRow &other) const
    {
        return nId == other.nId && nGroup == other.nGroup && cells == other.cells;
    }
};

// The cells of a table by rows and columns, and the commands on them. A cell that spans several
// rows or columns grows when one is inserted inside it, and shrinks when one is removed. A row or
// column in which no cell begins any more is removed. A command that cannot be done gives false and
// changes nothing. A value; needs no page.
//
// Cells do not reach beyond their group. Cells may be missing at the end of a row.
class CTableGrid
{
public:
    CTableGrid() = default;
    explicit CTableGrid(const QVector<STableRow> &rows);

    // False if cells overlap; every command then refuses.
    bool isRegular() const { return m_bRegular; }
    QVector<STableRow> rows() const;

    int rowCount() const { return m_rows.size(); }
    int columnCount() const { return m_nColumns; }
    // The columns and rows of a cell; empty if it does not exist.
    QRect placeOf(int nId) const;
    // The smallest rectangle of whole cells around the cells.
    QRect around(const QVector<int> &ids) const;

    // Inserts before the row or column of that number, or after the last. A new row joins the group
    // of the row above it, or of the one below it.
    bool insertRow(int nRow, bool bLikeAbove);
    bool insertColumn(int nColumn);
    // Removes rows or columns, but never the last one.
    bool removeRows(int nFirst, int nCount);
    bool removeColumns(int nFirst, int nCount);
    // Moves by one within the group; false if a cell spans a border that would be moved.
    bool moveRow(int nRow, bool bDown);
    bool moveColumn(int nColumn, bool bRight);
    // Merges the cells of the rectangle (see around()) into its first cell. False for a single
    // cell, and across groups.
    bool merge(const QRect &place);
    // Splits a cell: it keeps its first place, and the other places get new cells.
    bool split(int nId);

private:
    struct SRow
    {
        int nId = -1;
        int nGroup = 0;
        QVector<int> cells; // The number in m_cells of the cell in each column; -1 for none.
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
    QVector<int> m_ids; // The owner's numbers of the cells, by the cells' own numbers.
    int m_nColumns = 0;
    bool m_bRegular = true;
};
