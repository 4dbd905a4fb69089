#include "web/charset.h"

#include "web/chtmltokenizer.h"
#include "web/htmltoken.h"

#include <QRegularExpression>

namespace {

struct SRange
{
    int nStart = -1;
    int nLength = 0;
};

bool namesUtf8(const QStringRef &strName)
{
    return strName.trimmed().compare(QLatin1String("utf-8"), Qt::CaseInsensitive) == 0
        || strName.trimmed().compare(QLatin1String("utf8"), Qt::CaseInsensitive) == 0;
}

// The encoding's name within the value of a content attribute (WHATWG HTML, 2.5.1 "extracting a
// character encoding from a meta element").
SRange charsetWithin(const QString &strHtml, const SHtmlAttribute &content)
{
    static const QRegularExpression regExp(
        QStringLiteral("charset\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s;\"']+))"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match =
        regExp.match(strHtml.midRef(content.nValue, content.nLength));
    const int nGroup = match.lastCapturedIndex();
    if (nGroup < 1)
        return SRange();
    return {content.nValue + match.capturedStart(nGroup), match.capturedLength(nGroup)};
}

SRange declaredIn(const QString &strHtml, const SHtmlToken &tag)
{
    if (!tag.isStart(strHtml, QLatin1String("meta")))
        return SRange();
    const QVector<SHtmlAttribute> lstAttributes = htmlAttributes(strHtml, tag);
    if (const SHtmlAttribute *pCharset = findAttribute(lstAttributes, QLatin1String("charset")))
        return {pCharset->nValue, pCharset->nLength};
    const SHtmlAttribute *pEquiv = findAttribute(lstAttributes, QLatin1String("http-equiv"));
    const SHtmlAttribute *pContent = findAttribute(lstAttributes, QLatin1String("content"));
    if (!pEquiv || !pContent)
        return SRange();
    const QStringRef strEquiv = strHtml.midRef(pEquiv->nValue, pEquiv->nLength).trimmed();
    if (strEquiv.compare(QLatin1String("content-type"), Qt::CaseInsensitive) != 0)
        return SRange();
    return charsetWithin(strHtml, *pContent);
}

SRange declaredByXml(const QString &strHtml)
{
    static const QRegularExpression regExp(
        QStringLiteral("\\A\\s*<\\?xml\\s[^>]*?encoding\\s*=\\s*[\"']([^\"'>]*)[\"']"));
    const QRegularExpressionMatch match = regExp.match(strHtml);
    if (!match.hasMatch())
        return SRange();
    return {match.capturedStart(1), match.capturedLength(1)};
}

} // namespace

QString declaredCharset(const QString &strHtml)
{
    const SRange byXml = declaredByXml(strHtml);
    if (byXml.nLength > 0)
        return strHtml.mid(byXml.nStart, byXml.nLength).trimmed();
    CHtmlTokenizer tokenizer(strHtml);
    while (tokenizer.next()) {
        const SRange range = declaredIn(strHtml, tokenizer.token());
        if (range.nLength > 0)
            return strHtml.mid(range.nStart, range.nLength).trimmed();
    }
    return QString();
}

QString declareUtf8(const QString &strHtml)
{
    QString strResult;
    int nCopied = 0;
    const auto change = [&](SRange range) {
        if (range.nLength <= 0 || namesUtf8(strHtml.midRef(range.nStart, range.nLength)))
            return;
        strResult += strHtml.midRef(nCopied, range.nStart - nCopied);
        strResult += QLatin1String("utf-8");
        nCopied = range.nStart + range.nLength;
    };
    change(declaredByXml(strHtml));
    // Most pages declare once, at their start. The walk ends where no other declaration can follow.
    const int nLast = strHtml.lastIndexOf(QLatin1String("charset"), -1, Qt::CaseInsensitive);
    CHtmlTokenizer tokenizer(strHtml);
    while (nLast >= 0 && tokenizer.next()) {
        change(declaredIn(strHtml, tokenizer.token()));
        if (tokenizer.token().nEnd > nLast)
            break;
    }
    return nCopied == 0 ? strHtml : QString(strResult + strHtml.midRef(nCopied));
}
