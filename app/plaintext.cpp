#include "app/plaintext.h"

#include <QTextDocument>

QString withoutMnemonic(QString strText)
{
    return strText.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString plainToolTip(const QString &strText)
{
    if (!Qt::mightBeRichText(strText))
        return strText;
    return QStringLiteral("<span style='white-space:pre'>%1</span>").arg(strText.toHtmlEscaped());
}

QString plainWindowTitle(QString strText)
{
    return strText.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

namespace {

// The joiners U+200C and U+200D stay: words of some languages are spelled with them.
bool hides(QChar c)
{
    const ushort u = c.unicode();
    if (u < 0x80)
        return u < 0x20 || u == 0x7f;
    switch (u) {
    case 0x00ad: // Soft hyphen.
    case 0x061c: // Arabic letter mark.
    case 0x180e:
    case 0x200b: // Zero width space.
    case 0x200e:
    case 0x200f:
    case 0xfeff:
        return true;
    default:
        return u < 0xa0 || (u >= 0x2028 && u <= 0x202e) || (u >= 0x2060 && u <= 0x206f)
            || (u >= 0xfff9 && u <= 0xfffb);
    }
}

// Shows the sign as its number, for which every font has the characters.
QString visibleSign(QChar c)
{
    return QStringLiteral("<U+%1>").arg(uint(c.unicode()), 4, 16, QLatin1Char('0')).toUpper();
}

} // namespace

QString visibleName(const QString &strName)
{
    const int nLength = strName.length();
    QString strShown;
    strShown.reserve(nLength);
    for (int n = 0; n < nLength; ++n) {
        const QChar c = strName.at(n);
        if (c.isHighSurrogate() && n + 1 < nLength && strName.at(n + 1).isLowSurrogate())
            strShown += c + QString(strName.at(++n));
        else if (hides(c) || c.isSurrogate())
            strShown += visibleSign(c);
        else
            strShown += c;
    }
    return strShown;
}
