#include "highlight/patternsyntax.h"

#include <QStringList>
#include <algorithm>

bool SPatternNode::contains(Kind wanted) const
{
    return kind == wanted
        || std::any_of(
               children.begin(), children.end(),
               [wanted](const SPatternNode &child) { return child.contains(wanted); });
}

namespace {

constexpr int g_nMaxRepeats = 20;

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

    std::optional<SPatternNode> read()
    {
        SPatternNode node = readChoice();
        return m_bUnderstood && atEnd() ? std::make_optional(std::move(node)) : std::nullopt;
    }

private:
    bool atEnd() const { return m_nAt >= m_strPattern.size(); }
    char peek() const { return atEnd() ? '\0' : m_strPattern.at(m_nAt).toLatin1(); }
    char next();
    bool take(char ch);
    SPatternNode giveUp();

    SPatternNode readChoice();
    SPatternNode readSequence();
    SPatternNode readRepeat();
    SPatternNode readAtom();
    SPatternNode readGroup();
    SPatternNode readClass();
    SPatternNode readEscape();
    bool readBounds(int *pMin, int *pMax);
    std::optional<SymbolSet> readClassMember(char *pCharacter);
    SPatternNode symbol(const SymbolSet &set) const;
    SymbolSet only(char ch) const;
    SymbolSet withBothCases(SymbolSet set) const;

    const QString &m_strPattern;
    const Qt::CaseSensitivity m_sensitivity;
    int m_nAt = 0;
    bool m_bUnderstood = true;
};

// Characters beyond ASCII are not understood, and neither is a pattern that ends too early.
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

SPatternNode CPatternReader::giveUp()
{
    m_bUnderstood = false;
    m_nAt = m_strPattern.size();
    return SPatternNode();
}

SPatternNode CPatternReader::readChoice()
{
    SPatternNode choice;
    choice.kind = SPatternNode::Choice;
    do {
        choice.children.push_back(readSequence());
    } while (take('|'));
    return choice.children.size() == 1 ? SPatternNode(choice.children.front()) : choice;
}

SPatternNode CPatternReader::readSequence()
{
    SPatternNode sequence;
    sequence.kind = SPatternNode::Sequence;
    while (!atEnd() && peek() != '|' && peek() != ')')
        sequence.children.push_back(readRepeat());
    return sequence.children.empty() ? giveUp() : sequence;
}

SPatternNode CPatternReader::readRepeat()
{
    SPatternNode atom = readAtom();
    SPatternNode repeat;
    repeat.kind = SPatternNode::Repeat;
    if (!readBounds(&repeat.nMin, &repeat.nMax))
        return atom;
    if (atom.isAnchor() || atom.kind == SPatternNode::Lookahead
        || atom.kind == SPatternNode::NegativeLookahead)
        return giveUp();
    repeat.children.push_back(std::move(atom));
    return repeat;
}

bool CPatternReader::readBounds(int *pMin, int *pMax)
{
    if (take('*'))
        return true;
    if (take('+')) {
        *pMin = 1;
        return true;
    }
    if (take('?')) {
        *pMax = 1;
        return true;
    }
    if (!take('{'))
        return false;
    const int nEnd = m_strPattern.indexOf(QLatin1Char('}'), m_nAt);
    const QStringList lst = m_strPattern.mid(m_nAt, nEnd - m_nAt).split(QLatin1Char(','));
    m_nAt = nEnd + 1;
    *pMin = lst.first().toInt();
    *pMax = lst.size() == 1 ? *pMin : lst.last().isEmpty() ? -1 : lst.last().toInt();
    if (nEnd < 0 || *pMin > g_nMaxRepeats || *pMax > g_nMaxRepeats || *pMax == 0)
        giveUp();
    return true;
}

SPatternNode CPatternReader::readAtom()
{
    SPatternNode node;
    const char ch = next();
    switch (ch) {
    case '(':
        return readGroup();
    case '[':
        return readClass();
    case '\\':
        return readEscape();
    case '^':
        node.kind = SPatternNode::LineStart;
        return node;
    case '$':
        node.kind = SPatternNode::LineEnd;
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

SPatternNode CPatternReader::readGroup()
{
    SPatternNode node;
    if (take('?')) {
        const char ch = next();
        node.kind = ch == '=' ? SPatternNode::Lookahead
            : ch == '!'       ? SPatternNode::NegativeLookahead
                              : SPatternNode::Nothing;
    }
    SPatternNode inner = readChoice();
    if (!take(')'))
        return giveUp();
    if (node.kind == SPatternNode::Nothing)
        return inner;
    node.children.push_back(std::move(inner));
    return node;
}

SPatternNode CPatternReader::readClass()
{
    const bool bNegated = take('^');
    if (peek() == ']')
        return giveUp();
    SymbolSet set;
    while (m_bUnderstood && !take(']')) {
        char chFrom = '\0';
        const std::optional<SymbolSet> member = readClassMember(&chFrom);
        const bool bRange = member && peek() == '-' && m_nAt + 1 < m_strPattern.size()
            && m_strPattern.at(m_nAt + 1) != QLatin1Char(']');
        if (!member || (bRange && chFrom == '\0'))
            return giveUp();
        set |= *member;
        if (bRange) {
            next();
            char chTo = '\0';
            if (!readClassMember(&chTo) || chTo < chFrom)
                return giveUp();
            for (int n = uchar(chFrom); n <= uchar(chTo); ++n)
                set.set(size_t(n));
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
            if (QChar(QLatin1Char(ch)).isLetterOrNumber())
                return std::nullopt;
        }
    }
    *pCharacter = ch;
    return m_bUnderstood ? std::make_optional(only(ch)) : std::nullopt;
}

SPatternNode CPatternReader::readEscape()
{
    SPatternNode node;
    const char ch = next();
    switch (ch) {
    case 'b':
    case 'B':
        node.kind = ch == 'b' ? SPatternNode::WordEdge : SPatternNode::NoWordEdge;
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

SPatternNode CPatternReader::symbol(const SymbolSet &set) const
{
    SPatternNode node;
    node.kind = SPatternNode::Symbol;
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

std::optional<SPatternNode> readPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity)
{
    return CPatternReader(strPattern, sensitivity).read();
}
