// Whether a text holds all that its bytes hold.
#include "app/textcodecs.h"

#include <QTextCodec>
#include <QTextEncoder>
#include <QtEndian>

#include <memory>

namespace {

struct SByteOrderMark
{
    int nBytes = 0;
    const char *szCodec = nullptr; // Decodes in the byte order that the mark tells.
};

// The mark that the codec takes off the data.
SByteOrderMark byteOrderMark(const QTextCodec *pCodec, const QByteArray &data)
{
    struct SKnown
    {
        const char *szFamily;
        QByteArray mark;
        const char *szCodec;
    };
    static const SKnown s_arrKnown[] = {{"UTF-8", QByteArray("\xEF\xBB\xBF"), "UTF-8"},
                                        {"UTF-16", QByteArray("\xFF\xFE"), "UTF-16LE"},
                                        {"UTF-16", QByteArray("\xFE\xFF"), "UTF-16BE"},
                                        {"UTF-32", QByteArray("\xFF\xFE\0\0", 4), "UTF-32LE"},
                                        {"UTF-32", QByteArray("\0\0\xFE\xFF", 4), "UTF-32BE"}};
    for (const SKnown &known : s_arrKnown)
        if (pCodec->name().startsWith(known.szFamily) && data.startsWith(known.mark)
            && !pCodec->toUnicode(known.mark).contains(QChar(0xFFFE)))
            return {known.mark.size(), known.szCodec};
    return {};
}

bool isWholeUtf8(const QByteArray &data)
{
    return isAscii(data) || isMultiByteUtf8(data);
}

// The codec library's encoder leaves zero bytes at the end for characters outside the first plane.
QByteArray encodeUtf32(const QString &strText, bool bBigEndian)
{
    QByteArray data;
    const QVector<uint> codes = strText.toUcs4();
    for (const uint nCode : codes) {
        const uint n = bBigEndian ? qToBigEndian(nCode) : qToLittleEndian(nCode);
        data.append(reinterpret_cast<const char *>(&n), sizeof n);
    }
    return data;
}

// Encodes without a byte-order mark.
QByteArray encode(const QTextCodec *pCodec, const QString &strText)
{
    const QByteArray name = pCodec->name();
    if (name.startsWith("UTF-32"))
        return encodeUtf32(strText, name == "UTF-32BE");
    const std::unique_ptr<QTextEncoder> pEncoder(pCodec->makeEncoder(QTextCodec::IgnoreHeader));
    return pEncoder->fromUnicode(strText);
}

} // namespace

bool isWholeText(const QTextCodec *pCodec, const QByteArray &data)
{
    if (!pCodec)
        return !data.contains('\0') && isWholeUtf8(data);
    if (pCodec->mibEnum() == QTextCodec::codecForName("UTF-8")->mibEnum())
        return isWholeUtf8(data);
    if (mapsAsciiToItself(pCodec) && isAscii(data))
        return true;
    const QString strText = pCodec->toUnicode(data);
    if (!strText.isValidUtf16())
        return false;
    const SByteOrderMark mark = byteOrderMark(pCodec, data);
    const QTextCodec *pEncoding = mark.szCodec ? QTextCodec::codecForName(mark.szCodec) : pCodec;
    return encode(pEncoding, strText) == data.mid(mark.nBytes);
}
