#include "pageedit/ctablegrid.h"

#include <utility>

namespace {

// The largest span; browsers have the same limits.
const int g_nMostColumns = 1000;

} // namespace

CTableGrid::CTableGrid(const QVector<STableRow> &rows)
{
    for (const STableRow &row : rows)
        m_rows.append({row.nId, row.nGroup, {}});
    for (int nRow = 0; nRow < rows.size(); ++nRow) {
        int nColumn = 0;
        for (const STableCell &cell : rows.at(nRow).cells)
            place(nRow, cell, &nColumn);
    }
}

// Places the cell at the first free column from this one on, as browsers do.
void CTableGrid::place(int nRow, const STableCell &cell, int *pColumn)
{
    while (*pColumn < m_nColumns && cellAt(nRow, *pColumn) >= 0)
        ++*pColumn;
    const int nColumns = qBound(1, cell.nColumns, g_nMostColumns);
    if (*pColumn + nColumns > g_nMostColumns) {
        m_bRegular = false;
        return;
    }
    widen(*pColumn + nColumns);
    m_ids.append(cell.nId);
    const int nGroup = m_rows.at(nRow).nGroup;
    const int nLast = cell.nRows > 0 ? nRow + cell.nRows : m_rows.size(); // 0: to the group's end.
    for (int n = nRow; n < qMin(nLast, m_rows.size()) && m_rows.at(n).nGroup == nGroup; ++n) {
        for (int nColumn = *pColumn; nColumn < *pColumn + nColumns; ++nColumn) {
            int &nSlot = m_rows[n].cells[nColumn];
            m_bRegular = m_bRegular && nSlot < 0;
            nSlot = m_ids.size() - 1;
        }
    }
    *pColumn += nColumns;
}

void CTableGrid::widen(int nColumns)
{
    m_nColumns = qMax(m_nColumns, nColumns);
    for (SRow &row : m_rows)
        while (row.cells.size() < m_nColumns)
            row.cells.append(-1);
}

int CTableGrid::newCell()
{
    m_ids.append(-1);
    return m_ids.size() - 1;
}

QVector<STableRow> CTableGrid::rows() const
{
    QVector<STableRow> rows;
    for (int nRow = 0; nRow < m_rows.size(); ++nRow) {
        STableRow row {m_rows.at(nRow).nId, m_rows.at(nRow).nGroup, {}};
        int nMissing = 0;
        for (int nColumn = 0; nColumn < m_nColumns; ++nColumn) {
            const int nCell = cellAt(nRow, nColumn);
            const QRect place = placeOfCell(nCell);
            nMissing += nCell < 0 ? 1 : 0;
            if (nCell < 0 || place.topLeft() != QPoint(nColumn, nRow))
                continue;
            for (; nMissing > 0; --nMissing)
                row.cells.append(STableCell());
            row.cells.append({m_ids.at(nCell), place.width(), place.height()});
        }
        rows.append(row);
    }
    return rows;
}

QRect CTableGrid::placeOfCell(int nCell) const
{
    QRect place;
    for (int nRow = 0; nCell >= 0 && nRow < m_rows.size(); ++nRow) {
        for (int nColumn = 0; nColumn < m_nColumns; ++nColumn)
            if (cellAt(nRow, nColumn) == nCell)
                place |= QRect(nColumn, nRow, 1, 1);
    }
    return place;
}

QRect CTableGrid::placeOf(int nId) const
{
    return nId < 0 ? QRect() : placeOfCell(m_ids.indexOf(nId));
}

QRect CTableGrid::around(const QVector<int> &ids) const
{
    QRect place;
    for (const int nId : ids)
        place |= placeOf(nId);
    for (QRect before; before != place;) {
        before = place;
        for (int nRow = before.top(); nRow <= before.bottom(); ++nRow)
            for (int nColumn = before.left(); nColumn <= before.right(); ++nColumn)
                place |= placeOfCell(cellAt(nRow, nColumn));
    }
    return place;
}

// Removes rows and columns in which no cell begins, which HTML cannot have.
void CTableGrid::dropEmpty()
{
    for (int nRow = m_rows.size() - 1; nRow > 0; --nRow) {
        bool bBegins = false, bSpanned = false;
        for (int n = 0; n < m_nColumns; ++n) {
            const bool bAbove = cellAt(nRow, n) == cellAt(nRow - 1, n);
            bSpanned = bSpanned || (cellAt(nRow, n) >= 0 && bAbove);
            bBegins = bBegins || (cellAt(nRow, n) >= 0 && !bAbove);
        }
        if (bSpanned && !bBegins)
            m_rows.remove(nRow);
    }
    for (int nColumn = m_nColumns - 1; nColumn > 0; --nColumn) {
        bool bBegins = false;
        for (const SRow &row : qAsConst(m_rows)) {
            const int nCell = row.cells.at(nColumn);
            bBegins = bBegins || (nCell >= 0 && nCell != row.cells.at(nColumn - 1));
        }
        for (SRow &row : m_rows)
            if (!bBegins)
                row.cells.remove(nColumn);
        m_nColumns -= bBegins ? 0 : 1;
    }
}

// True where a cell reaches from the row above into this one.
bool CTableGrid::isCutBetween(int nRow) const
{
    for (int n = 0; nRow > 0 && nRow < m_rows.size() && n < m_nColumns; ++n)
        if (cellAt(nRow, n) >= 0 && cellAt(nRow, n) == cellAt(nRow - 1, n))
            return true;
    return false;
}

bool CTableGrid::isCutBetweenColumns(int nColumn) const
{
    for (int n = 0; nColumn > 0 && nColumn < m_nColumns && n < m_rows.size(); ++n)
        if (cellAt(n, nColumn) >= 0 && cellAt(n, nColumn) == cellAt(n, nColumn - 1))
            return true;
    return false;
}

bool CTableGrid::insertRow(int nRow, bool bLikeAbove)
{
    if (!m_bRegular || m_rows.isEmpty() || nRow < 0 || nRow > m_rows.size())
        return false;
    const int nLike = qBound(0, bLikeAbove ? nRow - 1 : nRow, m_rows.size() - 1);
    SRow row {-1, m_rows.at(nLike).nGroup, {}};
    for (int n = 0; n < m_nColumns; ++n) {
        const int nAbove = nRow > 0 ? cellAt(nRow - 1, n) : -1;
        const bool bSpanned = nAbove >= 0 && nRow < m_rows.size() && nAbove == cellAt(nRow, n);
        row.cells.append(bSpanned ? nAbove : cellAt(nLike, n) >= 0 ? newCell() : -1);
    }
    m_rows.insert(nRow, row);
    return true;
}

bool CTableGrid::insertColumn(int nColumn)
{
    if (!m_bRegular || nColumn < 0 || nColumn > m_nColumns || m_nColumns >= g_nMostColumns)
        return false;
    for (SRow &row : m_rows) {
        QVector<int> &cells = row.cells;
        const int nLeft = nColumn > 0 ? cells.at(nColumn - 1) : -1;
        const int nRight = nColumn < m_nColumns ? cells.at(nColumn) : -1;
        const bool bSpanned = nLeft >= 0 && nLeft == nRight;
        const bool bBeyond = nLeft < 0 && nRight < 0 && m_nColumns > 0;
        cells.insert(nColumn, bSpanned ? nLeft : bBeyond ? -1 : newCell());
    }
    ++m_nColumns;
    return true;
}

bool CTableGrid::removeRows(int nFirst, int nCount)
{
    if (!m_bRegular || nFirst < 0 || nCount < 1 || nFirst + nCount > m_rows.size()
        || nCount == m_rows.size())
        return false;
    m_rows.remove(nFirst, nCount);
    dropEmpty();
    return true;
}

bool CTableGrid::removeColumns(int nFirst, int nCount)
{
    if (!m_bRegular || nFirst < 0 || nCount < 1 || nFirst + nCount > m_nColumns
        || nCount == m_nColumns)
        return false;
    for (SRow &row : m_rows)
        row.cells.remove(nFirst, nCount);
    m_nColumns -= nCount;
    dropEmpty();
    return true;
}

bool CTableGrid::moveRow(int nRow, bool bDown)
{
    const int nUpper = bDown ? nRow : nRow - 1;
    if (!m_bRegular || nRow < 0 || nUpper < 0 || nUpper + 1 >= m_rows.size()
        || m_rows.at(nUpper).nGroup != m_rows.at(nUpper + 1).nGroup || isCutBetween(nUpper)
        || isCutBetween(nUpper + 1) || isCutBetween(nUpper + 2))
        return false;
    std::swap(m_rows[nUpper], m_rows[nUpper + 1]);
    return true;
}

bool CTableGrid::moveColumn(int nColumn, bool bRight)
{
    const int nLeft = bRight ? nColumn : nColumn - 1;
    if (!m_bRegular || nColumn < 0 || nLeft < 0 || nLeft + 1 >= m_nColumns
        || isCutBetweenColumns(nLeft) || isCutBetweenColumns(nLeft + 1)
        || isCutBetweenColumns(nLeft + 2))
        return false;
    for (SRow &row : m_rows)
        std::swap(row.cells[nLeft], row.cells[nLeft + 1]);
    return true;
}

bool CTableGrid::merge(const QRect &place)
{
    const QRect all(0, 0, m_nColumns, m_rows.size());
    if (!m_bRegular || place.isEmpty() || !all.contains(place)
        || m_rows.at(place.top()).nGroup != m_rows.at(place.bottom()).nGroup)
        return false;
    const int nFirst = cellAt(place.top(), place.left());
    if (nFirst < 0 || placeOfCell(nFirst) == place)
        return false;
    for (int nRow = place.top(); nRow <= place.bottom(); ++nRow)
        for (int nColumn = place.left(); nColumn <= place.right(); ++nColumn)
            m_rows[nRow].cells[nColumn] = nFirst;
    dropEmpty();
    return true;
}

bool CTableGrid::split(int nId)
{
    const QRect place = placeOf(nId);
    if (!m_bRegular || place.width() * place.height() < 2)
        return false;
    for (int nRow = place.top(); nRow <= place.bottom(); ++nRow) {
        for (int nColumn = place.left(); nColumn <= place.right(); ++nColumn)
            if (QPoint(nColumn, nRow) != place.topLeft())
                m_rows[nRow].cells[nColumn] = newCell();
    }
    return true;
}
