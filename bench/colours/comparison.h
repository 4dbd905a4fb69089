#pragma once

#include "classes.h"

// The differences of two engines over the files of a language.
struct SComparison
{
    qint64 nCharacters = 0;
    qint64 nDiffering = 0;
    qint64 nLines = 0; // Lines that are not empty.
    qint64 nWrongLines = 0; // Lines in which more than half of the characters differ.
    int nLongestRun = 0; // The most such lines in a row.

    void add(const SComparison &other);
    double characterShare() const { return share(nDiffering, nCharacters); }
    double lineShare() const { return share(nWrongLines, nLines); }

private:
    static double share(qint64 nPart, qint64 nAll) { return nAll ? 100.0 * nPart / nAll : 0; }
};

// A run of lines mostly wrong, counted from 0.
struct SWrongRun
{
    int nFirst;
    int nLines;
};

// One file; the runs of at least nMinRun lines go to *pRuns.
SComparison compareFile(const CharacterClasses &lstOurs, const CharacterClasses &lstPeers,
                        int nMinRun = 0, std::vector<SWrongRun> *pRuns = nullptr);
