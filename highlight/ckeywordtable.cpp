#include "highlight/ckeywordtable.h"

#include "highlight/clinepattern.h"
#include "highlight/symbols.h"

#include <algorithm>
#include <cstring>

using namespace CharacterClass;

namespace {

int endOfWord(const QString &strText, int nFrom)
{
    int n = nFrom;
    while (n < strText.size() && is(strText.at(n), Word))
        ++n;
    return n;
}

quint32 lengthBit(int nLength)
{
    return quint32(1) << std::min(nLength, 31);
}

} // namespace

CKeywordTable::CKeywordTable(Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity), m_lstBuckets(4, -1)
{
}

// Stars are plain in a keyword, because they are escaped. For letters beyond ASCII, how QRegExp
// ignores case depends on how it searches; such keywords are left to QRegExp.
bool CKeywordTable::add(const QString &strKeyword, int nRule)
{
    const QString strPlain = CLinePattern::plainText(
        QString(strKeyword).replace(QLatin1Char('*'), QLatin1String("\\*")));
    const bool bAscii = std::all_of(strKeyword.begin(), strKeyword.end(), isAscii);
    const int nWordLength = endOfWord(strPlain, 0);
    if (nWordLength == 0 || (m_sensitivity == Qt::CaseInsensitive && !bAscii))
        return false;
    QString strFolded = strPlain;
    std::transform(strFolded.begin(), strFolded.end(), strFolded.begin(),
                   [this](QChar ch) { return folded(ch); });
    SEntry entry {strFolded, {}, bAscii, nWordLength, nRule, 0, -1};
    for (const QChar ch : strFolded)
        entry.lstSymbols.push_back(uchar(symbolOf(ch)));
    entry.nHash = hashOf(entry.lstSymbols.data(), nWordLength);
    m_arrLengths[entry.lstSymbols.front()] |= lengthBit(nWordLength);
    enterSecond(entry.lstSymbols);
    m_lstEntries.push_back(entry);
    if (m_lstBuckets.size() < 2 * m_lstEntries.size()) {
        m_lstBuckets.assign(4 * m_lstBuckets.size(), -1);
        for (int n = 0; n < int(m_lstEntries.size()); ++n)
            link(n);
    } else {
        link(int(m_lstEntries.size()) - 1);
    }
    return true;
}

QChar CKeywordTable::folded(QChar ch) const
{
    if (m_sensitivity == Qt::CaseSensitive)
        return ch;
    if (isAscii(ch))
        return ch >= QLatin1Char('A') && ch <= QLatin1Char('Z') ? QChar(ch.unicode() + 32) : ch;
    return ch.toLower();
}

// After a keyword of one character anything may follow that is no word. If case does not count,
// letters beyond ASCII may be folded into it, so they may precede and follow anything.
void CKeywordTable::enterSecond(const std::vector<uchar> &lstSymbols)
{
    const bool bFold = m_sensitivity == Qt::CaseInsensitive;
    const auto isLike = [bFold](int nSymbol, int nKeywords) {
        const bool bCapital = nSymbol >= 'A' && nSymbol <= 'Z';
        return nSymbol == nKeywords
            || (bFold && (nSymbol >= 128 || (bCapital && nSymbol + 32 == nKeywords)));
    };
    for (int nFirst = 0; nFirst < SymbolCount; ++nFirst) {
        if (!isLike(nFirst, lstSymbols[0]))
            continue;
        for (int nSecond = 0; nSecond <= SymbolCount; ++nSecond) {
            const bool bMay = lstSymbols.size() > 1 ? isLike(nSecond, lstSymbols[1])
                                                    : !g_arrWordSymbols[size_t(nSecond)];
            if (bMay || (bFold && nSecond >= 128))
                m_arrSeconds[size_t(nFirst)][size_t(nSecond) / 64] |= quint64(1) << (nSecond % 64);
        }
    }
}

uint CKeywordTable::hashOf(const uchar *pSymbols, int nLength)
{
    uint nHash = 0;
    for (int n = 0; n < nLength; ++n)
        nHash = nHash * 31 + pSymbols[n];
    return nHash ^ (nHash >> 7);
}

void CKeywordTable::link(int nEntry)
{
    SEntry &entry = m_lstEntries[size_t(nEntry)];
    int &nHead = m_lstBuckets[entry.nHash & (m_lstBuckets.size() - 1)];
    entry.nNext = nHead;
    nHead = nEntry;
}

bool CKeywordTable::mayStartWith(int nSymbol) const
{
    if (nSymbol >= 128 && m_sensitivity == Qt::CaseInsensitive)
        return isWordSymbol(nSymbol); // It may be folded into ASCII.
    const bool bCapital = nSymbol >= 'A' && nSymbol <= 'Z';
    const bool bFold = bCapital && m_sensitivity == Qt::CaseInsensitive;
    return m_arrLengths[size_t(bFold ? nSymbol + 32 : nSymbol)] != 0;
}

void CKeywordTable::findAt(const CSymbolLine &line, int nAt, std::vector<SKeywordHit> *pHits) const
{
    const bool bFold = m_sensitivity == Qt::CaseInsensitive;
    if (bFold && line.hasFolding()) {
        findFolding(line, nAt, pHits);
        return;
    }
    const uchar *const pSymbols = (bFold ? line.folded() : line.symbols()) + nAt;
    int nLength = 1;
    while (g_arrWordSymbols[pSymbols[nLength]])
        ++nLength;
    if (!(m_arrLengths[pSymbols[0]] & lengthBit(nLength)))
        return;
    const uint nHash = hashOf(pSymbols, nLength);
    const int nLeft = line.size() - nAt;
    for (int n = m_lstBuckets[nHash & (m_lstBuckets.size() - 1)]; n >= 0;) {
        const SEntry &entry = m_lstEntries[size_t(n)];
        n = entry.nNext;
        const auto nSize = int(entry.lstSymbols.size());
        // Compares the rest of a keyword after its first word, and checks that the keyword ends
        // where a word begins or ends.
        if (entry.nHash == nHash && entry.nWordLength == nLength && nSize <= nLeft
            && memcmp(entry.lstSymbols.data(), pSymbols, size_t(nSize)) == 0
            && g_arrWordSymbols[pSymbols[nSize - 1]] != g_arrWordSymbols[pSymbols[nSize]]
            && (entry.bAscii || isAt(entry, line.text(), nAt)))
            pHits->push_back({entry.nRule, nAt, nSize});
    }
}

// For a line with letters that only case folding makes equal to those of ASCII.
void CKeywordTable::findFolding(const CSymbolLine &line, int nAt,
                                std::vector<SKeywordHit> *pHits) const
{
    const int nLength = endOfWord(line.text(), nAt) - nAt;
    for (const SEntry &entry : m_lstEntries)
        if (entry.nWordLength == nLength && isAt(entry, line.text(), nAt))
            pHits->push_back({entry.nRule, nAt, entry.strKeyword.size()});
}

bool CKeywordTable::isAt(const SEntry &entry, const QString &strText, int nAt) const
{
    const int nLength = entry.strKeyword.size();
    const int nAfter = nAt + nLength;
    if (nAfter > strText.size())
        return false;
    for (int n = 0; n < nLength; ++n)
        if (folded(strText.at(nAt + n)) != entry.strKeyword.at(n))
            return false;
    const bool bWordBehind = nAfter < strText.size() && is(strText.at(nAfter), Word);
    return is(strText.at(nAfter - 1), Word) != bWordBehind;
}
