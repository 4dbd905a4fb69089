#include "editor/matchcount.h"

#include "highlight/clinestore.h"

namespace {

// Adds the matches of a line; those that begin before nIndexEnd also count for the index.
bool addMatches(const CLineSearch &search, const QString &strLine, int nIndexEnd,
                SMatchCount *pCount, const std::function<bool()> &isCancelled)
{
    const bool bUp = search.options().bSearchUp;
    SLineMatch match = search.findAny(strLine, bUp ? -1 : 0);
    while (match.isValid()) {
        ++pCount->nCount;
        pCount->nIndex += int(match.nStart < nIndexEnd);
        if (bUp && match.nStart == 0) // -1 would be the line's end again.
            break;
        if (isCancelled())
            return false;
        match = search.findAny(strLine, bUp ? match.nStart - 1 : match.end());
    }
    return true;
}

} // namespace

SMatchCount countMatches(const CLineStore &lines, uint nVersion, const CLineSearch &search,
                         int nLine, int nPlace, const std::function<bool()> &isCancelled)
{
    SMatchCount count;
    for (int nAt = 0; !isCancelled();) {
        const CLineStore::SBatch batch = lines.fetch(nVersion, nAt, CLineStore::Any);
        if (batch.lst.empty())
            return lines.version() == nVersion ? count : SMatchCount {0, -1};
        for (const CLineStore::SLine &line : batch.lst) {
            const int nIndexEnd = nAt < nLine ? line.strText.length() : nPlace + 1;
            if (!addMatches(search, line.strText, nAt > nLine ? 0 : nIndexEnd, &count, isCancelled))
                break;
            ++nAt;
        }
    }
    return {0, -1};
}
