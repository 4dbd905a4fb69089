#include "web/cescapedreader.h"

#include <QHash>

namespace {

constexpr int g_nLongestName = 8;
constexpr int g_nLongestEscape = 6;

// The names of character references in HTML that can occur in an address of this kind.
QChar named(const QString &strName)
{
    static const QHash<QString, QChar> hashNames = {
        {QStringLiteral("Tab"), '\t'},   {QStringLiteral("NewLine"), '\n'},
        {QStringLiteral("colon"), ':'},  {QStringLiteral("comma"), ','},
        {QStringLiteral("semi"), ';'},   {QStringLiteral("sol"), '/'},
        {QStringLiteral("plus"), '+'},   {QStringLiteral("equals"), '='},
        {QStringLiteral("percnt"), '%'}, {QStringLiteral("bsol"), '\\'},
        {QStringLiteral("lt"), '<'},     {QStringLiteral("gt"), '>'},
        {QStringLiteral("quot"), '"'},   {QStringLiteral("amp"), '&'},
        {QStringLiteral("apos"), '\''},  {QStringLiteral("num"), '#'}};
    return hashNames.value(strName);
}

// The value of a digit; -1 if it is none.
int digit(QChar c, int nBase)
{
    const ushort n = c.unicode();
    if (n >= '0' && n <= '9')
        return n - '0';
    const int nLetter = (n | 0x20) - 'a';
    return nBase == 16 && n < 0x80 && nLetter >= 0 && nLetter < 6 ? nLetter + 10 : -1;
}

// Browsers drop these characters from addresses.
bool isStrewn(QChar c)
{
    return c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

} // namespace

QChar CEscapedReader::next()
{
    while (m_nPos < m_strText.size()) {
        QChar c = m_strText.at(m_nPos);
        if (c == QLatin1Char('&'))
            c = readReference();
        else
            ++m_nPos;
        if (c == QLatin1Char('\\'))
            c = readEscape();
        if (c == QLatin1Char('\x1b')) // Shifts between character sets in some encodings.
            m_nPos += 2;
        else if (!c.isNull() && !isStrewn(c))
            return c;
    }
    return QChar();
}

// Reads what follows the "&"; gives the "&" itself if that is no reference.
QChar CEscapedReader::readReference()
{
    const int nStart = m_nPos++;
    if (m_strText.midRef(m_nPos, 1) == QLatin1String("#")) {
        const bool bHex =
            m_strText.midRef(m_nPos + 1, 1).compare(QLatin1String("x"), Qt::CaseInsensitive) == 0;
        return readNumber(nStart + (bHex ? 3 : 2), bHex ? 16 : 10);
    }
    const int nEnd = m_strText.midRef(m_nPos, g_nLongestName + 1).indexOf(QLatin1Char(';'));
    const QChar c = nEnd < 0 ? QChar() : named(m_strText.mid(m_nPos, nEnd));
    if (c.isNull())
        return QLatin1Char('&');
    m_nPos += nEnd + 1;
    return c;
}

// Reads the number of a character; the ";" may be missing.
QChar CEscapedReader::readNumber(int nPos, int nBase)
{
    uint nNumber = 0;
    const int nStart = nPos;
    while (nPos < m_strText.size()) {
        const int nDigit = digit(m_strText.at(nPos), nBase);
        if (nDigit < 0)
            break;
        nNumber = qMin(nNumber * uint(nBase) + uint(nDigit), 0xffffU);
        ++nPos;
    }
    if (nPos == nStart)
        return QLatin1Char('&');
    if (nPos < m_strText.size() && m_strText.at(nPos) == QLatin1Char(';'))
        ++nPos;
    m_nPos = nPos;
    return QChar(nNumber);
}

// Reads what follows the "\" of a style sheet; null for a line end, which joins lines.
QChar CEscapedReader::readEscape()
{
    uint nNumber = 0;
    int nDigits = 0;
    while (nDigits < g_nLongestEscape && m_nPos < m_strText.size()) {
        const int nDigit = digit(m_strText.at(m_nPos), 16);
        if (nDigit < 0)
            break;
        nNumber = nNumber * 16 + uint(nDigit);
        ++nDigits;
        ++m_nPos;
    }
    if (m_nPos >= m_strText.size())
        return QChar();
    const QChar c = m_strText.at(m_nPos);
    if (nDigits == 0) {
        ++m_nPos;
        return c;
    }
    if (c.isSpace()) // Ends the number.
        ++m_nPos;
    return QChar(qMin(nNumber, 0xffffU));
}
