#include "app/textcodecs.h"

#include <QLocale>
#include <QRegExp>
#include <QTextCodec>
#include <QTextDecoder>

#include <algorithm>
#include <memory>

namespace {

bool isFullWidthSign(ushort u)
{
    return (u >= 0xFF01 && u <= 0xFF5E) || (u >= 0xFFE0 && u <= 0xFFE6);
}

// Characters that a wrong multi-byte codec tends to produce.
bool isSuspicious(QChar c, FullWidthSigns signs)
{
    const ushort u = c.unicode();
    if (u < 0x8000)
        return false;
    if (signs == FullWidthSigns::Allowed && isFullWidthSign(u))
        return false;
    const bool bNonCharacter = (u >= 0xFDD0 && u <= 0xFDEF) || (u & 0xFFFE) == 0xFFFE;
    return bNonCharacter || c.isSymbol();
}

QString systemLocaleName()
{
    return QLocale::system().name().toLower();
}

} // namespace

bool isAscii(const QByteArray &data)
{
    unsigned char nBits = 0;
    for (const char c : data)
        nBits |= static_cast<unsigned char>(c);
    return nBits < 0x80;
}

bool mapsAsciiToItself(const QTextCodec *pCodec)
{
    switch (pCodec->mibEnum()) { // As IANA numbers character sets.
    case 3:
    case 4:
    case 106:
    case 113:
    case 114:
        return true;
    default:
        return false;
    }
}

QTextCodec *codecForName(const QString &strName)
{
    return strName.isEmpty() ? nullptr : QTextCodec::codecForName(strName.toUtf8());
}

QString preferredCodecName(const QString &strLocale)
{
    // The comparison is literal, although the system spells the last two with an underscore.
    if (strLocale == QLatin1String("zh_cn") || strLocale == QLatin1String("zh-tw")) {
        return QTextCodec::availableCodecs().contains("GB18030") ? QStringLiteral("GB18030")
                                                                 : QStringLiteral("GBK");
    }
    if (strLocale == QLatin1String("ja-jp"))
        return QStringLiteral("Shift-JIS");
    return QString();
}

QString detectCodecName(const QByteArray &data)
{
    return detectCodecName(data, preferredCodecName(systemLocaleName()));
}

QString detectCodecName(const QByteArray &data, const QString &strPreferred)
{
    QTextCodec *pPreferred = codecForName(strPreferred);
    if (isValidDecoding(pPreferred, data))
        return QString::fromLatin1(pPreferred->name());
    const QList<int> lstMibs = QTextCodec::availableMibs();
    for (const int nMib : lstMibs) {
        QTextCodec *pCodec = QTextCodec::codecForMib(nMib);
        if (!pCodec)
            continue;
        // Single-byte code pages accept any bytes and would always win.
        const QByteArray name = pCodec->name();
        if (name.startsWith("ISO-") || name.startsWith("windows-"))
            continue;
        if (isValidDecoding(pCodec, data))
            return QString::fromLatin1(name);
    }
    return QString();
}

bool isValidDecoding(QTextCodec *pCodec, const QByteArray &data, FullWidthSigns signs)
{
    if (!pCodec)
        return false;
    if (mapsAsciiToItself(pCodec) && isAscii(data))
        return true;
    const std::unique_ptr<QTextDecoder> pDecoder(pCodec->makeDecoder());
    // A wrong codec is found out within the first bytes, mostly.
    int nPiece = 0x400;
    for (int n = 0; n < data.size(); n += nPiece, nPiece = qMin(2 * nPiece, 0x10000)) {
        const QString strText =
            pDecoder->toUnicode(data.constData() + n, qMin(nPiece, data.size() - n));
        const auto isWrong = [signs](QChar c) { return isSuspicious(c, signs); };
        if (pDecoder->hasFailure() || std::any_of(strText.cbegin(), strText.cend(), isWrong))
            return false;
    }
    return true;
}

QString getDefaultCodecName()
{
    const QString strPreferred = preferredCodecName(systemLocaleName());
    return strPreferred.isEmpty() ? QStringLiteral("UTF-8") : strPreferred;
}

QStringList getCodecList()
{
    // A "|" inside brackets is an ordinary member of the class.
    static const QList<QRegExp> s_lstHidden = {
        QRegExp(QStringLiteral("^\\d"), Qt::CaseSensitive),
        QRegExp(QStringLiteral("^[b|g|k|u|r|t]"), Qt::CaseSensitive),
        QRegExp(QStringLiteral("^[a|c|d|h-p|t|x]"), Qt::CaseInsensitive),
        QRegExp(QStringLiteral("^(as|iso|bo|big5-|sc|sj|su|(gb2312,)|gb_)"), Qt::CaseInsensitive),
        QRegExp(QStringLiteral("^[Ee][^U]"), Qt::CaseSensitive),
    };
    QStringList lstNames;
    const QList<QByteArray> lstCodecs = QTextCodec::availableCodecs();
    for (const QByteArray &codec : lstCodecs) {
        const QString strName = QString::fromLatin1(codec);
        const bool bHidden = std::any_of(s_lstHidden.cbegin(), s_lstHidden.cend(),
                                         [&](const QRegExp &re) { return strName.contains(re); });
        if (!bHidden)
            lstNames.append(strName);
    }
    lstNames.removeDuplicates();
    lstNames.sort();
    return lstNames;
}

bool isMultiByteUtf8(const QByteArray &data)
{
    if (isAscii(data))
        return false;
    static const QTextCodec *const s_pUtf8 = QTextCodec::codecForName("UTF-8");
    // Drops the text at once, because only its soundness matters and a large text takes memory.
    const int nPiece = 0x10000;
    QTextCodec::ConverterState state(QTextCodec::DefaultConversion);
    for (int n = 0; n < data.size() && state.invalidChars == 0; n += nPiece)
        s_pUtf8->toUnicode(data.constData() + n, qMin(nPiece, data.size() - n), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}
