#include "highlight/crequiredcharacters.h"

#include <algorithm>

namespace {

using Sets = std::vector<SymbolSet>;

// A larger set is in nearly every line and not worth asking for.
constexpr size_t g_nLargestSet = 16;

bool isSmaller(const SymbolSet &a, const SymbolSet &b)
{
    return a.count() < b.count();
}

Sets required(const SPatternNode &node);

// A match holds what one of the alternatives holds, so the smallest sets of all alternatives are
// united.
Sets requiredByChoice(const SPatternNode &choice)
{
    SymbolSet set;
    for (const SPatternNode &child : choice.children) {
        const Sets lst = required(child);
        if (lst.empty())
            return Sets();
        set |= *std::min_element(lst.begin(), lst.end(), isSmaller);
    }
    return {set};
}

Sets required(const SPatternNode &node)
{
    Sets lst;
    switch (node.kind) {
    case SPatternNode::Symbol:
        return {node.set};
    case SPatternNode::Choice:
        return requiredByChoice(node);
    case SPatternNode::Repeat:
        return node.nMin > 0 ? required(node.children.front()) : Sets();
    case SPatternNode::Sequence:
        for (const SPatternNode &child : node.children) {
            const Sets lstChild = required(child);
            lst.insert(lst.end(), lstChild.begin(), lstChild.end());
        }
        return lst;
    case SPatternNode::Lookahead:
        return required(node.children.front());
    default:
        return lst;
    }
}

} // namespace

CRequiredCharacters::CRequiredCharacters(const SPatternNode &pattern,
                                         Qt::CaseSensitivity sensitivity)
{
    for (SymbolSet set : required(pattern)) {
        if (sensitivity == Qt::CaseInsensitive) {
            // Without case some letters beyond ASCII equal one of ASCII, such as the Kelvin sign.
            set.set(OtherWord);
        }
        if (set.count() <= g_nLargestSet)
            m_lstSets.push_back(set);
    }
}
