#include "app/cfilenamecodec.h"

#include "app/platform.h"

#include <algorithm>

namespace {

const ushort g_nEscape = 0xDC00; // Plus the byte.

bool isEscape(QChar c)
{
    return c.unicode() >= g_nEscape + 0x80 && c.unicode() <= g_nEscape + 0xFF;
}

bool isContinuation(uchar c)
{
    return (c & 0xC0) == 0x80;
}

// The length of the valid UTF-8 sequence at the beginning; 0 where there is none (RFC 3629).
int sequenceLength(const uchar *p, int nSize)
{
    const uchar c = p[0];
    if (c < 0x80)
        return 1;
    const int nLength = c >= 0xC2 && c <= 0xDF ? 2
        : (c & 0xF0) == 0xE0                   ? 3
        : c >= 0xF0 && c <= 0xF4               ? 4
                                               : 0;
    if (nLength == 0 || nLength > nSize)
        return 0;
    for (int n = 1; n < nLength; ++n)
        if (!isContinuation(p[n]))
            return 0;
    const bool bTooLong = (c == 0xE0 && p[1] < 0xA0) || (c == 0xF0 && p[1] < 0x90);
    const bool bNoCharacter = (c == 0xED && p[1] >= 0xA0) || (c == 0xF4 && p[1] >= 0x90);
    return bTooLong || bNoCharacter ? 0 : nLength;
}

// How many bytes at the beginning are valid UTF-8.
int validLength(const uchar *p, int nSize)
{
    int nDone = 0;
    while (nDone < nSize) {
        const int nLength = sequenceLength(p + nDone, nSize - nDone);
        if (nLength == 0)
            break;
        nDone += nLength;
    }
    return nDone;
}

const QTextCodec *utf8()
{
    static const QTextCodec *const s_pUtf8 = QTextCodec::codecForName("UTF-8");
    return s_pUtf8;
}

// A listing of a folder passes a state with this flag set to ask whether a name can be read at all;
// every name can. A stream begins without the flag and gets it later. So the state remembers how it
// began, in a field that UTF-8 does not use.
bool isStream(QTextCodec::ConverterState *pState)
{
    if (!(pState->flags & QTextCodec::IgnoreHeader))
        pState->state_data[2] = 1;
    return pState->state_data[2] == 1;
}

} // namespace

void CFileNameCodec::install()
{
    if (Platform::hasUtf8Names())
        QTextCodec::setCodecForLocale(new CFileNameCodec); // Qt deletes all codecs at the end.
}

QByteArray CFileNameCodec::name() const
{
    // A private name; its beginning keeps it out of the lists of codecs here.
    return "x-file-names";
}

int CFileNameCodec::mibEnum() const
{
    return 1; // "Other". With a known number Qt might handle the codec by itself.
}

QString CFileNameCodec::textOf(const QByteArray &bytes)
{
    const auto *pBytes = reinterpret_cast<const uchar *>(bytes.constData());
    QTextCodec::ConverterState plain(IgnoreHeader); // A mark in front is part of the name.
    if (validLength(pBytes, bytes.size()) == bytes.size())
        return utf8()->toUnicode(bytes.constData(), bytes.size(), &plain);
    QString strText;
    strText.reserve(bytes.size());
    int nDone = 0;
    while (nDone < bytes.size()) {
        const int nLength = sequenceLength(pBytes + nDone, bytes.size() - nDone);
        if (nLength == 0)
            strText += QChar(ushort(g_nEscape + pBytes[nDone]));
        else if (nLength == 1)
            strText += QLatin1Char(bytes.at(nDone));
        else
            strText += utf8()->toUnicode(bytes.constData() + nDone, nLength, &plain);
        nDone += qMax(1, nLength);
    }
    return strText;
}

QByteArray CFileNameCodec::bytesOf(const QString &strText)
{
    const auto itEnd = strText.cend();
    auto it = std::find_if(strText.cbegin(), itEnd, isEscape);
    if (it == itEnd)
        return strText.toUtf8();
    QByteArray bytes;
    auto itStart = strText.cbegin(); // Counts what is no escape.
    for (it = itStart; it != itEnd; ++it) {
        // The second half of a pair is no escape.
        if (!isEscape(*it) || (it != strText.cbegin() && (it - 1)->isHighSurrogate()))
            continue;
        bytes += QString::fromRawData(itStart, int(it - itStart)).toUtf8();
        bytes += char(it->unicode() - g_nEscape);
        itStart = it + 1;
    }
    return bytes + QString::fromRawData(itStart, int(itEnd - itStart)).toUtf8();
}

QString CFileNameCodec::convertToUnicode(const char *pBytes, int nSize,
                                         ConverterState *pState) const
{
    if (pState && isStream(pState))
        return utf8()->toUnicode(pBytes, nSize, pState);
    return textOf(QByteArray::fromRawData(pBytes, nSize));
}

QByteArray CFileNameCodec::convertFromUnicode(const QChar *pText, int nSize,
                                              ConverterState *pState) const
{
    return pState ? utf8()->fromUnicode(pText, nSize, pState)
                  : bytesOf(QString::fromRawData(pText, nSize));
}
