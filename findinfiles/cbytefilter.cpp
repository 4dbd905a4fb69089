#include "findinfiles/cbytefilter.h"

#include <algorithm>
#include <cstring>

namespace {

bool isAsciiText(const QString &strText)
{
    return std::all_of(strText.cbegin(), strText.cend(),
                       [](QChar c) { return c.unicode() < 0x80; });
}

bool containsBytes(const char *pData, int nLength, const QByteArray &needle)
{
    const char *const pEnd = pData + nLength;
    const char cFirst = needle.at(0);
    const auto nNeedle = size_t(needle.size());
    while (size_t(pEnd - pData) >= nNeedle) {
        const void *pFound = std::memchr(pData, cFirst, size_t(pEnd - pData) - nNeedle + 1);
        if (!pFound)
            return false;
        pData = static_cast<const char *>(pFound);
        if (std::memcmp(pData, needle.constData(), nNeedle) == 0)
            return true;
        ++pData;
    }
    return false;
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c;
}

// In pieces that overlap, so that no copy of a large file is made.
bool containsIgnoringCase(const QByteArray &data, const QByteArray &needle)
{
    char arrPiece[16 * 1024];
    const int nOverlap = needle.size() - 1;
    const int nPiece = int(sizeof arrPiece);
    if (needle.size() > nPiece / 2)
        return true;
    for (int nFrom = 0; nFrom < data.size(); nFrom += nPiece - nOverlap) {
        const int nLength = std::min(nPiece, data.size() - nFrom);
        std::transform(data.constData() + nFrom, data.constData() + nFrom + nLength, arrPiece,
                       lower);
        if (containsBytes(arrPiece, nLength, needle))
            return true;
    }
    return false;
}

// True for a sign that lets what stands before it be absent.
bool mayBeAbsent(QChar quantifier)
{
    return quantifier == QLatin1Char('*') || quantifier == QLatin1Char('?')
        || quantifier == QLatin1Char('{');
}

} // namespace

bool isAsciiData(const QByteArray &data)
{
    unsigned char nBits = 0;
    for (const char c : data)
        nBits |= static_cast<unsigned char>(c);
    return nBits < 0x80;
}

QString requiredText(const QString &strExpression)
{
    // Choices may leave out anything.
    if (strExpression.contains(QLatin1Char('|')) || strExpression.contains(QLatin1Char('(')))
        return QString();
    static const QString s_strSpecial = QStringLiteral(".^$*+?]}");
    QString strLongest;
    QString strRun;
    for (int n = 0; n < strExpression.length(); ++n) {
        QChar c = strExpression.at(n);
        if (c == QLatin1Char('[') || c == QLatin1Char('{'))
            break; // What follows is not looked at.
        bool bLiteral = !s_strSpecial.contains(c);
        if (c == QLatin1Char('\\')) {
            c = ++n < strExpression.length() ? strExpression.at(n) : QChar();
            bLiteral = c.isPunct() || c.isSymbol(); // Else a class, a code, a reference.
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

CByteFilter::CByteFilter(const QString &strText, const SearchOptions &options)
    : m_bIgnoreCase(!options.bMatchCase)
{
    const QString strNeedle = options.bRegExp ? requiredText(strText) : strText;
    if (!strNeedle.isValidUtf16() || (m_bIgnoreCase && !isAsciiText(strNeedle)))
        return;
    m_needle = strNeedle.toUtf8();
    if (!m_bIgnoreCase)
        return;
    std::transform(m_needle.begin(), m_needle.end(), m_needle.begin(), lower);
    m_bAsciiOnly = options.bRegExp;
    m_bFolded = m_needle.contains('k') || m_needle.contains('s');
}

bool CByteFilter::mayMatch(const QByteArray &data, bool bAscii) const
{
    if (!isUseful() || (m_bAsciiOnly && !bAscii))
        return true;
    if (!m_bIgnoreCase)
        return containsBytes(data.constData(), data.size(), m_needle);
    // The signs for Kelvin and the long s are a k and an s.
    if (m_bFolded && !bAscii && (data.contains("\xe2\x84\xaa") || data.contains("\xc5\xbf")))
        return true;
    return containsIgnoringCase(data, m_needle);
}
