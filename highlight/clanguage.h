#pragma once

#include "highlight/ckeywordmatcher.h"
#include "highlight/clinepattern.h"
#include "highlight/cregionrules.h"
#include "highlight/highlightline.h"

#include <QStringList>
#include <QVariant>
#include <optional>

// What one definition says about code: numbers, operators and keywords; and the regions that it
// declares. Not to be used by two threads at a time.
class CLanguage
{
public:
    // Numbers and operators.
    CLanguage() = default;
    // lstLanguages as for CRegionRules.
    explicit CLanguage(const QVariantMap &mapDefinition,
                       const QStringList &lstLanguages = QStringList());

    const CRegionRules &regions() const { return m_regions; }

    // The code of one line, part by part from left to right.
    class CCode
    {
    public:
        CCode(const CLanguage &language, const QString &strText);

        // Appends what the text from nFrom up to nTo holds. *pInsideTag, whether a tag is open,
        // counts in languages whose keywords stand in tags only. False when isAborted, asked now
        // and then, answered true.
        bool add(int nFrom, int nTo, bool *pInsideTag, std::vector<HighlightRange> *pRanges,
                 const AbortCheck &isAborted);

    private:
        // The next match of a pattern, kept for the part behind: a long line with many parts is not
        // searched to its end for each of them.
        struct Next
        {
            int nFrom = -1; // where the search began; -1: not yet
            int nStart = -1;
            int nLength = 0;
        };

        void addMatches(const CLinePattern &pattern, int nFrom, int nTo, HighlightRole role,
                        Next *pNext, std::vector<HighlightRange> *pRanges) const;
        bool addKeywords(int nFrom, int nTo, bool *pInsideTag, std::vector<HighlightRange> *pRanges,
                         const AbortCheck &isAborted);

        const CLanguage &m_language;
        const QString &m_strText;
        CKeywordMatcher::CSearch m_search;
        Next m_nextNumber;
        Next m_nextOperator;
    };

private:
    void readContexts(const QVariantList &lstContexts);
    void readKeywords(const QVariantMap &mapHighlighting);

    CKeywordMatcher m_keywords;
    // Keywords count only between the two; both empty: everywhere.
    CLinePattern m_tagOpen;
    CLinePattern m_tagClose;
    // In place of the fixed rules.
    std::optional<CLinePattern> m_numbers;
    std::optional<CLinePattern> m_operators;
    CRegionRules m_regions;
};
