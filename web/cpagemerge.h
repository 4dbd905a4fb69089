#pragma once

#include "web/pagehabits.h"
#include "web/pagetokens.h"

#include <functional>

// Writes a page's source with what changed in the page since it was read, and nothing else.
//
// The web view gives a page only as a serialisation, which spells everything in its own way. So the
// source is aligned with the serialisation of the page as it was read. The differences between that
// and the present serialisation are brought into the source. The result is read again. If it does
// not make the shown page, the element around the change is written anew, and at last the whole
// page.
//
// A value. Linear in the page's length for few changes. GUI thread only.
class CPageMerge
{
public:
    // Gives the serialisation of the page that a source makes.
    using Reader = std::function<QString(const QString &strSource)>;

    CPageMerge() = default;
    // Takes the source as it was read, and the serialisation of the page that it made.
    CPageMerge(const QString &strSource, const QString &strSerialised);

    QString source() const { return m_strSource; }
    QString serialised() const { return m_strSerialised; }

    // The source of the page that is serialised as strNow. Without a reader the result is not
    // checked and may make another page.
    QString merged(const QString &strNow, const Reader &read);

    // A place in the page: after so many start tags, and so many characters of text after the last
    // of them.
    struct SPlace
    {
        int nElements = 0;
        int nText = 0;
        bool operator==(const SPlace &other) const
        {
            return nElements == other.nElements && nText == other.nText;
        }
    };
    // Translates a place of the page to one of its source, and back; counts UTF-16 units.
    int sourcePosition(SPlace place);
    SPlace placeOf(int nSourcePosition);

private:
    // What was [nOld, nOldEnd) in the serialisation is [nNow, nNowEnd) now.
    struct SChange
    {
        int nOld = 0;
        int nOldEnd = 0;
        int nNow = 0;
        int nNowEnd = 0;
        int nLevel = 0; // How much of its surroundings is rewritten.
    };
    struct SNow
    {
        QString strHtml;
        PageTokens lstTokens;
        QVector<int> lstNowOf; // For each old piece the one now, or -1.
        QVector<int> lstOldOf; // For each piece now the old one, or -1.
    };

    QString mergedChecked(const QString &strNow, const Reader &read, bool *pBaseIsWrong);
    bool isBaseRight(const Reader &read);
    bool staysXml(const QString &strResult) const;
    void analyse();
    void nest();
    SNow compared(const QString &strNow) const;
    QVector<SChange> changes(const SNow &now) const;
    static int changeAt(const QVector<SChange> &lstChanges, const SNow &now, int nPosition);
    QString written(const QVector<SChange> &lstChanges, const SNow &now) const;
    bool widen(QVector<SChange> *pChanges, int nChange) const;
    void widenToGap(SChange *pChange) const;
    bool widenToElement(SChange *pChange) const;
    int enclosing(const SChange &change) const;
    int textLength(const SPageToken &piece) const;
    int positionWithin(int nPiece, int nText) const;

    QString m_strSource;
    QString m_strSerialised;
    bool m_bChecked = false; // The source is known to make the serialised page.
    bool m_bAnalysed = false;
    PageTokens m_lstSource;
    PageTokens m_lstSerialised;
    QVector<int> m_lstSourceOf; // For each serialised piece the source's, or -1.
    QVector<int> m_lstNextSource; // The source's piece for this serialised piece or a later one.
    QVector<int> m_lstParent; // The start tag around each serialised piece; -1 for none.
    QVector<int> m_lstEnd; // For each start tag its end tag.
    SPageHabits m_habits;
};

// Gives the part of a serialisation that decides whether two pages are the same. It leaves out the
// declared encoding, which is written anyway, and the marks that the clipboard puts around pasted
// markup. Blanks after the body are moved to its end, as browsers do.
QString comparablePage(const QString &strSerialised);
