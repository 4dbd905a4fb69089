#pragma once

#include <QString>
#include <QVector>

// Character references of HTML ("&amp;", "&#65;"). Pure functions; not reentrant, GUI thread only.

// A text with its references resolved, and where each of its units came from.
struct SDecodedText
{
    QString strText;
    // For each unit of strText its position in the source, and at the end the position behind all.
    QVector<int> lstPositions;
};

enum class EReferences {
    InText,
    InAttribute, // Without ";", a name before a letter, digit or "=" is no reference.
    None,
};

// The range of a source as a browser reads it: line ends become line feeds, zero bytes go. A name
// that is not known to HTML 4 stays as it is spelled.
QString decodeReferences(const QString &strHtml, int nStart, int nEnd, EReferences references);
SDecodedText decodeWithPositions(const QString &strHtml, int nStart, int nEnd,
                                 EReferences references);

// Length of the reference that begins at the position (at a "&"), 0 for none; what it stands for.
int referenceAt(const QString &strHtml, int nPos, int nEnd, EReferences references,
                QString *pResolved);
