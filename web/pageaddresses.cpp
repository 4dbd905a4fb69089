#include "web/pageaddresses.h"

#include "web/chtmltokenizer.h"
#include "web/htmltoken.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

namespace {

bool isRelative(const QString &strAddress)
{
    static const QRegularExpression regExpAbsolute(
        QStringLiteral("\\A(?:\\z|[/\\\\#?]|[a-zA-Z][a-zA-Z0-9+.-]*:)"));
    return !strAddress.contains(regExpAbsolute);
}

bool holdsAddress(const QString &strAttribute)
{
    static const QSet<QString> setNames = {
        QStringLiteral("href"),       QStringLiteral("src"),      QStringLiteral("background"),
        QStringLiteral("action"),     QStringLiteral("data"),     QStringLiteral("poster"),
        QStringLiteral("cite"),       QStringLiteral("longdesc"), QStringLiteral("codebase"),
        QStringLiteral("formaction"), QStringLiteral("usemap"),   QStringLiteral("xlink:href")};
    return setNames.contains(strAttribute);
}

bool holdsCandidates(const QString &strAttribute)
{
    return strAttribute == QLatin1String("srcset") || strAttribute == QLatin1String("imagesrcset");
}

// Addresses in these attributes start from the code base of their element, if it names one.
bool leadsFromCodeBase(const QString &strAttribute)
{
    return strAttribute == QLatin1String("data") || strAttribute == QLatin1String("archive")
        || strAttribute == QLatin1String("classid");
}

// Makes "a/../b" "b"; ".." beyond the start stays.
QString withoutDetours(const QString &strPath)
{
    QStringList lstSteps;
    const QStringList lstAll = strPath.split(QLatin1Char('/'));
    for (const QString &strStep : lstAll) {
        const bool bBack = strStep == QLatin1String("..") && !lstSteps.isEmpty()
            && lstSteps.constLast() != QLatin1String("..");
        if (bBack)
            lstSteps.removeLast();
        else if (strStep != QLatin1String("."))
            lstSteps.append(strStep);
    }
    return lstSteps.isEmpty() ? QStringLiteral(".") : lstSteps.join(QLatin1Char('/'));
}

class CMove
{
public:
    CMove(const QString &strHtml, const QString &strPrefix)
        : m_strHtml(strHtml), m_strPrefix(strPrefix)
    {
    }
    QString run();

private:
    void moveAttributes(const SHtmlToken &tag);
    void moveAddress(int nStart, int nLength);
    void moveCandidates(int nStart, int nEnd);
    void moveRefresh(int nStart, int nLength);
    void moveStyles(int nStart, int nEnd);
    int behindDescriptors(int nStart, int nEnd) const;

    const QString &m_strHtml;
    const QString m_strPrefix; // From the new folder to the old one.
    QString m_strResult;
    int m_nCopied = 0;
};

void CMove::moveAddress(int nStart, int nLength)
{
    const QString strAddress = m_strHtml.mid(nStart, nLength).trimmed();
    if (!isRelative(strAddress))
        return;
    static const QRegularExpression regExpBehindPath(QStringLiteral("[?#]"));
    const int nFound = strAddress.indexOf(regExpBehindPath);
    const int nPath = nFound < 0 ? strAddress.size() : nFound;
    m_strResult += m_strHtml.midRef(m_nCopied, nStart - m_nCopied);
    m_strResult += withoutDetours(m_strPrefix + strAddress.leftRef(nPath)) + strAddress.mid(nPath);
    m_nCopied = nStart + nLength;
}

// Reads up to the next comma outside of parentheses.
int CMove::behindDescriptors(int nStart, int nEnd) const
{
    int n = nStart;
    for (int nDepth = 0; n < nEnd; ++n) {
        const QChar c = m_strHtml.at(n);
        if (c == QLatin1Char(',') && nDepth <= 0)
            break;
        nDepth += (c == QLatin1Char('(')) - (c == QLatin1Char(')'));
    }
    return n;
}

// For lists such as "a.png 1x, b.png 2x" (HTML, 4.8.4.2.2).
void CMove::moveCandidates(int nStart, int nEnd)
{
    int n = nStart;
    while (n < nEnd) {
        if (isHtmlSpace(m_strHtml.at(n)) || m_strHtml.at(n) == QLatin1Char(',')) {
            ++n;
            continue;
        }
        const int nAddress = n;
        while (n < nEnd && !isHtmlSpace(m_strHtml.at(n)))
            ++n;
        int nBehind = n;
        while (nBehind > nAddress && m_strHtml.at(nBehind - 1) == QLatin1Char(','))
            --nBehind;
        moveAddress(nAddress, nBehind - nAddress);
        if (nBehind == n)
            n = behindDescriptors(n, nEnd);
    }
}

// For values such as "3; url=a.html".
void CMove::moveRefresh(int nStart, int nLength)
{
    static const QRegularExpression regExp(
        QStringLiteral("^\\s*[\\d.]*\\s*[;,]?\\s*url\\s*=\\s*(?:\"([^\"]*)|'([^']*)|([^\\s\"']+))"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = regExp.match(m_strHtml.mid(nStart, nLength));
    const int nGroup = match.lastCapturedIndex();
    if (nGroup > 0)
        moveAddress(nStart + match.capturedStart(nGroup), match.capturedLength(nGroup));
}

void CMove::moveStyles(int nStart, int nEnd)
{
    static const QRegularExpression regExpUrl(
        QStringLiteral("(?:\\burl\\(\\s*|@import\\s+)(?:\"([^\"]*)\"|'([^']*)'|"
                       "&(?:quot|#34|#39|apos);(.*?)&(?:quot|#34|#39|apos);|([^\\s\"'()]+))"),
        QRegularExpression::CaseInsensitiveOption);
    QRegularExpressionMatchIterator it =
        regExpUrl.globalMatch(m_strHtml.midRef(nStart, nEnd - nStart));
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const int nGroup = match.lastCapturedIndex();
        moveAddress(nStart + match.capturedStart(nGroup), match.capturedLength(nGroup));
    }
}

void CMove::moveAttributes(const SHtmlToken &tag)
{
    const QVector<SHtmlAttribute> lstAttributes = htmlAttributes(m_strHtml, tag);
    const bool bCodeBase = findAttribute(lstAttributes, QLatin1String("codebase"));
    const SHtmlAttribute *pMeaning = findAttribute(lstAttributes, QLatin1String("http-equiv"));
    const bool bRefresh = tag.isStart(m_strHtml, QLatin1String("meta")) && pMeaning
        && m_strHtml.midRef(pMeaning->nValue, pMeaning->nLength)
                .compare(QLatin1String("refresh"), Qt::CaseInsensitive)
            == 0;
    for (const SHtmlAttribute &attribute : lstAttributes)
        if (holdsAddress(attribute.strName) && !(bCodeBase && leadsFromCodeBase(attribute.strName)))
            moveAddress(attribute.nValue, attribute.nLength);
        else if (holdsCandidates(attribute.strName))
            moveCandidates(attribute.nValue, attribute.nValue + attribute.nLength);
        else if (bRefresh && attribute.strName == QLatin1String("content"))
            moveRefresh(attribute.nValue, attribute.nLength);
        else if (attribute.strName == QLatin1String("style"))
            moveStyles(attribute.nValue, attribute.nValue + attribute.nLength);
}

QString CMove::run()
{
    CHtmlTokenizer tokenizer(m_strHtml);
    bool bStyle = false;
    while (tokenizer.next()) {
        const SHtmlToken &token = tokenizer.token();
        if (token.isStart(m_strHtml, QLatin1String("base"))
            && findAttribute(htmlAttributes(m_strHtml, token), QLatin1String("href")))
            return m_strHtml;
        if (token.kind == SHtmlToken::Kind::StartTag)
            moveAttributes(token);
        else if (bStyle && token.kind == SHtmlToken::Kind::RawText)
            moveStyles(token.nStart, token.nEnd);
        bStyle = token.isStart(m_strHtml, QLatin1String("style"));
    }
    return m_strResult + m_strHtml.midRef(m_nCopied);
}

} // namespace

QString withMovedAddresses(const QString &strHtml, const QUrl &urlFrom, const QUrl &urlTo)
{
    if (!urlFrom.isLocalFile() || !urlTo.isLocalFile())
        return strHtml;
    const QString strFrom = QFileInfo(urlFrom.toLocalFile()).absolutePath();
    const QString strTo = QFileInfo(urlTo.toLocalFile()).absolutePath();
    if (strFrom == strTo)
        return strHtml;
    QString strWay = QDir(strTo).relativeFilePath(strFrom);
    if (strWay.endsWith(QLatin1Char('/')))
        strWay.chop(1);
    const QString strPrefix = QDir::isRelativePath(strWay)
        ? QString::fromLatin1(QUrl::toPercentEncoding(strWay, "/"))
        // The file is on another drive.
        : QUrl::fromLocalFile(strFrom).toString(QUrl::FullyEncoded);
    return CMove(strHtml, strPrefix + QLatin1Char('/')).run();
}
