#pragma once

#include "highlight/csymbolline.h"

#include <QString>
#include <array>
#include <vector>

// A match of the keyword rule with that number.
struct SKeywordHit
{
    int nRule;
    int nStart;
    int nLength;
};

// Finds keywords without pattern syntax, word by word. A word is the longest run of letters,
// numbers, marks and "_", as for QRegExp's \b.
class CKeywordTable
{
public:
    explicit CKeywordTable(Qt::CaseSensitivity sensitivity);

    // Takes a keyword if this table finds it exactly as QRegExp would; false when it cannot.
    bool add(const QString &strKeyword, int nRule);
    bool isEmpty() const { return m_lstEntries.empty(); }

    // Whether a keyword may begin with this symbol.
    bool mayStartWith(int nSymbol) const;
    // Whether a keyword may begin at a place in a line's symbols, judged by two symbols. The place
    // is not the line's end.
    bool mayStartAt(const uchar *pSymbols) const
    {
        return (m_arrSeconds[pSymbols[0]][pSymbols[1] / 64] >> (pSymbols[1] % 64)) & 1;
    }
    // Appends the keywords that begin with the word at nAt; a word has to begin there. Matches of
    // one rule may overlap only where a keyword repeats its own beginning, such as "a-a" in
    // "a-a-a".
    void findAt(const CSymbolLine &line, int nAt, std::vector<SKeywordHit> *pHits) const;

private:
    struct SEntry
    {
        QString strKeyword; // Folded if letter case does not count.
        std::vector<uchar> lstSymbols; // The symbols of the keyword.
        bool bAscii; // Its symbols identify it.
        int nWordLength; // The length of the word that it begins with.
        int nRule;
        uint nHash; // The hash of that word.
        int nNext; // The next one in its bucket, or -1.
    };

    QChar folded(QChar ch) const;
    static uint hashOf(const uchar *pSymbols, int nLength);
    void link(int nEntry);
    void enterSecond(const std::vector<uchar> &lstSymbols);
    void findFolding(const CSymbolLine &line, int nAt, std::vector<SKeywordHit> *pHits) const;
    bool isAt(const SEntry &entry, const QString &strText, int nAt) const;

    Qt::CaseSensitivity m_sensitivity;
    std::vector<SEntry> m_lstEntries;
    std::vector<int> m_lstBuckets; // Heads of the chains. Their number is a power of two.
    // The lengths of the words that begin with each symbol, as bits; bit 31 stands for 31 and more.
    std::array<quint32, SymbolCount> m_arrLengths {};
    // For each symbol, the symbols that may follow it at a keyword's beginning, as bits.
    std::array<std::array<quint64, 3>, SymbolCount> m_arrSeconds {};
};
