#pragma once

#include "highlight/cpatternautomaton.h"
#include "highlight/csymbolline.h"
#include "highlight/patternsyntax.h"

#include <QString>
#include <array>
#include <optional>
#include <vector>

// Answers whether a pattern matches at one place of a line, and how far. Only state machines run
// it; a pattern that they cannot run is not usable and matches nowhere. Not to be used by two
// threads at a time.
class CAnchoredPattern
{
public:
    enum Direction { Forwards, Backwards };

    CAnchoredPattern() = default;
    // A backward pattern is matched with the text that ends at the place.
    explicit CAnchoredPattern(const QString &strPattern,
                              Qt::CaseSensitivity sensitivity = Qt::CaseSensitive,
                              Direction direction = Forwards);

    // Whether there is a pattern and machines that can run it; a search may find that they cannot.
    bool isUsable() const
    {
        return m_automaton && m_automaton->isUsable() && (!m_ahead || m_ahead->isUsable());
    }
    // The symbols that a match may begin with, or stand before if it is empty: in any context, or
    // in one context of the machine.
    const SymbolSet &mayStartWith() const { return m_first; }
    const std::array<SymbolSet, CPatternAutomaton::ContextCount> &firstByContext() const
    {
        return m_arrFirst;
    }
    // What this pattern may begin with if another one follows that begins with nextFirst.
    SymbolSet mayStartWith(const SymbolSet &nextFirst) const;
    // The symbols that may follow the first character of a match, inside the match or after it. The
    // line's end is always among them.
    SymbolSet mayGoOnWith() const;
    // Whether each symbol that it may start with is a match by itself.
    bool isAlwaysOneSymbol() const { return m_bOneSymbol && !m_ahead; }
    // The only symbol that it may start with; -1 when there are more.
    int onlyStart() const { return m_nOnlyStart; }
    bool isOnlyAtLineStart() const { return m_bOnlyAtLineStart; }

    // The end of the longest match that begins at nStart, -1 when there is none.
    int endOfMatch(const CSymbolLine &line, int nStart);
    // Appends the ends of the matches that begin at nStart, ascending.
    void findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds);
    // Whether a backward pattern matches the text before nEnd. Reads only a part of the line,
    // because a long line is asked in many places.
    bool matchesBefore(const CSymbolLine &line, int nEnd);

private:
    void findFirst(const SPatternNode &pattern);
    bool isFollowedRightly(const CSymbolLine &line, int nEnd);
    void findCandidates(const CSymbolLine &line, int nStart, std::vector<int> *pEnds);

    std::optional<CPatternAutomaton> m_automaton;
    // The lookahead at the pattern's end.
    std::optional<CPatternAutomaton> m_ahead;
    bool m_bAheadIsNegative = false;
    bool m_bOnlyAtLineStart = false;
    bool m_bOneSymbol = false; // Each symbol of m_first is a match, if the lookahead succeeds.
    SymbolSet m_first;
    int m_nOnlyStart = -1;
    std::array<SymbolSet, CPatternAutomaton::ContextCount> m_arrFirst;
    SymbolTable m_arrBeforeAhead {}; // The lookahead may succeed before these symbols.
    std::vector<int> m_lstEnds;
};
