#include "web/chtmlscanner.h"

#include <QStringList>

#include <algorithm>

namespace {

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n')
        || c == QLatin1Char('\r') || c == QLatin1Char('\f');
}

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

// Elements whose content holds no tags but their own end tag.
bool isRawText(const QString &strName)
{
    static const QStringList lstNames = {
        QStringLiteral("script"),   QStringLiteral("style"),    QStringLiteral("title"),
        QStringLiteral("textarea"), QStringLiteral("xmp"),      QStringLiteral("iframe"),
        QStringLiteral("noembed"),  QStringLiteral("noframes"), QStringLiteral("plaintext")};
    return lstNames.contains(strName);
}

// Position behind strWhat, or the end of the text.
int behind(const QString &strText, const QString &strWhat, int nFrom)
{
    const int nFound = strText.indexOf(strWhat, nFrom);
    return nFound < 0 ? strText.size() : nFound + strWhat.size();
}

template<typename Predicate> int skipWhile(const QString &strText, int nPos, Predicate predicate)
{
    while (nPos < strText.size() && predicate(strText.at(nPos)))
        ++nPos;
    return nPos;
}

} // namespace

const SHtmlAttribute *SHtmlTag::attribute(const QString &strName) const
{
    const auto it = std::find_if(m_lstAttributes.cbegin(), m_lstAttributes.cend(),
                                 [&](const SHtmlAttribute &a) { return a.m_strName == strName; });
    return it == m_lstAttributes.cend() ? nullptr : &*it;
}

CHtmlScanner::CHtmlScanner(const QString &strHtml) : m_strHtml(strHtml) { }

bool CHtmlScanner::next()
{
    if (isRawText(m_tag.m_strName))
        m_nPos = rawTextEnd(m_nPos);
    while ((m_nPos = m_strHtml.indexOf(QLatin1Char('<'), m_nPos)) >= 0) {
        const bool bEndTag = m_strHtml.midRef(m_nPos + 1, 1) == QLatin1String("/");
        const int nName = m_nPos + (bEndTag ? 2 : 1);
        if (nName >= m_strHtml.size() || !isLetter(m_strHtml.at(nName))) {
            m_nPos = skipMarkup(m_nPos);
            continue;
        }
        const int nNameEnd = skipWhile(m_strHtml, nName, [](QChar c) {
            return !isSpace(c) && c != QLatin1Char('/') && c != QLatin1Char('>');
        });
        const int nStart = bEndTag ? nName - 1 : nName; // The slash belongs to the name.
        m_tag.m_strName = m_strHtml.mid(nStart, nNameEnd - nStart).toLower();
        m_tag.m_nStart = m_nPos;
        m_tag.m_nEnd = m_nPos = readAttributes(nNameEnd);
        return true;
    }
    m_nPos = m_strHtml.size();
    return false;
}

// Behind a comment, doctype or processing instruction; behind the "<" when it is only that.
int CHtmlScanner::skipMarkup(int nPos) const
{
    if (m_strHtml.midRef(nPos, 4) == QLatin1String("<!--")) {
        if (m_strHtml.midRef(nPos + 4, 1) == QLatin1String(">"))
            return nPos + 5;
        if (m_strHtml.midRef(nPos + 4, 2) == QLatin1String("->"))
            return nPos + 6;
        return behind(m_strHtml, QStringLiteral("-->"), nPos + 4);
    }
    const QChar c = nPos + 1 < m_strHtml.size() ? m_strHtml.at(nPos + 1) : QChar();
    if (c == QLatin1Char('!') || c == QLatin1Char('?') || c == QLatin1Char('/'))
        return behind(m_strHtml, QStringLiteral(">"), nPos + 1);
    return nPos + 1;
}

// From behind the name to behind the ">".
int CHtmlScanner::readAttributes(int nPos)
{
    m_tag.m_lstAttributes.clear();
    const int nSize = m_strHtml.size();
    for (;;) {
        nPos =
            skipWhile(m_strHtml, nPos, [](QChar c) { return isSpace(c) || c == QLatin1Char('/'); });
        if (nPos >= nSize)
            return nSize;
        if (m_strHtml.at(nPos) == QLatin1Char('>'))
            return nPos + 1;

        SHtmlAttribute attribute;
        const int nName = nPos++;
        nPos = skipWhile(m_strHtml, nPos, [](QChar c) {
            return !isSpace(c) && c != QLatin1Char('/') && c != QLatin1Char('>')
                && c != QLatin1Char('=');
        });
        attribute.m_strName = m_strHtml.mid(nName, nPos - nName).toLower();
        attribute.m_nValue = nPos;
        const int nEquals = skipWhile(m_strHtml, nPos, isSpace);
        if (nEquals < nSize && m_strHtml.at(nEquals) == QLatin1Char('=')) {
            nPos = skipWhile(m_strHtml, nEquals + 1, isSpace);
            const QChar cQuote = nPos < nSize ? m_strHtml.at(nPos) : QChar();
            if (cQuote == QLatin1Char('"') || cQuote == QLatin1Char('\'')) {
                attribute.m_nValue = nPos + 1;
                nPos = behind(m_strHtml, cQuote, nPos + 1);
                attribute.m_nLength = qMax(0, nPos - 1 - attribute.m_nValue);
            } else {
                attribute.m_nValue = nPos;
                nPos = skipWhile(m_strHtml, nPos,
                                 [](QChar c) { return !isSpace(c) && c != QLatin1Char('>'); });
                attribute.m_nLength = nPos - attribute.m_nValue;
            }
        }
        m_tag.m_lstAttributes.append(attribute);
    }
}

// Position of the end tag of the raw-text element whose start tag was read last.
int CHtmlScanner::rawTextEnd(int nPos) const
{
    if (m_tag.m_strName == QLatin1String("plaintext"))
        return m_strHtml.size();
    const QString strEnd = QStringLiteral("</") + m_tag.m_strName;
    while ((nPos = m_strHtml.indexOf(strEnd, nPos, Qt::CaseInsensitive)) >= 0) {
        const int nBehind = nPos + strEnd.size();
        if (nBehind >= m_strHtml.size())
            break;
        const QChar c = m_strHtml.at(nBehind);
        if (isSpace(c) || c == QLatin1Char('/') || c == QLatin1Char('>'))
            return nPos;
        nPos = nBehind;
    }
    return m_strHtml.size();
}
