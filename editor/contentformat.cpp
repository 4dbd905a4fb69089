#include "editor/contentformat.h"

#include <QDomDocument>
#include <QJsonDocument>

namespace {

const int g_nXmlIndent = 4;

} // namespace

ParseResult parseXml(const QString &strText)
{
    ParseResult result = guardXml(strText);
    if (result.isGood()) {
        QDomDocument document;
        document.setContent(strText, false, &result.strMessage, &result.nLine, &result.nColumn);
    }
    return result;
}

QString formattedXml(const QString &strText)
{
    QDomDocument document;
    document.setContent(strText, false);
    return document.toString(g_nXmlIndent);
}

QString jsonErrorText(const QString &strText)
{
    QJsonParseError error = {};
    QJsonDocument::fromJson(strText.toUtf8(), &error);
    return error.errorString();
}

QString formattedJson(const QString &strText)
{
    // Through the C string: up to the first zero byte.
    return QString::fromUtf8(QJsonDocument::fromJson(strText.toUtf8()).toJson().constData());
}
