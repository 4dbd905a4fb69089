#include "editor/ccarets.h"

#include <algorithm>
#include <numeric>

namespace {

// Two selections may touch. A caret without a selection that touches another one is joined with it.
bool isOneWith(const SCaret &first, const SCaret &second)
{
    if (first.hasSelection() && second.hasSelection())
        return second.start() < first.end();
    return second.start() <= first.end();
}

// The joined caret has the direction of the longer one.
SCaret united(const SCaret &first, const SCaret &second)
{
    const int nStart = qMin(first.start(), second.start());
    const int nEnd = qMax(first.end(), second.end());
    const SCaret &longer =
        second.end() - second.start() > first.end() - first.start() ? second : first;
    return longer.nPosition < longer.nAnchor ? SCaret {nEnd, nStart} : SCaret {nStart, nEnd};
}

} // namespace

CCarets::CCarets(const QVector<SCaret> &lst, int nMain)
{
    QVector<int> lstOrder(lst.size());
    std::iota(lstOrder.begin(), lstOrder.end(), 0);
    std::stable_sort(lstOrder.begin(), lstOrder.end(), [&lst](int nLeft, int nRight) {
        const SCaret &left = lst.at(nLeft);
        const SCaret &right = lst.at(nRight);
        return left.start() != right.start() ? left.start() < right.start()
                                             : left.end() < right.end();
    });
    m_lst.reserve(lst.size());
    for (const int nIndex : lstOrder) {
        if (!m_lst.isEmpty() && isOneWith(m_lst.constLast(), lst.at(nIndex)))
            m_lst.last() = united(m_lst.constLast(), lst.at(nIndex));
        else
            m_lst.append(lst.at(nIndex));
        if (nIndex == nMain)
            m_nMain = m_lst.size() - 1;
    }
}
