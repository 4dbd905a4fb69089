#include "web/pagetokens.h"

#include "web/chtmltokenizer.h"
#include "web/htmlreferences.h"
#include "web/htmltoken.h"

#include <QSet>

namespace {

quint64 mixed(quint64 nHash, quint64 nValue)
{
    nHash = (nHash ^ nValue) * 0x9E3779B97F4A7C15ULL;
    return nHash ^ (nHash >> 32);
}

template<typename Text> quint64 hashOf(const Text &strText, quint64 nHash)
{
    for (const QChar c : strText)
        nHash = mixed(nHash, c.unicode());
    return nHash;
}

quint64 hashLower(const QString &strHtml, int nStart, int nLength, quint64 nHash)
{
    for (int n = nStart; n < nStart + nLength; ++n)
        nHash = mixed(nHash, strHtml.at(n).toLower().unicode());
    return nHash;
}

// The start values of the hashes of each kind.
quint64 seed(SPageToken::Kind kind)
{
    return (static_cast<quint64>(kind) + 1) * 0xD1B54A32D192ED03ULL;
}

// Reads the key without making a text of the name.
bool isVoidKey(quint64 nKey)
{
    static const QSet<quint64> setKeys = [] {
        QSet<quint64> setAll;
        for (const QString &strName : voidElements())
            setAll.insert(hashOf(strName, seed(SPageToken::Kind::Start)));
        return setAll;
    }();
    return setKeys.contains(nKey);
}

class CPageTokens
{
public:
    explicit CPageTokens(const QString &strHtml) : m_strHtml(strHtml) { }
    PageTokens read();

private:
    void addText(const SHtmlToken &token);
    void addTag(const SHtmlToken &token);
    void addOther(const SHtmlToken &token);
    quint64 attributesHash(const SHtmlToken &token) const;
    quint64 textHash(int nStart, int nEnd, EReferences references, quint64 nSeed) const;

    const QString &m_strHtml;
    PageTokens m_lstTokens;
    int m_nForeignDepth = 0;
};

// The hash of what decodeReferences() would give, without making that text.
quint64 CPageTokens::textHash(int nStart, int nEnd, EReferences references, quint64 nSeed) const
{
    for (int n = nStart; n < nEnd; ++n) {
        const QChar c = m_strHtml.at(n);
        if (c == QLatin1Char('&') || c == QLatin1Char('\r') || c.isNull())
            return hashOf(decodeReferences(m_strHtml, nStart, nEnd, references), nSeed);
    }
    return hashOf(m_strHtml.midRef(nStart, nEnd - nStart), nSeed);
}

void CPageTokens::addText(const SHtmlToken &token)
{
    const bool bReferences = token.kind != SHtmlToken::Kind::RawText;
    const EReferences references = bReferences ? EReferences::InText : EReferences::None;
    int nPos = token.nStart;
    while (nPos < token.nEnd) {
        SPageToken piece;
        piece.nStart = nPos;
        QChar c = m_strHtml.at(nPos++);
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            piece.kind = SPageToken::Kind::LineEnd;
            if (c == QLatin1Char('\r') && nPos < token.nEnd
                && m_strHtml.at(nPos) == QLatin1Char('\n'))
                ++nPos;
        } else {
            const bool bBlank = isHtmlSpace(c);
            piece.kind = bBlank ? SPageToken::Kind::Blank : SPageToken::Kind::Word;
            while (nPos < token.nEnd) {
                c = m_strHtml.at(nPos);
                if (isHtmlSpace(c) != bBlank || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
                    break;
                ++nPos;
            }
        }
        piece.nEnd = nPos;
        piece.bReferences = bReferences;
        piece.nLooseKey = seed(piece.kind);
        piece.nKey = piece.kind == SPageToken::Kind::LineEnd
            ? piece.nLooseKey
            : textHash(piece.nStart, nPos, references, piece.nLooseKey);
        m_lstTokens.append(piece);
    }
}

// Independent of the order. Of two attributes of one name, the first counts.
quint64 CPageTokens::attributesHash(const SHtmlToken &token) const
{
    quint64 nSum = 0;
    if (token.nEnd - token.nName - token.nNameLength <= 1)
        return nSum;
    const QVector<SHtmlAttribute> lstAttributes = htmlAttributes(m_strHtml, token);
    QSet<quint64> setNames;
    for (const SHtmlAttribute &attribute : lstAttributes) {
        const quint64 nName = hashOf(attribute.strName, 1);
        if (lstAttributes.size() > 1) {
            if (setNames.contains(nName))
                continue;
            setNames.insert(nName);
        }
        nSum += textHash(attribute.nValue, attribute.nValue + attribute.nLength,
                         EReferences::InAttribute, nName);
    }
    return nSum;
}

void CPageTokens::addTag(const SHtmlToken &token)
{
    SPageToken piece;
    const bool bStart = token.kind == SHtmlToken::Kind::StartTag;
    piece.kind = bStart ? SPageToken::Kind::Start : SPageToken::Kind::End;
    piece.nStart = token.nStart;
    piece.nEnd = token.nEnd;
    piece.nName = token.nName;
    piece.nNameLength = token.nNameLength;
    piece.bSelfClosing = token.bSelfClosing;
    piece.nKey = piece.nLooseKey =
        hashLower(m_strHtml, token.nName, token.nNameLength, seed(piece.kind));
    const bool bRoot = token.isNamed(m_strHtml, QLatin1String("svg"))
        || token.isNamed(m_strHtml, QLatin1String("math"));
    if (bRoot && bStart && !token.bSelfClosing)
        ++m_nForeignDepth;
    piece.bForeign = m_nForeignDepth > 0 || bRoot;
    if (bRoot && !bStart)
        m_nForeignDepth = qMax(0, m_nForeignDepth - 1);
    if (bStart) {
        piece.bVoid = isVoidKey(piece.nLooseKey);
        piece.nKey += attributesHash(token);
    }
    m_lstTokens.append(piece);
}

void CPageTokens::addOther(const SHtmlToken &token)
{
    SPageToken piece;
    piece.kind = token.kind == SHtmlToken::Kind::Dropped ? SPageToken::Kind::Dropped
                                                         : SPageToken::Kind::Other;
    piece.nStart = token.nStart;
    piece.nEnd = token.nEnd;
    piece.nLooseKey = piece.nKey = seed(piece.kind) + static_cast<quint64>(token.kind);
    if (token.kind != SHtmlToken::Kind::Doctype) {
        // The text of a comment "<!--a-->", or of its other spellings "<?a>" and "<!a>".
        int nStart = token.nStart + 1;
        int nEnd = token.nEnd - 1;
        if (m_strHtml.midRef(token.nStart, 4) == QLatin1String("<!--")) {
            nStart = qMin(token.nStart + 4, token.nEnd);
            if (m_strHtml.midRef(token.nEnd - 3, 3) == QLatin1String("-->"))
                nEnd = qMax(nStart, token.nEnd - 3);
        } else if (m_strHtml.at(nStart) != QLatin1Char('?')) {
            ++nStart;
        }
        piece.nKey = textHash(nStart, nEnd, EReferences::None, piece.nKey);
    }
    m_lstTokens.append(piece);
}

PageTokens CPageTokens::read()
{
    m_lstTokens.reserve(m_strHtml.size() / 4);
    CHtmlTokenizer tokenizer(m_strHtml);
    while (tokenizer.next()) {
        const SHtmlToken &token = tokenizer.token();
        switch (token.kind) {
        case SHtmlToken::Kind::Text:
        case SHtmlToken::Kind::EscapableText:
        case SHtmlToken::Kind::RawText:
            addText(token);
            break;
        case SHtmlToken::Kind::StartTag:
        case SHtmlToken::Kind::EndTag:
            addTag(token);
            break;
        default:
            addOther(token);
        }
    }
    return m_lstTokens;
}

} // namespace

PageTokens pageTokens(const QString &strHtml)
{
    return CPageTokens(strHtml).read();
}
