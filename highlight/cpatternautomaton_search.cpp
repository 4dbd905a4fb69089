// Reads a line by steps from state to state; unknown steps are made on the way.
#include "highlight/cpatternautomaton.h"

#include "highlight/symbols.h"

#include <algorithm>

// Leads nowhere if there is no state.
const qint16 *CPatternAutomaton::stepsOf(int nState) const
{
    return m_lstSteps.data() + size_t(std::max(0, nState)) * g_nStepWidth;
}

int CPatternAutomaton::startStateAt(const uchar *pSymbols, int nStart) const
{
    const int nContext = nStart == 0                             ? AtLineStart
        : m_bUsesWords && g_arrWordSymbols[pSymbols[nStart - 1]] ? BehindWord
                                                                 : 0;
    return m_arrStartStates[nContext];
}

// symbolAt() gives the symbol so many steps ahead. onEnd() is told of each end and answers whether
// to go on.
template<typename SymbolAt, typename OnEnd>
void CPatternAutomaton::run(int nState, SymbolAt symbolAt, OnEnd onEnd)
{
    const qint16 *pSteps = m_lstSteps.data();
    for (int n = 0; nState >= 0; ++n) {
        const int nSymbol = symbolAt(n);
        int nCode = pSteps[size_t(nState) * g_nStepWidth + size_t(nSymbol)];
        if (nCode < 0) {
            nCode = step(nState, nSymbol);
            pSteps = m_lstSteps.data();
        }
        if ((nCode & 1) && !onEnd(n))
            return;
        nState = (nCode >> 1) - 1;
    }
}

template<typename OnEnd>
void CPatternAutomaton::runForwards(const CSymbolLine &line, int nStart, OnEnd onEnd)
{
    const uchar *const pSymbols = line.symbols() + nStart;
    run(
        startStateAt(line.symbols(), nStart), [pSymbols](int n) { return int(pSymbols[n]); },
        [nStart, &onEnd](int n) { return onEnd(nStart + n); });
}

void CPatternAutomaton::findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds)
{
    runForwards(
        line, nStart,
        [pEnds](int nEnd) {
            pEnds->push_back(nEnd);
            return true;
        });
}

void CPatternAutomaton::findEnds(const CSymbolLine &line, int nStart, std::vector<int> *pEnds,
                                 const SymbolTable &before)
{
    const uchar *const pSymbols = line.symbols();
    int nState = startStateAt(pSymbols, nStart);
    const qint16 *pSteps = stepsOf(nState);
    for (int n = nStart; nState >= 0; ++n) {
        const size_t nSymbol = pSymbols[n];
        int nCode = pSteps[nSymbol];
        if (nCode < 0) {
            nCode = step(nState, int(nSymbol));
            pSteps = stepsOf(nState);
        }
        if ((nCode & 1) && before[nSymbol])
            pEnds->push_back(n);
        const int nNext = (nCode >> 1) - 1;
        if (nNext == nState) {
            for (; pSteps[pSymbols[n + 1]] == nCode; ++n)
                if ((nCode & 1) && before[pSymbols[n + 1]])
                    pEnds->push_back(n + 1);
            continue;
        }
        nState = nNext;
        pSteps = stepsOf(nState);
    }
}

int CPatternAutomaton::longestEnd(const CSymbolLine &line, int nStart)
{
    const uchar *const pSymbols = line.symbols();
    int nLongest = -1;
    int nState = startStateAt(pSymbols, nStart);
    const qint16 *pSteps = stepsOf(nState);
    for (int n = nStart; nState >= 0; ++n) {
        int nCode = pSteps[pSymbols[n]];
        if (nCode < 0) {
            nCode = step(nState, pSymbols[n]);
            pSteps = stepsOf(nState);
        }
        if (nCode & 1)
            nLongest = n;
        const int nNext = (nCode >> 1) - 1;
        if (nNext == nState) {
            // The same step usually follows again, as within a word. The line's end is another one.
            while (pSteps[pSymbols[n + 1]] == nCode)
                ++n;
            nLongest = nCode & 1 ? n : nLongest;
            continue;
        }
        nState = nNext;
        pSteps = stepsOf(nState);
        if (nState >= 0 && m_lstStates[size_t(nState)].nLoops == SymbolCount)
            n = std::max(n, line.size() - 2); // The rest of the line belongs to the match.
    }
    return nLongest;
}

bool CPatternAutomaton::matches(const CSymbolLine &line, int nStart)
{
    bool bFound = false;
    runForwards(line, nStart, [&bFound](int) {
        bFound = true;
        return false;
    });
    return bFound;
}

// The line's start does not count if more text precedes what is read.
bool CPatternAutomaton::matchesBackwards(const CSymbolLine &line, int nEnd, int nMax)
{
    const int nCount = std::min(nEnd, nMax);
    const uchar *const pSymbols = line.symbols() + nEnd - 1;
    const auto symbolAt = [pSymbols, nCount, bCut = nCount < nEnd](int n) {
        return n < nCount         ? int(*(pSymbols - n))
            : bCut && n == nCount ? OtherSymbol
                                  : LineEndSymbol;
    };
    bool bFound = false;
    run(m_arrStartStates[AtLineStart], symbolAt, [&bFound](int) {
        bFound = true;
        return false;
    });
    return bFound;
}
