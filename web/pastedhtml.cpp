#include "web/pastedhtml.h"

#include "web/chtmltokenizer.h"
#include "web/dataaddresses.h"
#include "web/htmltoken.h"

namespace {

// The tag without attributes that would run something.
QString withoutHandlers(const QString &strHtml, const SHtmlToken &tag)
{
    QString strTag;
    int nCopied = tag.nStart;
    for (const SHtmlAttribute &attribute : htmlAttributes(strHtml, tag)) {
        if (!attribute.strName.startsWith(QLatin1String("on")))
            continue;
        strTag += strHtml.midRef(nCopied, attribute.nName - nCopied);
        nCopied = attribute.nEnd;
    }
    return strTag + strHtml.midRef(nCopied, tag.nEnd - nCopied);
}

QString withoutScripts(const QString &strHtml)
{
    QString strResult;
    CHtmlTokenizer tokenizer(strHtml);
    bool bScript = false;
    while (tokenizer.next()) {
        const SHtmlToken &token = tokenizer.token();
        const bool bTag = token.isNamed(strHtml, QLatin1String("script"));
        if (token.kind == SHtmlToken::Kind::StartTag && !bTag)
            strResult += withoutHandlers(strHtml, token);
        else if (!bTag && !(bScript && token.kind == SHtmlToken::Kind::RawText))
            strResult += strHtml.midRef(token.nStart, token.nEnd - token.nStart);
        bScript = bTag && token.kind == SHtmlToken::Kind::StartTag;
    }
    return strResult;
}

} // namespace

QString harmlessPaste(const QString &strHtml)
{
    const QString strSafe = refuseHarmfulData(strHtml);
    return strSafe == strHtml ? strHtml : withoutScripts(strSafe);
}
