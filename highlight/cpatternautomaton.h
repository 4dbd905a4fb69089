#pragma once

#include "highlight/csymbolline.h"
#include "highlight/patternsyntax.h"

#include <array>
#include <map>
#include <vector>

// A state machine that finds the first and longest match of a QRegExp pattern, character by
// character and without going back. A state is made when a text first leads there. The text is read
// as the symbols of symbols.h. Not to be used by two threads at a time, because a search makes
// states.
class CPatternAutomaton
{
public:
    // What is known of the place where a match begins.
    enum Context { BehindWord = 1, AtLineStart = 2, ContextCount = 4 };

    // The pattern must have no lookaheads.
    explicit CPatternAutomaton(const SPatternNode &pattern);

    // Whether the machine stayed small enough; a search may find that it does not.
    bool isUsable() const { return m_bUsable; }
    // The symbols that a match may begin with, or stand before when it is empty.
    const SymbolSet &mayStartWith(int nContext) const { return m_arrMayStart[size_t(nContext)]; }
    // Subsets of these for any context: the symbols that an empty match may stand before, and those
    // that a match may begin with.
    const SymbolSet &mayBeEmptyBefore() const { return m_emptyBefore; }
    const SymbolSet &mayHoldFirst() const { return m_heldFirst; }
    // The second symbols of matches of two or more characters, and whether a match may be shorter.
    const SymbolSet &mayHoldSecond() const { return m_heldSecond; }
    bool mayBeEmpty() const { return m_bMayBeEmpty; }
    bool mayBeOneSymbol() const { return m_bMayBeOneSymbol; }

    // Appends the ends of the matches that begin at nStart, ascending.
    void findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds);
    // The same, but only ends before a symbol that the table allows; it must allow the line's end.
    void findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds,
                  const SymbolTable &before);
    // The end of the longest match that begins at nStart, -1 when there is none.
    int longestEnd(const CSymbolLine &line, int nStart);
    // Whether a match begins at nStart.
    bool matches(const CSymbolLine &line, int nStart);
    // The same for the text read backwards from nEnd, but at most nMax characters of it.
    bool matchesBackwards(const CSymbolLine &line, int nEnd, int nMax);

private:
    struct SNfaState
    {
        SPatternNode::Kind
            kind {}; // Nothing: go on in nOut, Choice: also in nOther; the rest as named
        SymbolSet set;
        int nOut = 0;
        int nOther = 0;
    };
    struct SState
    {
        std::vector<int> lstNfa; // The NFA states that it stands for, before anchors count.
        int nContext;
        int nLoops = 0; // The number of symbols that lead here again and end a match.
    };
    static constexpr size_t g_nAccept = 0; // The first NFA state. A match ends here.
    static constexpr size_t g_nStepWidth = SymbolCount + 1; // The width of the table of steps.

    int addNfa(SPatternNode::Kind kind, int nOut, int nOther = -1);
    int compile(const SPatternNode &node, int nNext);
    int compileRepeat(const SPatternNode &node, int nNext);
    void findSeconds();
    std::vector<int> reach(std::vector<int> lstToDo, SymbolSet *pSymbols, bool *pEnds) const;
    void classify();
    int divideClasses(const SymbolSet &set, int nClasses);
    bool holds(SPatternNode::Kind kind, int nContext, int nSymbol) const;
    int stateFor(std::vector<int> lstNfa, int nContext);
    int step(int nState, int nSymbol);
    int startState(int nContext);
    const qint16 *stepsOf(int nState) const;
    int startStateAt(const uchar *pSymbols, int nStart) const;
    template<typename SymbolAt, typename OnEnd>
    void run(int nState, SymbolAt symbolAt, OnEnd onEnd);
    template<typename OnEnd> void runForwards(const CSymbolLine &line, int nStart, OnEnd onEnd);

    std::vector<SNfaState> m_lstNfa;
    int m_nStart = 0;
    bool m_bUsesWords = false;
    bool m_bUsable = true;
    // Symbols that the pattern does not tell apart share a class; the last class is the line's end.
    std::array<int, g_nStepWidth> m_arrClass {};
    std::array<SymbolSet, ContextCount> m_arrMayStart;
    SymbolSet m_emptyBefore;
    SymbolSet m_heldFirst;
    SymbolSet m_heldSecond;
    bool m_bMayBeEmpty = false;
    bool m_bMayBeOneSymbol = false;
    std::vector<SState> m_lstStates;
    // The steps of each state by the symbol ahead: code(), or -1 if not yet known.
    std::vector<qint16> m_lstSteps;
    std::map<std::pair<std::vector<int>, int>, int> m_mapStates;
    int m_arrStartStates[ContextCount] = {-1, -1, -1, -1};
};
