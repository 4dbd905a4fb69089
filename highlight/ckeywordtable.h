#pragma once

#include <QString>
#include <vector>

// A match of the keyword rule with that number.
struct KeywordHit
{
    int nRule;
    int nStart;
    int nLength;
};

// Keywords without pattern syntax, found word by word. A word of the line is a run of letters,
// numbers, marks and "_" of its full length, which is what QRegExp's \b makes of it.
class CKeywordTable
{
public:
    explicit CKeywordTable(Qt::CaseSensitivity sensitivity);

    // Takes a keyword if this table finds it exactly as QRegExp would; false when it cannot.
    bool add(const QString &strKeyword, int nRule);
    bool isEmpty() const { return m_lstEntries.empty(); }

    // Appends the keywords that begin in nStart..nEnd, or in the rest of the line when nEnd is
    // negative, ordered by position. Matches of one rule may
    // overlap only where a keyword repeats its own beginning, such as "a-a" in "a-a-a".
    void find(const QString &strText, int nStart, int nEnd, std::vector<KeywordHit> *pHits) const;

private:
    struct Entry
    {
        QString strKeyword; // folded when letter case does not count
        int nWordLength; // of the word it begins with
        int nRule;
        int nNext; // in the same bucket, -1 at its end
    };

    QChar folded(QChar ch) const;
    uint hash(const QChar *pch, int nLength) const;
    void link(int nEntry);
    void findWord(const QString &strText, int nWord, int nLength,
                  std::vector<KeywordHit> *pHits) const;
    bool isAt(const Entry &entry, const QString &strText, int nAt) const;

    Qt::CaseSensitivity m_sensitivity;
    std::vector<Entry> m_lstEntries;
    std::vector<int> m_lstBuckets; // heads of the chains
    // For each first character below 128 the lengths of words that begin with it, as bits; bit 31
    // stands for 31 and more. Words that begin with another character share the last entry.
    quint32 m_arrLengths[129] = {};
};
