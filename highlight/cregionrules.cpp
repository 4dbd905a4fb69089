#include "highlight/cregionrules.h"

#include "highlight/cregioncompiler.h"
#include "highlight/symbols.h"

#include <algorithm>

namespace {

// The symbols that a match of the rule may begin with. What follows an empty start counts only if
// it is a separate pattern.
SymbolSet symbolsOf(const SRegionRule &rule)
{
    const CAnchoredPattern &first = rule.bHasStart ? rule.start : rule.key;
    SymbolSet set = first.mayStartWith();
    if (rule.kind == SRegionRule::Begin && rule.bHasStart && rule.bHasKey)
        set = rule.start.mayStartWith(rule.key.mayStartWith());
    const bool bKeyFirst = rule.bHasKey && !rule.bHasStart;
    if (bKeyFirst && rule.kind == SRegionRule::Nest) {
        set.reset();
        for (const char ch : {'(', '[', '{', '<'})
            set.set(uchar(ch));
    } else if (bKeyFirst && rule.kind == SRegionRule::End) {
        set.set();
    }
    return set;
}

// The symbols that may follow the first character of a match.
SymbolSet secondsOf(const SRegionRule &rule)
{
    return rule.bHasStart ? rule.start.mayGoOnWith() : SymbolSet().set();
}

} // namespace

CRegionRules::CRegionRules(const QVariantMap &mapRegions, const QStringList &lstLanguages,
                           Qt::CaseSensitivity sensitivity)
{
    CRegionCompiler compiler(lstLanguages, sensitivity);
    compiler.compile(mapRegions);
    m_lstContexts = std::move(compiler.m_lstContexts);
    m_lstRules = std::move(compiler.m_lstRules);
    m_lstAnywhere = std::move(compiler.m_lstAnywhere);
    const QString strBase = mapRegions.value(QStringLiteral("attributes"))
                                .toMap()
                                .value(QStringLiteral("language"))
                                .toString();
    m_nBaseLanguage = lstLanguages.indexOf(strBase, 1);
    fillSymbols();
}

void CRegionRules::fillSymbols()
{
    std::vector<SymbolSet> lstSymbols;
    for (SRegionRule &rule : m_lstRules) {
        lstSymbols.push_back(symbolsOf(rule));
        if (!rule.bHasStart || !rule.start.isOnlyAtLineStart())
            rule.first = lstSymbols.back();
        rule.bOneSymbol = rule.bHasStart && !rule.bHasKey && !rule.bHasThen && !rule.bHasAfter
            && rule.start.isAlwaysOneSymbol();
    }
    for (SRegionContext &context : m_lstContexts) {
        context.lstRules.resize(std::min(context.lstRules.size(), g_nMaxRules));
        for (size_t nBit = 0; nBit < context.lstRules.size(); ++nBit) {
            const auto nRule = size_t(context.lstRules[nBit]);
            const SRegionRule &rule = m_lstRules[nRule];
            const SymbolSet second = secondsOf(rule);
            for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
                context.arrRulesBySecond[nSymbol] |= quint64(second[nSymbol]) << nBit;
                context.arrRules[nSymbol] |= quint64(rule.first[nSymbol]) << nBit;
                context.arrRulesAtLineStart[nSymbol] |= quint64(lstSymbols[nRule][nSymbol]) << nBit;
            }
            context.nRulesAtLineEnd |= quint64(rule.kind == SRegionRule::End) << nBit;
        }
        context.arrRules[LineEndSymbol] = context.arrRulesBySecond[LineEndSymbol] = ~quint64(0);
        for (int nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
            if (context.arrRules[size_t(nSymbol)])
                context.nOnlyStart = ++context.nStarts == 1 ? nSymbol : -1;
    }
    for (const int nRule : m_lstAnywhere)
        m_anywhere |= lstSymbols[size_t(nRule)];
}
