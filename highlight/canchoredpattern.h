#pragma once

#include "highlight/cpatternautomaton.h"

#include <QString>
#include <optional>
#include <vector>

// A pattern asked for at one place of a line: does it match here, and how far? Run by state
// machines only; a pattern that they cannot run is not usable and matches nowhere.
// Not to be used by two threads at a time.
class CAnchoredPattern
{
public:
    enum Direction { Forwards, Backwards };

    CAnchoredPattern() = default;
    // Backwards it is about the text that ends at the place.
    explicit CAnchoredPattern(const QString &strPattern,
                              Qt::CaseSensitivity sensitivity = Qt::CaseSensitive,
                              Direction direction = Forwards);

    // Whether there is a pattern and machines that can run it; a search may find that they cannot.
    bool isUsable() const
    {
        return m_automaton && m_automaton->isUsable() && (!m_ahead || m_ahead->isUsable());
    }
    // Whether a search met letters that equal one of ASCII when letter case does not count; asking
    // forgets it.
    bool takeDoubt();
    // What a match that is not empty begins with, and an empty one stands before.
    bool mayStartWith(int nSymbol) const { return m_first[size_t(nSymbol)]; }
    bool isOnlyAtLineStart() const { return m_bOnlyAtLineStart; }

    // The end of the longest match that begins at nStart, -1 when there is none.
    int endOfMatch(const QString &strText, int nStart);
    // Appends the ends of the matches that begin at nStart, ascending.
    void findEnds(const QString &strText, int nStart, std::vector<int> *pEnds);
    // Of a backward pattern: whether it matches what stands before nEnd. Looks at a part of the
    // line only, as a long line is asked in many places.
    bool matchesBefore(const QString &strText, int nEnd);

private:
    void findFirst(const PatternNode &pattern);
    bool isFollowedRightly(const QString &strText, int nEnd);

    std::optional<CPatternAutomaton> m_automaton;
    // The lookahead at the pattern's end.
    std::optional<CPatternAutomaton> m_ahead;
    bool m_bAheadIsNegative = false;
    bool m_bOnlyAtLineStart = false;
    SymbolSet m_first;
    std::vector<int> m_lstEnds;
};
