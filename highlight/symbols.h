#pragma once

#include "highlight/characterclasses.h"

#include <QChar>
#include <array>
#include <bitset>

// Characters as the patterns of definitions tell them apart. Each ASCII character is a symbol; all
// others are grouped by QRegExp's \d, \w and \s.
enum Symbol {
    OtherDigit = 128,
    OtherWord,
    OtherSpace,
    OtherSymbol,
    SymbolCount,
    LineEndSymbol = SymbolCount // follows the last character of a line
};

using SymbolSet = std::bitset<SymbolCount>;
// A byte for each symbol of a line, including its end, which is quick to read.
using SymbolTable = std::array<quint8, SymbolCount + 1>;

inline int symbolOf(QChar ch)
{
    if (CharacterClass::isAscii(ch))
        return ch.unicode();
    return ch.isDigit()                                ? OtherDigit
        : CharacterClass::is(ch, CharacterClass::Word) ? OtherWord
        : ch.isSpace()                                 ? OtherSpace
                                                       : OtherSymbol;
}

inline bool isWordSymbol(int nSymbol)
{
    return nSymbol < 128 ? CharacterClass::is(QChar(nSymbol), CharacterClass::Word)
                         : nSymbol <= OtherWord;
}

// The same for a symbol of a line, including its end, by a table.
constexpr SymbolTable wordSymbols()
{
    SymbolTable arr {};
    for (size_t n = 0; n < 128; ++n)
        arr[n] = CharacterClass::g_arrAsciiFlags[n] & CharacterClass::Word ? 1 : 0;
    arr[OtherDigit] = arr[OtherWord] = 1;
    return arr;
}

inline constexpr SymbolTable g_arrWordSymbols = wordSymbols();

// Letters beyond ASCII that equal one of ASCII when letter case does not count.
inline bool foldsToAscii(QChar ch)
{
    const ushort n = ch.unicode();
    return n == 0x130 || n == 0x131 || n == 0x17f || n == 0x212a;
}
