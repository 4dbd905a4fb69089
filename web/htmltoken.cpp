#include "web/htmltoken.h"

#include <algorithm>

namespace {

template<typename Predicate>
int skipWhile(const QString &strText, int nPos, int nEnd, Predicate predicate)
{
    while (nPos < nEnd && predicate(strText.at(nPos)))
        ++nPos;
    return nPos;
}

// Reads from the end of the name to the end of the value, if there is one.
void readValue(const QString &strHtml, int nEnd, SHtmlAttribute *pAttribute)
{
    const int nBehindName = pAttribute->nName + pAttribute->nNameLength;
    pAttribute->nValue = pAttribute->nEnd = nBehindName;
    const int nEquals = skipWhile(strHtml, nBehindName, nEnd, isHtmlSpace);
    if (nEquals >= nEnd || strHtml.at(nEquals) != QLatin1Char('='))
        return;
    pAttribute->bValue = true;
    int nPos = skipWhile(strHtml, nEquals + 1, nEnd, isHtmlSpace);
    const QChar c = nPos < nEnd ? strHtml.at(nPos) : QChar();
    if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
        pAttribute->cQuote = c;
        pAttribute->nValue = ++nPos;
        nPos = skipWhile(strHtml, nPos, nEnd, [c](QChar cValue) { return cValue != c; });
        pAttribute->nEnd = qMin(nPos + 1, nEnd);
    } else {
        pAttribute->nValue = nPos;
        nPos = skipWhile(strHtml, nPos, nEnd, [](QChar cValue) { return !isHtmlSpace(cValue); });
        pAttribute->nEnd = nPos;
    }
    pAttribute->nLength = nPos - pAttribute->nValue;
}

} // namespace

bool SHtmlToken::isNamed(const QString &strHtml, QLatin1String strName) const
{
    return isTag() && nNameLength == strName.size()
        && strHtml.midRef(nName, nNameLength).compare(strName, Qt::CaseInsensitive) == 0;
}

bool SHtmlToken::isStart(const QString &strHtml, QLatin1String strName) const
{
    return kind == Kind::StartTag && isNamed(strHtml, strName);
}

QString SHtmlToken::name(const QString &strHtml) const
{
    return strHtml.mid(nName, nNameLength).toLower();
}

QVector<SHtmlAttribute> htmlAttributes(const QString &strHtml, const SHtmlToken &tag)
{
    QVector<SHtmlAttribute> lstAttributes;
    if (!tag.isTag())
        return lstAttributes;
    const int nEnd = tag.nEnd - 1; // Before the ">".
    int nPos = tag.nName + tag.nNameLength;
    for (;;) {
        nPos = skipWhile(strHtml, nPos, nEnd,
                         [](QChar c) { return isHtmlSpace(c) || c == QLatin1Char('/'); });
        if (nPos >= nEnd)
            return lstAttributes;
        SHtmlAttribute attribute;
        attribute.nName = nPos++; // An "=" here begins the name.
        nPos = skipWhile(strHtml, nPos, nEnd, [](QChar c) {
            return !isHtmlSpace(c) && c != QLatin1Char('/') && c != QLatin1Char('=');
        });
        attribute.nNameLength = nPos - attribute.nName;
        attribute.strName = strHtml.mid(attribute.nName, attribute.nNameLength).toLower();
        readValue(strHtml, nEnd, &attribute);
        nPos = attribute.nEnd;
        lstAttributes.append(attribute);
    }
}

const SHtmlAttribute *findAttribute(const QVector<SHtmlAttribute> &lstAttributes,
                                    QLatin1String strName)
{
    const auto it = std::find_if(lstAttributes.cbegin(), lstAttributes.cend(),
                                 [&](const SHtmlAttribute &a) { return a.strName == strName; });
    return it == lstAttributes.cend() ? nullptr : &*it;
}

const QStringList &voidElements()
{
    static const QStringList lstNames = {
        QStringLiteral("area"),    QStringLiteral("base"),   QStringLiteral("basefont"),
        QStringLiteral("bgsound"), QStringLiteral("br"),     QStringLiteral("col"),
        QStringLiteral("command"), QStringLiteral("embed"),  QStringLiteral("frame"),
        QStringLiteral("hr"),      QStringLiteral("image"),  QStringLiteral("img"),
        QStringLiteral("input"),   QStringLiteral("keygen"), QStringLiteral("link"),
        QStringLiteral("meta"),    QStringLiteral("nextid"), QStringLiteral("param"),
        QStringLiteral("source"),  QStringLiteral("track"),  QStringLiteral("wbr")};
    return lstNames;
}

bool isHtmlSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n')
        || c == QLatin1Char('\r') || c == QLatin1Char('\f');
}
