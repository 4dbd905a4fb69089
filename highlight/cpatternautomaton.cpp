#include "highlight/cpatternautomaton.h"

#include <algorithm>

namespace {

constexpr int nAccept = 0; // the first NFA state: a match ends here
constexpr int nLineEnd = -1; // in place of a symbol
constexpr size_t nMaxNfa = 4000;
constexpr size_t nMaxStates = 1000;

// What a step leads to: the next state, or -1 when no match can go on, and whether one ends here.
constexpr int code(int nState, bool bEnds)
{
    return (nState + 1) * 2 + (bEnds ? 1 : 0);
}

} // namespace

CPatternAutomaton::CPatternAutomaton(const PatternNode &pattern)
{
    addNfa(PatternNode::Nothing, -1);
    m_nStart = compile(pattern, nAccept);
    if (!m_bUsable) {
        return;
    }
    classify();
    std::vector<bool> lstMayStart(m_lstSymbolOfClass.size());
    for (int nContext = 0; nContext < 4; ++nContext) {
        const int nState = stateFor({m_nStart}, nContext);
        for (size_t nClass = 0; nClass < lstMayStart.size(); ++nClass) {
            const bool bMay = step(nState, int(nClass)) != code(-1, false);
            lstMayStart[nClass] = lstMayStart[nClass] || bMay;
        }
    }
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        m_mayStart[nSymbol] = lstMayStart[size_t(m_arrClass[nSymbol])];
    }
}

int CPatternAutomaton::addNfa(PatternNode::Kind kind, int nOut, int nOther)
{
    m_bUsable = m_bUsable && m_lstNfa.size() < nMaxNfa;
    if (m_bUsable) {
        m_lstNfa.push_back({kind, SymbolSet(), nOut, nOther});
    }
    return int(m_lstNfa.size()) - 1;
}

// Adds what matches the node and goes on with nNext; returns where it begins.
int CPatternAutomaton::compile(const PatternNode &node, int nNext)
{
    if (!m_bUsable) {
        return nNext;
    }
    int nStart = nNext;
    switch (node.kind) {
    case PatternNode::Nothing:
        return nNext;
    case PatternNode::Symbol:
        nStart = addNfa(node.kind, nNext);
        m_lstNfa[size_t(nStart)].set = node.set;
        return nStart;
    case PatternNode::Sequence:
        for (auto it = node.children.rbegin(); it != node.children.rend(); ++it) {
            nStart = compile(*it, nStart);
        }
        return nStart;
    case PatternNode::Choice:
        nStart = compile(node.children.front(), nNext);
        for (size_t n = 1; n < node.children.size(); ++n) {
            nStart = addNfa(PatternNode::Choice, compile(node.children[n], nNext), nStart);
        }
        return nStart;
    case PatternNode::Repeat:
        return compileRepeat(node, nNext);
    case PatternNode::WordEdge:
    case PatternNode::NoWordEdge:
        m_bUsesWords = true;
        return addNfa(node.kind, nNext);
    case PatternNode::LineStart:
    case PatternNode::LineEnd:
        return addNfa(node.kind, nNext);
    default:
        m_bUsable = false;
        return nNext;
    }
}

int CPatternAutomaton::compileRepeat(const PatternNode &node, int nNext)
{
    const PatternNode &child = node.children.front();
    int nStart = nNext;
    if (node.nMax < 0) {
        nStart = addNfa(PatternNode::Choice, nNext, nNext);
        const int nBody = compile(child, nStart);
        m_lstNfa[size_t(nStart)].nOther = nBody;
    }
    for (int n = node.nMin; n < node.nMax; ++n) {
        nStart = addNfa(PatternNode::Choice, nNext, compile(child, nStart));
    }
    for (int n = 0; n < node.nMin; ++n) {
        nStart = compile(child, nStart);
    }
    return nStart;
}

void CPatternAutomaton::classify()
{
    std::vector<SymbolSet> lstSets;
    for (const NfaState &nfa : m_lstNfa) {
        if (std::find(lstSets.begin(), lstSets.end(), nfa.set) == lstSets.end()) {
            lstSets.push_back(nfa.set);
        }
    }
    std::map<std::vector<bool>, int> mapClasses;
    for (int nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        std::vector<bool> lstSignature {isWordSymbol(nSymbol)};
        for (const SymbolSet &set : lstSets) {
            lstSignature.push_back(set[size_t(nSymbol)]);
        }
        const auto [it, bNew] = mapClasses.insert({lstSignature, int(mapClasses.size())});
        m_arrClass[nSymbol] = it->second;
        if (bNew) {
            m_lstSymbolOfClass.push_back(nSymbol);
        }
    }
    m_lstSymbolOfClass.push_back(nLineEnd);
}

// Whether an anchor holds between what the context says and the symbol ahead.
bool CPatternAutomaton::holds(PatternNode::Kind kind, int nContext, int nSymbol) const
{
    const bool bWordAhead = nSymbol != nLineEnd && isWordSymbol(nSymbol);
    const bool bEdge = bWordAhead != bool(nContext & BehindWord);
    switch (kind) {
    case PatternNode::LineStart:
        return nContext & AtLineStart;
    case PatternNode::LineEnd:
        return nSymbol == nLineEnd;
    case PatternNode::WordEdge:
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
        m_lstStates.push_back(
            {it->first.first, nContext, std::vector<int>(m_lstSymbolOfClass.size(), -1)});
        m_bUsable = m_bUsable && m_lstStates.size() < nMaxStates;
    }
    return it->second;
}

int CPatternAutomaton::step(int nState, int nClass)
{
    const int nSymbol = m_lstSymbolOfClass[size_t(nClass)];
    const int nContext = m_lstStates[size_t(nState)].nContext;
    std::vector<bool> lstSeen(m_lstNfa.size());
    std::vector<int> lstToDo = m_lstStates[size_t(nState)].lstNfa;
    std::vector<int> lstReached;
    bool bEnds = false;
    while (!lstToDo.empty()) {
        const int n = lstToDo.back();
        lstToDo.pop_back();
        if (lstSeen[size_t(n)]) {
            continue;
        }
        lstSeen[size_t(n)] = true;
        const NfaState &nfa = m_lstNfa[size_t(n)];
        if (n == nAccept) {
            bEnds = true;
        } else if (nfa.kind == PatternNode::Choice) {
            lstToDo.push_back(nfa.nOut);
            lstToDo.push_back(nfa.nOther);
        } else if (nfa.kind == PatternNode::Symbol) {
            if (nSymbol != nLineEnd && nfa.set[size_t(nSymbol)]) {
                lstReached.push_back(nfa.nOut);
            }
        } else if (holds(nfa.kind, nContext, nSymbol)) {
            lstToDo.push_back(nfa.nOut);
        }
    }
    std::sort(lstReached.begin(), lstReached.end());
    lstReached.erase(std::unique(lstReached.begin(), lstReached.end()), lstReached.end());
    const int nAfter =
        m_bUsesWords && nSymbol != nLineEnd && isWordSymbol(nSymbol) ? BehindWord : 0;
    const int nNext = lstReached.empty() ? -1 : stateFor(std::move(lstReached), nAfter);
    const int nCode = code(nNext, bEnds);
    m_lstStates[size_t(nState)].lstNext[size_t(nClass)] = nCode;
    return nCode;
}

int CPatternAutomaton::startState(const QString &strText, int nStart)
{
    int nContext = nStart == 0 ? AtLineStart : 0;
    if (m_bUsesWords && nStart > 0
        && CharacterClass::is(strText.at(nStart - 1), CharacterClass::Word)) {
        nContext |= BehindWord;
    }
    int &nState = m_arrStartStates[nContext];
    if (nState < 0) {
        nState = stateFor({m_nStart}, nContext);
    }
    return nState;
}

int CPatternAutomaton::classOf(QChar ch)
{
    m_bDoubt = m_bDoubt || (!CharacterClass::isAscii(ch) && foldsToAscii(ch));
    return m_arrClass[symbolOf(ch)];
}

template<typename OnEnd>
void CPatternAutomaton::run(const QString &strText, int nStart, OnEnd onEnd)
{
    int nState = startState(strText, nStart);
    for (int n = nStart; m_bUsable && nState >= 0; ++n) {
        const int nClass =
            n < strText.size() ? classOf(strText.at(n)) : int(m_lstSymbolOfClass.size()) - 1;
        int nCode = m_lstStates[size_t(nState)].lstNext[size_t(nClass)];
        if (nCode < 0) {
            nCode = step(nState, nClass);
        }
        if (nCode & 1) {
            onEnd(n);
        }
        nState = nCode / 2 - 1;
    }
}

void CPatternAutomaton::findEnds(const QString &strText, int nStart, std::vector<int> *pEnds)
{
    run(strText, nStart, [pEnds](int nEnd) { pEnds->push_back(nEnd); });
}

int CPatternAutomaton::longestEnd(const QString &strText, int nStart)
{
    int nLongest = -1;
    run(strText, nStart, [&nLongest](int nEnd) { nLongest = nEnd; });
    return nLongest;
}
