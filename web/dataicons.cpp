#include "web/dataicons.h"

#include "web/chtmltokenizer.h"
#include "web/htmlreferences.h"
#include "web/htmltoken.h"

#include <QRegularExpression>

namespace {

const QLatin1String g_strData("data:");

QString valueOf(const QString &strHtml, const SHtmlAttribute *pAttribute)
{
    return pAttribute
        ? decodeReferences(strHtml, pAttribute->nValue, pAttribute->nValue + pAttribute->nLength,
                           EReferences::InAttribute)
        : QString();
}

// Reads the value as browsers read addresses: without line ends, tabs and surrounding blanks, and
// with character references that only newer browsers know.
QString asAddress(QString strValue)
{
    static const QRegularExpression s_regExpLeftOut(
        QStringLiteral("[\\t\\n\\r]|\\A[\\x00-\\x20]+|[\\x00-\\x20]+\\z"));
    strValue.replace(QLatin1String("&colon;"), QLatin1String(":"));
    strValue.remove(QLatin1String("&Tab;")).remove(QLatin1String("&NewLine;"));
    return strValue.remove(s_regExpLeftOut);
}

// True also for "h:link" in XML.
bool isLink(const QString &strHtml, const SHtmlToken &token)
{
    return token.kind == SHtmlToken::Kind::StartTag
        && token.name(strHtml).endsWith(QLatin1String("link"));
}

} // namespace

QString refuseDataIcons(const QString &strHtml, const QString &strScheme)
{
    if (!strHtml.contains(QLatin1String("link"), Qt::CaseInsensitive))
        return strHtml;
    QString strResult;
    int nCopied = 0;
    CHtmlTokenizer tokenizer(strHtml);
    while (tokenizer.next()) {
        if (!isLink(strHtml, tokenizer.token()))
            continue;
        const QVector<SHtmlAttribute> lstAttributes = htmlAttributes(strHtml, tokenizer.token());
        const SHtmlAttribute *pHref = findAttribute(lstAttributes, QLatin1String("href"));
        const QString strRel = valueOf(strHtml, findAttribute(lstAttributes, QLatin1String("rel")));
        const QString strAddress = asAddress(valueOf(strHtml, pHref));
        if (!strRel.contains(QLatin1String("icon"), Qt::CaseInsensitive)
            || !strAddress.startsWith(g_strData, Qt::CaseInsensitive))
            continue;
        strResult += strHtml.midRef(nCopied, pHref->nValue - nCopied);
        strResult += strScheme + strAddress.mid(g_strData.size() - 1).toHtmlEscaped();
        nCopied = pHref->nValue + pHref->nLength;
    }
    return nCopied == 0 ? strHtml : QString(strResult + strHtml.midRef(nCopied));
}
