#pragma once

#include "app/codecdetection.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextCodec;

// Text codecs and their detection, over whole files in memory. Reentrant, no widgets.

// Name of the first codec that decodes the data cleanly: the locale's own first, then the codec
// library's order without the single-byte code pages. Empty when there is none.
QString detectCodecName(const QByteArray &data);

// The same with the locale's preferred codec given; empty for none.
QString detectCodecName(const QByteArray &data, const QString &strPreferred);

// The codec that a lower-case locale name prefers; empty for most.
QString preferredCodecName(const QString &strLocale);

// Whether full-width signs ("+", "=", "~", currency signs and others) count as a sign of a wrong
// guess. East Asian texts use many of them.
enum class FullWidthSigns { Suspicious, Allowed };

// False for a null codec, a decoding failure, or a result that looks like a wrong guess. Reads only
// as far as it must.
bool isValidDecoding(QTextCodec *pCodec, const QByteArray &data,
                     FullWidthSigns signs = FullWidthSigns::Suspicious);

// The default codec of the system locale.
QString getDefaultCodecName();

// The codec names offered to the user, sorted.
QStringList getCodecList();

// True for strictly valid UTF-8 with at least one byte outside ASCII.
bool isMultiByteUtf8(const QByteArray &data);

// Removes a UTF-8 character that the cut has split from the first bytes of a file. Otherwise the
// beginning of a UTF-8 file would not be valid UTF-8.
QByteArray withoutCutUtf8(const QByteArray &data);

// Finds the encoding of unknown data; every loader uses it. The order is: valid UTF-8; ASCII, for
// which detectCodecName() decides; the locale's own codec if it decodes the data cleanly; UTF-16
// and UTF-32; what detectLegacyCodec() finds; at last detectCodecName(). The name is empty if
// nothing fits, because the data is no text.
//
// The library's order alone would not do: it has multi-byte codecs before UTF-8 that decode most
// UTF-8 and most single-byte text "cleanly" to nonsense, which saving would make permanent.
SDetectedCodec detectCodec(const QByteArray &data);

// The codec to load a file with. strCurrent (may be empty) is the codec that the editor has now; it
// stays unless only UTF-8 decodes the data cleanly.
QString codecNameForData(const QString &strCurrent, const QByteArray &data);

// The data as text; without a codec, the bytes before the first zero byte as UTF-8.
QString decodeText(const QTextCodec *pCodec, const QByteArray &data);

// The bytes of the text in that codec, without a byte-order mark; without a codec Latin-1.
QByteArray encodeText(const QTextCodec *pCodec, const QString &strText);

// True when the decoded text gives all of the data again, except for a byte-order mark, and can be
// written as UTF-8. False for undecodable bytes, a character cut off at the end, lone surrogates,
// and, without a codec, bytes after a zero byte. Reads only as far as it must.
bool isWholeText(const QTextCodec *pCodec, const QByteArray &data);

// True for US-ASCII, ISO 8859-1, UTF-8, GBK and GB18030. In these codecs every ASCII byte is the
// character of that number, so ASCII needs no decoder.
bool mapsAsciiToItself(const QTextCodec *pCodec);

// True if no byte is above 0x7F.
bool isAscii(const QByteArray &data);

// The codec of that name; null for an unknown or empty name.
QTextCodec *codecForName(const QString &strName);
