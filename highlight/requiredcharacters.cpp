#include "highlight/requiredcharacters.h"

#include "highlight/characterclasses.h"

#include <QtAlgorithms>
#include <algorithm>

void CharacterMask::add(QChar ch)
{
    const ushort n = ch.unicode();
    if (n < 128) {
        arrBits[n / 64] |= quint64(1) << (n % 64);
    } else {
        bOthers = true;
    }
}

void CharacterMask::unite(const CharacterMask &other)
{
    arrBits[0] |= other.arrBits[0];
    arrBits[1] |= other.arrBits[1];
    bOthers = bOthers || other.bOthers;
}

bool CharacterMask::intersects(const CharacterMask &other) const
{
    return (arrBits[0] & other.arrBits[0]) || (arrBits[1] & other.arrBits[1])
        || (bOthers && other.bOthers);
}

int CharacterMask::count() const
{
    return int(qPopulationCount(arrBits[0]) + qPopulationCount(arrBits[1])) + (bOthers ? 1 : 0);
}

CharacterMask characterMask(const QString &strText)
{
    CharacterMask mask;
    for (const QChar ch : strText) {
        mask.add(ch);
    }
    return mask;
}

namespace {

// What every match of a part of a pattern has to hold: one character of each set.
using Sets = std::vector<CharacterMask>;

bool isSmaller(const CharacterMask &a, const CharacterMask &b)
{
    return a.count() < b.count();
}

// Reads the outline of a valid QRegExp pattern: alternatives, groups, quantifiers, characters. Of
// what it does not look into (lookahead, classes such as \w, "[^…]") nothing is required.
class COutlineReader
{
public:
    COutlineReader(const QString &strPattern, Qt::CaseSensitivity sensitivity)
        : m_strPattern(strPattern), m_sensitivity(sensitivity)
    {
    }

    Sets read()
    {
        const Sets lst = readAlternatives();
        return atEnd() ? lst : Sets();
    }

private:
    bool atEnd() const { return m_nAt >= m_strPattern.size(); }
    QChar peek() const { return atEnd() ? QChar() : m_strPattern.at(m_nAt); }
    QChar next() { return atEnd() ? QChar() : m_strPattern.at(m_nAt++); }
    bool take(char ch)
    {
        const bool bFound = !atEnd() && peek() == QLatin1Char(ch);
        m_nAt += bFound;
        return bFound;
    }

    Sets readAlternatives();
    Sets readSequence();
    Sets readAtom();
    Sets readGroup();
    Sets readClass();
    Sets readEscape();
    bool readIsOptional();
    Sets oneOf(QChar ch) const;
    void add(QChar ch, CharacterMask *pMask) const;

    const QString &m_strPattern;
    const Qt::CaseSensitivity m_sensitivity;
    int m_nAt = 0;
};

// A match holds what one of the alternatives holds: of each its smallest set, together.
Sets COutlineReader::readAlternatives()
{
    Sets lst = readSequence();
    while (take('|')) {
        const Sets lstOther = readSequence();
        if (lst.empty() || lstOther.empty()) {
            lst.clear();
            continue;
        }
        CharacterMask mask = *std::min_element(lst.begin(), lst.end(), isSmaller);
        mask.unite(*std::min_element(lstOther.begin(), lstOther.end(), isSmaller));
        lst = {mask};
    }
    return lst;
}

Sets COutlineReader::readSequence()
{
    Sets lst;
    while (!atEnd() && peek() != QLatin1Char('|') && peek() != QLatin1Char(')')) {
        const Sets lstAtom = readAtom();
        if (!readIsOptional()) {
            lst.insert(lst.end(), lstAtom.begin(), lstAtom.end());
        }
    }
    return lst;
}

Sets COutlineReader::readAtom()
{
    const QChar ch = next();
    switch (ch.unicode()) {
    case '(':
        return readGroup();
    case '[':
        return readClass();
    case '\\':
        return readEscape();
    case '^':
    case '$':
    case '.':
        return Sets();
    default:
        return oneOf(ch);
    }
}

Sets COutlineReader::readGroup()
{
    bool bLookahead = false;
    if (take('?')) {
        bLookahead = next() != QLatin1Char(':');
    }
    const Sets lst = readAlternatives();
    take(')');
    return bLookahead ? Sets() : lst;
}

Sets COutlineReader::readClass()
{
    const bool bNegated = take('^');
    bool bUnderstood = !bNegated;
    CharacterMask mask;
    for (bool bFirst = true; !atEnd() && (bFirst || peek() != QLatin1Char(']')); bFirst = false) {
        QChar ch = next();
        if (ch == QLatin1Char('\\')) {
            ch = next();
            bUnderstood = bUnderstood && !ch.isLetterOrNumber();
        } else if (ch == QLatin1Char('-') || ch == QLatin1Char('[')) {
            // A range or a class by name: rarely selective, so not looked into.
            bUnderstood = false;
        }
        add(ch, &mask);
    }
    take(']');
    return bUnderstood && mask.count() > 0 ? Sets {mask} : Sets();
}

Sets COutlineReader::readEscape()
{
    const QChar ch = next();
    if (!ch.isLetterOrNumber()) {
        return oneOf(ch);
    }
    // Hexadecimal and octal codes take digits along; those count as characters of their own here,
    // which would be wrong.
    if (ch == QLatin1Char('x') || ch == QLatin1Char('0')) {
        for (int n = 0; n < 4 && CharacterClass::is(peek(), CharacterClass::HexDigit); ++n) {
            next();
        }
    }
    return Sets();
}

// Reads a quantifier, if there is one, and tells whether it lets the atom be absent.
bool COutlineReader::readIsOptional()
{
    if (take('*') || take('?')) {
        return true;
    }
    if (take('+') || !take('{')) {
        return false;
    }
    QString strMinimum;
    while (peek().isDigit()) {
        strMinimum += next();
    }
    while (!atEnd() && next() != QLatin1Char('}')) { }
    return strMinimum.toInt() == 0;
}

Sets COutlineReader::oneOf(QChar ch) const
{
    CharacterMask mask;
    add(ch, &mask);
    return {mask};
}

void COutlineReader::add(QChar ch, CharacterMask *pMask) const
{
    pMask->add(ch);
    if (m_sensitivity == Qt::CaseInsensitive && ch.isLetter()) {
        pMask->add(ch.toLower());
        pMask->add(ch.toUpper());
        // Some letters beyond ASCII count as equal to one of it, such as the Kelvin sign.
        pMask->bOthers = true;
    }
}

} // namespace

RequiredCharacters::RequiredCharacters(const QString &strPattern, Qt::CaseSensitivity sensitivity)
    : m_lstSets(COutlineReader(strPattern, sensitivity).read())
{
}

bool RequiredCharacters::mayMatch(const CharacterMask &line) const
{
    return std::all_of(m_lstSets.begin(), m_lstSets.end(),
                       [&line](const CharacterMask &set) { return set.intersects(line); });
}
