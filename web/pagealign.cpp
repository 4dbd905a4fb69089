#include "web/pagealign.h"

#include "web/tokenalign.h"

#include <algorithm>

namespace {

struct SStretch
{
    int nStart = 0;
    int nEnd = 0;
    int size() const { return nEnd - nStart; }
};

template<typename Key> QVector<quint64> keys(const PageTokens &lstTokens, SStretch stretch, Key key)
{
    QVector<quint64> lstKeys;
    lstKeys.reserve(stretch.size());
    for (int n = stretch.nStart; n < stretch.nEnd; ++n)
        lstKeys.append(key(lstTokens.at(n)));
    return lstKeys;
}

template<typename Key> QVector<int> align(const PageTokens &lstA, const PageTokens &lstB, Key key)
{
    return alignSequences(keys(lstA, {0, lstA.size()}, key), keys(lstB, {0, lstB.size()}, key));
}

quint64 exact(const SPageToken &piece)
{
    return piece.nKey;
}

quint64 loose(const SPageToken &piece)
{
    return piece.nLooseKey;
}

int findTag(const QString &strHtml, const PageTokens &lstTokens, SPageToken::Kind kind,
            const char *szName, bool bLast)
{
    const QLatin1String strName(szName);
    const auto matches = [&](const SPageToken &piece) {
        return piece.kind == kind && piece.nNameLength == strName.size()
            && strHtml.midRef(piece.nName, piece.nNameLength).compare(strName, Qt::CaseInsensitive)
            == 0;
    };
    if (bLast) {
        const auto it = std::find_if(lstTokens.crbegin(), lstTokens.crend(), matches);
        return it == lstTokens.crend() ? -1 : int(lstTokens.crend() - it) - 1;
    }
    const auto it = std::find_if(lstTokens.cbegin(), lstTokens.cend(), matches);
    return it == lstTokens.cend() ? -1 : int(it - lstTokens.cbegin());
}

// Aligns one stretch of the serialisation with one of the source.
class CSourceAlignment
{
public:
    CSourceAlignment(const PageTokens &lstSource, const PageTokens &lstSerialised)
        : m_lstSource(lstSource),
          m_lstSerialised(lstSerialised),
          m_lstResult(lstSerialised.size(), -1)
    {
    }
    void alignStretch(SStretch serialised, SStretch source);
    void setPair(int nSerialised, int nSource) { m_lstResult[nSerialised] = nSource; }
    QVector<int> result() const { return m_lstResult; }

private:
    void preferFirstBlanks(SStretch serialised);
    void pairLoosely(SStretch serialised, SStretch source);
    void pairWords(SStretch serialised, SStretch source);
    template<typename Pair> void betweenPairs(SStretch serialised, SStretch source, Pair pair);

    const PageTokens &m_lstSource;
    const PageTokens &m_lstSerialised;
    QVector<int> m_lstResult;
};

void CSourceAlignment::alignStretch(SStretch serialised, SStretch source)
{
    const QVector<int> lstPairs =
        alignSequences(keys(m_lstSerialised, serialised, exact), keys(m_lstSource, source, exact));
    for (int n = 0; n < lstPairs.size(); ++n)
        if (lstPairs.at(n) >= 0)
            m_lstResult[serialised.nStart + n] = source.nStart + lstPairs.at(n);
    preferFirstBlanks(serialised);
    betweenPairs(
        serialised, source, [this](SStretch a, SStretch b) { pairLoosely(a, b); });
    betweenPairs(serialised, source, [this](SStretch a, SStretch b) { pairWords(a, b); });
}

// Browsers move line ends from after the page's end to the end of its body. If there are several,
// the first one belongs to the source at this place.
void CSourceAlignment::preferFirstBlanks(SStretch serialised)
{
    for (int n = serialised.nStart; n < serialised.nEnd; ++n) {
        if (m_lstResult.at(n) < 0 || !m_lstSerialised.at(n).isSpace())
            continue;
        int nFirst = n;
        while (nFirst > serialised.nStart && m_lstResult.at(nFirst - 1) < 0
               && m_lstSerialised.at(nFirst - 1).nKey == m_lstSerialised.at(n).nKey)
            --nFirst;
        std::swap(m_lstResult[nFirst], m_lstResult[n]);
    }
}

// Calls pair() for each stretch between two pairs that is empty on neither side.
template<typename Pair>
void CSourceAlignment::betweenPairs(SStretch serialised, SStretch source, Pair pair)
{
    int nSerialised = serialised.nStart;
    int nSource = source.nStart;
    for (int n = serialised.nStart; n <= serialised.nEnd; ++n) {
        const int nPartner = n == serialised.nEnd ? source.nEnd : m_lstResult.at(n);
        if (nPartner < 0)
            continue;
        if (n > nSerialised && nPartner > nSource)
            pair(SStretch {nSerialised, n}, SStretch {nSource, nPartner});
        nSerialised = n + 1;
        nSource = nPartner + 1;
    }
}

// Pairs tags whose attributes a browser reads differently than we do.
void CSourceAlignment::pairLoosely(SStretch serialised, SStretch source)
{
    quint64 nUnique = 0;
    const auto key = [&nUnique](const SPageToken &piece) {
        const bool bTag =
            piece.kind == SPageToken::Kind::Start || piece.kind == SPageToken::Kind::End;
        return bTag ? piece.nLooseKey : ++nUnique;
    };
    const QVector<quint64> lstSerialised = keys(m_lstSerialised, serialised, key);
    const QVector<int> lstPairs = alignSequences(lstSerialised, keys(m_lstSource, source, key));
    for (int n = 0; n < lstPairs.size(); ++n)
        if (lstPairs.at(n) >= 0)
            m_lstResult[serialised.nStart + n] = source.nStart + lstPairs.at(n);
}

// Pairs words that a browser reads differently than we do, if their order leaves no doubt.
void CSourceAlignment::pairWords(SStretch serialised, SStretch source)
{
    const auto words = [](const PageTokens &lstTokens, SStretch stretch) {
        QVector<int> lstWords;
        for (int n = stretch.nStart; n < stretch.nEnd; ++n) {
            const SPageToken::Kind kind = lstTokens.at(n).kind;
            if (kind == SPageToken::Kind::Word || kind == SPageToken::Kind::Other)
                lstWords.append(n);
        }
        return lstWords;
    };
    const QVector<int> lstSerialised = words(m_lstSerialised, serialised);
    const QVector<int> lstSource = words(m_lstSource, source);
    if (lstSerialised.size() != lstSource.size())
        return;
    for (int n = 0; n < lstSource.size(); ++n)
        m_lstResult[lstSerialised.at(n)] = lstSource.at(n);
}

} // namespace

QVector<int> sourceOfPieces(const QString &strSource, const PageTokens &lstSource,
                            const QString &strSerialised, const PageTokens &lstSerialised)
{
    // Pairs the tags that a page has only once, wherever the blanks around them went.
    struct STag
    {
        SPageToken::Kind kind;
        const char *szName;
    };
    static const STag arrTags[] = {
        {SPageToken::Kind::Start, "html"}, {SPageToken::Kind::Start, "head"},
        {SPageToken::Kind::End, "head"},   {SPageToken::Kind::Start, "body"},
        {SPageToken::Kind::End, "body"},   {SPageToken::Kind::End, "html"}};
    CSourceAlignment alignment(lstSource, lstSerialised);
    SStretch serialised {0, lstSerialised.size()};
    SStretch source {0, lstSource.size()};
    for (const STag &tag : arrTags) {
        const bool bLast = tag.kind == SPageToken::Kind::End && tag.szName[0] != 'h';
        const bool bHtmlEnd = tag.kind == SPageToken::Kind::End && tag.szName[1] == 't';
        const int nHere =
            findTag(strSerialised, lstSerialised, tag.kind, tag.szName, bLast || bHtmlEnd);
        const int nThere = findTag(strSource, lstSource, tag.kind, tag.szName, bLast || bHtmlEnd);
        if (nHere < serialised.nStart || nThere < source.nStart)
            continue;
        alignment.alignStretch({serialised.nStart, nHere}, {source.nStart, nThere});
        alignment.setPair(nHere, nThere);
        serialised.nStart = nHere + 1;
        source.nStart = nThere + 1;
    }
    alignment.alignStretch(serialised, source);
    return alignment.result();
}

QVector<int> alignPieces(const PageTokens &lstOld, const PageTokens &lstNow)
{
    return align(lstOld, lstNow, exact);
}

QVector<int> alignLoosely(const PageTokens &lstOld, const PageTokens &lstNow)
{
    return align(lstOld, lstNow, loose);
}
