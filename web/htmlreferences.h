#pragma once

#include <QString>
#include <QVector>

// Character references of HTML ("&amp;", "&#65;"). Pure functions; not reentrant, GUI thread only.

// A text with resolved references, and the origin of each of its units.
struct SDecodedText
{
    QString strText;
    // For each unit of strText its position in the source, and finally the position after the last.
    QVector<int> lstPositions;
};

enum class EReferences {
    InText,
    InAttribute, // Without ";", a name before a letter, digit or "=" is no reference.
    None,
};

// Reads a range of a source as a browser does: line ends become line feeds, and zero bytes are
// dropped. A name that HTML 4 does not know stays as it is.
QString decodeReferences(const QString &strHtml, int nStart, int nEnd, EReferences references);
SDecodedText decodeWithPositions(const QString &strHtml, int nStart, int nEnd,
                                 EReferences references);

// Gives the length of the reference at the position (at a "&"), 0 for none, and the text it stands
// for.
int referenceAt(const QString &strHtml, int nPos, int nEnd, EReferences references,
                QString *pResolved);
