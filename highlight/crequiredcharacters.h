#pragma once

#include "highlight/patternsyntax.h"

#include <vector>

// A cheap answer to "can this pattern match in this line at all?": a match of "->|=>" holds a ">",
// one of "^\s*#\s*[a-z]+" holds a "#".
class CRequiredCharacters
{
public:
    // Requires nothing.
    CRequiredCharacters() = default;
    CRequiredCharacters(const SPatternNode &pattern, Qt::CaseSensitivity sensitivity);

    // A match holds one character of each set.
    const std::vector<SymbolSet> &sets() const { return m_lstSets; }

private:
    std::vector<SymbolSet> m_lstSets;
};
