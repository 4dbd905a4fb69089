#include "comparison.h"

#include <algorithm>

void SComparison::add(const SComparison &other)
{
    nCharacters += other.nCharacters;
    nDiffering += other.nDiffering;
    nLines += other.nLines;
    nWrongLines += other.nWrongLines;
    nLongestRun = std::max(nLongestRun, other.nLongestRun);
}

SComparison compareFile(const CharacterClasses &lstOurs, const CharacterClasses &lstPeers,
                        int nMinRun, std::vector<SWrongRun> *pRuns)
{
    SComparison result;
    SWrongRun run {0, 0};
    const auto endRun = [&] {
        result.nLongestRun = std::max(result.nLongestRun, run.nLines);
        if (pRuns && run.nLines >= nMinRun)
            pRuns->push_back(run);
        run.nLines = 0;
    };
    for (size_t nLine = 0; nLine < lstOurs.size(); ++nLine) {
        const size_t nSize = lstOurs[nLine].size();
        if (nSize == 0)
            continue; // An empty line neither is wrong nor ends a run.
        size_t nDiffering = 0;
        for (size_t n = 0; n < nSize; ++n)
            nDiffering += lstOurs[nLine][n] != lstPeers[nLine][n];
        result.nCharacters += qint64(nSize);
        result.nDiffering += qint64(nDiffering);
        ++result.nLines;
        if (2 * nDiffering <= nSize) {
            endRun();
            continue;
        }
        ++result.nWrongLines;
        if (run.nLines == 0)
            run.nFirst = int(nLine);
        ++run.nLines;
    }
    endRun();
    return result;
}
