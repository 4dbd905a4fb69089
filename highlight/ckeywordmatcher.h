#pragma once

#include "highlight/ckeywordtable.h"
#include "highlight/clinepattern.h"
#include "highlight/highlightline.h"

#include <vector>

// The keywords and patterns of a definition, numbered as they were added. One walk over the words
// of a line finds all keywords that are plain words or begin with one; the rest are regular
// expressions. Not to be used by two threads at a time: QRegExp keeps its last match.
class CKeywordMatcher
{
public:
    explicit CKeywordMatcher(Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive);

    // A whole word: "\bitem\b" with its stars escaped, everything else being pattern syntax.
    void addWord(const QString &strItem);
    // A regular expression; one that is not valid is left out.
    void addPattern(const QString &strPattern);

    // Looks through one line, in one region after the other from left to right.
    class CSearch
    {
    public:
        CSearch(const CKeywordMatcher &matcher, const QString &strText);

        // What the line holds, if a pattern asks for it.
        bool hasSymbols() const { return !m_lstNext.empty(); }
        const SymbolSet &symbols() const { return m_symbols; }

        // Appends the matches that begin in nStart..nEnd (to the end of the line if nEnd is
        // negative), by rule and then by position. False when isAborted, asked before each regular
        // expression, answered true.
        bool addMatches(int nStart, int nEnd, std::vector<HighlightRange> *pRanges,
                        const AbortCheck &isAborted);

    private:
        // The next match of a regular expression, kept for the region behind.
        struct Next
        {
            int nFrom = -1; // where the search began; -1: not yet
            int nTo = -1; // up to where a match would have been found; -1: in the whole line
            int nStart = -1;
            int nLength = 0;
        };

        void addPatternMatches(size_t nPattern, int nStart, int nEnd);

        const CKeywordMatcher &m_matcher;
        const QString &m_strText;
        const SymbolSet m_symbols;
        std::vector<Next> m_lstNext;
        std::vector<KeywordHit> m_lstHits;
    };

private:
    struct Pattern
    {
        int nRule = 0;
        CLinePattern pattern;
    };

    CKeywordTable m_table;
    std::vector<Pattern> m_lstPatterns;
    Qt::CaseSensitivity m_sensitivity;
    int m_nRules = 0;
};
