#pragma once

#include "pageedit/ctablegrid.h"

#include <QPoint>
#include <QRect>
#include <algorithm>

// A table without holes as a list of rectangles, for comparison with CTableGrid: each command is
// simple arithmetic on their edges.
class CLiteralTable
{
public:
    struct SCell
    {
        int nId;
        QRect place;
    };

    CLiteralTable(int nRows, int nColumns, const QVector<int> &groups) : m_nColumns(nColumns)
    {
        for (int nRow = 0; nRow < nRows; ++nRow) {
            m_rows.append({nRow, groups.at(nRow), {}});
            for (int n = 0; n < nColumns; ++n)
                m_cells.append({nRow * 100 + n, QRect(n, nRow, 1, 1)});
        }
    }

    QVector<STableRow> rows() const
    {
        QVector<STableRow> rows = m_rows;
        QVector<SCell> sorted = m_cells;
        std::sort(sorted.begin(), sorted.end(),
                  [](const SCell &a, const SCell &b) { return a.place.left() < b.place.left(); });
        for (const SCell &cell : sorted)
            rows[cell.place.top()].cells.append(
                {cell.nId, cell.place.width(), cell.place.height()});
        return rows;
    }
    int rowCount() const { return m_rows.size(); }
    int columnCount() const { return m_nColumns; }

    void insertRow(int nRow, bool bLikeAbove)
    {
        const int nLike = std::clamp(bLikeAbove ? nRow - 1 : nRow, 0, rowCount() - 1);
        QVector<bool> covered(m_nColumns);
        for (SCell &cell : m_cells) {
            if (cell.place.top() >= nRow) {
                cell.place.translate(0, 1);
            } else if (cell.place.bottom() >= nRow) {
                for (int n = cell.place.left(); n <= cell.place.right(); ++n)
                    covered[n] = true;
                cell.place.adjust(0, 0, 0, 1);
            }
        }
        m_rows.insert(nRow, {-1, m_rows.at(nLike).nGroup, {}});
        for (int n = 0; n < m_nColumns; ++n)
            if (!covered.at(n))
                m_cells.append({-1, QRect(n, nRow, 1, 1)});
    }
    void insertColumn(int nColumn)
    {
        QVector<bool> covered(rowCount());
        for (SCell &cell : m_cells) {
            if (cell.place.left() >= nColumn) {
                cell.place.translate(1, 0);
            } else if (cell.place.right() >= nColumn) {
                for (int n = cell.place.top(); n <= cell.place.bottom(); ++n)
                    covered[n] = true;
                cell.place.adjust(0, 0, 1, 0);
            }
        }
        ++m_nColumns;
        for (int n = 0; n < rowCount(); ++n)
            if (!covered.at(n))
                m_cells.append({-1, QRect(nColumn, n, 1, 1)});
    }
    bool removeRow(int nRow)
    {
        if (rowCount() == 1)
            return false;
        takeRow(nRow);
        takeEmpty();
        return true;
    }
    bool removeColumn(int nColumn)
    {
        if (m_nColumns == 1)
            return false;
        takeColumn(nColumn);
        takeEmpty();
        return true;
    }
    bool swapRows(int nUpper)
    {
        if (nUpper < 0 || nUpper + 1 >= rowCount()
            || m_rows.at(nUpper).nGroup != m_rows.at(nUpper + 1).nGroup)
            return false;
        for (const SCell &cell : m_cells)
            if (cell.place.height() > 1 && cell.place.top() <= nUpper + 1
                && cell.place.bottom() >= nUpper)
                return false;
        for (SCell &cell : m_cells)
            if (cell.place.top() == nUpper || cell.place.top() == nUpper + 1)
                cell.place.moveTop(2 * nUpper + 1 - cell.place.top());
        std::swap(m_rows[nUpper], m_rows[nUpper + 1]);
        return true;
    }
    bool swapColumns(int nLeft)
    {
        if (nLeft < 0 || nLeft + 1 >= m_nColumns)
            return false;
        for (const SCell &cell : m_cells)
            if (cell.place.width() > 1 && cell.place.left() <= nLeft + 1
                && cell.place.right() >= nLeft)
                return false;
        for (SCell &cell : m_cells)
            if (cell.place.left() == nLeft || cell.place.left() == nLeft + 1)
                cell.place.moveLeft(2 * nLeft + 1 - cell.place.left());
        return true;
    }
    // Grows the rectangle until it cuts no cell.
    QRect whole(QRect place) const
    {
        for (bool bGrown = true; bGrown;) {
            bGrown = false;
            for (const SCell &cell : m_cells) {
                if (cell.place.intersects(place) && !place.contains(cell.place)) {
                    place |= cell.place;
                    bGrown = true;
                }
            }
        }
        return place;
    }
    bool merge(const QRect &place)
    {
        QVector<SCell> others;
        SCell first {-1, QRect()};
        for (const SCell &cell : m_cells)
            if (cell.place.topLeft() == place.topLeft())
                first = cell;
            else if (!place.contains(cell.place))
                others.append(cell);
        if (first.place == place
            || m_rows.at(place.top()).nGroup != m_rows.at(place.bottom()).nGroup)
            return false;
        others.append({first.nId, place});
        m_cells = others;
        takeEmpty();
        return true;
    }
    bool split(int nCell)
    {
        const SCell cell = m_cells.at(nCell);
        if (cell.nId < 0 || cell.place.width() * cell.place.height() == 1)
            return false;
        m_cells.remove(nCell);
        for (int nRow = cell.place.top(); nRow <= cell.place.bottom(); ++nRow) {
            for (int n = cell.place.left(); n <= cell.place.right(); ++n) {
                const bool bFirst = QPoint(n, nRow) == cell.place.topLeft();
                m_cells.append({bFirst ? cell.nId : -1, QRect(n, nRow, 1, 1)});
            }
        }
        return true;
    }
    const QVector<SCell> &cells() const { return m_cells; }

private:
    using Edge = int (QRect::*)() const;
    void takeRow(int nRow)
    {
        m_rows.remove(nRow);
        shrink(nRow, &QRect::top, &QRect::bottom, QRect(0, 1, 0, 0));
    }
    void takeColumn(int nColumn)
    {
        --m_nColumns;
        shrink(nColumn, &QRect::left, &QRect::right, QRect(1, 0, 0, 0));
    }
    bool begins(Edge edge, int nAt) const
    {
        return std::any_of(
            m_cells.begin(), m_cells.end(),
            [=](const SCell &cell) { return (cell.place.*edge)() == nAt; });
    }
    void takeEmpty()
    {
        for (int n = rowCount() - 1; n >= 0; --n)
            if (!begins(&QRect::top, n))
                takeRow(n);
        for (int n = m_nColumns - 1; n >= 0; --n)
            if (!begins(&QRect::left, n))
                takeColumn(n);
    }
    void shrink(int nAt, Edge first, Edge last, const QRect &one)
    {
        QVector<SCell> left;
        for (SCell cell : m_cells) {
            if ((cell.place.*first)() > nAt)
                cell.place.translate(-one.x(), -one.y());
            else if ((cell.place.*last)() >= nAt)
                cell.place.adjust(0, 0, -one.x(), -one.y());
            if (!cell.place.isEmpty())
                left.append(cell);
        }
        m_cells = left;
    }

    QVector<STableRow> m_rows;
    QVector<SCell> m_cells;
    int m_nColumns;
};
