#include "highlight/cpatternautomaton.h"

#include "highlight/symbols.h"

#include <algorithm>

namespace {

constexpr size_t g_nMaxStates = 1000;

// The result of a step: the next state, or -1 when no match can go on, and whether a match ends
// here.
constexpr int code(int nState, bool bEnds)
{
    return (nState + 1) * 2 + (bEnds ? 1 : 0);
}

} // namespace

CPatternAutomaton::CPatternAutomaton(const SPatternNode &pattern)
{
    addNfa(SPatternNode::Nothing, -1); // This is g_nAccept.
    m_nStart = compile(pattern, int(g_nAccept));
    if (!m_bUsable)
        return;
    findSeconds();
    classify();
    for (int nContext = 0; nContext < ContextCount; ++nContext) {
        const int nState = startState(nContext);
        for (int nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
            const int nKnown = m_lstSteps[size_t(nState) * g_nStepWidth + size_t(nSymbol)];
            const int nCode = nKnown < 0 ? step(nState, nSymbol) : nKnown;
            m_arrMayStart[size_t(nContext)][size_t(nSymbol)] = nCode != code(-1, false);
            m_emptyBefore[size_t(nSymbol)] = m_emptyBefore[size_t(nSymbol)] || (nCode & 1);
            m_heldFirst[size_t(nSymbol)] = m_heldFirst[size_t(nSymbol)] || nCode >> 1 > 0;
        }
    }
}

// Begins with two classes, characters of words and all others. Each set of the pattern divides the
// classes that it contains only in part.
void CPatternAutomaton::classify()
{
    int nClasses = 2;
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
        m_arrClass[nSymbol] = g_arrWordSymbols[nSymbol];
    std::vector<SymbolSet> lstSets;
    for (const SNfaState &nfa : m_lstNfa) {
        if (std::find(lstSets.begin(), lstSets.end(), nfa.set) == lstSets.end()) {
            lstSets.push_back(nfa.set);
            nClasses = divideClasses(nfa.set, nClasses);
        }
    }
    m_arrClass[LineEndSymbol] = nClasses;
}

// Gives the symbols of the set that share a class with others a new one; returns how many there
// are.
int CPatternAutomaton::divideClasses(const SymbolSet &set, int nClasses)
{
    std::array<bool, g_nStepWidth> arrOthers {}; // Classes with a symbol that the set lacks.
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
        arrOthers[size_t(m_arrClass[nSymbol])] |= !set[nSymbol];
    std::array<int, g_nStepWidth> arrNew {}; // The new class of each class that is divided.
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        int &nClass = m_arrClass[nSymbol];
        if (set[nSymbol] && arrOthers[size_t(nClass)]) {
            int &nNew = arrNew[size_t(nClass)];
            nNew = nNew == 0 ? nClasses++ : nNew;
            nClass = nNew;
        }
    }
    return nClasses;
}

// Whether an anchor holds between the context and the symbol ahead.
bool CPatternAutomaton::holds(SPatternNode::Kind kind, int nContext, int nSymbol) const
{
    const bool bWordAhead = nSymbol != LineEndSymbol && isWordSymbol(nSymbol);
    const bool bEdge = bWordAhead != bool(nContext & BehindWord);
    switch (kind) {
    case SPatternNode::LineStart:
        return nContext & AtLineStart;
    case SPatternNode::LineEnd:
        return nSymbol == LineEndSymbol;
    case SPatternNode::WordEdge:
        return bEdge;
    default:
        return !bEdge;
    }
}

int CPatternAutomaton::stateFor(std::vector<int> lstNfa, int nContext)
{
    const auto [it, bNew] =
        m_mapStates.insert({{std::move(lstNfa), nContext}, int(m_lstStates.size())});
    if (bNew) {
        m_lstStates.push_back({it->first.first, nContext});
        m_lstSteps.resize(m_lstSteps.size() + g_nStepWidth, -1);
        m_bUsable = m_bUsable && m_lstStates.size() < g_nMaxStates;
    }
    return it->second;
}

int CPatternAutomaton::step(int nState, int nSymbol)
{
    const int nContext = m_lstStates[size_t(nState)].nContext;
    std::vector<bool> lstSeen(m_lstNfa.size());
    std::vector<int> lstToDo = m_lstStates[size_t(nState)].lstNfa;
    std::vector<int> lstReached;
    bool bEnds = false;
    while (!lstToDo.empty()) {
        const auto n = size_t(lstToDo.back());
        lstToDo.pop_back();
        if (lstSeen[n])
            continue;
        lstSeen[n] = true;
        const SNfaState &nfa = m_lstNfa[n];
        if (n == g_nAccept) {
            bEnds = true;
        } else if (nfa.kind == SPatternNode::Choice) {
            lstToDo.push_back(nfa.nOut);
            lstToDo.push_back(nfa.nOther);
        } else if (nfa.kind == SPatternNode::Symbol) {
            if (nSymbol != LineEndSymbol && nfa.set[size_t(nSymbol)])
                lstReached.push_back(nfa.nOut);
        } else if (holds(nfa.kind, nContext, nSymbol)) {
            lstToDo.push_back(nfa.nOut);
        }
    }
    std::sort(lstReached.begin(), lstReached.end());
    lstReached.erase(std::unique(lstReached.begin(), lstReached.end()), lstReached.end());
    const int nAfter =
        m_bUsesWords && nSymbol != LineEndSymbol && isWordSymbol(nSymbol) ? BehindWord : 0;
    const int nNext = lstReached.empty() ? -1 : stateFor(std::move(lstReached), nAfter);
    const int nCode = code(nNext, bEnds);
    const int nLoop = bEnds && nNext == nState ? 1 : 0;
    for (size_t n = 0; n < g_nStepWidth; ++n) {
        if (m_arrClass[n] == m_arrClass[size_t(nSymbol)]) {
            m_lstSteps[size_t(nState) * g_nStepWidth + n] = qint16(nCode);
            m_lstStates[size_t(nState)].nLoops += nLoop;
        }
    }
    return m_bUsable ? nCode : code(-1, false);
}

int CPatternAutomaton::startState(int nContext)
{
    int &nState = m_arrStartStates[nContext];
    if (nState < 0)
        nState = stateFor({m_nStart}, nContext);
    return nState;
}
