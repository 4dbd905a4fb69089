#include "editor/ccarethistory.h"

#include <algorithm>

void CCaretHistory::add(const SRecord &record)
{
    forgetFrom(record.nStepsBefore + 1);
    m_lst.append(record);
}

void CCaretHistory::growLast(int nStepsAfter, const CCarets &after)
{
    m_lst.last().nStepsAfter = nStepsAfter;
    m_lst.last().after = after;
}

void CCaretHistory::forgetFrom(int nStepsAfter)
{
    while (!m_lst.isEmpty() && m_lst.constLast().nStepsAfter >= nStepsAfter)
        m_lst.removeLast();
}

const CCaretHistory::SRecord *CCaretHistory::undoneFrom(int nSteps) const
{
    const auto it = std::find_if(m_lst.crbegin(), m_lst.crend(), [nSteps](const SRecord &record) {
        return record.nStepsAfter <= nSteps;
    });
    return it != m_lst.crend() && it->nStepsAfter == nSteps ? &*it : nullptr;
}

const CCaretHistory::SRecord *CCaretHistory::redoneFrom(int nSteps) const
{
    const auto it = std::find_if(m_lst.crbegin(), m_lst.crend(), [nSteps](const SRecord &record) {
        return record.nStepsBefore <= nSteps;
    });
    return it != m_lst.crend() && it->nStepsBefore == nSteps ? &*it : nullptr;
}
