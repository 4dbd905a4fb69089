#pragma once

#include "highlight/ccodematcher.h"
#include "highlight/clinepattern.h"
#include "highlight/cregionrules.h"
#include "highlight/csymbolline.h"
#include "highlight/highlightline.h"

#include <QStringList>
#include <QVariant>

// What one definition says about code: numbers, operators and keywords; and the regions that it
// declares. Not to be used by two threads at a time.
class CLanguage
{
public:
    // Numbers and operators.
    CLanguage() = default;
    // lstLanguages is the list that CRegionRules takes.
    explicit CLanguage(const QVariantMap &mapDefinition,
                       const QStringList &lstLanguages = QStringList());

    const CRegionRules &regions() const { return m_regions; }

    // Looks through the code of one line, part by part from left to right. Call setLine() first,
    // with a line that lives long enough, then add() for each part. add() appends what it finds in
    // the text from nFrom up to nTo. *pInsideTag tells whether a tag is open, for languages with
    // keywords only in tags. False when isAborted, which is called now and then, gave true.
    void setLine(const CSymbolLine *pLine) const;
    bool add(int nFrom, int nTo, bool *pInsideTag, std::vector<SHighlightRange> *pRanges,
             const AbortCheck &isAborted) const;

private:
    // The next start or end of a tag, kept for the next part.
    struct SNextTag
    {
        int nFrom = -1; // Where the search began. -1 if there was none.
        int nAt = -1;

        int from(int n, const CLinePattern &pattern, const CSymbolLine &line);
    };

    void readFixedRules(const QVariantList &lstElements);
    void readContexts(const QVariantList &lstContexts);
    void readKeywords(const QVariantMap &mapHighlighting);

    bool lookThroughTags(int nFrom, int nTo, bool *pInsideTag, const AbortCheck &isAborted) const;

    CCodeMatcher m_code;
    mutable const CSymbolLine *m_pLine = nullptr;
    mutable SNextTag m_open;
    mutable SNextTag m_close;
    // Keywords count only between the two; both empty: everywhere.
    CLinePattern m_tagOpen;
    CLinePattern m_tagClose;
    CRegionRules m_regions;
};
