#pragma once

#include <QChar>
#include <array>

// The classes of characters that the highlighting rules look for; a table answers for ASCII.
namespace CharacterClass {

enum Flag : quint8 {
    Word = 1, // Part of a word for QRegExp's \b.
    Digit = 2, // \d
    HexDigit = 4, // [a-fA-F0-9]
    Operator = 8, // [\+\-\*\/\~\^\!]
    BeforeEquals = 16, // [*\/+-\!\^~><]
    NumberStart = 32, // A digit, "#" or a sign.
};

constexpr bool isOneOf(char ch, const char *pszSet)
{
    for (; *pszSet; ++pszSet)
        if (*pszSet == ch)
            return true;
    return false;
}

constexpr std::array<quint8, 128> asciiFlags()
{
    std::array<quint8, 128> arr {};
    for (int n = 1; n < 128; ++n) {
        const char ch = char(n);
        const bool bDigit = ch >= '0' && ch <= '9';
        const char chLower = ch >= 'A' && ch <= 'Z' ? char(ch + 32) : ch;
        const bool bLetter = chLower >= 'a' && chLower <= 'z';
        arr[n] = quint8((bLetter || bDigit || ch == '_' ? Word : 0) | (bDigit ? Digit : 0)
                        | (bDigit || (chLower >= 'a' && chLower <= 'f') ? HexDigit : 0)
                        | (isOneOf(ch, "+-*/~^!") ? Operator : 0)
                        | (isOneOf(ch, "*/^~><") || (ch >= '!' && ch <= '+') ? BeforeEquals : 0)
                        | (bDigit || isOneOf(ch, "#+-") ? NumberStart : 0));
    }
    return arr;
}

inline constexpr std::array<quint8, 128> g_arrAsciiFlags = asciiFlags();

inline bool isAscii(QChar ch)
{
    return ch.unicode() < 128;
}

inline bool is(QChar ch, Flag flag)
{
    if (isAscii(ch))
        return g_arrAsciiFlags[ch.unicode()] & flag;
    switch (flag) {
    case Word:
        return ch.isLetterOrNumber() || ch.isMark();
    case Digit:
    case NumberStart:
        return ch.isDigit();
    default:
        return false;
    }
}

} // namespace CharacterClass
