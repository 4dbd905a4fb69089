#include "web/cpagemergewriter.h"

#include "web/htmlreferences.h"
#include "web/pagealign.h"

namespace {

// The marks that the clipboard puts around pasted markup.
bool isFragmentMark(const QStringRef &strPiece)
{
    return strPiece == QLatin1String("<!--StartFragment-->")
        || strPiece == QLatin1String("<!--EndFragment-->");
}

} // namespace

// The place in the source where this piece is or would be.
int CPageMergeWriter::sourcePosition(int nOld) const
{
    const int nNext = m_before.lstNextSource.at(nOld);
    return nNext < m_before.lstSource.size() ? m_before.lstSource.at(nNext).nStart
                                             : m_before.strSource.size();
}

// Replaces a range of the source that begins at or after the end of the last one.
void CPageMergeWriter::put(int nStart, int nEnd, const QString &strText)
{
    nStart = qMax(nStart, m_nCopied);
    m_strResult += m_before.strSource.midRef(m_nCopied, nStart - m_nCopied);
    m_strResult += strText;
    m_nCopied = qMax(nStart, nEnd);
}

void CPageMergeWriter::writeChange(const SPageChange &change, bool bSpellOut)
{
    const PageTokens lstOld = m_before.lstSerialised.mid(change.nOld, change.nOldEnd - change.nOld);
    const PageTokens lstNow = m_now.lstTokens.mid(change.nNow, change.nNowEnd - change.nNow);
    const QVector<int> lstPartners = alignLoosely(lstOld, lstNow);
    m_bRemoved = false;
    m_bSpellOutAll = bSpellOut;
    int nNow = change.nNow;
    for (int n = 0; n < lstOld.size(); ++n) {
        const int nOld = change.nOld + n;
        if (lstPartners.at(n) < 0) {
            remove(nOld);
            continue;
        }
        const int nPartner = change.nNow + lstPartners.at(n);
        while (nNow < nPartner)
            insert(nOld, nNow++);
        replace(nOld, nNow++);
    }
    while (nNow < change.nNowEnd)
        insert(change.nOldEnd, nNow++);
}

void CPageMergeWriter::remove(int nOld)
{
    const int nSource = m_before.lstSourceOf.at(nOld);
    if (nSource < 0)
        return;
    const SPageToken &source = m_before.lstSource.at(nSource);
    // Text between two removed pieces that is no part of the page is removed with them.
    put(m_bRemoved ? m_nCopied : source.nStart, source.nEnd, QString());
    m_bRemoved = true;
}

void CPageMergeWriter::replace(int nOld, int nNow)
{
    const SPageToken &old = m_before.lstSerialised.at(nOld);
    const SPageToken &now = m_now.lstTokens.at(nNow);
    const int nSource = m_before.lstSourceOf.at(nOld);
    if (nSource < 0) {
        if (old.nKey != now.nKey || m_bSpellOutAll) {
            insert(nOld, nNow);
            m_nSpelledOut = nOld + 1;
        }
        return;
    }
    m_bRemoved = false;
    if (old.nKey == now.nKey)
        return;
    const SPageToken &source = m_before.lstSource.at(nSource);
    QString strNew;
    if (now.kind == SPageToken::Kind::Word && now.bReferences == source.bReferences)
        strNew = changedWord(source, nOld, nNow);
    else if (now.kind == SPageToken::Kind::Start)
        strNew = changeTag(m_before.strSource, source, m_before.strSerialised, old, m_now.strHtml,
                           now, m_before.habits);
    else
        strNew = writePiece(m_now.strHtml, now, m_before.habits);
    put(source.nStart, source.nEnd, strNew);
}

// The source's spelling of the characters that the word begins and ends with stays.
QString CPageMergeWriter::changedWord(const SPageToken &source, int nOld, int nNow) const
{
    const SPageToken &old = m_before.lstSerialised.at(nOld);
    const SPageToken &now = m_now.lstTokens.at(nNow);
    const EReferences references = now.bReferences ? EReferences::InText : EReferences::None;
    const QString strOld =
        decodeReferences(m_before.strSerialised, old.nStart, old.nEnd, references);
    const QString strNow = decodeReferences(m_now.strHtml, now.nStart, now.nEnd, references);
    const SDecodedText spelled =
        decodeWithPositions(m_before.strSource, source.nStart, source.nEnd, references);
    if (spelled.strText != strOld)
        return writePiece(m_now.strHtml, now, m_before.habits);
    const int nCommon = qMin(strOld.size(), strNow.size());
    int nStart = 0;
    while (nStart < nCommon && strOld.at(nStart) == strNow.at(nStart))
        ++nStart;
    int nEnd = 0;
    while (nEnd < nCommon - nStart
           && strOld.at(strOld.size() - 1 - nEnd) == strNow.at(strNow.size() - 1 - nEnd))
        ++nEnd;
    const QString strMiddle = strNow.mid(nStart, strNow.size() - nStart - nEnd);
    const int nMiddle = spelled.lstPositions.at(nStart);
    const int nBehind = spelled.lstPositions.at(strOld.size() - nEnd);
    return m_before.strSource.mid(source.nStart, nMiddle - source.nStart)
        + (now.bReferences ? writeText(strMiddle, m_before.habits) : strMiddle)
        + m_before.strSource.mid(nBehind, source.nEnd - nBehind);
}

void CPageMergeWriter::insert(int nOld, int nNow)
{
    const SPageToken &now = m_now.lstTokens.at(nNow);
    if (isFragmentMark(m_now.strHtml.midRef(now.nStart, now.nEnd - now.nStart)))
        return;
    spellOut(nOld);
    const QString strText = writePiece(m_now.strHtml, m_now.lstTokens.at(nNow), m_before.habits);
    const int nPosition = m_bRemoved ? m_nCopied : sourcePosition(nOld);
    put(nPosition, nPosition, strText);
}

// Writes what the page has before a new piece but the source only implies: the end of a paragraph,
// or blanks from after the page's end.
void CPageMergeWriter::spellOut(int nOld)
{
    int nFirst = nOld;
    while (nFirst > m_nSpelledOut && m_before.lstSourceOf.at(nFirst - 1) < 0)
        --nFirst;
    for (int n = nFirst; n < nOld; ++n) {
        const SPageToken &piece = m_before.lstSerialised.at(n);
        if (!m_bSpellOutAll && piece.kind != SPageToken::Kind::End && !piece.isSpace())
            continue;
        const int nPosition = m_bRemoved ? m_nCopied : sourcePosition(nOld);
        put(nPosition, nPosition, writePiece(m_before.strSerialised, piece, m_before.habits));
    }
    m_nSpelledOut = nOld;
}

void CPageMergeWriter::writeAnew(const SPageChange &change)
{
    const auto source = [this](int nOld) { return m_before.lstSourceOf.at(nOld); };
    int nFrom = 0;
    if (change.nOld < change.nOldEnd && source(change.nOld) >= 0) {
        nFrom = m_before.lstSource.at(source(change.nOld)).nStart;
    } else {
        int nBefore = change.nOld - 1;
        while (nBefore >= 0 && source(nBefore) < 0)
            --nBefore;
        if (nBefore >= 0)
            nFrom = m_before.lstSource.at(source(nBefore)).nEnd;
    }
    int nTo = sourcePosition(change.nOldEnd);
    if (change.nOld < change.nOldEnd && source(change.nOldEnd - 1) >= 0)
        nTo = m_before.lstSource.at(source(change.nOldEnd - 1)).nEnd;
    QString strText;
    for (int n = change.nNow; n < change.nNowEnd; ++n) {
        const SPageToken &now = m_now.lstTokens.at(n);
        if (m_now.lstOldOf.at(n) < 0
            && isFragmentMark(m_now.strHtml.midRef(now.nStart, now.nEnd - now.nStart)))
            continue;
        const int nOld = m_now.lstOldOf.at(n);
        const int nSource = nOld < 0 ? -1 : source(nOld);
        if (nSource >= 0 && m_before.lstSource.at(nSource).nKey == now.nKey) {
            const SPageToken &spelled = m_before.lstSource.at(nSource);
            strText += m_before.strSource.midRef(spelled.nStart, spelled.nEnd - spelled.nStart);
        } else {
            strText += writePiece(m_now.strHtml, now, m_before.habits);
        }
    }
    put(nFrom, nTo, strText);
    m_nSpelledOut = qMax(m_nSpelledOut, change.nOldEnd);
}

QString CPageMergeWriter::result()
{
    return m_strResult + m_before.strSource.midRef(m_nCopied);
}
