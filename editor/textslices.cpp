#include "editor/textslices.h"

#include <algorithm>

namespace {

// A character has more marks than this in no script; what has more may be divided.
const int g_nMostMarks = 32;

// Words of this script are looked for in a dictionary: 200,000 letters without a blank take as long
// as six million of another.
const qint64 g_nWeightOfThai = 30;

bool isThai(QChar c)
{
    return (c.unicode() & 0xFF80) == 0x0E00;
}

qint64 weight(const QChar *pFrom, const QChar *pEnd)
{
    return pEnd - pFrom + (g_nWeightOfThai - 1) * std::count_if(pFrom, pEnd, isThai);
}

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

// Gives the place behind the next line end from nFrom on, or the end of the text.
int behindLine(const QString &strText, int nFrom)
{
    const QChar *const pEnd = strText.constEnd();
    const QChar *pAt = std::find_if(strText.constBegin() + nFrom, pEnd, isLineEnd);
    if (pAt == pEnd)
        return strText.size();
    const bool bPair = *pAt == QLatin1Char('\r') && pAt + 1 != pEnd && pAt[1] == QLatin1Char('\n');
    return int(pAt - strText.constBegin()) + (bPair ? 2 : 1);
}

bool belongsToTheOneBefore(QChar c)
{
    const ushort uJoiner = 0x200D;
    return c.isLowSurrogate() || c.isMark() || c.unicode() == uJoiner;
}

int pieceEnd(const QString &strText, int nFrom, int nPiece)
{
    const int nEnd = nFrom + nPiece;
    for (int n = nEnd; n > qMax(nFrom, nEnd - g_nMostMarks); --n)
        if (!belongsToTheOneBefore(strText.at(n)))
            return n;
    return strText.at(nEnd).isLowSurrogate() && nPiece > 1 ? nEnd - 1 : nEnd;
}

} // namespace

int sliceEnd(const QString &strText, int nFrom, const SSliceLimits &limits)
{
    const int nLimit = int(qMin(qint64(strText.size()), qint64(nFrom) + limits.nCharacters));
    int nEnd = behindLine(strText, nFrom);
    for (int nLines = 1; nLines < limits.nLines && nEnd < nLimit; ++nLines) {
        const int nNext = behindLine(strText, nEnd);
        if (nNext > nLimit)
            break;
        nEnd = nNext;
    }
    return nEnd;
}

SHeaviestLine heaviestLine(const QString &strText)
{
    SHeaviestLine heaviest;
    const QChar *pAt = strText.constBegin();
    const QChar *const pEnd = strText.constEnd();
    while (pAt != pEnd) {
        const QChar *const pLineEnd = std::find_if(pAt, pEnd, isLineEnd);
        const qint64 nWeight = weight(pAt, pLineEnd);
        if (nWeight > heaviest.nWeight)
            heaviest = {int(pLineEnd - pAt), nWeight};
        pAt = pLineEnd == pEnd ? pEnd : pLineEnd + 1;
    }
    return heaviest;
}

qint64 unitsOfLightLines(qint64 nWeight)
{
    return nWeight / g_nWeightOfThai;
}

QString inPieces(const QString &strText, int nPiece, qint64 nHeaviest)
{
    QString strResult;
    int nCopied = 0;
    const auto copyUpTo = [&](int nEnd) {
        strResult.append(strText.constData() + nCopied, nEnd - nCopied);
        nCopied = nEnd;
    };
    for (int nLine = 0; nLine < strText.size();) {
        const int nNext = behindLine(strText, nLine);
        int nLineEnd = nNext;
        while (nLineEnd > nLine && isLineEnd(strText.at(nLineEnd - 1)))
            --nLineEnd;
        if (weight(strText.constData() + nLine, strText.constData() + nLineEnd) > nHeaviest) {
            copyUpTo(nLine);
            while (nLineEnd - nCopied > nPiece) {
                copyUpTo(pieceEnd(strText, nCopied, nPiece));
                strResult.append(QLatin1Char('\n'));
            }
        }
        nLine = nNext;
    }
    copyUpTo(strText.size());
    return strResult;
}
