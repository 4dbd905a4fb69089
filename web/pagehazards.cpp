#include "web/pagehazards.h"

#include "web/cdrawinguses.h"
#include "web/chtmltokenizer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

class CPageHazards
{
    Q_DECLARE_TR_FUNCTIONS(CPageHazards)
};

// Beside each, what the engine took: milliseconds of the processor at so many.
constexpr int g_nMaxNesting = 4000; // 90 at 3,000; 1,969 at 10,000.
constexpr int g_nMaxXmlNesting = 500; // The stack ends at 3,000; as HTML, 512 count.
constexpr int g_nMaxFlexBoxes = 16; // 260 at 16; 1,086 at 18; each doubles it.
constexpr int g_nMaxColumns = 6; // 418 at 6; 1,775 at 8.
constexpr int g_nMaxReflections = 12; // 36 at 10; 169 at 15; over 3,000 at 20.
constexpr int g_nMaxAttributes = 20000; // 183 at 20,000; over 3,000 at 100,000.
constexpr qint64 g_nMaxUses = 100000; // 154 at 11,111; 1,310 at 111,111.
constexpr int g_nMaxMasked = 1; // Within a mask: two in each other end the program.
constexpr int g_nMaxShadows = 10000; // Pixels of blur: 519 at 5,000; over 3,000 at 50,000.
constexpr int g_nMaxOctaves = 60; // Of noise: over 3,000 at 495.
constexpr int g_nMaxWord = 1000000; // Characters without a blank: 700.
constexpr int g_nMaxMarks = 40000; // Behind one letter: 1,046 at 50,000.
constexpr int g_nMaxLines = 100000; // Of one preformatted text: 1,867.
constexpr int g_nMaxFields = 20000; // Options, of which a field counts as two: 1,400 and 900.
// Cells that span many rows, times these rows: 110 at 900,000; over 3,000 at 9,000,000.
constexpr qint64 g_nMaxSpans = 2000000;
constexpr int g_nManyRows = 100;

// Elements that end without a tag: a page may have thousands of them, none within another.
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

bool isField(const QString &strName)
{
    return strName == QLatin1String("input") || strName == QLatin1String("option")
        || strName == QLatin1String("button") || strName == QLatin1String("select")
        || strName == QLatin1String("textarea");
}

QRegularExpression anyCase(const char *szPattern)
{
    return QRegularExpression(QLatin1String(szPattern), QRegularExpression::CaseInsensitiveOption);
}

bool matches(const QString &strStyle, const QRegularExpression &regExp)
{
    return !strStyle.isEmpty() && regExp.match(strStyle).hasMatch();
}

// All that the shadows of its text are blurred by.
int blurOf(const QString &strStyle)
{
    static const QRegularExpression s_regExpShadows = anyCase("text-shadow\\s*:([^;]*)");
    static const QRegularExpression s_regExpBlur(
        QStringLiteral("-?[\\d.]+(?:px)?\\s+-?[\\d.]+(?:px)?\\s+([\\d.]+)"));
    double dBlur = 0;
    QRegularExpressionMatchIterator it =
        s_regExpBlur.globalMatch(s_regExpShadows.match(strStyle).captured(1));
    while (it.hasNext())
        dBlur += it.next().captured(1).toDouble();
    return int(qMin(dBlur, 1e9));
}

class CHazardScan
{
public:
    CHazardScan(const QString &strHtml, bool bXml)
        : m_strHtml(strHtml), m_nMaxNesting(bXml ? g_nMaxXmlNesting : g_nMaxNesting)
    {
    }
    EPageHazard run();

private:
    struct SOpen
    {
        QString strName;
        bool bFlexBox = false;
        bool bColumns = false;
        bool bReflection = false;
        bool bPart = false; // Of a drawing, with a name.
        bool bMasked = false; // Within a mask.
    };

    void start(const SHtmlToken &tag);
    void enter(const SOpen &open);
    void end(const QString &strName);
    void closeLast();
    void countField(const QString &strName);
    void countSpans(const QVector<SHtmlAttribute> &lstAttributes);
    void followUses(const QString &strName, const QVector<SHtmlAttribute> &lstAttributes);
    void followEffects(const QString &strName, const QVector<SHtmlAttribute> &lstAttributes);
    void lookAtText(const SHtmlToken &text);
    QString value(const QVector<SHtmlAttribute> &lstAttributes, const char *szName) const;
    void limit(qint64 nCount, qint64 nMost, EPageHazard hazard);

    const QString &m_strHtml;
    const int m_nMaxNesting;
    EPageHazard m_found = EPageHazard::None;
    QVector<SOpen> m_lstOpen;
    QHash<QString, int> m_hashOpen; // How many of each name are open.
    int m_nFlexBoxes = 0; // Open, all of these.
    int m_nColumns = 0;
    int m_nReflections = 0;
    int m_nMasked = 0;
    int m_nFields = 0;
    int m_nOctaves = 0;
    qint64 m_nTallCells = 0;
    qint64 m_nSpannedRows = 0;
    int m_nLines = 0; // Of the preformatted text.
    CDrawingUses m_uses;
};

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

void CHazardScan::countField(const QString &strName)
{
    if (isField(strName))
        m_nFields += strName == QLatin1String("option") ? 1 : 2;
    limit(m_nFields, g_nMaxFields, EPageHazard::Fields);
}

void CHazardScan::countSpans(const QVector<SHtmlAttribute> &lstAttributes)
{
    const int nRows = qMin(value(lstAttributes, "rowspan").toInt(), 65534);
    if (nRows < g_nManyRows)
        return;
    ++m_nTallCells;
    m_nSpannedRows += nRows;
    limit(m_nTallCells * m_nSpannedRows, g_nMaxSpans, EPageHazard::Spans);
}

void CHazardScan::followUses(const QString &strName, const QVector<SHtmlAttribute> &lstAttributes)
{
    static const QRegularExpression s_regExpUrl(QStringLiteral("url\\(\\s*['\"]?#([^)'\"]+)"));
    for (const SHtmlAttribute &attribute : lstAttributes) {
        const QString strValue = m_strHtml.mid(attribute.nValue, attribute.nLength);
        QRegularExpressionMatchIterator it = s_regExpUrl.globalMatch(strValue);
        while (it.hasNext())
            m_uses.use(it.next().captured(1));
        const bool bAddress = attribute.strName == QLatin1String("href")
            || attribute.strName == QLatin1String("xlink:href");
        if (bAddress && strName == QLatin1String("use") && strValue.startsWith(QLatin1Char('#')))
            m_uses.use(strValue.mid(1));
    }
}

void CHazardScan::followEffects(const QString &strName,
                                const QVector<SHtmlAttribute> &lstAttributes)
{
    if (strName == QLatin1String("feturbulence"))
        m_nOctaves += qBound(1, value(lstAttributes, "numoctaves").toInt(), 1000);
    limit(m_nOctaves, g_nMaxOctaves, EPageHazard::Effects);
    limit(blurOf(value(lstAttributes, "style")), g_nMaxShadows, EPageHazard::Effects);
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

// With all that is still open within it.
void CHazardScan::end(const QString &strName)
{
    if (m_hashOpen.value(strName) == 0)
        return;
    while (m_lstOpen.constLast().strName != strName)
        closeLast();
    closeLast();
}

void CHazardScan::lookAtText(const SHtmlToken &text)
{
    const bool bPreformatted = m_hashOpen.value(QStringLiteral("pre")) > 0;
    int nWord = 0;
    int nMarks = 0;
    for (int n = text.nStart; n < text.nEnd; ++n) {
        const QChar c = m_strHtml.at(n);
        const bool bBlank = isHtmlSpace(c);
        nWord = bBlank ? 0 : nWord + 1;
        nMarks = c.isMark() ? nMarks + 1 : 0;
        m_nLines += bPreformatted && c == QLatin1Char('\n');
        limit(nWord, g_nMaxWord, EPageHazard::LongText);
        limit(nMarks, g_nMaxMarks, EPageHazard::LongText);
    }
    limit(m_nLines, g_nMaxLines, EPageHazard::LongText);
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

} // namespace

EPageHazard pageHazard(const QString &strHtml, bool bXml)
{
    return CHazardScan(strHtml, bXml).run();
}

EPageHazard pageHazardOfFile(const QString &strPath, const QString &strText)
{
    const QString strSuffix = QFileInfo(strPath).suffix().toLower();
    if (strSuffix == QLatin1String("html") || strSuffix == QLatin1String("htm"))
        return pageHazard(strText);
    static const QSet<QString> s_setXml = {QStringLiteral("xhtml"), QStringLiteral("xht"),
                                           QStringLiteral("xml"), QStringLiteral("svg")};
    return s_setXml.contains(strSuffix) ? pageHazard(strText, true) : EPageHazard::None;
}

QString pageHazardReason(EPageHazard hazard)
{
    switch (hazard) {
    case EPageHazard::None:
        return QString();
    case EPageHazard::Nesting:
        return CPageHazards::tr("its elements lie too deep within each other");
    case EPageHazard::FlexBoxes:
        return CPageHazards::tr("its flexible boxes lie too deep within each other");
    case EPageHazard::Columns:
        return CPageHazards::tr("its columns lie too deep within each other");
    case EPageHazard::Reflections:
        return CPageHazards::tr("its reflections lie too deep within each other");
    case EPageHazard::Attributes:
        return CPageHazards::tr("one of its elements has too many attributes");
    case EPageHazard::Uses:
        return CPageHazards::tr("the parts of a drawing in it use each other too often");
    case EPageHazard::Effects:
        return CPageHazards::tr("its effects take too long to be drawn");
    case EPageHazard::LongText:
        return CPageHazards::tr("it has a text that is too long to be laid out");
    case EPageHazard::Fields:
        return CPageHazards::tr("it has too many form fields");
    case EPageHazard::Spans:
        return CPageHazards::tr("its table cells span too many others");
    }
    return QString();
}
