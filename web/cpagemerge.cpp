#include "web/cpagemerge.h"

#include "web/charset.h"
#include "web/cpagemergewriter.h"
#include "web/htmltoken.h"
#include "web/pagealign.h"
#include "web/xmlcheck.h"

namespace {

const int g_nMaxTries = 12;

int firstDifference(const QString &strA, const QString &strB)
{
    const int nSize = qMin(strA.size(), strB.size());
    int n = 0;
    while (n < nSize && strA.at(n) == strB.at(n))
        ++n;
    return n;
}

} // namespace

QString comparablePage(const QString &strSerialised)
{
    QString strPage = declareUtf8(strSerialised);
    strPage.remove(QLatin1String("<!--StartFragment-->"));
    strPage.remove(QLatin1String("<!--EndFragment-->"));
    const int nBodyEnd = strPage.lastIndexOf(QLatin1String("</body>"));
    int nText = nBodyEnd;
    while (nText > 0 && isHtmlSpace(strPage.at(nText - 1)))
        --nText;
    return nText < 0 ? strPage : strPage.remove(nText, nBodyEnd - nText);
}

CPageMerge::CPageMerge(const QString &strSource, const QString &strSerialised)
    : m_strSource(strSource), m_strSerialised(strSerialised)
{
}

void CPageMerge::analyse()
{
    if (m_bAnalysed)
        return;
    m_bAnalysed = true;
    m_lstSource = pageTokens(m_strSource);
    m_lstSerialised = pageTokens(m_strSerialised);
    m_lstSourceOf = sourceOfPieces(m_strSource, m_lstSource, m_strSerialised, m_lstSerialised);
    m_lstNextSource.resize(m_lstSerialised.size() + 1);
    int nNext = m_lstNextSource.last() = m_lstSource.size();
    for (int n = m_lstSerialised.size() - 1; n >= 0; --n) {
        if (m_lstSourceOf.at(n) >= 0)
            nNext = m_lstSourceOf.at(n);
        m_lstNextSource[n] = nNext;
    }
    m_habits = pageHabits(m_strSource, m_lstSource);
    nest();
}

// The element that contains each piece of the serialisation; an end tag belongs to its own element.
void CPageMerge::nest()
{
    m_lstParent = QVector<int>(m_lstSerialised.size() + 1, -1);
    m_lstEnd = QVector<int>(m_lstSerialised.size(), m_lstSerialised.size() - 1); // "plaintext".
    QVector<int> lstOpen;
    for (int n = 0; n < m_lstSerialised.size(); ++n) {
        const SPageToken &piece = m_lstSerialised.at(n);
        m_lstParent[n] = lstOpen.isEmpty() ? -1 : lstOpen.constLast();
        if (piece.kind == SPageToken::Kind::Start && !piece.bVoid)
            lstOpen.append(n);
        else if (piece.kind == SPageToken::Kind::End && !lstOpen.isEmpty())
            m_lstEnd[lstOpen.takeLast()] = n;
    }
}

QVector<CPageMerge::SChange> CPageMerge::changes(const SNow &now) const
{
    QVector<SChange> lstChanges;
    int nOld = 0;
    int nNow = 0;
    for (int n = 0; n <= m_lstSerialised.size(); ++n) {
        const bool bEnd = n == m_lstSerialised.size();
        const int nPartner = bEnd ? now.lstTokens.size() : now.lstNowOf.at(n);
        if (nPartner < 0)
            continue;
        if (n > nOld || nPartner > nNow)
            lstChanges.append({nOld, n, nNow, nPartner, 0});
        nOld = n + 1;
        nNow = nPartner + 1;
    }
    return lstChanges;
}

QString CPageMerge::merged(const QString &strNow, const Reader &read)
{
    if (strNow == m_strSerialised && (!read || isBaseRight(read)))
        return m_strSource;
    bool bBaseIsWrong = false;
    const QString strMerged = mergedChecked(strNow, read, &bBaseIsWrong);
    return bBaseIsWrong ? mergedChecked(strNow, read, &bBaseIsWrong) : strMerged;
}

// The source may have been decoded differently, or the page edited before it was complete. Then the
// base is the page that the source makes, and differences from it count as changes.
bool CPageMerge::isBaseRight(const Reader &read)
{
    if (m_bChecked)
        return true;
    m_bChecked = true;
    const QString strRead = read(m_strSource);
    if (comparablePage(strRead) == comparablePage(m_strSerialised))
        return true;
    m_strSerialised = strRead;
    m_bAnalysed = false;
    return false;
}

// A page in XML must not leave out tags, which HTML's parser, the one that checks the result,
// allows.
bool CPageMerge::staysXml(const QString &strResult) const
{
    return !m_habits.bXml || isWellFormedXml(strResult) || !isWellFormedXml(m_strSource);
}

QString CPageMerge::mergedChecked(const QString &strNow, const Reader &read, bool *pBaseIsWrong)
{
    *pBaseIsWrong = false;
    analyse();
    const SNow now = compared(strNow);
    QVector<SChange> lstChanges = changes(now);
    QString strWanted = comparablePage(strNow);
    for (int nTry = 0; nTry < g_nMaxTries && !lstChanges.isEmpty(); ++nTry) {
        QString strResult = written(lstChanges, now);
        if (!read)
            return strResult;
        const QString strRead = comparablePage(read(strResult));
        if (strRead == strWanted && staysXml(strResult))
            return strResult;
        if (nTry == 0) {
            *pBaseIsWrong = !isBaseRight(read);
            if (*pBaseIsWrong)
                return QString();
            strWanted = comparablePage(read(strNow)); // What comes nearest to a page that no text
                                                      // makes.
            if (strRead == strWanted && staysXml(strResult))
                return strResult;
        }
        const int nDifference = firstDifference(strRead, strWanted);
        if (nTry == g_nMaxTries - 2)
            lstChanges = {{0, m_lstSerialised.size(), 0, now.lstTokens.size(), 3}};
        else if (!widen(&lstChanges, changeAt(lstChanges, now, nDifference)))
            break;
    }
    if (lstChanges.isEmpty())
        return m_strSource;
    QString strWhole = strNow;
    if (m_habits.strLineEnd != QLatin1String("\n"))
        strWhole.replace(QLatin1Char('\n'), m_habits.strLineEnd);
    return strWhole;
}

CPageMerge::SNow CPageMerge::compared(const QString &strNow) const
{
    SNow now;
    now.strHtml = strNow;
    now.lstTokens = pageTokens(strNow);
    now.lstNowOf = alignPieces(m_lstSerialised, now.lstTokens);
    now.lstOldOf = QVector<int>(now.lstTokens.size(), -1);
    for (int n = 0; n < now.lstNowOf.size(); ++n)
        if (now.lstNowOf.at(n) >= 0)
            now.lstOldOf[now.lstNowOf.at(n)] = n;
    return now;
}

// The last change before a position in the page now.
int CPageMerge::changeAt(const QVector<SChange> &lstChanges, const SNow &now, int nPosition)
{
    int nChange = 0;
    while (nChange + 1 < lstChanges.size()) {
        const int nPiece = lstChanges.at(nChange + 1).nNow;
        if (nPiece >= now.lstTokens.size() || now.lstTokens.at(nPiece).nStart > nPosition)
            break;
        ++nChange;
    }
    return nChange;
}

// False if everything is already rewritten.
bool CPageMerge::widen(QVector<SChange> *pChanges, int nChange) const
{
    SChange wide = pChanges->at(nChange);
    if (++wide.nLevel == 2)
        widenToGap(&wide);
    else if (wide.nLevel > 2 && !widenToElement(&wide))
        return false;
    QVector<SChange> lstBefore;
    QVector<SChange> lstBehind;
    const SChange narrow = pChanges->at(nChange);
    SChange first = narrow;
    SChange last = narrow;
    for (const SChange &change : qAsConst(*pChanges)) {
        if (change.nOldEnd < wide.nOld) {
            lstBefore.append(change);
        } else if (change.nOld > wide.nOldEnd) {
            lstBehind.append(change);
        } else {
            if (change.nOld < first.nOld || (change.nOld == first.nOld && change.nNow < first.nNow))
                first = change;
            if (change.nOldEnd > last.nOldEnd
                || (change.nOldEnd == last.nOldEnd && change.nNowEnd > last.nNowEnd))
                last = change;
        }
    }
    // Between the changes old and new pieces correspond one to one.
    wide.nNow = first.nNow - qMax(0, first.nOld - wide.nOld);
    wide.nOld = qMin(wide.nOld, first.nOld);
    wide.nNowEnd = last.nNowEnd + qMax(0, wide.nOldEnd - last.nOldEnd);
    wide.nOldEnd = qMax(wide.nOldEnd, last.nOldEnd);
    *pChanges = lstBefore + QVector<SChange> {wide} + lstBehind;
    return true;
}

// Widens the change to the nearest pieces that exist in the source.
void CPageMerge::widenToGap(SChange *pChange) const
{
    while (pChange->nOld > 0 && m_lstSourceOf.at(pChange->nOld - 1) < 0)
        --pChange->nOld;
    while (pChange->nOldEnd < m_lstSerialised.size() && m_lstSourceOf.at(pChange->nOldEnd) < 0)
        ++pChange->nOldEnd;
}

bool CPageMerge::widenToElement(SChange *pChange) const
{
    const int nSize = m_lstSerialised.size();
    if (pChange->nOld == 0 && pChange->nOldEnd == nSize)
        return false;
    const int nStart = enclosing(*pChange);
    pChange->nOld = qMax(nStart, 0);
    pChange->nOldEnd = nStart < 0 ? nSize : m_lstEnd.at(nStart) + 1;
    return true;
}

// The start tag of the smallest element around the change.
int CPageMerge::enclosing(const SChange &change) const
{
    int nStart = m_lstParent.at(change.nOld);
    while (nStart >= 0 && m_lstEnd.at(nStart) < change.nOldEnd)
        nStart = m_lstParent.at(nStart);
    return nStart;
}

QString CPageMerge::written(const QVector<SChange> &lstChanges, const SNow &now) const
{
    CPageMergeWriter writer({m_strSource, m_lstSource, m_strSerialised, m_lstSerialised,
                             m_lstSourceOf, m_lstNextSource, m_habits},
                            {now.strHtml, now.lstTokens, now.lstOldOf});
    for (const SChange &change : lstChanges) {
        const SPageChange range {change.nOld, change.nOldEnd, change.nNow, change.nNowEnd};
        if (change.nLevel < 2)
            writer.writeChange(range, change.nLevel == 1);
        else
            writer.writeAnew(range);
    }
    return writer.result();
}
