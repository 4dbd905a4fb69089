#pragma once

#include "highlight/patternsyntax.h"

#include <vector>

// A cheap answer to "can this pattern match in this line at all?": a match of "->|=>" holds a ">",
// one of "^\s*#\s*[a-z]+" holds a "#".
class CRequiredCharacters
{
public:
    // A pattern that requires nothing.
    CRequiredCharacters() = default;
    CRequiredCharacters(const SPatternNode &pattern, Qt::CaseSensitivity sensitivity);

    // Each match holds a character of each of these sets.
    const std::vector<SymbolSet> &sets() const { return m_lstSets; }

private:
    std::vector<SymbolSet> m_lstSets;
};
