#include "highlight/patternsyntax.h"

#include <QStringList>
#include <algorithm>

bool PatternNode::contains(Kind wanted) const
{
    return kind == wanted
        || std::any_of(children.begin(), children.end(),
                       [wanted](const PatternNode &child) { return child.contains(wanted); });
}

namespace {

constexpr int nMaxRepeats = 20;

SymbolSet classByLetter(char chLetter)
{
    SymbolSet set;
    for (int n = 0; n < SymbolCount; ++n) {
        const bool bAscii = n < 128;
        const QChar ch(n);
        switch (chLetter) {
        case 'd':
            set[n] = bAscii ? ch.isDigit() : n == OtherDigit;
            break;
        case 's':
            set[n] = bAscii ? ch.isSpace() : n == OtherSpace;
            break;
        default:
            set[n] = isWordSymbol(n);
            break;
        }
    }
    return set;
}

class CPatternReader
{
public:
    CPatternReader(const QString &strPattern, Qt::CaseSensitivity sensitivity)
        : m_strPattern(strPattern), m_sensitivity(sensitivity)
    {
    }

    std::optional<PatternNode> read()
    {
        PatternNode node = readChoice();
        return m_bUnderstood && atEnd() ? std::make_optional(std::move(node)) : std::nullopt;
    }

private:
    bool atEnd() const { return m_nAt >= m_strPattern.size(); }
    char peek() const { return atEnd() ? '\0' : m_strPattern.at(m_nAt).toLatin1(); }
    char next();
    bool take(char ch);
    PatternNode giveUp();

    PatternNode readChoice();
    PatternNode readSequence();
    PatternNode readRepeat();
    PatternNode readAtom();
    PatternNode readGroup();
    PatternNode readClass();
    PatternNode readEscape();
    bool readBounds(int *pMin, int *pMax);
    std::optional<SymbolSet> readClassMember(char *pCharacter);
    PatternNode symbol(const SymbolSet &set) const;
    SymbolSet only(char ch) const;
    SymbolSet withBothCases(SymbolSet set) const;

    const QString &m_strPattern;
    const Qt::CaseSensitivity m_sensitivity;
    int m_nAt = 0;
    bool m_bUnderstood = true;
};

// Characters beyond ASCII and the end of the pattern where there must be more are not understood.
char CPatternReader::next()
{
    if (atEnd() || m_strPattern.at(m_nAt).unicode() >= 128) {
        m_bUnderstood = false;
        m_nAt = m_strPattern.size();
        return '\0';
    }
    return m_strPattern.at(m_nAt++).toLatin1();
}

bool CPatternReader::take(char ch)
{
    const bool bFound = !atEnd() && m_strPattern.at(m_nAt) == QLatin1Char(ch);
    m_nAt += bFound;
    return bFound;
}

PatternNode CPatternReader::giveUp()
{
    m_bUnderstood = false;
    m_nAt = m_strPattern.size();
    return PatternNode();
}

PatternNode CPatternReader::readChoice()
{
    PatternNode choice;
    choice.kind = PatternNode::Choice;
    do {
        choice.children.push_back(readSequence());
    } while (take('|'));
    return choice.children.size() == 1 ? PatternNode(choice.children.front()) : choice;
}

PatternNode CPatternReader::readSequence()
{
    PatternNode sequence;
    sequence.kind = PatternNode::Sequence;
    while (!atEnd() && peek() != '|' && peek() != ')') {
        sequence.children.push_back(readRepeat());
    }
    return sequence.children.empty() ? giveUp() : sequence;
}

PatternNode CPatternReader::readRepeat()
{
    PatternNode atom = readAtom();
    PatternNode repeat;
    repeat.kind = PatternNode::Repeat;
    if (!readBounds(&repeat.nMin, &repeat.nMax)) {
        return atom;
    }
    if (atom.isAnchor() || atom.kind == PatternNode::Lookahead
        || atom.kind == PatternNode::NegativeLookahead) {
        return giveUp();
    }
    repeat.children.push_back(std::move(atom));
    return repeat;
}

bool CPatternReader::readBounds(int *pMin, int *pMax)
{
    if (take('*')) {
        return true;
    }
    if (take('+')) {
        *pMin = 1;
        return true;
    }
    if (take('?')) {
        *pMax = 1;
        return true;
    }
    if (!take('{')) {
        return false;
    }
    const int nEnd = m_strPattern.indexOf(QLatin1Char('}'), m_nAt);
    const QStringList lst = m_strPattern.mid(m_nAt, nEnd - m_nAt).split(QLatin1Char(','));
    m_nAt = nEnd + 1;
    *pMin = lst.first().toInt();
    *pMax = lst.size() == 1 ? *pMin : lst.last().isEmpty() ? -1 : lst.last().toInt();
    if (nEnd < 0 || *pMin > nMaxRepeats || *pMax > nMaxRepeats || *pMax == 0) {
        giveUp();
    }
    return true;
}

PatternNode CPatternReader::readAtom()
{
    PatternNode node;
    const char ch = next();
    switch (ch) {
    case '(':
        return readGroup();
    case '[':
        return readClass();
    case '\\':
        return readEscape();
    case '^':
        node.kind = PatternNode::LineStart;
        return node;
    case '$':
        node.kind = PatternNode::LineEnd;
        return node;
    case '.':
        return symbol(SymbolSet().set());
    case '*':
    case '+':
    case '?':
    case '{':
    case '}':
    case ']':
        return giveUp();
    default:
        return symbol(withBothCases(only(ch)));
    }
}

PatternNode CPatternReader::readGroup()
{
    PatternNode node;
    if (take('?')) {
        const char ch = next();
        node.kind = ch == '=' ? PatternNode::Lookahead
            : ch == '!'       ? PatternNode::NegativeLookahead
                              : PatternNode::Nothing;
    }
    PatternNode inner = readChoice();
    if (!take(')')) {
        return giveUp();
    }
    if (node.kind == PatternNode::Nothing) {
        return inner;
    }
    node.children.push_back(std::move(inner));
    return node;
}

PatternNode CPatternReader::readClass()
{
    const bool bNegated = take('^');
    if (peek() == ']') {
        return giveUp();
    }
    SymbolSet set;
    while (m_bUnderstood && !take(']')) {
        char chFrom = '\0';
        const std::optional<SymbolSet> member = readClassMember(&chFrom);
        const bool bRange = member && peek() == '-' && m_nAt + 1 < m_strPattern.size()
            && m_strPattern.at(m_nAt + 1) != QLatin1Char(']');
        if (!member || (bRange && chFrom == '\0')) {
            return giveUp();
        }
        set |= *member;
        if (bRange) {
            next();
            char chTo = '\0';
            if (!readClassMember(&chTo) || chTo < chFrom) {
                return giveUp();
            }
            for (int n = uchar(chFrom); n <= uchar(chTo); ++n) {
                set.set(size_t(n));
            }
        }
    }
    set = withBothCases(set);
    return symbol(bNegated ? ~set : set);
}

// One character of a class, or one of \d \s \w, for which *pCharacter stays as it is.
std::optional<SymbolSet> CPatternReader::readClassMember(char *pCharacter)
{
    char ch = next();
    if (ch == '\\') {
        ch = next();
        switch (ch) {
        case 'd':
        case 's':
        case 'w':
            return classByLetter(ch);
        case 't':
            ch = '\t';
            break;
        default:
            if (QChar(QLatin1Char(ch)).isLetterOrNumber()) {
                return std::nullopt;
            }
        }
    }
    *pCharacter = ch;
    return m_bUnderstood ? std::make_optional(only(ch)) : std::nullopt;
}

PatternNode CPatternReader::readEscape()
{
    PatternNode node;
    const char ch = next();
    switch (ch) {
    case 'b':
    case 'B':
        node.kind = ch == 'b' ? PatternNode::WordEdge : PatternNode::NoWordEdge;
        return node;
    case 'd':
    case 's':
    case 'w':
        return symbol(classByLetter(ch));
    case 'D':
    case 'S':
    case 'W':
        return symbol(~classByLetter(char(ch + 32)));
    case 't':
        return symbol(only('\t'));
    default:
        return QChar(QLatin1Char(ch)).isLetterOrNumber() ? giveUp() : symbol(only(ch));
    }
}

PatternNode CPatternReader::symbol(const SymbolSet &set) const
{
    PatternNode node;
    node.kind = PatternNode::Symbol;
    node.set = set;
    return node;
}

SymbolSet CPatternReader::only(char ch) const
{
    return SymbolSet().set(uchar(ch));
}

SymbolSet CPatternReader::withBothCases(SymbolSet set) const
{
    if (m_sensitivity == Qt::CaseInsensitive) {
        for (int n = 'a'; n <= 'z'; ++n) {
            const bool bEither = set[size_t(n)] || set[size_t(n - 32)];
            set[size_t(n)] = set[size_t(n - 32)] = bEither;
        }
    }
    return set;
}

} // namespace

std::optional<PatternNode> readPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity)
{
    return CPatternReader(strPattern, sensitivity).read();
}
