// What the loaders of files need: the encoding of their bytes, and the text.
#include "app/textcodecs.h"

#include <QLocale>
#include <QTextCodec>

QByteArray withoutCutUtf8(const QByteArray &data)
{
    for (int nBack = 1; nBack <= qMin(3, data.size()); ++nBack) {
        const auto c = uchar(data.at(data.size() - nBack));
        if ((c & 0xc0) == 0x80) // A byte that continues a character.
            continue;
        const int nLength = c >= 0xf0 ? 4 : c >= 0xe0 ? 3 : c >= 0xc0 ? 2 : 1;
        return nLength > nBack ? data.chopped(nBack) : data;
    }
    return data;
}

SDetectedCodec detectCodec(const QByteArray &data)
{
    const QString strLocale = QLocale::system().name().toLower();
    if (isMultiByteUtf8(data))
        return {QStringLiteral("UTF-8"), true};
    if (isAscii(data) && !hasEscapedCharacters(data))
        return {detectCodecName(data), true};
    QTextCodec *pPreferred = codecForName(preferredCodecName(strLocale));
    if (isValidDecoding(pPreferred, data))
        return {QString::fromLatin1(pPreferred->name()), true};
    const QString strWide = detectWideCodec(data);
    if (!strWide.isEmpty())
        return {strWide, true};
    SDetectedCodec detected = detectLegacyCodec(data, strLocale);
    if (!detected.strName.isEmpty())
        return detected;
    const QString strName = detectCodecName(data);
    // This codec was tried above, and its text was not sound.
    const bool bWide =
        strName.startsWith(QLatin1String("UTF-16")) || strName.startsWith(QLatin1String("UTF-32"));
    return {bWide ? QString() : strName, isAscii(data)};
}

QString codecNameForData(const QString &strCurrent, const QByteArray &data)
{
    if (strCurrent.isEmpty())
        return detectCodec(data).strName;
    // For example an ASCII file that has become UTF-8 since it was opened.
    if (isMultiByteUtf8(data) && !isValidDecoding(codecForName(strCurrent), data))
        return QStringLiteral("UTF-8");
    return strCurrent;
}

QString decodeText(const QTextCodec *pCodec, const QByteArray &data)
{
    if (!pCodec) {
        const uint nLength = qstrnlen(data.constData(), uint(data.size()));
        return QString::fromUtf8(data.constData(), int(nLength));
    }
    if (mapsAsciiToItself(pCodec) && isAscii(data))
        return QString::fromLatin1(data.constData(), data.size()); // Zero bytes are characters.
    return pCodec->toUnicode(data);
}

QByteArray encodeText(const QTextCodec *pCodec, const QString &strText)
{
    if (!pCodec)
        return strText.toLatin1();
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return pCodec->fromUnicode(strText.constData(), strText.size(), &state);
}
