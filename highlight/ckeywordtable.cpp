#include "highlight/ckeywordtable.h"

#include "highlight/characterclasses.h"
#include "highlight/clinepattern.h"

#include <algorithm>

using namespace CharacterClass;

namespace {

int endOfWord(const QString &strText, int nFrom)
{
    int n = nFrom;
    while (n < strText.size() && is(strText.at(n), Word)) {
        ++n;
    }
    return n;
}

quint32 lengthBit(int nLength)
{
    return quint32(1) << std::min(nLength, 31);
}

int firstIndex(QChar ch)
{
    return std::min<int>(ch.unicode(), 128);
}

} // namespace

CKeywordTable::CKeywordTable(Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity), m_lstBuckets(1, -1)
{
}

// Stars are escaped in a keyword, so that they are plain. How QRegExp ignores the case of letters
// beyond ASCII depends on how it searches; such keywords stay with it.
bool CKeywordTable::add(const QString &strKeyword, int nRule)
{
    const QString strPlain = CLinePattern::plainText(
        QString(strKeyword).replace(QLatin1Char('*'), QLatin1String("\\*")));
    const bool bAscii = std::all_of(strKeyword.begin(), strKeyword.end(), isAscii);
    const int nWordLength = endOfWord(strPlain, 0);
    if (nWordLength == 0 || (m_sensitivity == Qt::CaseInsensitive && !bAscii)) {
        return false;
    }
    QString strFolded = strPlain;
    std::transform(strFolded.begin(), strFolded.end(), strFolded.begin(),
                   [this](QChar ch) { return folded(ch); });
    m_lstEntries.push_back({strFolded, nWordLength, nRule, -1});
    m_arrLengths[firstIndex(strFolded.at(0))] |= lengthBit(nWordLength);
    if (m_lstBuckets.size() < 2 * m_lstEntries.size()) {
        m_lstBuckets.assign(4 * m_lstEntries.size(), -1);
        for (int n = 0; n < int(m_lstEntries.size()); ++n) {
            link(n);
        }
    } else {
        link(int(m_lstEntries.size()) - 1);
    }
    return true;
}

QChar CKeywordTable::folded(QChar ch) const
{
    if (m_sensitivity == Qt::CaseSensitive) {
        return ch;
    }
    if (isAscii(ch)) {
        return ch >= QLatin1Char('A') && ch <= QLatin1Char('Z') ? QChar(ch.unicode() + 32) : ch;
    }
    return ch.toLower();
}

uint CKeywordTable::hash(const QChar *pch, int nLength) const
{
    uint nHash = uint(nLength);
    for (int n = 0; n < nLength; ++n) {
        nHash = nHash * 31 + folded(pch[n]).unicode();
    }
    return nHash ^ (nHash >> 15);
}

void CKeywordTable::link(int nEntry)
{
    Entry &entry = m_lstEntries[nEntry];
    int &nHead =
        m_lstBuckets[hash(entry.strKeyword.constData(), entry.nWordLength) % m_lstBuckets.size()];
    entry.nNext = nHead;
    nHead = nEntry;
}

void CKeywordTable::find(const QString &strText, int nStart, int nEnd,
                         std::vector<KeywordHit> *pHits) const
{
    const int nSize = strText.size();
    const int nLast = nEnd < 0 ? nSize - 1 : std::min(nEnd, nSize - 1);
    int n = nStart;
    // A word that began before the start has no boundary there.
    if (n > 0 && is(strText.at(n - 1), Word)) {
        n = endOfWord(strText, n);
    }
    while (n <= nLast) {
        if (!is(strText.at(n), Word)) {
            ++n;
            continue;
        }
        const int nAfter = endOfWord(strText, n);
        const int nFirst = firstIndex(folded(strText.at(n)));
        if (m_arrLengths[nFirst] & lengthBit(nAfter - n)) {
            findWord(strText, n, nAfter - n, pHits);
        }
        n = nAfter;
    }
}

void CKeywordTable::findWord(const QString &strText, int nWord, int nLength,
                             std::vector<KeywordHit> *pHits) const
{
    const uint nHash = hash(strText.constData() + nWord, nLength);
    for (int n = m_lstBuckets[nHash % m_lstBuckets.size()]; n >= 0; n = m_lstEntries[n].nNext) {
        const Entry &entry = m_lstEntries[n];
        if (entry.nWordLength == nLength && isAt(entry, strText, nWord)) {
            pHits->push_back({entry.nRule, nWord, entry.strKeyword.size()});
        }
    }
}

// The word has its full length; what a keyword holds behind its first word is compared here, and
// that it ends where a word begins or ends.
bool CKeywordTable::isAt(const Entry &entry, const QString &strText, int nAt) const
{
    const int nLength = entry.strKeyword.size();
    const int nAfter = nAt + nLength;
    if (nAfter > strText.size()) {
        return false;
    }
    for (int n = 0; n < nLength; ++n) {
        if (folded(strText.at(nAt + n)) != entry.strKeyword.at(n)) {
            return false;
        }
    }
    const bool bWordBehind = nAfter < strText.size() && is(strText.at(nAfter), Word);
    return is(strText.at(nAfter - 1), Word) != bWordBehind;
}
