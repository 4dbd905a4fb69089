#include "web/dataaddresses.h"

#include "web/cescapedreader.h"
#include "web/dataicons.h"
#include "web/pageresources.h"

#include <QTextCodec>

#include <memory>

namespace {

const QLatin1String g_strScheme("data");
const QLatin1String g_strRefused("quillan-refused");

// At most so many characters are read for each character of the text, because addresses may contain
// each other. A text that needs more was made to take long.
constexpr int g_nReadings = 3;
constexpr int g_nLeastReadings = 1000000;
constexpr int g_nMaxDepth = 4;
constexpr int g_nUtf8 = 106; // Among the registered numbers of encodings.

QString refuseAtDepth(const QString &strText, int nDepth);

// True for a character that may begin a scheme, however it is spelled.
bool mayBegin(QChar c)
{
    return c == QLatin1Char('d') || c == QLatin1Char('D') || c == QLatin1Char('&')
        || c == QLatin1Char('\\');
}

// Reads the scheme with its colon.
bool readScheme(CEscapedReader *pReader, int *pLeft)
{
    for (const char c : {'d', 'a', 't', 'a', ':'}) {
        --*pLeft;
        if (pReader->next().toLower() != QLatin1Char(c))
            return false;
    }
    return true;
}

// Reads up to one of these signs, and the sign as well.
QString readUpTo(CEscapedReader *pReader, QLatin1String strEnds, int *pLeft)
{
    QString strRead;
    while (--*pLeft > 0) {
        const QChar c = pReader->next();
        if (c.isNull() || strEnds.contains(c))
            break;
        strRead += c;
    }
    return strRead;
}

bool isHarmlessText(const QByteArray &data, int nDepth)
{
    const QString strText = QString::fromLatin1(data);
    return nDepth < g_nMaxDepth && refuseAtDepth(strText, nDepth + 1) == strText;
}

bool isHarmlessPayload(const QString &strHead, const QByteArray &data, int nDepth)
{
    const bool bDrawing =
        strHead.trimmed().startsWith(QLatin1String("image/svg+xml"), Qt::CaseInsensitive);
    return isHarmlessResource(data, bDrawing) && isHarmlessText(data, nDepth);
}

// The quotes around an address decide what ends it.
QLatin1String endsOfAddress(const QString &strText, int nPos)
{
    switch (nPos > 0 ? strText.at(nPos - 1).unicode() : 0) {
    case '\'':
        return QLatin1String("'");
    case '(':
        return QLatin1String(")");
    case '=':
        return QLatin1String(" >");
    default:
        return QLatin1String("\"");
    }
}

// The reader is after the scheme.
bool isHarmlessAddress(CEscapedReader *pReader, QLatin1String strEnds, int nDepth, int *pLeft)
{
    const QString strHead = readUpTo(pReader, QLatin1String(","), pLeft);
    const bool bBase64 = strHead.contains(QLatin1String("base64"), Qt::CaseInsensitive);
    const QString strRest = readUpTo(pReader, bBase64 ? QLatin1String("\"'<>)") : strEnds, pLeft);
    const QByteArray data = QByteArray::fromPercentEncoding(strRest.toLatin1());
    if (bBase64 && !isHarmlessPayload(strHead, QByteArray::fromBase64(data), nDepth))
        return false;
    return *pLeft > 0 && isHarmlessPayload(strHead, data, nDepth);
}

QString refuseAtDepth(const QString &strText, int nDepth)
{
    QString strResult;
    int nCopied = 0;
    int nLeft = qMax(g_nLeastReadings, strText.size() * g_nReadings);
    for (int nPos = 0; nPos < strText.size(); ++nPos) {
        if (!mayBegin(strText.at(nPos)))
            continue;
        CEscapedReader reader(strText, nPos);
        if (!readScheme(&reader, &nLeft))
            continue;
        const int nBehind = reader.position();
        if (isHarmlessAddress(&reader, endsOfAddress(strText, nPos), nDepth, &nLeft))
            continue;
        strResult += strText.midRef(nCopied, nPos - nCopied);
        strResult += g_strRefused;
        strResult += QLatin1Char(':');
        nCopied = nBehind;
        nPos = nBehind - 1;
    }
    return nCopied == 0 ? strText : QString(strResult + strText.midRef(nCopied));
}

} // namespace

QString refuseHarmfulData(const QString &strText)
{
    return refuseDataIcons(refuseAtDepth(strText, 0), g_strRefused);
}

QByteArray refuseHarmfulData(const QByteArray &bytes)
{
    // UTF-16 and UTF-32 are only recognised by a byte-order mark. All other encodings contain the
    // characters of an address as ASCII.
    const QTextCodec *pCodec = QTextCodec::codecForUtfText(bytes, nullptr);
    if (pCodec && pCodec->mibEnum() == g_nUtf8)
        pCodec = nullptr;
    const QString strText = pCodec ? pCodec->toUnicode(bytes) : QString::fromLatin1(bytes);
    const QString strSafe = refuseHarmfulData(strText);
    if (strSafe == strText)
        return bytes;
    if (!pCodec)
        return strSafe.toLatin1();
    const std::unique_ptr<QTextEncoder> pEncoder(pCodec->makeEncoder());
    return pEncoder->fromUnicode(strSafe); // With its mark.
}

QString restoreRefusedData(const QString &strText)
{
    const QString strRefused = QString(g_strRefused) + QLatin1Char(':');
    return strText.contains(strRefused)
        ? QString(strText).replace(strRefused, QString(g_strScheme) + QLatin1Char(':'))
        : strText;
}
