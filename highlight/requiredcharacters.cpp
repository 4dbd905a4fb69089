#include "highlight/requiredcharacters.h"

#include <algorithm>

namespace {

using Sets = std::vector<SymbolSet>;

// A larger set is in nearly every line and not worth asking for.
constexpr size_t nLargestSet = 16;

bool isSmaller(const SymbolSet &a, const SymbolSet &b)
{
    return a.count() < b.count();
}

Sets required(const PatternNode &node);

// A match holds what one of the alternatives holds: of each its smallest set, together.
Sets requiredByChoice(const PatternNode &choice)
{
    SymbolSet set;
    for (const PatternNode &child : choice.children) {
        const Sets lst = required(child);
        if (lst.empty()) {
            return Sets();
        }
        set |= *std::min_element(lst.begin(), lst.end(), isSmaller);
    }
    return {set};
}

Sets required(const PatternNode &node)
{
    Sets lst;
    switch (node.kind) {
    case PatternNode::Symbol:
        return {node.set};
    case PatternNode::Choice:
        return requiredByChoice(node);
    case PatternNode::Repeat:
        return node.nMin > 0 ? required(node.children.front()) : Sets();
    case PatternNode::Sequence:
        for (const PatternNode &child : node.children) {
            const Sets lstChild = required(child);
            lst.insert(lst.end(), lstChild.begin(), lstChild.end());
        }
        return lst;
    case PatternNode::Lookahead:
        return required(node.children.front());
    default:
        return lst;
    }
}

} // namespace

RequiredCharacters::RequiredCharacters(const PatternNode &pattern, Qt::CaseSensitivity sensitivity)
{
    for (SymbolSet set : required(pattern)) {
        if (sensitivity == Qt::CaseInsensitive) {
            // Some letters beyond ASCII equal one of it then, such as the Kelvin sign.
            set.set(OtherWord);
        }
        if (set.count() <= nLargestSet) {
            m_lstSets.push_back(set);
        }
    }
}
