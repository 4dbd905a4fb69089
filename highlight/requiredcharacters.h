#pragma once

#include "highlight/patternsyntax.h"

#include <QString>
#include <vector>

// A cheap answer to "can this pattern match in this line at all?": a match of "->|=>" holds a ">",
// one of "^\s*#\s*[a-z]+" holds a "#".
class RequiredCharacters
{
public:
    // Requires nothing.
    RequiredCharacters() = default;
    RequiredCharacters(const PatternNode &pattern, Qt::CaseSensitivity sensitivity);

    // Whether the line holds one character of each set that every match has to hold one of.
    bool areIn(const SymbolSet &line) const;

private:
    std::vector<SymbolSet> m_lstSets;
};

SymbolSet symbolsIn(const QString &strText);
