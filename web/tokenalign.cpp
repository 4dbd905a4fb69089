#include "web/tokenalign.h"

#include <QHash>

#include <algorithm>

namespace {

// After so many equal elements in a row both sides count as aligned again.
const int g_nSureRun = 12;
const int g_nMaxTable = 250 * 1000; // Cells of a full comparison.
const int g_nMaxDifferences = 1000;
const int g_nFirstCheck = 64; // After so many differences a good path is taken without such a run.

struct SPair
{
    int nA = 0;
    int nB = 0;
};

class CAlignment
{
public:
    CAlignment(const QVector<quint64> &lstA, const QVector<quint64> &lstB)
        : m_lstA(lstA), m_lstB(lstB), m_lstResult(lstA.size(), -1)
    {
    }
    QVector<int> run()
    {
        align({0, 0}, {m_lstA.size(), m_lstB.size()}, true);
        return m_lstResult;
    }

private:
    void align(SPair start, SPair end, bool bAnchors);
    void compareAll(SPair start, SPair end);
    bool findPath(SPair *pStart, SPair end);
    void takePath(SPair start, int nDifferences, int nDiagonal, SPair *pEnd);
    void alignBetweenAnchors(SPair start, SPair end);
    QVector<SPair> anchors(SPair start, SPair end) const;
    bool isEqual(int nA, int nB) const { return m_lstA.at(nA) == m_lstB.at(nB); }
    int &furthest(int nDifferences, int nDiagonal)
    {
        return m_lstFurthest[m_lstRows.at(nDifferences) + nDifferences + nDiagonal];
    }

    const QVector<quint64> &m_lstA;
    const QVector<quint64> &m_lstB;
    QVector<int> m_lstResult;
    // How far (in a) each diagonal gets with each number of differences.
    QVector<int> m_lstFurthest;
    QVector<int> m_lstRows; // Where the row of each number begins.
};

void CAlignment::align(SPair start, SPair end, bool bAnchors)
{
    bool bEndTried = false;
    for (;;) {
        while (start.nA < end.nA && start.nB < end.nB && isEqual(start.nA, start.nB))
            m_lstResult[start.nA++] = start.nB++;
        // The start comes first, so that of several equal elements the first ones are partners.
        while (!bEndTried && end.nA > start.nA && end.nB > start.nB
               && isEqual(end.nA - 1, end.nB - 1))
            m_lstResult[--end.nA] = --end.nB;
        bEndTried = true;
        const qint64 nA = end.nA - start.nA;
        const qint64 nB = end.nB - start.nB;
        if (nA == 0 || nB == 0)
            return;
        if (nA * nB <= g_nMaxTable && (nA <= 4 || nB <= 4 || nA * nB <= 400)) {
            compareAll(start, end);
            return;
        }
        if (findPath(&start, end))
            continue;
        if (nA * nB <= g_nMaxTable)
            compareAll(start, end);
        else if (bAnchors)
            alignBetweenAnchors(start, end);
        return;
    }
}

// Finds the longest pairing with the full table.
void CAlignment::compareAll(SPair start, SPair end)
{
    const int nA = end.nA - start.nA;
    const int nB = end.nB - start.nB;
    const int nWidth = nB + 1;
    QVector<ushort> lstTable((nA + 1) * nWidth, 0);
    for (int i = nA - 1; i >= 0; --i) {
        for (int j = nB - 1; j >= 0; --j) {
            lstTable[i * nWidth + j] = isEqual(start.nA + i, start.nB + j)
                ? lstTable.at((i + 1) * nWidth + j + 1) + 1
                : qMax(lstTable.at((i + 1) * nWidth + j), lstTable.at(i * nWidth + j + 1));
        }
    }
    for (int i = 0, j = 0; i < nA && j < nB;)
        if (isEqual(start.nA + i, start.nB + j))
            m_lstResult[start.nA + i++] = start.nB + j++;
        else if (lstTable.at((i + 1) * nWidth + j) >= lstTable.at(i * nWidth + j + 1))
            ++i;
        else
            ++j;
}

// The shortest way (Myers, "An O(ND) Difference Algorithm", 1986) until a long run of equal
// elements, or until it has come far for its number of differences. False when there is none.
bool CAlignment::findPath(SPair *pStart, SPair end)
{
    const SPair start = *pStart;
    const int nA = end.nA - start.nA;
    const int nB = end.nB - start.nB;
    m_lstFurthest.clear();
    m_lstRows.clear();
    int nCheck = g_nFirstCheck;
    for (int d = 0; d <= g_nMaxDifferences && d <= nA + nB; ++d) {
        m_lstRows.append(m_lstFurthest.size());
        m_lstFurthest.resize(m_lstFurthest.size() + 2 * d + 1);
        int nBest = -1;
        int nBestDiagonal = 0;
        for (int k = -d; k <= d; k += 2) {
            int x = 0;
            if (d > 0) {
                const bool bDown =
                    k == -d || (k != d && furthest(d - 1, k - 1) < furthest(d - 1, k + 1));
                x = bDown ? furthest(d - 1, k + 1) : furthest(d - 1, k - 1) + 1;
            }
            int nRun = 0;
            while (x < nA && x - k < nB && x >= 0 && x - k >= 0
                   && isEqual(start.nA + x, start.nB + x - k)) {
                ++x;
                ++nRun;
            }
            furthest(d, k) = x;
            const bool bInside = x <= nA && x - k <= nB;
            if (bInside && (nRun >= g_nSureRun || (x == nA && x - k == nB))) {
                takePath(start, d, k, pStart);
                return true;
            }
            if (bInside && 2 * x - k > nBest) {
                nBest = 2 * x - k;
                nBestDiagonal = k;
            }
        }
        if (d < nCheck)
            continue;
        nCheck *= 2;
        if (nBest > 3 * d) { // Twice as many pairs as differences, or more.
            takePath(start, d, nBestDiagonal, pStart);
            return true;
        }
    }
    return false;
}

void CAlignment::takePath(SPair start, int nDifferences, int nDiagonal, SPair *pEnd)
{
    int x = furthest(nDifferences, nDiagonal);
    int k = nDiagonal;
    *pEnd = {start.nA + x, start.nB + x - k};
    for (int d = nDifferences; d >= 0; --d) {
        int nFrom = 0; // Where the run of this step began.
        bool bDown = false;
        if (d > 0) {
            bDown = k == -d || (k != d && furthest(d - 1, k - 1) < furthest(d - 1, k + 1));
            nFrom = bDown ? furthest(d - 1, k + 1) : furthest(d - 1, k - 1) + 1;
        }
        while (x > nFrom) {
            --x;
            m_lstResult[start.nA + x] = start.nB + x - k;
        }
        if (d == 0)
            break;
        k += bDown ? 1 : -1;
        x = furthest(d - 1, k);
    }
}

// Elements that both sides have exactly once, in the longest order that both share.
QVector<SPair> CAlignment::anchors(SPair start, SPair end) const
{
    struct SCount
    {
        int nCountA = 0;
        int nCountB = 0;
        int nB = 0;
    };
    QHash<quint64, SCount> mapCounts;
    for (int n = start.nA; n < end.nA; ++n)
        ++mapCounts[m_lstA.at(n)].nCountA;
    for (int n = start.nB; n < end.nB; ++n) {
        SCount &count = mapCounts[m_lstB.at(n)];
        ++count.nCountB;
        count.nB = n;
    }
    QVector<SPair> lstUnique;
    QVector<int> lstBefore; // For each unique pair, the one before it in its longest row.
    QVector<int> lstEnds; // The pair that ends the best row of each length.
    for (int n = start.nA; n < end.nA; ++n) {
        const SCount count = mapCounts.value(m_lstA.at(n));
        if (count.nCountA != 1 || count.nCountB != 1)
            continue;
        const auto it =
            std::lower_bound(lstEnds.begin(), lstEnds.end(), count.nB,
                             [&](int nPair, int nB) { return lstUnique.at(nPair).nB < nB; });
        lstBefore.append(it == lstEnds.begin() ? -1 : *(it - 1));
        if (it == lstEnds.end())
            lstEnds.append(lstUnique.size());
        else
            *it = lstUnique.size();
        lstUnique.append({n, count.nB});
    }
    QVector<SPair> lstRow;
    for (int n = lstEnds.isEmpty() ? -1 : lstEnds.constLast(); n >= 0; n = lstBefore.at(n))
        lstRow.append(lstUnique.at(n));
    std::reverse(lstRow.begin(), lstRow.end());
    return lstRow;
}

void CAlignment::alignBetweenAnchors(SPair start, SPair end)
{
    for (const SPair anchor : anchors(start, end)) {
        align(start, anchor, false);
        m_lstResult[anchor.nA] = anchor.nB;
        start = {anchor.nA + 1, anchor.nB + 1};
    }
    align(start, end, false);
}

} // namespace

QVector<int> alignSequences(const QVector<quint64> &lstA, const QVector<quint64> &lstB)
{
    return CAlignment(lstA, lstB).run();
}
