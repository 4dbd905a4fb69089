#include "highlight/packedranges.h"

namespace {

constexpr uint g_nRoleBits = 3;
constexpr uint g_nMoreFollows = 0x80;

// Each byte holds seven bits, the lowest first.
void appendNumber(uint n, std::vector<uchar> *pBytes)
{
    for (; n >= g_nMoreFollows; n >>= 7)
        pBytes->push_back(uchar(n | g_nMoreFollows));
    pBytes->push_back(uchar(n));
}

uint takeNumber(const uchar **ppByte)
{
    uint n = 0;
    uint nShift = 0;
    for (; **ppByte & g_nMoreFollows; ++*ppByte, nShift += 7)
        n |= (**ppByte & (g_nMoreFollows - 1)) << nShift;
    return n | uint(*(*ppByte)++) << nShift;
}

// A later range may begin before an earlier one, so numbers have a sign; small ones of either sign
// take few bits.
uint withoutSign(int n)
{
    return n < 0 ? ~(uint(n) << 1) : uint(n) << 1;
}

int withSign(uint n)
{
    return int(n & 1 ? ~(n >> 1) : n >> 1);
}

} // namespace

// Stores the distance from the end of the range before, then length and role in one number.
void packRanges(const std::vector<SHighlightRange> &lstRanges, std::vector<uchar> *pBytes)
{
    int nEnd = 0;
    for (const SHighlightRange &range : lstRanges) {
        appendNumber(withoutSign(range.nStart - nEnd), pBytes);
        appendNumber(uint(range.nLength) << g_nRoleBits | uint(range.role), pBytes);
        nEnd = range.nStart + range.nLength;
    }
}

std::vector<SHighlightRange> unpackRanges(const uchar *pBytes, size_t nBytes)
{
    std::vector<SHighlightRange> lst;
    lst.reserve(nBytes / 2);
    int nEnd = 0;
    for (const uchar *pByte = pBytes; pByte < pBytes + nBytes;) {
        const int nStart = nEnd + withSign(takeNumber(&pByte));
        const uint nBoth = takeNumber(&pByte);
        lst.push_back(
            {nStart, int(nBoth >> g_nRoleBits), HighlightRole(nBoth & ((1U << g_nRoleBits) - 1))});
        nEnd = nStart + lst.back().nLength;
    }
    return lst;
}
