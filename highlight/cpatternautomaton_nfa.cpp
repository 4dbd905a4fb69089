// Turns the pattern's syntax into states that may lead to several others at once (an NFA).
#include "highlight/cpatternautomaton.h"

#include "highlight/symbols.h"

namespace {

constexpr size_t g_nMaxNfa = 4000;

} // namespace

int CPatternAutomaton::addNfa(SPatternNode::Kind kind, int nOut, int nOther)
{
    m_bUsable = m_bUsable && m_lstNfa.size() < g_nMaxNfa;
    if (m_bUsable)
        m_lstNfa.push_back({kind, SymbolSet(), nOut, nOther});
    return int(m_lstNfa.size()) - 1;
}

// Adds the states that match the node and go on with nNext; returns the first of them.
int CPatternAutomaton::compile(const SPatternNode &node, int nNext)
{
    if (!m_bUsable)
        return nNext;
    int nStart = nNext;
    switch (node.kind) {
    case SPatternNode::Nothing:
        return nNext;
    case SPatternNode::Symbol:
        nStart = addNfa(node.kind, nNext);
        m_lstNfa[size_t(nStart)].set = node.set;
        return nStart;
    case SPatternNode::Sequence:
        for (auto it = node.children.rbegin(); it != node.children.rend(); ++it)
            nStart = compile(*it, nStart);
        return nStart;
    case SPatternNode::Choice:
        nStart = compile(node.children.front(), nNext);
        for (size_t n = 1; n < node.children.size(); ++n)
            nStart = addNfa(SPatternNode::Choice, compile(node.children[n], nNext), nStart);
        return nStart;
    case SPatternNode::Repeat:
        return compileRepeat(node, nNext);
    case SPatternNode::WordEdge:
    case SPatternNode::NoWordEdge:
        m_bUsesWords = true;
        return addNfa(node.kind, nNext);
    case SPatternNode::LineStart:
    case SPatternNode::LineEnd:
        return addNfa(node.kind, nNext);
    default:
        m_bUsable = false;
        return nNext;
    }
}

int CPatternAutomaton::compileRepeat(const SPatternNode &node, int nNext)
{
    const SPatternNode &child = node.children.front();
    int nStart = nNext;
    if (node.nMax < 0) {
        nStart = addNfa(SPatternNode::Choice, nNext, nNext);
        const int nBody = compile(child, nStart);
        m_lstNfa[size_t(nStart)].nOther = nBody;
    }
    for (int n = node.nMin; n < node.nMax; ++n)
        nStart = addNfa(SPatternNode::Choice, nNext, compile(child, nStart));
    for (int n = 0; n < node.nMin; ++n)
        nStart = compile(child, nStart);
    return nStart;
}

// The states after one symbol, starting from these. Anchors between them are taken to hold.
std::vector<int> CPatternAutomaton::reach(std::vector<int> lstToDo, SymbolSet *pSymbols,
                                          bool *pEnds) const
{
    std::vector<bool> lstSeen(m_lstNfa.size());
    std::vector<int> lstReached;
    while (!lstToDo.empty()) {
        const auto n = size_t(lstToDo.back());
        lstToDo.pop_back();
        if (lstSeen[n])
            continue;
        lstSeen[n] = true;
        const SNfaState &nfa = m_lstNfa[n];
        if (n == g_nAccept) {
            *pEnds = true;
        } else if (nfa.kind == SPatternNode::Symbol) {
            *pSymbols |= nfa.set;
            lstReached.push_back(nfa.nOut);
        } else {
            lstToDo.push_back(nfa.nOut);
            if (nfa.kind == SPatternNode::Choice)
                lstToDo.push_back(nfa.nOther);
        }
    }
    return lstReached;
}

void CPatternAutomaton::findSeconds()
{
    SymbolSet first;
    const std::vector<int> lstReached = reach({m_nStart}, &first, &m_bMayBeEmpty);
    reach(lstReached, &m_heldSecond, &m_bMayBeOneSymbol);
}
