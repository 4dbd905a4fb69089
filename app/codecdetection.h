#pragma once

#include <QByteArray>
#include <QString>

// Which encoding data is in that is neither ASCII nor UTF-8. Reentrant, no widgets.

struct SDetectedCodec
{
    QString strName; // Of the codec; empty when none is known.
    // False where other encodings read the data about as well: the user should look at it before
    // it is saved as UTF-8.
    bool bSure = false;
};

// The encoding of the data, found with a statistical detector and the letters of the usual
// languages. The answer decodes the whole data cleanly and gives the same bytes again; only a
// character that is cut off at the end is forgiven. Where several encodings read equally well, the
// language of the locale (its name in lower case, may be empty) decides.
SDetectedCodec detectLegacyCodec(const QByteArray &data, const QString &strLocale);

// UTF-16 or UTF-32 with a byte-order mark, or without one where it gives sound text with blanks or
// line ends; else empty.
QString detectWideCodec(const QByteArray &data);

// True for bytes below 0x80 that switch to a Japanese, Chinese or Korean character set (ISO 2022).
bool hasEscapedCharacters(const QByteArray &data);
