#include "comparison.h"

#include <algorithm>

void Comparison::add(const Comparison &other)
{
    nCharacters += other.nCharacters;
    nDiffering += other.nDiffering;
    nLines += other.nLines;
    nWrongLines += other.nWrongLines;
    nLongestRun = std::max(nLongestRun, other.nLongestRun);
}

void compareFile(const CharacterClasses &lstOurs, const CharacterClasses &lstPeers,
                 Comparison *pComparison, int nMinRun, std::vector<WrongRun> *pRuns)
{
    WrongRun run {0, 0};
    const auto endRun = [&] {
        pComparison->nLongestRun = std::max(pComparison->nLongestRun, run.nLines);
        if (run.nLines >= nMinRun) {
            pRuns->push_back(run);
        }
        run.nLines = 0;
    };
    for (size_t nLine = 0; nLine < lstOurs.size(); ++nLine) {
        const size_t nSize = lstOurs[nLine].size();
        if (nSize == 0) {
            continue; // An empty line neither is wrong nor ends a run.
        }
        size_t nDiffering = 0;
        for (size_t n = 0; n < nSize; ++n) {
            nDiffering += lstOurs[nLine][n] != lstPeers[nLine][n];
        }
        pComparison->nCharacters += qint64(nSize);
        pComparison->nDiffering += qint64(nDiffering);
        ++pComparison->nLines;
        if (2 * nDiffering <= nSize) {
            endRun();
            continue;
        }
        ++pComparison->nWrongLines;
        if (run.nLines == 0) {
            run.nFirst = int(nLine);
        }
        ++run.nLines;
    }
    endRun();
}
