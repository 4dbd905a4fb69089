#pragma once

#include <QByteArray>
#include <QString>

// Finds the encoding of data that is neither ASCII nor UTF-8. Reentrant, no widgets.

struct SDetectedCodec
{
    QString strName; // The name of the codec. Empty if it is unknown.
    // False if other encodings read the data about as well. The user should then look at the text
    // before it is saved as UTF-8.
    bool bSure = false;
};

// The encoding of the data, found with a statistical detector and the letters of the usual
// languages. The answer decodes all of the data cleanly and gives the same bytes again, except for
// a character that is cut off at the end. Where several encodings read equally well, the language
// of the locale (its name in lower case, may be empty) decides.
SDetectedCodec detectLegacyCodec(const QByteArray &data, const QString &strLocale);

// UTF-16 or UTF-32 with a byte-order mark, or without one where it gives sound text with blanks or
// line ends; else empty.
QString detectWideCodec(const QByteArray &data);

// True for bytes below 0x80 that switch to a Japanese, Chinese or Korean character set (ISO 2022).
bool hasEscapedCharacters(const QByteArray &data);
