#pragma once

#include "highlight/characterclasses.h"

#include <QChar>
#include <bitset>

// Characters as the patterns of definitions tell them apart: each of ASCII for itself, all others
// by what QRegExp's \d, \w and \s make of them.
enum Symbol { OtherDigit = 128, OtherWord, OtherSpace, OtherSymbol, SymbolCount };

using SymbolSet = std::bitset<SymbolCount>;

inline int symbolOf(QChar ch)
{
    if (CharacterClass::isAscii(ch)) {
        return ch.unicode();
    }
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

// Letters beyond ASCII that equal one of ASCII when letter case does not count.
inline bool foldsToAscii(QChar ch)
{
    const ushort n = ch.unicode();
    return n == 0x130 || n == 0x131 || n == 0x17f || n == 0x212a;
}
