#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextCodec;

// Text codecs and their detection, over whole files in memory. Reentrant, no widgets.

// Name of the first codec that decodes the data cleanly: the locale's own first, then the codec
// library's order without the single-byte code pages. Empty when there is none.
QString detectCodecName(const QByteArray &data);

// As detectCodecName() with the locale's preferred codec given; empty for none.
QString detectCodecName(const QByteArray &data, const QString &strPreferred);

// The codec that a lower-case locale name prefers; empty for most.
QString preferredCodecName(const QString &strLocale);

// False for a null codec, a decoding failure, or a result that looks like a wrong guess.
bool isValidDecoding(QTextCodec *pCodec, const QByteArray &data);

// The default codec of the system locale.
QString getDefaultCodecName();

// The codec names offered to the user, sorted.
QStringList getCodecList();

// True for strictly valid UTF-8 with at least one byte outside ASCII.
bool isMultiByteUtf8(const QByteArray &data);

// The first bytes of a file, without a last character that the cut went through: as UTF-8, the rest
// would be invalid for it.
QByteArray withoutCutUtf8(const QByteArray &data);

// The codec to load a file with, when strCurrent (may be empty) is the one its editor has now.
//
// The one place every loader passes. A codec library may list multi-byte codecs before UTF-8 that
// decode most UTF-8 "cleanly" to nonsense, which saving would make permanent. So data that is
// strictly valid UTF-8 is UTF-8, unless the current codec is set and decodes it cleanly.
QString codecNameForData(const QString &strCurrent, const QByteArray &data);

// The data as text; without a codec, the bytes before the first zero byte as UTF-8.
QString decodeText(const QTextCodec *pCodec, const QByteArray &data);

// The bytes of the text in that codec, without a byte-order mark; without a codec Latin-1.
QByteArray encodeText(const QTextCodec *pCodec, const QString &strText);

// False when the text that the data was decoded to cannot be written without loss: bytes behind a
// zero byte were left out, or what came out is not valid UTF-16, as happens with binary data.
bool isWholeText(const QTextCodec *pCodec, const QByteArray &data, const QString &strText);

// The codec of that name; null for an unknown or empty name.
QTextCodec *codecForName(const QString &strName);
