#include "findinfiles/cbytefilter.h"

#include <algorithm>

namespace {

bool isAsciiText(const QString &strText)
{
    return std::all_of(
        strText.cbegin(), strText.cend(), [](QChar c) { return c.unicode() < 0x80; });
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c;
}

// Searches overlapping pieces, so that no copy of a large file is made.
bool containsIgnoringCase(const QByteArray &data, const QByteArrayMatcher &matcher)
{
    char arrPiece[16 * 1024];
    const int nPiece = int(sizeof arrPiece);
    const int nOverlap = matcher.pattern().size() - 1;
    if (nOverlap > nPiece / 2)
        return true;
    for (int nFrom = 0; nFrom < data.size(); nFrom += nPiece - nOverlap) {
        const int nLength = std::min(nPiece, data.size() - nFrom);
        std::transform(data.constData() + nFrom, data.constData() + nFrom + nLength, arrPiece,
                       lower);
        if (matcher.indexIn(arrPiece, nLength) >= 0)
            return true;
    }
    return false;
}

// True for a sign that makes the item before it optional.
bool mayBeAbsent(QChar quantifier)
{
    return quantifier == QLatin1Char('*') || quantifier == QLatin1Char('?')
        || quantifier == QLatin1Char('{');
}

} // namespace

QString requiredText(const QString &strExpression)
{
    // With alternatives any part may be absent.
    if (strExpression.contains(QLatin1Char('|')) || strExpression.contains(QLatin1Char('(')))
        return QString();
    static const QString s_strSpecial = QStringLiteral(".^$*+?]}");
    QString strLongest;
    QString strRun;
    for (int n = 0; n < strExpression.length(); ++n) {
        QChar c = strExpression.at(n);
        if (c == QLatin1Char('[') || c == QLatin1Char('{'))
            break; // Ignores the rest.
        bool bLiteral = !s_strSpecial.contains(c);
        if (c == QLatin1Char('\\')) {
            c = ++n < strExpression.length() ? strExpression.at(n) : QChar();
            // Otherwise it is a class, a code or a reference.
            bLiteral = c.isPunct() || c.isSymbol();
            if (!bLiteral)
                break;
        }
        const QChar next = n + 1 < strExpression.length() ? strExpression.at(n + 1) : QChar();
        const bool bRequired = bLiteral && !mayBeAbsent(next);
        if (bRequired)
            strRun += c;
        if (strRun.length() > strLongest.length())
            strLongest = strRun;
        if (!bRequired || next == QLatin1Char('+'))
            strRun.clear();
    }
    return strLongest;
}

CByteFilter::CByteFilter(const QString &strText, const SSearchOptions &options)
    : m_bIgnoreCase(!options.bMatchCase)
{
    const QString strNeedle = options.bRegExp ? requiredText(strText) : strText;
    if (!strNeedle.isValidUtf16() || (m_bIgnoreCase && !isAsciiText(strNeedle)))
        return;
    QByteArray needle = strNeedle.toUtf8();
    if (m_bIgnoreCase)
        std::transform(needle.begin(), needle.end(), needle.begin(), lower);
    m_matcher.setPattern(needle);
    m_bAsciiOnly = m_bIgnoreCase && options.bRegExp;
    m_bFolded = m_bIgnoreCase && (needle.contains('k') || needle.contains('s'));
}

bool CByteFilter::mayMatch(const QByteArray &data, bool bAscii) const
{
    if (!isUseful() || (m_bAsciiOnly && !bAscii))
        return true;
    if (!m_bIgnoreCase)
        return m_matcher.indexIn(data) >= 0;
    // Without case the Kelvin sign equals "k", and the long s equals "s".
    if (m_bFolded && !bAscii && (data.contains("\xe2\x84\xaa") || data.contains("\xc5\xbf")))
        return true;
    return containsIgnoringCase(data, m_matcher);
}
