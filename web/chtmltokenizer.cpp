#include "web/chtmltokenizer.h"

#include <QSet>

namespace {

const int g_nShortestFollowed = 3; // "svg", "xmp".

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

bool isEscapableElement(const QString &strName)
{
    return strName == QLatin1String("title") || strName == QLatin1String("textarea");
}

bool isRawElement(const QString &strName)
{
    static const QSet<QString> setNames = {QStringLiteral("script"),   QStringLiteral("style"),
                                           QStringLiteral("xmp"),      QStringLiteral("iframe"),
                                           QStringLiteral("noembed"),  QStringLiteral("noframes"),
                                           QStringLiteral("plaintext")};
    return setNames.contains(strName);
}

bool isForeignRoot(const QString &strName)
{
    return strName == QLatin1String("svg") || strName == QLatin1String("math");
}

// Elements of SVG and MathML that hold HTML.
bool isIntegrationPoint(const QString &strName)
{
    static const QSet<QString> setNames = {QStringLiteral("foreignobject"),
                                           QStringLiteral("desc"),
                                           QStringLiteral("title"),
                                           QStringLiteral("mi"),
                                           QStringLiteral("mo"),
                                           QStringLiteral("mn"),
                                           QStringLiteral("ms"),
                                           QStringLiteral("mtext")};
    return setNames.contains(strName);
}

// Elements that end SVG and MathML wherever they appear in them.
bool isBreakout(const QString &strName)
{
    static const QSet<QString> setNames = {
        QStringLiteral("b"),     QStringLiteral("big"),    QStringLiteral("blockquote"),
        QStringLiteral("body"),  QStringLiteral("br"),     QStringLiteral("center"),
        QStringLiteral("code"),  QStringLiteral("dd"),     QStringLiteral("div"),
        QStringLiteral("dl"),    QStringLiteral("dt"),     QStringLiteral("em"),
        QStringLiteral("embed"), QStringLiteral("h1"),     QStringLiteral("h2"),
        QStringLiteral("h3"),    QStringLiteral("h4"),     QStringLiteral("h5"),
        QStringLiteral("h6"),    QStringLiteral("head"),   QStringLiteral("hr"),
        QStringLiteral("i"),     QStringLiteral("img"),    QStringLiteral("li"),
        QStringLiteral("menu"),  QStringLiteral("meta"),   QStringLiteral("nobr"),
        QStringLiteral("ol"),    QStringLiteral("p"),      QStringLiteral("pre"),
        QStringLiteral("ruby"),  QStringLiteral("s"),      QStringLiteral("small"),
        QStringLiteral("span"),  QStringLiteral("strong"), QStringLiteral("strike"),
        QStringLiteral("sub"),   QStringLiteral("sup"),    QStringLiteral("table"),
        QStringLiteral("tt"),    QStringLiteral("u"),      QStringLiteral("ul"),
        QStringLiteral("var")};
    return setNames.contains(strName);
}

} // namespace

CHtmlTokenizer::CHtmlTokenizer(const QString &strHtml) : m_strHtml(strHtml) { }

bool CHtmlTokenizer::next()
{
    if (m_nPos >= m_strHtml.size())
        return false;
    m_token = SHtmlToken();
    m_token.nStart = m_nPos;
    if (!m_strRawElement.isEmpty()) {
        readRawText();
        if (m_token.nEnd > m_token.nStart)
            return true;
    }
    if (isMarkupAt(m_nPos))
        readMarkup();
    else
        readText();
    return true;
}

void CHtmlTokenizer::finish(SHtmlToken::Kind kind, int nEnd)
{
    m_token.kind = kind;
    m_token.nEnd = m_nPos = nEnd;
}

// True for a "<" that begins a tag or comment.
bool CHtmlTokenizer::isMarkupAt(int nPos) const
{
    if (m_strHtml.at(nPos) != QLatin1Char('<') || nPos + 1 >= m_strHtml.size())
        return false;
    const QChar c = m_strHtml.at(nPos + 1);
    if (c == QLatin1Char('/'))
        return nPos + 2 < m_strHtml.size();
    return isLetter(c) || c == QLatin1Char('!') || c == QLatin1Char('?');
}

void CHtmlTokenizer::readText()
{
    int nEnd = m_nPos + 1;
    while ((nEnd = m_strHtml.indexOf(QLatin1Char('<'), nEnd)) >= 0 && !isMarkupAt(nEnd))
        ++nEnd;
    finish(SHtmlToken::Kind::Text, nEnd < 0 ? m_strHtml.size() : nEnd);
}

void CHtmlTokenizer::readRawText()
{
    const QString strName = m_strRawElement;
    m_strRawElement.clear();
    const auto kind =
        isEscapableElement(strName) ? SHtmlToken::Kind::EscapableText : SHtmlToken::Kind::RawText;
    if (strName == QLatin1String("plaintext"))
        finish(kind, m_strHtml.size());
    else if (strName == QLatin1String("script"))
        finish(kind, scriptEnd(m_nPos));
    else
        finish(kind, endTagOf(strName, m_nPos));
}

// True for a tag whose name begins at the position.
bool CHtmlTokenizer::isTagNamed(int nPos, const QString &strName) const
{
    const int nBehind = nPos + strName.size();
    if (nBehind >= m_strHtml.size()
        || m_strHtml.midRef(nPos, strName.size()).compare(strName, Qt::CaseInsensitive) != 0)
        return false;
    const QChar c = m_strHtml.at(nBehind);
    return isHtmlSpace(c) || c == QLatin1Char('/') || c == QLatin1Char('>');
}

int CHtmlTokenizer::endTagOf(const QString &strName, int nPos) const
{
    while ((nPos = m_strHtml.indexOf(QLatin1String("</"), nPos)) >= 0) {
        if (isTagNamed(nPos + 2, strName))
            return nPos;
        nPos += 2;
    }
    return m_strHtml.size();
}

// After "<!--" in a script, a second "<script" hides the end tag that follows it.
int CHtmlTokenizer::scriptEnd(int nPos) const
{
    const QString strScript = QStringLiteral("script");
    bool bComment = false;
    bool bNested = false;
    for (; nPos < m_strHtml.size(); ++nPos) {
        const QChar c = m_strHtml.at(nPos);
        if (bComment && c == QLatin1Char('-')
            && m_strHtml.midRef(nPos, 3) == QLatin1String("-->")) {
            bComment = bNested = false;
        } else if (c != QLatin1Char('<')) {
            continue;
        } else if (!bComment && m_strHtml.midRef(nPos, 4) == QLatin1String("<!--")) {
            bComment = true;
            nPos += 1; // "<!-->" is a whole comment.
        } else if (m_strHtml.midRef(nPos, 2) == QLatin1String("</")) {
            if (!isTagNamed(nPos + 2, strScript))
                continue;
            if (!bNested)
                return nPos;
            bNested = false;
        } else if (bComment && isTagNamed(nPos + 1, strScript)) {
            bNested = true;
        }
    }
    return m_strHtml.size();
}

void CHtmlTokenizer::readMarkup()
{
    const QChar c = m_strHtml.at(m_nPos + 1);
    const bool bEnd = c == QLatin1Char('/');
    if (isLetter(c) || (bEnd && isLetter(m_strHtml.at(m_nPos + 2)))) {
        readTag();
    } else if (bEnd && m_strHtml.at(m_nPos + 2) == QLatin1Char('>')) {
        finish(SHtmlToken::Kind::Dropped, m_nPos + 3);
    } else if (m_strHtml.midRef(m_nPos, 4) == QLatin1String("<!--")) {
        readComment();
    } else if (isForeign() && m_strHtml.midRef(m_nPos, 9) == QLatin1String("<![CDATA[")) {
        const int nFound = m_strHtml.indexOf(QLatin1String("]]>"), m_nPos);
        finish(SHtmlToken::Kind::CData, nFound < 0 ? m_strHtml.size() : nFound + 3);
    } else {
        const bool bDoctype =
            m_strHtml.midRef(m_nPos, 9).compare(QLatin1String("<!doctype"), Qt::CaseInsensitive)
            == 0;
        const int nFound = m_strHtml.indexOf(QLatin1Char('>'), m_nPos);
        finish(bDoctype ? SHtmlToken::Kind::Doctype : SHtmlToken::Kind::Comment,
               nFound < 0 ? m_strHtml.size() : nFound + 1);
    }
}

void CHtmlTokenizer::readComment()
{
    const int nText = m_nPos + 4;
    int nEnd = m_strHtml.size();
    if (m_strHtml.midRef(nText, 1) == QLatin1String(">")) {
        nEnd = nText + 1;
    } else if (m_strHtml.midRef(nText, 2) == QLatin1String("->")) {
        nEnd = nText + 2;
    } else {
        for (int nPos = nText; (nPos = m_strHtml.indexOf(QLatin1String("--"), nPos)) >= 0; ++nPos) {
            const bool bBang = m_strHtml.midRef(nPos + 2, 2) == QLatin1String("!>");
            if (!bBang && m_strHtml.midRef(nPos + 2, 1) != QLatin1String(">"))
                continue;
            nEnd = nPos + (bBang ? 4 : 3);
            break;
        }
    }
    finish(SHtmlToken::Kind::Comment, nEnd);
}

// The position of the ">" that no quotes enclose; -1 for none. Quotes count only where a value
// begins.
int CHtmlTokenizer::tagEnd(int nPos, bool *pSlash) const
{
    enum class State { BeforeName, Name, BehindName, BeforeValue, Value } state = State::BeforeName;
    for (; nPos < m_strHtml.size(); ++nPos) {
        const QChar c = m_strHtml.at(nPos);
        if (c == QLatin1Char('>')) {
            *pSlash = state == State::BeforeName && m_strHtml.at(nPos - 1) == QLatin1Char('/');
            return nPos;
        }
        if (state == State::BeforeValue) {
            if (isHtmlSpace(c))
                continue;
            state = State::Value;
            if (c != QLatin1Char('"') && c != QLatin1Char('\''))
                continue;
            state = State::BeforeName;
            nPos = m_strHtml.indexOf(c, nPos + 1);
            if (nPos < 0)
                return -1;
        } else if (isHtmlSpace(c)) {
            state = state == State::Name || state == State::BehindName ? State::BehindName
                                                                       : State::BeforeName;
        } else if (state != State::Value) {
            const bool bNamed = state == State::Name || state == State::BehindName;
            if (c == QLatin1Char('/'))
                state = State::BeforeName;
            else
                state = bNamed && c == QLatin1Char('=') ? State::BeforeValue : State::Name;
        }
    }
    return -1;
}

void CHtmlTokenizer::readTag()
{
    const bool bEnd = m_strHtml.at(m_nPos + 1) == QLatin1Char('/');
    const int nSize = m_strHtml.size();
    int nPos = m_token.nName = m_nPos + (bEnd ? 2 : 1);
    while (nPos < nSize && !isHtmlSpace(m_strHtml.at(nPos))
           && m_strHtml.at(nPos) != QLatin1Char('/') && m_strHtml.at(nPos) != QLatin1Char('>'))
        ++nPos;
    m_token.nNameLength = nPos - m_token.nName;

    bool bSlash = false;
    nPos = tagEnd(nPos, &bSlash);
    if (nPos < 0) {
        finish(SHtmlToken::Kind::Dropped, nSize);
        return;
    }
    m_token.bSelfClosing = bSlash;
    finish(bEnd ? SHtmlToken::Kind::EndTag : SHtmlToken::Kind::StartTag, nPos + 1);
    // Most names are too short for any element that matters here.
    if (bEnd && !m_lstForeign.isEmpty())
        followEnd(m_token.name(m_strHtml));
    else if (!bEnd && (m_token.nNameLength >= g_nShortestFollowed || !m_lstForeign.isEmpty()))
        followStart(m_token.name(m_strHtml));
}

bool CHtmlTokenizer::isForeign() const
{
    return !m_lstForeign.isEmpty() && !isIntegrationPoint(m_lstForeign.constLast());
}

void CHtmlTokenizer::followStart(const QString &strName)
{
    if (isForeign() && isBreakout(strName)) {
        m_lstForeign.clear();
        m_mapForeign.clear();
    }
    const bool bForeign = isForeign();
    if (isForeignRoot(strName) || (bForeign && isIntegrationPoint(strName))) {
        if (!m_token.bSelfClosing) {
            m_lstForeign.append(strName);
            ++m_mapForeign[strName];
        }
    } else if (!bForeign && (isRawElement(strName) || isEscapableElement(strName))) {
        m_strRawElement = strName;
    }
}

void CHtmlTokenizer::followEnd(const QString &strName)
{
    if (m_mapForeign.value(strName) == 0)
        return;
    QString strClosed;
    do {
        strClosed = m_lstForeign.takeLast();
        --m_mapForeign[strClosed];
    } while (strClosed != strName);
}

QVector<SHtmlToken> htmlTokens(const QString &strHtml)
{
    QVector<SHtmlToken> lstTokens;
    CHtmlTokenizer tokenizer(strHtml);
    while (tokenizer.next())
        lstTokens.append(tokenizer.token());
    return lstTokens;
}
