#pragma once

#include "highlight/canchoredpattern.h"
#include "highlight/ckeywordtable.h"
#include "highlight/clinepattern.h"
#include "highlight/csymbolline.h"
#include "highlight/highlightline.h"

#include <array>
#include <vector>

// What a definition says about code: numbers, operators, and the keywords and patterns in the order
// in which they were added. One walk over a line finds all of it: for each character a table says
// which rules may begin there. Patterns that state machines cannot run are searched for one by one.
// Not to be used by two threads at a time.
class CCodeMatcher
{
public:
    explicit CCodeMatcher(Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive);
    // It can only be moved: a copy would run the machines of the original.
    CCodeMatcher(CCodeMatcher &&) = default;
    CCodeMatcher &operator=(CCodeMatcher &&) = default;

    // A whole word: "\bitem\b" with its stars escaped, everything else being pattern syntax.
    void addWord(const QString &strItem);
    // A regular expression; one that is not valid is left out.
    void addPattern(const QString &strPattern);
    // Replaces the fixed rule for numbers; an empty pattern is found nowhere.
    void setNumbers(const QString &strPattern);
    void setOperators(const QString &strPattern);

    // Sets the line to look through, which has to live that long.
    void setLine(const CSymbolLine *pLine) const;
    // Looks through the part of the line from nFrom up to nTo. Call begin(), then lookThrough() for
    // pieces of the part from left to right, with or without keywords, then finish(). It appends
    // numbers, operators, and keywords sorted by piece, rule and position. Numbers and operators
    // end at nTo at the latest; a keyword has to begin in its piece. False when isAborted, which is
    // called now and then, gave true.
    void begin(int nFrom, int nTo) const;
    bool lookThrough(int nFrom, int nTo, bool bKeywords, const AbortCheck &isAborted) const;
    bool finish(std::vector<SHighlightRange> *pRanges, const AbortCheck &isAborted) const;

private:
    struct SPattern
    {
        int nRule = 0; // The number of its keyword rule.
        HighlightRole role = HighlightRole::Keyword;
        CLinePattern pattern;
        // A line with a match holds a character of each of these sets.
        mutable quint64 nRequired = 0;
    };
    // The next match of a pattern, kept for later parts of the line, so that a long line with many
    // parts is not searched to its end for each of them.
    struct SNext
    {
        int nFrom = -1; // Where the search began. -1 if there was none.
        int nStart = -1;
        int nLength = 0;
    };
    // The first patterns have the bits from 0 on.
    static constexpr int g_nMaxPatterns = 61;
    enum Bit { NumberBit = g_nMaxPatterns, OperatorBit, WordBit, BitCount };
    static_assert(BitCount == 64, "one bit for each rule");
    // What is known of a place; there is one table for each.
    enum Place { Elsewhere, InWord, AtStart, PlaceCount };

    static constexpr quint64 bit(int n) { return quint64(1) << n; }

    void addPatternOf(HighlightRole role, int nRule, const QString &strPattern);
    void compile() const;
    void enterFixedRules() const;
    void require(size_t nPattern) const;
    void listSetSymbols() const;
    quint64 numberOf(const SymbolSet &set) const;
    void ask(const CSymbolLine &line) const;
    void forget(quint64 nRules) const;
    void enter(int nBit, const CAnchoredPattern &pattern) const;
    quint64 requirementsIn(const CSymbolLine &line) const;
    void walk(int nFrom, int nTo, quint64 nLive) const;
    void tryRules(quint64 nBits, int nAt) const;
    void tryPattern(int nBit, int nAt) const;
    bool searchSlowly(HighlightRole role, int nFrom, int nTo, const AbortCheck &isAborted) const;
    void searchSlowly(size_t nPattern, int nFrom, int nTo) const;
    void take(const SPattern &pattern, int nStart, int nLength) const;
    void dropHits(const SPattern &pattern) const;
    void addKeywords() const;

    Qt::CaseSensitivity m_sensitivity;
    CKeywordTable m_table;
    std::vector<SPattern> m_lstPatterns;
    int m_nRules = 0;
    bool m_bOwnNumbers = false;
    bool m_bOwnOperators = false;

    // The sets that patterns require, and for each symbol the sets that hold it, as bits.
    mutable std::vector<SymbolSet> m_lstSets;
    mutable std::array<quint64, SymbolCount + 1> m_arrSets {};
    mutable std::vector<uchar> m_lstSetSymbols; // All symbols of the sets, if these are few.
    mutable std::vector<size_t> m_lstAsked; // Patterns that require a symbol or have no machine.
    // The rules that may begin, for each place and symbol. Made for the first line.
    mutable bool m_bCompiled = false;
    mutable std::array<std::array<quint64, SymbolCount + 1>, PlaceCount> m_arrStarts {};
    // The rules that are possible by the second symbol.
    mutable std::array<quint64, SymbolCount + 1> m_arrSeconds {};
    mutable quint64 m_nBehindStart = 0; // Rules that may begin after a line's start.
    mutable quint64 m_nKeywordBits = 0;
    mutable quint64 m_nRun = 0; // Patterns that have machines.
    mutable std::array<CAnchoredPattern *, g_nMaxPatterns> m_arrMachines {};
    // What follows is about the line.
    mutable const CSymbolLine *m_pLine = nullptr;
    mutable quint64 m_nPossible = 0;
    mutable std::vector<size_t> m_lstSlow; // Patterns that QRegExp searches.
    mutable std::vector<SNext> m_lstNext; // For each pattern.
    // What follows is about the part that is being walked through.
    mutable int m_nFrom = 0;
    mutable int m_nTo = 0;
    mutable quint64 m_nEnded = 0; // Rules that find nothing more in this part.
    mutable quint64 m_nMoved = 0; // Rules whose next match begins at m_arrNext or later.
    mutable std::array<int, BitCount> m_arrNext {}; // The earliest next match of each rule.
    mutable std::vector<SHighlightRange> m_lstNumbers;
    mutable std::vector<SHighlightRange> m_lstOperators;
    mutable std::vector<SHighlightRange> m_lstKeywords;
    mutable std::vector<SKeywordHit> m_lstHits; // Keywords of the present piece.
};
