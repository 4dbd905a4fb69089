#include "highlight/canchoredpattern.h"

#include "highlight/csymbolline.h"
#include "highlight/patternsyntax.h"
#include "highlight/symbols.h"

#include <algorithm>

namespace {

constexpr int g_nMaxLookBehind = 64;

bool isLookahead(const SPatternNode &node)
{
    return node.kind == SPatternNode::Lookahead || node.kind == SPatternNode::NegativeLookahead;
}

bool holdsLookahead(const SPatternNode &node)
{
    return node.contains(SPatternNode::Lookahead) || node.contains(SPatternNode::NegativeLookahead);
}

// QRegExp treats anchors in a lookahead differently.
bool isRunnableAhead(const SPatternNode &node)
{
    return !holdsLookahead(node) && !node.contains(SPatternNode::LineStart)
        && !node.contains(SPatternNode::WordEdge) && !node.contains(SPatternNode::NoWordEdge);
}

bool isEmptySequence(const SPatternNode &node)
{
    return node.kind == SPatternNode::Nothing
        || (node.kind == SPatternNode::Sequence && node.children.empty());
}

bool beginsAtLineStart(const SPatternNode &node)
{
    switch (node.kind) {
    case SPatternNode::LineStart:
        return true;
    case SPatternNode::Sequence:
        return !node.children.empty() && beginsAtLineStart(node.children.front());
    case SPatternNode::Choice:
        return std::all_of(node.children.begin(), node.children.end(), beginsAtLineStart);
    default:
        return false;
    }
}

bool isOneSymbol(const SPatternNode &node)
{
    const bool bOnly = node.kind == SPatternNode::Sequence && node.children.size() == 1;
    return node.kind == SPatternNode::Symbol || (bOnly && isOneSymbol(node.children.front()));
}

SPatternNode reversed(SPatternNode node)
{
    for (SPatternNode &child : node.children)
        child = reversed(std::move(child));
    if (node.kind == SPatternNode::Sequence)
        std::reverse(node.children.begin(), node.children.end());
    else if (node.kind == SPatternNode::LineStart)
        node.kind = SPatternNode::LineEnd;
    else if (node.kind == SPatternNode::LineEnd)
        node.kind = SPatternNode::LineStart;
    return node;
}

} // namespace

// A lookahead is a second machine, and only at the end of the pattern.
CAnchoredPattern::CAnchoredPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity,
                                   Direction direction)
{
    std::optional<SPatternNode> read = readPattern(strPattern, sensitivity);
    if (!read)
        return;
    SPatternNode &node = *read;
    SPatternNode ahead;
    if (isLookahead(node)) {
        std::swap(node, ahead);
    } else if (node.kind == SPatternNode::Sequence && isLookahead(node.children.back())) {
        ahead = node.children.back();
        node.children.pop_back();
    }
    const bool bAhead = ahead.kind != SPatternNode::Nothing;
    if (holdsLookahead(node) || (bAhead && !isRunnableAhead(ahead.children.front())))
        return;
    if (bAhead) {
        m_ahead.emplace(ahead.children.front());
        m_bAheadIsNegative = ahead.kind == SPatternNode::NegativeLookahead;
    }
    m_automaton.emplace(direction == Backwards ? reversed(node) : node);
    m_bOnlyAtLineStart = beginsAtLineStart(node);
    m_bOneSymbol = isOneSymbol(node);
    findFirst(node);
}

void CAnchoredPattern::findFirst(const SPatternNode &pattern)
{
    const bool bOnlyAhead = m_ahead && !m_bAheadIsNegative && isEmptySequence(pattern);
    const CPatternAutomaton &automaton = bOnlyAhead ? *m_ahead : *m_automaton;
    for (size_t n = 0; n < m_arrFirst.size(); ++n) {
        m_arrFirst[n] = automaton.mayStartWith(int(n));
        m_first |= m_arrFirst[n];
    }
    for (int n = 0; n < SymbolCount && m_first.count() == 1; ++n)
        m_nOnlyStart = m_first[size_t(n)] ? n : m_nOnlyStart;
    // It knows neither line starts nor words, so all contexts are alike.
    m_arrBeforeAhead[LineEndSymbol] = 1;
    for (size_t n = 0; n < SymbolCount && m_ahead; ++n)
        m_arrBeforeAhead[n] = m_ahead->mayStartWith(0)[n];
}

SymbolSet CAnchoredPattern::mayGoOnWith() const
{
    if (!m_automaton || m_automaton->mayBeEmpty())
        return SymbolSet().set();
    if (!m_automaton->mayBeOneSymbol())
        return m_automaton->mayHoldSecond();
    if (!m_ahead || m_bAheadIsNegative)
        return SymbolSet().set();
    return m_automaton->mayHoldSecond() | m_ahead->mayStartWith(0);
}

// A pattern that is only a negative lookahead may match emptily anywhere, which the second set does
// not express.
SymbolSet CAnchoredPattern::mayStartWith(const SymbolSet &nextFirst) const
{
    if (!m_automaton || m_ahead)
        return m_first;
    return m_automaton->mayHoldFirst() | (m_automaton->mayBeEmptyBefore() & nextFirst);
}

int CAnchoredPattern::endOfMatch(const CSymbolLine &line, int nStart)
{
    if (!isUsable())
        return -1;
    if (m_bOneSymbol) {
        const size_t nSymbol = line.symbols()[nStart];
        const bool bHere = nSymbol != LineEndSymbol && m_first[nSymbol];
        return bHere && isFollowedRightly(line, nStart + 1) ? nStart + 1 : -1;
    }
    if (!m_ahead)
        return m_automaton->longestEnd(line, nStart);
    m_lstEnds.clear();
    findCandidates(line, nStart, &m_lstEnds);
    while (!m_lstEnds.empty() && !isFollowedRightly(line, m_lstEnds.back()))
        m_lstEnds.pop_back();
    return m_lstEnds.empty() ? -1 : m_lstEnds.back();
}

// Keeps the ends at which the lookahead may succeed.
void CAnchoredPattern::findCandidates(const CSymbolLine &line, int nStart, std::vector<int> *pEnds)
{
    if (m_bAheadIsNegative) {
        m_automaton->findEnds(line, nStart, pEnds);
        return;
    }
    m_automaton->findEnds(line, nStart, pEnds, m_arrBeforeAhead);
}

bool CAnchoredPattern::isFollowedRightly(const CSymbolLine &line, int nEnd)
{
    return !m_ahead || m_ahead->matches(line, nEnd) != m_bAheadIsNegative;
}

void CAnchoredPattern::findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds)
{
    if (!isUsable())
        return;
    const auto nBefore = std::ptrdiff_t(pEnds->size());
    m_automaton->findEnds(line, nStart, pEnds);
    const auto isWrong = [&](int nEnd) { return !isFollowedRightly(line, nEnd); };
    pEnds->erase(std::remove_if(pEnds->begin() + nBefore, pEnds->end(), isWrong), pEnds->end());
}

bool CAnchoredPattern::matchesBefore(const CSymbolLine &line, int nEnd)
{
    return isUsable() && m_automaton->matchesBackwards(line, nEnd, g_nMaxLookBehind);
}
