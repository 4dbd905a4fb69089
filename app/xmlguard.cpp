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

SParseResult failureAt(const QString &strText, int nPosition, const char *pText)
{
    const QStringRef before = strText.leftRef(nPosition);
    SParseResult result;
    result.strMessage = message(pText);
    result.nLine = before.count(QLatin1Char('\n')) + 1;
    result.nColumn = nPosition - before.lastIndexOf(QLatin1Char('\n'));
    return result;
}

// Gives the position after the next closing sign, or the end of the text if there is none.
int behind(const QString &strText, int nPosition, const QString &strClose)
{
    const int nClose = strText.indexOf(strClose, nPosition);
    return nClose < 0 ? strText.length() : nClose + strClose.length();
}

// Gives the position after a comment or processing instruction that begins here; else the position
// itself.
int behindRemark(const QString &strText, int nPosition)
{
    const QStringRef rest = strText.midRef(nPosition, 4);
    if (rest == QLatin1String("<!--"))
        return behind(strText, nPosition + 4, QStringLiteral("-->"));
    if (rest.startsWith(QLatin1String("<?")))
        return behind(strText, nPosition + 2, QStringLiteral("?>"));
    return nPosition;
}

// Gives the start of the document type declaration, -1 without one. Only remarks may precede it.
int doctypeStart(const QString &strText)
{
    int nPosition = 0;
    while (nPosition < strText.length()) {
        const int nBehind = behindRemark(strText, nPosition);
        if (nBehind == nPosition && !strText.at(nPosition).isSpace())
            break;
        nPosition = qMax(nBehind, nPosition + 1);
    }
    return strText.midRef(nPosition).startsWith(QLatin1String("<!DOCTYPE")) ? nPosition : -1;
}

// Gives the position after the document type declaration that begins here.
int doctypeEnd(const QString &strText, int nPosition)
{
    bool bInSubset = false;
    while (nPosition < strText.length()) {
        const int nBehind = behindRemark(strText, nPosition);
        if (nBehind > nPosition) {
            nPosition = nBehind;
            continue;
        }
        const QChar c = strText.at(nPosition);
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            nPosition = behind(strText, nPosition + 1, QString(c));
            continue;
        }
        if (c == QLatin1Char('[') || c == QLatin1Char(']'))
            bInSubset = c == QLatin1Char('[');
        else if (c == QLatin1Char('>') && !bInSubset)
            return nPosition + 1;
        ++nPosition;
    }
    return nPosition;
}

// The position where the brackets of a content model nest too deeply; -1 if they do not. A
// declaration ends at the next angle bracket. Where parameter entities are declared, a character
// reference counts as a bracket, because an entity's value may hold one so; and all of the text is
// read, because an entity may move the end of the document type declaration.
int deepModelPosition(const QString &strText)
{
    const int nStart = doctypeStart(strText);
    if (nStart < 0)
        return -1;
    const bool bReferences = declaresParameterEntities(strText);
    const int nEnd = bReferences ? strText.length() : doctypeEnd(strText, nStart);
    int nDepth = 0;
    for (int i = nStart; i < nEnd; ++i) {
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

// Stops the reader at the element that is nested too deeply.
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

    SParseResult result() const { return m_result; }

private:
    int m_nDepth = 0;
    bool m_bTooDeep = false;
    SParseResult m_result;
};

SParseResult checkDepth(const QString &strText)
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

SParseResult guardXml(const QString &strText)
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

SParseResult guardXml(const QByteArray &bytes)
{
    return guardXml(decoded(bytes));
}
