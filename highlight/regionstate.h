#pragma once

#include <QString>
#include <unordered_map>
#include <vector>

// An open region: its context, its language, and the text that its end depends on.
struct SRegionFrame
{
    int nLanguage = 0;
    int nContext = 0;
    QString strKey;
    bool bWaits = false; // Waits for the end of the region above it.

    bool operator==(const SRegionFrame &other) const
    {
        return nLanguage == other.nLanguage && nContext == other.nContext && strKey == other.strKey
            && bWaits == other.bWaits;
    }
};

// The regions that are open at one place, the innermost last.
using RegionStack = std::vector<SRegionFrame>;

// Gives stacks numbers, so that the state at the end of a line is one integer. The number depends
// only on the stack, not on the order in which stacks come. 0 is the empty stack; a full table
// gives 0 for any new stack. Not to be used by two threads at a time.
class CRegionStates
{
public:
    static constexpr int g_nMaxNumber = (1 << 25) - 1;

    int numberOf(const RegionStack &stack);
    // The stack of a number; empty for a number that the table did not give.
    const RegionStack &stackOf(int nNumber) const;

private:
    std::unordered_map<int, RegionStack> m_mapStacks;
};
