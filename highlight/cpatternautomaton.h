#pragma once

#include "highlight/patternsyntax.h"

#include <QString>
#include <map>
#include <utility>
#include <vector>

// Finds what a QRegExp pattern matches, first and longest, character by character without going
// back: a state machine whose states are made when a text first leads there. Asks of the text only
// the symbols of symbols.h. Not to be used by two threads at a time, because a search makes states.
class CPatternAutomaton
{
public:
    // Of a pattern without lookaheads.
    explicit CPatternAutomaton(const PatternNode &pattern);

    // Whether the machine stayed small enough; a search may find that it does not.
    bool isUsable() const { return m_bUsable; }
    // Whether a search met letters that equal one of ASCII when letter case does not count, which
    // symbols do not tell; asking forgets it.
    bool takeDoubt() { return std::exchange(m_bDoubt, false); }
    // Whether a match may begin with this symbol.
    bool mayStartWith(int nSymbol) const { return m_mayStart[size_t(nSymbol)]; }

    // Appends the ends of the matches that begin at nStart, ascending.
    void findEnds(const QString &strText, int nStart, std::vector<int> *pEnds);
    // The end of the longest match that begins at nStart, -1 when there is none.
    int longestEnd(const QString &strText, int nStart);

private:
    struct NfaState
    {
        PatternNode::Kind
            kind {}; // Nothing: go on in nOut, Choice: also in nOther; the rest as named
        SymbolSet set;
        int nOut = 0;
        int nOther = 0;
    };
    enum Context { BehindWord = 1, AtLineStart = 2 };
    struct State
    {
        std::vector<int> lstNfa; // what it stands for, before anchors are looked at
        int nContext;
        std::vector<int> lstNext; // by class of the symbol ahead: code(), or -1 when not yet known
    };

    int addNfa(PatternNode::Kind kind, int nOut, int nOther = -1);
    int compile(const PatternNode &node, int nNext);
    int compileRepeat(const PatternNode &node, int nNext);
    void classify();
    bool holds(PatternNode::Kind kind, int nContext, int nSymbol) const;
    int stateFor(std::vector<int> lstNfa, int nContext);
    int step(int nState, int nClass);
    int startState(const QString &strText, int nStart);
    int classOf(QChar ch);
    template<typename OnEnd> void run(const QString &strText, int nStart, OnEnd onEnd);

    std::vector<NfaState> m_lstNfa;
    int m_nStart = 0;
    bool m_bUsesWords = false;
    bool m_bUsable = true;
    bool m_bDoubt = false;
    // Symbols that the pattern does not tell apart share a class; the last class is the line's end.
    int m_arrClass[SymbolCount] = {};
    std::vector<int> m_lstSymbolOfClass;
    SymbolSet m_mayStart;
    std::vector<State> m_lstStates;
    std::map<std::pair<std::vector<int>, int>, int> m_mapStates;
    int m_arrStartStates[4] = {-1, -1, -1, -1};
};
