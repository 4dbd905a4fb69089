#include "web/pagecodec.h"

#include "app/textcodecs.h"
#include "web/charset.h"

#include <QHash>
#include <QTextCodec>

namespace {

// The web view searches at least this far for a declaration; we search twice as far.
constexpr int g_nHeadBytes = 8192;
constexpr int g_nMaxDetectedBytes = 8 << 20;

const QString g_strUtf8 = QStringLiteral("UTF-8");

QString markedCodecName(const QByteArray &page)
{
    if (page.startsWith("\xEF\xBB\xBF"))
        return g_strUtf8;
    if (page.startsWith("\xFF\xFE"))
        return QStringLiteral("UTF-16LE");
    if (page.startsWith("\xFE\xFF"))
        return QStringLiteral("UTF-16BE");
    return QString();
}

// What the name means in a page (WHATWG Encoding, 4.2 "names and labels"; HTML, 13.2.3.2).
QString codecNameForLabel(const QString &strLabel)
{
    const QString strLower = strLabel.toLower();
    // A page that declares itself in ASCII cannot be UTF-16.
    if (strLower.startsWith(QLatin1String("utf-16"))
        || strLower.startsWith(QLatin1String("utf-32")))
        return g_strUtf8;
    static const QHash<QString, QString> s_meanings = {
        {QStringLiteral("us-ascii"), QStringLiteral("windows-1252")},
        {QStringLiteral("ascii"), QStringLiteral("windows-1252")},
        {QStringLiteral("iso-8859-1"), QStringLiteral("windows-1252")},
        {QStringLiteral("iso8859-1"), QStringLiteral("windows-1252")},
        {QStringLiteral("latin1"), QStringLiteral("windows-1252")},
        {QStringLiteral("iso-8859-9"), QStringLiteral("windows-1254")},
        {QStringLiteral("iso-8859-11"), QStringLiteral("TIS-620")},
        {QStringLiteral("gb2312"), QStringLiteral("GBK")},
        {QStringLiteral("gb_2312-80"), QStringLiteral("GBK")},
        {QStringLiteral("utf8"), g_strUtf8}};
    const QString strName = s_meanings.value(strLower, strLabel);
    const QTextCodec *pCodec = codecForName(strName);
    return pCodec ? QString::fromLatin1(pCodec->name()) : QString();
}

} // namespace

QString undeclaredCodecName(const QByteArray &page)
{
    const QByteArray head = withoutCutUtf8(page.left(g_nMaxDetectedBytes));
    const QString strName = isAscii(head) ? QString() : codecNameForData(QString(), head);
    return strName.isEmpty() ? g_strUtf8 : strName;
}

QString pageCodecName(const QByteArray &page)
{
    QString strMarked = markedCodecName(page);
    if (!strMarked.isEmpty())
        return strMarked;
    const QString strDeclared =
        codecNameForLabel(declaredCharset(QString::fromLatin1(page.left(g_nHeadBytes))));
    return strDeclared.isEmpty() ? undeclaredCodecName(page) : strDeclared;
}

QString decodePage(const QByteArray &page, const QString &strCodec)
{
    QString strText = decodeText(codecForName(strCodec), page);
    if (strText.startsWith(QChar(QChar::ByteOrderMark)))
        strText.remove(0, 1);
    return strText;
}

QString decodePage(const QByteArray &page)
{
    return decodePage(page, pageCodecName(page));
}
