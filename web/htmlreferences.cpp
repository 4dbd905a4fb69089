#include "web/htmlreferences.h"

#include <QHash>
#include <QTextDocumentFragment>

namespace {

const int g_nMaxName = 32;
const int g_nMaxOldName = 6; // The names that need no ";" are no longer.

bool isAlphanumeric(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
        || (c >= QLatin1Char('0') && c <= QLatin1Char('9'));
}

// Empty for a name that Qt does not know.
QString resolveName(const QString &strName)
{
    static QHash<QString, QString> mapKnown;
    const auto it = mapKnown.constFind(strName);
    if (it != mapKnown.cend())
        return *it;
    const QString strReference = QLatin1Char('&') + strName + QLatin1Char(';');
    // The letters around the text keep its own blanks. A line end would become a separator.
    QString strText = QTextDocumentFragment::fromHtml(QStringLiteral("<pre>a") + strReference
                                                      + QStringLiteral("b</pre>"))
                          .toPlainText();
    strText = strText.mid(1, strText.size() - 2);
    // Fragments give no-break spaces back as blanks.
    if (strName == QLatin1String("nbsp"))
        strText = QString(QChar::Nbsp);
    if (strText == strReference || mapKnown.size() > 10000)
        strText.clear();
    mapKnown.insert(strName, strText);
    return strText;
}

// The names that HTML 2 knew.
bool isOldName(const QString &strName, const QString &strResolved)
{
    const ushort nCode = strResolved.size() == 1 ? strResolved.at(0).unicode() : 0;
    return (nCode >= 160 && nCode <= 255)
        || (strName != QLatin1String("apos") && nCode < 128 && nCode > 0);
}

// The character that browsers show for a number; numbers of the old Windows encoding are its
// characters.
QString resolveNumber(uint nCode)
{
    static const ushort arrWindows[] = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    if (nCode == 0 || nCode > 0x10FFFF || (nCode >= 0xD800 && nCode <= 0xDFFF))
        nCode = QChar::ReplacementCharacter;
    if (nCode >= 0x80 && nCode <= 0x9F)
        nCode = arrWindows[nCode - 0x80];
    return QString::fromUcs4(&nCode, 1);
}

int numberAt(const QString &strHtml, int nPos, int nEnd, QString *pResolved)
{
    int nDigit = nPos + 2;
    const bool bHex = nDigit < nEnd
        && (strHtml.at(nDigit) == QLatin1Char('x') || strHtml.at(nDigit) == QLatin1Char('X'));
    if (bHex)
        ++nDigit;
    const int nFirst = nDigit;
    uint nCode = 0;
    for (; nDigit < nEnd && isAlphanumeric(strHtml.at(nDigit)); ++nDigit) {
        const int nValue = QString(strHtml.at(nDigit)).toInt(nullptr, 36);
        if (nValue >= (bHex ? 16 : 10))
            break;
        nCode = qMin(nCode * (bHex ? 16 : 10) + nValue, 0x110000U);
    }
    if (nDigit == nFirst)
        return 0;
    *pResolved = resolveNumber(nCode);
    if (nDigit < nEnd && strHtml.at(nDigit) == QLatin1Char(';'))
        ++nDigit;
    return nDigit - nPos;
}

} // namespace

int referenceAt(const QString &strHtml, int nPos, int nEnd, EReferences references,
                QString *pResolved)
{
    if (references == EReferences::None || nPos + 1 >= nEnd)
        return 0;
    if (strHtml.at(nPos + 1) == QLatin1Char('#'))
        return numberAt(strHtml, nPos, nEnd, pResolved);
    int nName = nPos + 1;
    while (nName < nEnd && nName - nPos <= g_nMaxName && isAlphanumeric(strHtml.at(nName)))
        ++nName;
    const QString strName = strHtml.mid(nPos + 1, nName - nPos - 1);
    if (!strName.isEmpty() && nName < nEnd && strHtml.at(nName) == QLatin1Char(';')) {
        *pResolved = resolveName(strName);
        if (!pResolved->isEmpty())
            return nName + 1 - nPos;
    }
    for (int nLength = qMin(strName.size(), g_nMaxOldName); nLength > 1; --nLength) {
        const QString strOld = strName.left(nLength);
        *pResolved = resolveName(strOld);
        if (pResolved->isEmpty() || !isOldName(strOld, *pResolved))
            continue;
        const int nBehind = nPos + 1 + nLength;
        const QChar cBehind = nBehind < nEnd ? strHtml.at(nBehind) : QChar();
        if (references == EReferences::InAttribute
            && (isAlphanumeric(cBehind) || cBehind == QLatin1Char('=')))
            return 0;
        return nLength + 1;
    }
    return 0;
}

SDecodedText decodeWithPositions(const QString &strHtml, int nStart, int nEnd,
                                 EReferences references)
{
    SDecodedText decoded;
    decoded.strText.reserve(nEnd - nStart);
    decoded.lstPositions.reserve(nEnd - nStart + 1);
    const auto add = [&](QChar c, int nPos) {
        decoded.strText += c;
        decoded.lstPositions += nPos;
    };
    for (int nPos = nStart; nPos < nEnd; ++nPos) {
        const QChar c = strHtml.at(nPos);
        QString strResolved;
        const int nLength =
            c == QLatin1Char('&') ? referenceAt(strHtml, nPos, nEnd, references, &strResolved) : 0;
        if (nLength > 0) {
            for (const QChar cResolved : strResolved)
                add(cResolved, nPos);
            nPos += nLength - 1;
        } else if (c == QLatin1Char('\r')) {
            add(QLatin1Char('\n'), nPos);
            if (nPos + 1 < nEnd && strHtml.at(nPos + 1) == QLatin1Char('\n'))
                ++nPos;
        } else if (!c.isNull()) {
            add(c, nPos);
        }
    }
    decoded.lstPositions += nEnd;
    return decoded;
}

QString decodeReferences(const QString &strHtml, int nStart, int nEnd, EReferences references)
{
    const QStringRef strRange = strHtml.midRef(nStart, nEnd - nStart);
    if (!strRange.contains(QLatin1Char('&')) && !strRange.contains(QLatin1Char('\r'))
        && !strRange.contains(QChar()))
        return strRange.toString();
    return decodeWithPositions(strHtml, nStart, nEnd, references).strText;
}
