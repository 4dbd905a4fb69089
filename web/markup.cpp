#include "web/markup.h"

#include "web/chtmltokenizer.h"
#include "web/htmltoken.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace {

// Parsing drops one line end there, so one that was part of the text has to be written twice.
bool dropsFirstLineEnd(const QString &strName)
{
    return strName == QLatin1String("pre") || strName == QLatin1String("textarea")
        || strName == QLatin1String("listing");
}

// Elements whose text has no entities for a reader, although the web view escapes it.
bool isEscapedRawText(const QString &strName)
{
    return strName == QLatin1String("iframe") || strName == QLatin1String("noembed")
        || strName == QLatin1String("noframes") || strName == QLatin1String("plaintext");
}

QString unescaped(QString strText)
{
    strText.replace(QLatin1String("&lt;"), QLatin1String("<"));
    strText.replace(QLatin1String("&gt;"), QLatin1String(">"));
    strText.replace(QLatin1String("&nbsp;"), QString(QChar::Nbsp));
    strText.replace(QLatin1String("&amp;"), QLatin1String("&"));
    return strText;
}

QString mendElements(const QString &strHtml)
{
    // Most pages have none of these, and to walk over all tags takes far longer.
    static const QRegularExpression regExpAny(
        QStringLiteral("<(?:pre|textarea|listing|iframe|noembed|noframes|plaintext)[ >]"));
    if (!strHtml.contains(regExpAny))
        return strHtml;
    QString strResult;
    int nCopied = 0;
    QString strElement; // The element whose start tag was the last token.
    CHtmlTokenizer tokenizer(strHtml);
    while (tokenizer.next()) {
        const SHtmlToken &token = tokenizer.token();
        const int nStart = token.nStart;
        if (dropsFirstLineEnd(strElement) && strHtml.at(nStart) == QLatin1Char('\n')) {
            strResult += strHtml.midRef(nCopied, nStart - nCopied);
            strResult += QLatin1Char('\n');
            nCopied = nStart;
        } else if (token.kind == SHtmlToken::Kind::RawText && isEscapedRawText(strElement)) {
            const int nPlainEnd = strElement == QLatin1String("plaintext") // No tag ends it.
                ? strHtml.lastIndexOf(QLatin1String("</plaintext>"))
                : token.nEnd;
            const int nTextEnd = nPlainEnd < nStart ? token.nEnd : nPlainEnd;
            strResult += strHtml.midRef(nCopied, nStart - nCopied);
            strResult += unescaped(strHtml.mid(nStart, nTextEnd - nStart));
            nCopied = token.nEnd;
        }
        strElement = token.kind == SHtmlToken::Kind::StartTag ? token.name(strHtml) : QString();
    }
    return nCopied == 0 ? strHtml : QString(strResult + strHtml.midRef(nCopied));
}

} // namespace

QString repairSerialised(const QString &strHtml)
{
    static const QRegularExpression regExpXml(QStringLiteral("\\A<!--(\\?xml\\s[^>]*\\?)-->"));
    QString strResult = mendElements(strHtml);
    strResult.replace(QLatin1Char('\r'), QLatin1String("&#13;"));
    strResult.replace(regExpXml, QStringLiteral("<\\1>"));
    return strResult;
}

QString scriptString(const QString &strText)
{
    // Line separators are allowed in JSON and forbidden in a script's strings.
    const QByteArray data = QJsonDocument(QJsonArray {strText}).toJson(QJsonDocument::Compact);
    QString strLiteral = QString::fromUtf8(data.mid(1, data.size() - 2));
    strLiteral.replace(QChar(QChar::LineSeparator), QLatin1String("\\u2028"));
    strLiteral.replace(QChar(QChar::ParagraphSeparator), QLatin1String("\\u2029"));
    return strLiteral;
}

QColor colorFromCss(const QString &strCss)
{
    static const QRegularExpression regExp(QStringLiteral(
        "\\Argba?\\(\\s*(\\d+)\\s*,\\s*(\\d+)\\s*,\\s*(\\d+)\\s*(?:,\\s*([0-9.]+)\\s*)?\\)\\z"));
    const QRegularExpressionMatch match = regExp.match(strCss.trimmed());
    if (!match.hasMatch())
        return QColor(strCss.trimmed());
    QColor clr(qMin(match.captured(1).toInt(), 255), qMin(match.captured(2).toInt(), 255),
               qMin(match.captured(3).toInt(), 255));
    if (!match.captured(4).isEmpty())
        clr.setAlphaF(qBound(0.0, match.captured(4).toDouble(), 1.0));
    return clr;
}

QString firstFontFamily(const QString &strCss)
{
    static const QRegularExpression regExp(
        QStringLiteral("\\A\\s*(?:\"((?:[^\"\\\\]|\\\\.)*)\"|'((?:[^'\\\\]|\\\\.)*)'|([^,]*))"));
    static const QRegularExpression regExpEscape(QStringLiteral("\\\\(.)"));
    const QRegularExpressionMatch match = regExp.match(strCss);
    QString strFamily = match.captured(match.lastCapturedIndex()).trimmed();
    return strFamily.replace(regExpEscape, QStringLiteral("\\1"));
}
