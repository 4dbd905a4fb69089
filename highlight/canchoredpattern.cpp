#include "highlight/canchoredpattern.h"

#include <algorithm>

namespace {

constexpr int nMaxLookBehind = 64;

bool isLookahead(const PatternNode &node)
{
    return node.kind == PatternNode::Lookahead || node.kind == PatternNode::NegativeLookahead;
}

bool holdsLookahead(const PatternNode &node)
{
    return node.contains(PatternNode::Lookahead) || node.contains(PatternNode::NegativeLookahead);
}

// QRegExp looks at anchors in a lookahead in a way of its own.
bool isRunnableAhead(const PatternNode &node)
{
    return !holdsLookahead(node) && !node.contains(PatternNode::LineStart)
        && !node.contains(PatternNode::WordEdge) && !node.contains(PatternNode::NoWordEdge);
}

bool isEmptySequence(const PatternNode &node)
{
    return node.kind == PatternNode::Nothing
        || (node.kind == PatternNode::Sequence && node.children.empty());
}

bool beginsAtLineStart(const PatternNode &node)
{
    switch (node.kind) {
    case PatternNode::LineStart:
        return true;
    case PatternNode::Sequence:
        return !node.children.empty() && beginsAtLineStart(node.children.front());
    case PatternNode::Choice:
        return std::all_of(node.children.begin(), node.children.end(), beginsAtLineStart);
    default:
        return false;
    }
}

bool isOneSymbol(const PatternNode &node)
{
    const bool bOnly = node.kind == PatternNode::Sequence && node.children.size() == 1;
    return node.kind == PatternNode::Symbol || (bOnly && isOneSymbol(node.children.front()));
}

PatternNode reversed(PatternNode node)
{
    for (PatternNode &child : node.children) {
        child = reversed(std::move(child));
    }
    if (node.kind == PatternNode::Sequence) {
        std::reverse(node.children.begin(), node.children.end());
    } else if (node.kind == PatternNode::LineStart) {
        node.kind = PatternNode::LineEnd;
    } else if (node.kind == PatternNode::LineEnd) {
        node.kind = PatternNode::LineStart;
    }
    return node;
}

} // namespace

// A lookahead is a second machine, and only at the end of the pattern.
CAnchoredPattern::CAnchoredPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity,
                                   Direction direction)
{
    std::optional<PatternNode> read = readPattern(strPattern, sensitivity);
    if (!read) {
        return;
    }
    PatternNode &node = *read;
    PatternNode ahead;
    if (isLookahead(node)) {
        std::swap(node, ahead);
    } else if (node.kind == PatternNode::Sequence && isLookahead(node.children.back())) {
        ahead = node.children.back();
        node.children.pop_back();
    }
    const bool bAhead = ahead.kind != PatternNode::Nothing;
    if (holdsLookahead(node) || (bAhead && !isRunnableAhead(ahead.children.front()))) {
        return;
    }
    if (bAhead) {
        m_ahead.emplace(ahead.children.front());
        m_bAheadIsNegative = ahead.kind == PatternNode::NegativeLookahead;
    }
    m_automaton.emplace(direction == Backwards ? reversed(node) : node);
    m_bOnlyAtLineStart = beginsAtLineStart(node);
    m_bOneSymbol = isOneSymbol(node);
    findFirst(node);
}

void CAnchoredPattern::findFirst(const PatternNode &pattern)
{
    const bool bOnlyAhead = m_ahead && !m_bAheadIsNegative && isEmptySequence(pattern);
    const CPatternAutomaton &automaton = bOnlyAhead ? *m_ahead : *m_automaton;
    for (size_t n = 0; n < m_arrFirst.size(); ++n) {
        m_arrFirst[n] = automaton.mayStartWith(int(n));
        m_first |= m_arrFirst[n];
    }
    for (int n = 0; n < SymbolCount && m_first.count() == 1; ++n) {
        m_nOnlyStart = m_first[size_t(n)] ? n : m_nOnlyStart;
    }
}

// A negative lookahead alone may have an empty match anywhere, which the second set does not say.
SymbolSet CAnchoredPattern::mayStartWith(const SymbolSet &nextFirst) const
{
    if (!m_automaton || m_ahead) {
        return m_first;
    }
    return m_automaton->mayHoldFirst() | (m_automaton->mayBeEmptyBefore() & nextFirst);
}

int CAnchoredPattern::endOfMatch(const CSymbolLine &line, int nStart)
{
    if (!isUsable()) {
        return -1;
    }
    if (m_bOneSymbol) {
        const size_t nSymbol = line.symbols()[nStart];
        const bool bHere = nSymbol != LineEndSymbol && m_first[nSymbol];
        return bHere && isFollowedRightly(line, nStart + 1) ? nStart + 1 : -1;
    }
    if (!m_ahead) {
        return m_automaton->longestEnd(line, nStart);
    }
    m_lstEnds.clear();
    findCandidates(line, nStart, &m_lstEnds);
    while (!m_lstEnds.empty() && !isFollowedRightly(line, m_lstEnds.back())) {
        m_lstEnds.pop_back();
    }
    return m_lstEnds.empty() ? -1 : m_lstEnds.back();
}

// Ends that the lookahead is worth asking for.
void CAnchoredPattern::findCandidates(const CSymbolLine &line, int nStart, std::vector<int> *pEnds)
{
    if (m_bAheadIsNegative) {
        m_automaton->findEnds(line, nStart, pEnds);
        return;
    }
    // It knows neither line starts nor words, so that one context is like the others.
    m_automaton->findEnds(line, nStart, pEnds, m_ahead->mayStartWith(0));
}

bool CAnchoredPattern::isFollowedRightly(const CSymbolLine &line, int nEnd)
{
    return !m_ahead || m_ahead->matches(line, nEnd) != m_bAheadIsNegative;
}

void CAnchoredPattern::findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds)
{
    if (!isUsable()) {
        return;
    }
    const auto nBefore = std::ptrdiff_t(pEnds->size());
    m_automaton->findEnds(line, nStart, pEnds);
    const auto isWrong = [&](int nEnd) { return !isFollowedRightly(line, nEnd); };
    pEnds->erase(std::remove_if(pEnds->begin() + nBefore, pEnds->end(), isWrong), pEnds->end());
}

bool CAnchoredPattern::matchesBefore(const CSymbolLine &line, int nEnd)
{
    return isUsable() && m_automaton->matchesBackwards(line, nEnd, nMaxLookBehind);
}
