#pragma once

#include "highlight/canchoredpattern.h"

#include <QString>
#include <QVariant>
#include <array>
#include <vector>

// The role of a region's text. Plain text is code without keywords, numbers and operators.
enum class RegionRole : quint8 { Code, Plain, Comment, String };

// A rule for a place where a region begins or ends, or for a text that is skipped as a whole.
struct SRegionRule
{
    enum Kind { Token, Begin, Nest, End };

    Kind kind = Token;
    RegionRole role = RegionRole::Code; // The role of a token, if it has one of its own.
    bool bHasRole = false;
    int nContext = -1; // The context that begins.
    bool bFromNextLine = false;
    // The key is matched between start and then. For a rule that begins a region it is what the
    // pattern matches; for one that ends it, the key of the beginning or its partner.
    bool bHasKey = false;
    bool bMirrored = false;
    CAnchoredPattern start; // Unused if there is none.
    CAnchoredPattern key;
    CAnchoredPattern then;
    CAnchoredPattern after;
    bool bHasStart = false;
    bool bHasThen = false;
    bool bHasAfter = false;
    SymbolSet first; // The symbols that a match after a line's start begins with.
    bool bOneSymbol = false; // Each symbol of first is a match.
};

// The rules inside one region. Context 0 of a language is its text outside of all regions.
struct SRegionContext
{
    enum Lines { One, Backslash, Many, Indented };

    RegionRole role = RegionRole::Code;
    Lines lines = Many;
    bool bFirm = false; // The end counts inside everything that the region contains.
    bool bFromNextLine = false; // Neither its start nor its end belongs to the region.
    int nSecond = -1; // The context of the second half, if the region has two.
    int nNext = -1; // The context that begins where this one ends.
    int nEmbedded = -1; // The language inside.
    int nEnd = -1; // The rule that ends it.
    std::vector<int> lstRules; // At most 64. The first one that matches counts.
    // The rules whose match may begin with each symbol, as bits; the second table is for a line's
    // start. The line's end has all bits set, so that a search for a rule stops there.
    std::array<quint64, SymbolCount + 1> arrRules {};
    std::array<quint64, SymbolCount + 1> arrRulesAtLineStart {};
    // The rules that are possible by the second symbol.
    std::array<quint64, SymbolCount + 1> arrRulesBySecond {};
    int nStarts = 0; // The number of symbols that a rule may begin with.
    int nOnlyStart = -1; // The symbol, if there is only one.
    quint64 nRulesAtLineEnd = 0; // Rules that may match there without a character.
};

// The regions that a definition declares: strings, comments and whatever else has a start and an
// end. Only one thread at a time may use it, because searching extends the patterns' machines.
class CRegionRules
{
public:
    static constexpr size_t g_nMaxRules = 64; // The most rules of one context.

    // Declares nothing.
    CRegionRules() = default;
    // mapRegions as the registry reads the element "regions"; lstLanguages are the names by which
    // embedded languages are numbered.
    CRegionRules(const QVariantMap &mapRegions, const QStringList &lstLanguages,
                 Qt::CaseSensitivity sensitivity);

    bool isEmpty() const { return m_lstContexts.empty(); }
    int contextCount() const { return int(m_lstContexts.size()); }
    const SRegionContext &context(int n) const { return m_lstContexts[size_t(n)]; }
    SRegionRule &rule(int n) const { return m_lstRules[size_t(n)]; }
    // The language of the text outside of all regions; -1 for the definition's own.
    int baseLanguage() const { return m_nBaseLanguage; }
    // Rules that count in the base language and in all that it embeds.
    const std::vector<int> &rulesAnywhere() const { return m_lstAnywhere; }
    const SymbolSet &symbolsAnywhere() const { return m_anywhere; }

private:
    void fillSymbols();

    std::vector<SRegionContext> m_lstContexts;
    mutable std::vector<SRegionRule> m_lstRules;
    std::vector<int> m_lstAnywhere;
    SymbolSet m_anywhere;
    int m_nBaseLanguage = -1;
};
