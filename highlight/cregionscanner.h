#pragma once

#include "highlight/cregionrules.h"
#include "highlight/csymbolline.h"
#include "highlight/regionstate.h"

#include <QString>
#include <functional>
#include <vector>

// A part of a line that is of one region or language.
struct SRegionSpan
{
    int nStart;
    int nEnd;
    RegionRole role;
    int nLanguage; // The language of code.
};

// Divides one line into the parts that its definition's regions make of it. To be made for each
// line.
class CRegionScanner
{
public:
    // Gives the regions of a language of the definition, the definition's own being 0. The answer
    // has to live as long as this object.
    using Languages = std::function<const CRegionRules &(int nLanguage)>;

    // *pStack holds the regions that the line before left open, and afterwards those that this line
    // leaves open. The parts are appended to *pSpans.
    CRegionScanner(const CSymbolLine &line, RegionStack *pStack, const Languages &languages,
                   std::vector<SRegionSpan> *pSpans);

    // Finds the parts of the line, which have no gaps between them. Neighbours of the same kind are
    // joined.
    void scan();
    // Whether *pStack has changed; call it after scan().
    bool hasChangedStack() const { return m_bChanged; }
    // The role of the region that the line leaves open; call it after scan().
    RegionRole roleAtEnd() const { return m_pContext->role; }

private:
    static int indentationOf(const QString &strText);
    const QString &key() const;
    const CRegionRules &rulesOf(int nLanguage) const
    {
        return nLanguage == 0 ? m_own : m_languages(nLanguage);
    }
    const SRegionContext &contextOf(const SRegionFrame &frame) const;
    void look();

    void dropDedented();
    int nextCandidate(int nFrom) const;
    bool applyAt(int nAt);
    bool applyOverride(int nAt);
    bool apply(const CRegionRules &rules, int nRule, int nAt);
    bool begin(const CRegionRules &rules, SRegionRule &rule, int nLanguage, int nAt);
    void push(SRegionFrame frame, int nAt, int nBehind);
    void end(size_t nDepth, int nAt, int nBehind);
    void endBelowWaiting(size_t nDepth, int nBehind);
    void beginSecond(const SRegionFrame &first, const SRegionContext &context);
    int endOfNest(SRegionRule &rule, int nAt, QString *pKey);
    int endOfBegin(SRegionRule &rule, int nAt, QString *pKey);
    int endOfEnd(SRegionRule &rule, int nAt, const QString &strKey);
    bool isContinued() const;
    void endLine();
    void flush(int nTo);

    const CSymbolLine &m_line;
    const QString &m_strText;
    RegionStack &m_stack;
    bool m_bChanged = false;
    const Languages &m_languages;
    const CRegionRules &m_own;
    RegionStack m_lstPending; // Regions that begin with the next line.
    std::vector<SRegionSpan> &m_lstSpans;
    std::vector<int> m_lstEnds;
    int m_nAt = 0; // Where the search goes on.
    int m_nFrom = 0; // Where the present part began.
    int m_nIndentation = -1;
    // The rules of the innermost region.
    const CRegionRules *m_pRules = nullptr;
    const SRegionContext *m_pContext = nullptr;
    int m_nLanguage = 0;
    // Ends of outer regions that count here, and starts that count anywhere.
    bool m_bFirmBelow = false;
    const CRegionRules *m_pAnywhere = nullptr;
    SymbolSet m_overrides; // The symbols that they begin with.
};
