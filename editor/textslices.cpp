#include "editor/textslices.h"

#include <algorithm>

namespace {

// No script has characters with more marks than this, so a longer run may be divided.
const int g_nMostMarks = 32;

// Words of this script are found with a dictionary: 200,000 letters without a blank take as long as
// six million of another script.
const qint64 g_nWeightOfThai = 30;

bool isThai(ushort c)
{
    return (c & 0xFF80) == 0x0E00;
}

qint64 weight(const ushort *pFrom, const ushort *pEnd)
{
    return pEnd - pFrom + (g_nWeightOfThai - 1) * std::count_if(pFrom, pEnd, isThai);
}

qint64 weight(const char *pFrom, const char *pEnd)
{
    return pEnd - pFrom;
}

template<class Char> bool isLineEnd(Char c)
{
    return c == '\n' || c == '\r';
}

// The place after the line end at pLineEnd: LF, CR, or both as one.
template<class Char> const Char *behindLineEnd(const Char *pLineEnd, const Char *pEnd)
{
    const bool bPair = *pLineEnd == '\r' && pLineEnd + 1 != pEnd && pLineEnd[1] == '\n';
    return pLineEnd + (bPair ? 2 : 1);
}

// Gives the place after the next line end from nFrom on, or the end of the text.
int behindLine(const QString &strText, int nFrom)
{
    const ushort *const pBegin = strText.utf16();
    const ushort *const pEnd = pBegin + strText.size();
    const auto *const pAt = std::find_if(pBegin + nFrom, pEnd, isLineEnd<ushort>);
    return pAt == pEnd ? strText.size() : int(behindLineEnd(pAt, pEnd) - pBegin);
}

// Cuts lines that come one after the other into slices.
class CSliceCutter
{
public:
    CSliceCutter(int nFrom, const SSliceLimits &limits, std::vector<int> *pEnds)
        : m_limits(limits), m_nStart(nFrom), m_nEnd(nFrom), m_lstEnds(*pEnds)
    {
    }
    void addLine(int nEnd)
    {
        if (m_nLines == m_limits.nLines || nEnd - m_nStart > m_limits.nCharacters)
            finish();
        ++m_nLines;
        m_nEnd = nEnd;
    }
    void finish()
    {
        if (m_nLines > 0)
            m_lstEnds.push_back(m_nEnd);
        m_nStart = m_nEnd;
        m_nLines = 0;
    }

private:
    SSliceLimits m_limits;
    int m_nStart; // Of the slice that grows.
    int m_nEnd;
    int m_nLines = 0;
    std::vector<int> &m_lstEnds;
};

template<class Char>
STextLines linesBetween(const Char *pBegin, const Char *pEnd, int nFrom, const SSliceLimits &limits)
{
    STextLines lines;
    CSliceCutter cutter(nFrom, limits, &lines.lstSliceEnds);
    for (const Char *pLine = pBegin; pLine != pEnd;) {
        const Char *const pLineEnd = std::find_if(pLine, pEnd, isLineEnd<Char>);
        const qint64 nWeight = weight(pLine, pLineEnd);
        if (nWeight > lines.heaviest.nWeight)
            lines.heaviest = {int(pLineEnd - pLine), nWeight};
        lines.nLines += int(pLineEnd != pEnd);
        pLine = pLineEnd == pEnd ? pEnd : behindLineEnd(pLineEnd, pEnd);
        if (pLine - pBegin > nFrom)
            cutter.addLine(int(pLine - pBegin));
    }
    cutter.finish();
    return lines;
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
    return linesOf(strText, strText.size(), SSliceLimits()).heaviest;
}

STextLines linesOf(const QString &strText, int nFrom, const SSliceLimits &limits)
{
    return linesBetween(strText.utf16(), strText.utf16() + strText.size(), nFrom, limits);
}

STextLines linesOf(const QByteArray &ascii, int nFrom, const SSliceLimits &limits)
{
    return linesBetween(ascii.constBegin(), ascii.constEnd(), nFrom, limits);
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
        while (nLineEnd > nLine && isLineEnd(strText.at(nLineEnd - 1).unicode()))
            --nLineEnd;
        if (weight(strText.utf16() + nLine, strText.utf16() + nLineEnd) > nHeaviest) {
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
