#include "app/xmlguard.h"

#include "app/xmlentities.h"

// The reader is the one that QDomDocument uses inside.
QT_WARNING_DISABLE_DEPRECATED

#include <QCoreApplication>
#include <QXmlDefaultHandler>

namespace {

QString message(const char *pText)
{
    return QCoreApplication::translate("XmlGuard", pText);
}

ParseResult failureAt(const QString &strText, int nPosition, const char *pText)
{
    const QStringRef before = strText.leftRef(nPosition);
    ParseResult result;
    result.strMessage = message(pText);
    result.nLine = before.count(QLatin1Char('\n')) + 1;
    result.nColumn = nPosition - before.lastIndexOf(QLatin1Char('\n'));
    return result;
}

// Where a content model's brackets nest too deeply; -1 nowhere. A declaration ends at the next
// angle bracket. A character reference of a parameter entity's value may be a bracket, too.
int deepModelPosition(const QString &strText)
{
    const bool bReferences = declaresParameterEntities(strText);
    int nDepth = 0;
    for (int i = strText.indexOf(QLatin1String("<!DOCTYPE")); i >= 0 && i < strText.length(); ++i) {
        const QChar c = strText.at(i);
        if (c == QLatin1Char('<') || c == QLatin1Char('>'))
            nDepth = 0;
        else if (c == QLatin1Char('(') || (bReferences && c == QLatin1Char('&')))
            ++nDepth;
        else if (c == QLatin1Char(')'))
            --nDepth;
        if (nDepth > g_nMaxXmlDepth)
            return i;
    }
    return -1;
}

// Stops the reader at the element that lies too deep.
class CDepthHandler : public QXmlDefaultHandler
{
public:
    bool startElement(const QString &, const QString &, const QString &,
                      const QXmlAttributes &) override
    {
        m_bTooDeep = ++m_nDepth > g_nMaxXmlDepth;
        return !m_bTooDeep;
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        --m_nDepth;
        return true;
    }

    bool fatalError(const QXmlParseException &exception) override
    {
        if (m_bTooDeep) {
            m_result.strMessage =
                message(QT_TRANSLATE_NOOP("XmlGuard", "elements nest too deeply"));
            m_result.nLine = exception.lineNumber();
            m_result.nColumn = exception.columnNumber();
        }
        return false;
    }

    ParseResult result() const { return m_result; }

private:
    int m_nDepth = 0;
    bool m_bTooDeep = false;
    ParseResult m_result;
};

ParseResult checkDepth(const QString &strText)
{
    CDepthHandler handler;
    QXmlInputSource source;
    source.setData(strText);
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    reader.parse(&source);
    return handler.result();
}

QString decoded(const QByteArray &bytes)
{
    QXmlInputSource source;
    source.setData(bytes);
    return source.data();
}

} // namespace

ParseResult guardXml(const QString &strText)
{
    const int nDeepModel = deepModelPosition(strText);
    if (nDeepModel >= 0) {
        return failureAt(strText, nDeepModel,
                         QT_TRANSLATE_NOOP("XmlGuard", "declarations nest too deeply"));
    }
    const int nEntity = excessiveEntityPosition(strText);
    if (nEntity >= 0) {
        return failureAt(strText, nEntity,
                         QT_TRANSLATE_NOOP("XmlGuard", "entities expand to too much text"));
    }
    return checkDepth(strText);
}

ParseResult guardXml(const QByteArray &bytes)
{
    return guardXml(decoded(bytes));
}
