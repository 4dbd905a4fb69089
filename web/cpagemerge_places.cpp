// Translates places between a page and its source.
#include "web/cpagemerge.h"

#include "web/htmlreferences.h"

#include <algorithm>

namespace {

bool isText(const SPageToken &piece)
{
    return piece.kind == SPageToken::Kind::Word || piece.isSpace();
}

SDecodedText decoded(const QString &strHtml, const SPageToken &piece)
{
    return decodeWithPositions(strHtml, piece.nStart, piece.nEnd,
                               piece.bReferences ? EReferences::InText : EReferences::None);
}

} // namespace

// The length that a piece of the serialisation has in the page.
int CPageMerge::textLength(const SPageToken &piece) const
{
    return isText(piece) ? decoded(m_strSerialised, piece).strText.size() : 0;
}

int CPageMerge::positionWithin(int nPiece, int nText) const
{
    const int nSource = nPiece < m_lstSerialised.size() ? m_lstSourceOf.at(nPiece) : -1;
    if (nSource < 0) {
        const int nNext = m_lstNextSource.at(qMin(nPiece, m_lstSerialised.size()));
        return nNext < m_lstSource.size() ? m_lstSource.at(nNext).nStart : m_strSource.size();
    }
    const SPageToken &source = m_lstSource.at(nSource);
    const QVector<int> lstPositions = decoded(m_strSource, source).lstPositions;
    return lstPositions.at(qMin(nText, lstPositions.size() - 1));
}

int CPageMerge::sourcePosition(SPlace place)
{
    analyse();
    int nPiece = 0;
    for (int nElements = 0; nPiece < m_lstSerialised.size(); ++nPiece) {
        if (nElements == place.nElements)
            break;
        nElements += m_lstSerialised.at(nPiece).kind == SPageToken::Kind::Start;
    }
    int nText = place.nText;
    for (; nPiece < m_lstSerialised.size(); ++nPiece) {
        const SPageToken &piece = m_lstSerialised.at(nPiece);
        if (piece.kind == SPageToken::Kind::Start)
            break; // No more text before it.
        const int nLength = textLength(piece);
        if (isText(piece) && nText <= nLength)
            return positionWithin(nPiece, nText);
        nText -= nLength;
    }
    return positionWithin(nPiece, 0);
}

CPageMerge::SPlace CPageMerge::placeOf(int nSourcePosition)
{
    analyse();
    SPlace place;
    for (int n = 0; n < m_lstSerialised.size(); ++n) {
        const SPageToken &piece = m_lstSerialised.at(n);
        const int nSource = m_lstSourceOf.at(n);
        if (nSource >= 0 && m_lstSource.at(nSource).nStart > nSourcePosition)
            break;
        if (piece.kind == SPageToken::Kind::Start) {
            ++place.nElements;
            place.nText = 0;
        } else if (isText(piece)) {
            const bool bHere = nSource >= 0 && m_lstSource.at(nSource).nEnd >= nSourcePosition;
            if (bHere) {
                const QVector<int> lstPositions =
                    decoded(m_strSource, m_lstSource.at(nSource)).lstPositions;
                const auto it =
                    std::lower_bound(lstPositions.cbegin(), lstPositions.cend(), nSourcePosition);
                place.nText += qMin(int(it - lstPositions.cbegin()), textLength(piece));
                break;
            }
            place.nText += textLength(piece);
        }
    }
    return place;
}
