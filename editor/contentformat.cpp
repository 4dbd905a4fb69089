#include "editor/contentformat.h"

#include <QDomDocument>
#include <QJsonDocument>

namespace {

const int g_nXmlIndent = 4;

} // namespace

SParseResult parseXml(const QString &strText)
{
    SParseResult result = guardXml(strText);
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

SParseResult parseJson(const QString &strText)
{
    const QByteArray arrText = strText.toUtf8();
    QJsonParseError error = {};
    QJsonDocument::fromJson(arrText, &error);
    SParseResult result;
    result.strMessage = error.errorString();
    if (error.error == QJsonParseError::NoError)
        return result;
    const QString strBefore = QString::fromUtf8(arrText.left(error.offset));
    result.nLine = strBefore.count(QLatin1Char('\n')) + 1;
    result.nColumn = strBefore.length() - strBefore.lastIndexOf(QLatin1Char('\n'));
    return result;
}

QString formattedJson(const QString &strText)
{
    // Uses a C string, so the text ends at the first zero byte.
    return QString::fromUtf8(QJsonDocument::fromJson(strText.toUtf8()).toJson().constData());
}
