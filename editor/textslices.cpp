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

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

// Gives the place after the next line end from nFrom on, or the end of the text.
int behindLine(const QString &strText, int nFrom)
{
    const QChar *const pEnd = strText.constEnd();
    const QChar *pAt = std::find_if(strText.constBegin() + nFrom, pEnd, isLineEnd);
    if (pAt == pEnd)
        return strText.size();
    const bool bPair = *pAt == QLatin1Char('\r') && pAt + 1 != pEnd && pAt[1] == QLatin1Char('\n');
    return int(pAt - strText.constBegin()) + (bPair ? 2 : 1);
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
    const auto isEnd = [](Char c) { return c == '\n' || c == '\r'; };
    STextLines lines;
    CSliceCutter cutter(nFrom, limits, &lines.lstSliceEnds);
    for (const Char *pLine = pBegin; pLine != pEnd;) {
        const Char *const pLineEnd = std::find_if(pLine, pEnd, isEnd);
        const qint64 nWeight = weight(pLine, pLineEnd);
        if (nWeight > lines.heaviest.nWeight)
            lines.heaviest = {int(pLineEnd - pLine), nWeight};
        const Char *pNext = pLineEnd;
        if (pLineEnd != pEnd) {
            const bool bPair = *pLineEnd == '\r' && pLineEnd + 1 != pEnd && pLineEnd[1] == '\n';
            pNext += bPair ? 2 : 1;
            ++lines.nLines;
        }
        pLine = pNext;
        if (pNext - pBegin > nFrom)
            cutter.addLine(int(pNext - pBegin));
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
        while (nLineEnd > nLine && isLineEnd(strText.at(nLineEnd - 1)))
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
