// Checks how elements are nested.
#include "web/chazardscan.h"

#include "web/chtmltokenizer.h"

#include <QRegularExpression>
#include <QSet>

namespace {

// The remark beside each limit tells what the engine took: milliseconds of processor time at that
// number.
constexpr int g_nMaxNesting = 4000; // 90 at 3,000; 1,969 at 10,000.
constexpr int g_nMaxXmlNesting = 500; // The stack ends at 3,000; as HTML, 512 count.
constexpr int g_nMaxFlexBoxes = 16; // 260 at 16; 1,086 at 18; each doubles it.
constexpr int g_nMaxColumns = 6; // 418 at 6; 1,775 at 8.
constexpr int g_nMaxReflections = 12; // 36 at 10; 169 at 15; over 3,000 at 20.
constexpr int g_nMaxAttributes = 20000; // 183 at 20,000; over 3,000 at 100,000.
constexpr qint64 g_nMaxUses = 100000; // 154 at 11,111; 1,310 at 111,111.
constexpr int g_nMaxMasked = 1; // Within a mask: two in each other end the program.

// Elements that need no end tag. A page may have thousands of them, none inside another.
bool endsByItself(const QString &strName)
{
    static const QSet<QString> s_setNames = {
        QStringLiteral("p"),     QStringLiteral("li"),     QStringLiteral("dt"),
        QStringLiteral("dd"),    QStringLiteral("td"),     QStringLiteral("th"),
        QStringLiteral("tr"),    QStringLiteral("thead"),  QStringLiteral("tbody"),
        QStringLiteral("tfoot"), QStringLiteral("option"), QStringLiteral("optgroup"),
        QStringLiteral("rp"),    QStringLiteral("rt"),     QStringLiteral("colgroup"),
        QStringLiteral("html"),  QStringLiteral("head"),   QStringLiteral("body")};
    return s_setNames.contains(strName);
}

QRegularExpression anyCase(const char *szPattern)
{
    return QRegularExpression(QLatin1String(szPattern), QRegularExpression::CaseInsensitiveOption);
}

bool matches(const QString &strStyle, const QRegularExpression &regExp)
{
    return !strStyle.isEmpty() && regExp.match(strStyle).hasMatch();
}

} // namespace

CHazardScan::CHazardScan(const QString &strHtml, bool bXml)
    : m_strHtml(strHtml), m_nMaxNesting(bXml ? g_nMaxXmlNesting : g_nMaxNesting)
{
}

void CHazardScan::limit(qint64 nCount, qint64 nMost, EPageHazard hazard)
{
    if (nCount > nMost && m_found == EPageHazard::None)
        m_found = hazard;
}

QString CHazardScan::value(const QVector<SHtmlAttribute> &lstAttributes, const char *szName) const
{
    const SHtmlAttribute *pAttribute = findAttribute(lstAttributes, QLatin1String(szName));
    return pAttribute ? m_strHtml.mid(pAttribute->nValue, pAttribute->nLength) : QString();
}

void CHazardScan::start(const SHtmlToken &tag)
{
    const QVector<SHtmlAttribute> lstAttributes = htmlAttributes(m_strHtml, tag);
    const QString strName = tag.name(m_strHtml);
    limit(lstAttributes.size(), g_nMaxAttributes, EPageHazard::Attributes);
    countField(strName);
    followEffects(strName, lstAttributes);
    if (strName == QLatin1String("td") || strName == QLatin1String("th"))
        countSpans(lstAttributes);
    const bool bDrawing = m_hashOpen.value(QStringLiteral("svg")) > 0;
    SOpen open;
    open.strName = strName;
    open.bPart = bDrawing && !value(lstAttributes, "id").isEmpty();
    open.bMasked = m_hashOpen.value(QStringLiteral("mask")) > 0
        && findAttribute(lstAttributes, QLatin1String("mask"));
    limit(m_nMasked + open.bMasked, g_nMaxMasked, EPageHazard::Uses);
    if (open.bPart)
        m_uses.begin(value(lstAttributes, "id"));
    if (bDrawing)
        followUses(strName, lstAttributes);
    const bool bClosed = tag.bSelfClosing && bDrawing;
    if (bClosed || endsByItself(strName) || voidElements().contains(strName)) {
        if (open.bPart)
            m_uses.end();
        return;
    }
    const QString strStyle = value(lstAttributes, "style");
    static const QRegularExpression s_regExpFlexBox =
        anyCase("display\\s*:\\s*(-webkit-)?(inline-)?(flex|box)");
    static const QRegularExpression s_regExpColumns =
        anyCase("\\b(columns|column-count|column-width)\\s*:");
    static const QRegularExpression s_regExpReflection = anyCase("box-reflect\\s*:");
    open.bFlexBox = matches(strStyle, s_regExpFlexBox);
    open.bColumns = matches(strStyle, s_regExpColumns);
    open.bReflection = matches(strStyle, s_regExpReflection);
    enter(open);
}

void CHazardScan::enter(const SOpen &open)
{
    limit(m_nFlexBoxes += open.bFlexBox, g_nMaxFlexBoxes, EPageHazard::FlexBoxes);
    limit(m_nColumns += open.bColumns, g_nMaxColumns, EPageHazard::Columns);
    limit(m_nReflections += open.bReflection, g_nMaxReflections, EPageHazard::Reflections);
    m_nMasked += open.bMasked;
    m_lstOpen.append(open);
    ++m_hashOpen[open.strName];
    limit(m_lstOpen.size(), m_nMaxNesting, EPageHazard::Nesting);
    if (open.strName == QLatin1String("pre"))
        m_nLines = 0;
}

void CHazardScan::closeLast()
{
    const SOpen open = m_lstOpen.takeLast();
    --m_hashOpen[open.strName];
    m_nFlexBoxes -= open.bFlexBox;
    m_nColumns -= open.bColumns;
    m_nReflections -= open.bReflection;
    m_nMasked -= open.bMasked;
    if (open.bPart)
        m_uses.end();
}

// Also ends the elements that are still open inside it.
void CHazardScan::end(const QString &strName)
{
    if (m_hashOpen.value(strName) == 0)
        return;
    while (m_lstOpen.constLast().strName != strName)
        closeLast();
    closeLast();
}

EPageHazard CHazardScan::run()
{
    CHtmlTokenizer tokenizer(m_strHtml);
    while (m_found == EPageHazard::None && tokenizer.next()) {
        const SHtmlToken &token = tokenizer.token();
        if (token.kind == SHtmlToken::Kind::StartTag)
            start(token);
        else if (token.kind == SHtmlToken::Kind::EndTag)
            end(token.name(m_strHtml));
        else if (token.kind == SHtmlToken::Kind::Text)
            lookAtText(token);
    }
    limit(m_uses.count(), g_nMaxUses, EPageHazard::Uses);
    return m_found;
}
