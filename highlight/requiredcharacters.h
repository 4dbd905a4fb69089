#pragma once

#include <QString>
#include <vector>

// A cheap answer to "can this regular expression match in this line at all?": a match of "->|=>"
// holds a ">", one of "^\s*#\s*[a-z]+" holds a "#". The sets are found by reading the pattern's
// outline; where it is not understood nothing is required.

// The ASCII characters that occur in a text. Others count as "might be anything".
struct CharacterMask
{
    quint64 arrBits[2] = {};
    bool bOthers = false;

    void add(QChar ch);
    void unite(const CharacterMask &other);
    bool intersects(const CharacterMask &other) const;
    int count() const;
};

CharacterMask characterMask(const QString &strText);

// Every match holds at least one character of each of these sets.
class RequiredCharacters
{
public:
    RequiredCharacters() = default;
    // strPattern is a valid QRegExp pattern in its default syntax.
    RequiredCharacters(const QString &strPattern, Qt::CaseSensitivity sensitivity);

    bool mayMatch(const CharacterMask &line) const;

private:
    std::vector<CharacterMask> m_lstSets;
};
