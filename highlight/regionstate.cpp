#include "highlight/regionstate.h"

namespace {

constexpr size_t g_nMaxStacks = 100000;

quint32 hashOf(const RegionStack &stack)
{
    quint32 nHash = 2166136261U;
    const auto add = [&nHash](quint32 n) { nHash = (nHash ^ n) * 16777619U; };
    for (const SRegionFrame &frame : stack) {
        add(quint32(frame.nLanguage));
        add(quint32(frame.nContext * 2 + int(frame.bWaits)));
        for (const QChar ch : frame.strKey)
            add(ch.unicode());
    }
    return nHash ^ (nHash >> 15);
}

} // namespace

// Two stacks rarely have the same hash. If they do, the later one takes the next free number.
int CRegionStates::numberOf(const RegionStack &stack)
{
    if (stack.empty())
        return 0;
    int nNumber = int(hashOf(stack) % g_nMaxNumber) + 1;
    for (;; nNumber = nNumber % g_nMaxNumber + 1) {
        const auto it = m_mapStacks.find(nNumber);
        if (it == m_mapStacks.end())
            break;
        if (it->second == stack)
            return nNumber;
    }
    if (m_mapStacks.size() >= g_nMaxStacks)
        return 0;
    m_mapStacks.emplace(nNumber, stack);
    return nNumber;
}

const RegionStack &CRegionStates::stackOf(int nNumber) const
{
    static const RegionStack s_empty;
    const auto it = m_mapStacks.find(nNumber);
    return it == m_mapStacks.end() ? s_empty : it->second;
}
