// Checks what a single tag or text demands of the engine.
#include "web/chazardscan.h"

#include <QRegularExpression>

namespace {

// The remark beside each limit tells what the engine took: milliseconds of processor time at that
// number.
constexpr int g_nMaxShadows = 10000; // Pixels of blur: 519 at 5,000; over 3,000 at 50,000.
constexpr int g_nMaxOctaves = 60; // Octaves of noise: over 3,000 at 495.
constexpr int g_nMaxWord = 1000000; // Characters without a blank: 700 ms.
constexpr int g_nMaxMarks = 40000; // Marks after one letter: 1,046 at 50,000.
constexpr int g_nMaxLines = 100000; // Lines of one preformatted text: 1,867.
constexpr int g_nMaxFields = 20000; // Options, of which a field counts as two: 1,400 and 900.
// Cells that span many rows, times these rows: 110 at 900,000; over 3,000 at 9,000,000.
constexpr qint64 g_nMaxSpans = 2000000;
constexpr int g_nManyRows = 100;

bool isField(const QString &strName)
{
    return strName == QLatin1String("input") || strName == QLatin1String("option")
        || strName == QLatin1String("button") || strName == QLatin1String("select")
        || strName == QLatin1String("textarea");
}

// The sum of the blurs of all its text shadows.
int blurOf(const QString &strStyle)
{
    static const QRegularExpression s_regExpShadows(QStringLiteral("text-shadow\\s*:([^;]*)"),
                                                    QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression s_regExpBlur(
        QStringLiteral("-?[\\d.]+(?:px)?\\s+-?[\\d.]+(?:px)?\\s+([\\d.]+)"));
    double dBlur = 0;
    QRegularExpressionMatchIterator it =
        s_regExpBlur.globalMatch(s_regExpShadows.match(strStyle).captured(1));
    while (it.hasNext())
        dBlur += it.next().captured(1).toDouble();
    return int(qMin(dBlur, 1e9));
}

} // namespace

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
