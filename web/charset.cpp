#include "web/charset.h"

#include "web/chtmlscanner.h"

#include <QRegularExpression>

namespace {

struct SRange
{
    int m_nStart = -1;
    int m_nLength = 0;
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
        regExp.match(strHtml.midRef(content.m_nValue, content.m_nLength));
    const int nGroup = match.lastCapturedIndex();
    if (nGroup < 1)
        return SRange();
    return {content.m_nValue + match.capturedStart(nGroup), match.capturedLength(nGroup)};
}

SRange declaredIn(const QString &strHtml, const SHtmlTag &tag)
{
    if (tag.m_strName != QLatin1String("meta"))
        return SRange();
    if (const SHtmlAttribute *pCharset = tag.attribute(QStringLiteral("charset")))
        return {pCharset->m_nValue, pCharset->m_nLength};
    const SHtmlAttribute *pEquiv = tag.attribute(QStringLiteral("http-equiv"));
    const SHtmlAttribute *pContent = tag.attribute(QStringLiteral("content"));
    if (!pEquiv || !pContent)
        return SRange();
    const QStringRef strEquiv = strHtml.midRef(pEquiv->m_nValue, pEquiv->m_nLength).trimmed();
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

QString declareUtf8(const QString &strHtml)
{
    QString strResult;
    int nCopied = 0;
    const auto change = [&](SRange range) {
        if (range.m_nLength <= 0 || namesUtf8(strHtml.midRef(range.m_nStart, range.m_nLength)))
            return;
        strResult += strHtml.midRef(nCopied, range.m_nStart - nCopied);
        strResult += QLatin1String("utf-8");
        nCopied = range.m_nStart + range.m_nLength;
    };
    change(declaredByXml(strHtml));
    // Most pages declare once, at their start. The walk ends where no other declaration can follow.
    const int nLast = strHtml.lastIndexOf(QLatin1String("charset"), -1, Qt::CaseInsensitive);
    CHtmlScanner scanner(strHtml);
    while (nLast >= 0 && scanner.next()) {
        change(declaredIn(strHtml, scanner.tag()));
        if (scanner.tag().m_nStart > nLast)
            break;
    }
    return nCopied == 0 ? strHtml : QString(strResult + strHtml.midRef(nCopied));
}

QString declaredCharset(const QString &strHtml)
{
    const auto named = [&](SRange range) {
        return strHtml.mid(range.m_nStart, range.m_nLength).trimmed();
    };
    const SRange rangeXml = declaredByXml(strHtml);
    if (rangeXml.m_nLength > 0)
        return named(rangeXml);
    CHtmlScanner scanner(strHtml);
    while (scanner.next()) {
        const SRange range = declaredIn(strHtml, scanner.tag());
        if (range.m_nLength > 0)
            return named(range);
    }
    return QString();
}
