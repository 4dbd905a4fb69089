#include "web/pagehabits.h"

#include "web/htmlreferences.h"
#include "web/htmltoken.h"

#include <QSet>

namespace {

const int g_nTagsToAsk = 400;

SHtmlToken tagOf(const SPageToken &piece)
{
    SHtmlToken tag;
    tag.kind = SHtmlToken::Kind::StartTag;
    tag.nStart = piece.nStart;
    tag.nEnd = piece.nEnd;
    tag.nName = piece.nName;
    tag.nNameLength = piece.nNameLength;
    return tag;
}

bool isUpper(const QString &strText, int nStart, int nLength)
{
    const QStringRef strName = strText.midRef(nStart, nLength);
    return strName.toString().toUpper() == strName && strName.toString().toLower() != strName;
}

// True if the first is more frequent than the second.
class CVote
{
public:
    void count(bool bYes) { m_nBalance += bYes ? 1 : -1; }
    bool isYes() const { return m_nBalance > 0; }

private:
    int m_nBalance = 0;
};

bool saysXml(const QString &strSource, const PageTokens &lstTokens)
{
    for (const SPageToken &piece : lstTokens) {
        const QStringRef strPiece = strSource.midRef(piece.nStart, piece.nEnd - piece.nStart);
        if (strPiece.startsWith(QLatin1String("<?xml ")))
            return true;
        if (piece.kind == SPageToken::Kind::Other
            && strPiece.startsWith(QLatin1String("<!doctype"), Qt::CaseInsensitive)
            && strPiece.contains(QLatin1String("XHTML"), Qt::CaseInsensitive))
            return true;
        if (piece.kind == SPageToken::Kind::Start)
            return strPiece.startsWith(QLatin1String("<html"))
                && strPiece.contains(QLatin1String("xmlns="));
    }
    return false;
}

void countTags(const QString &strSource, const PageTokens &lstTokens, SPageHabits *pHabits)
{
    CVote upperTags;
    CVote upperAttributes;
    CVote single;
    QHash<QString, int> mapEnds;
    int nAsked = 0;
    for (const SPageToken &piece : lstTokens) {
        if (piece.kind != SPageToken::Kind::Start || piece.bForeign)
            continue;
        upperTags.count(isUpper(strSource, piece.nName, piece.nNameLength));
        if (piece.bVoid) {
            const bool bBlank = piece.bSelfClosing && isHtmlSpace(strSource.at(piece.nEnd - 3));
            ++mapEnds[!piece.bSelfClosing ? QStringLiteral(">")
                          : bBlank        ? QStringLiteral(" />")
                                          : QStringLiteral("/>")];
        }
        if (++nAsked > g_nTagsToAsk)
            continue;
        for (const SHtmlAttribute &attribute : htmlAttributes(strSource, tagOf(piece))) {
            upperAttributes.count(isUpper(strSource, attribute.nName, attribute.nNameLength));
            if (!attribute.cQuote.isNull())
                single.count(attribute.cQuote == QLatin1Char('\''));
        }
    }
    pHabits->bUpperTags = upperTags.isYes() && !pHabits->bXml;
    pHabits->bUpperAttributes = upperAttributes.isYes() && !pHabits->bXml;
    pHabits->cQuote = QLatin1Char(single.isYes() ? '\'' : '"');
    if (pHabits->bXml) {
        mapEnds.remove(QStringLiteral(">"));
        pHabits->strVoidEnd = QStringLiteral(" />");
    }
    int nMost = 0;
    for (auto it = mapEnds.cbegin(); it != mapEnds.cend(); ++it) {
        if (it.value() > nMost) {
            nMost = it.value();
            pHabits->strVoidEnd = it.key();
        }
    }
}

QString commonLineEnd(const QString &strSource, const PageTokens &lstTokens)
{
    int nWindows = 0;
    int nUnix = 0;
    int nMac = 0;
    for (const SPageToken &piece : lstTokens) {
        if (piece.kind != SPageToken::Kind::LineEnd)
            continue;
        if (piece.nEnd - piece.nStart == 2)
            ++nWindows;
        else
            ++(strSource.at(piece.nStart) == QLatin1Char('\r') ? nMac : nUnix);
    }
    if (nWindows > nUnix && nWindows >= nMac)
        return QStringLiteral("\r\n");
    return nMac > nUnix ? QStringLiteral("\r") : QStringLiteral("\n");
}

void countReferences(const QString &strSource, const PageTokens &lstTokens, SPageHabits *pHabits)
{
    QHash<ushort, QHash<QString, int>> mapSpelled;
    QHash<ushort, int> mapRaw;
    for (const SPageToken &piece : lstTokens) {
        if (piece.kind != SPageToken::Kind::Word || !piece.bReferences)
            continue;
        for (int nPos = piece.nStart; nPos < piece.nEnd; ++nPos) {
            const QChar c = strSource.at(nPos);
            if (c == QLatin1Char('"') || c == QLatin1Char('\'') || c.unicode() >= 0x80)
                ++mapRaw[c.unicode()];
            if (c != QLatin1Char('&'))
                continue;
            QString strResolved;
            const int nLength =
                referenceAt(strSource, nPos, piece.nEnd, EReferences::InText, &strResolved);
            if (nLength > 0 && strResolved.size() == 1)
                ++mapSpelled[strResolved.at(0).unicode()][strSource.mid(nPos, nLength)];
            nPos += qMax(0, nLength - 1);
        }
    }
    for (auto it = mapSpelled.cbegin(); it != mapSpelled.cend(); ++it) {
        QString strBest;
        int nBest = 0;
        int nAll = 0;
        for (auto spelled = it->cbegin(); spelled != it->cend(); ++spelled) {
            nAll += spelled.value();
            if (spelled.value() > nBest && spelled.key().endsWith(QLatin1Char(';'))) {
                nBest = spelled.value();
                strBest = spelled.key();
            }
        }
        if (nAll > mapRaw.value(it.key()) && !strBest.isEmpty())
            pHabits->mapReferences.insert(it.key(), strBest);
    }
    // Characters that are written as references unless the source does otherwise.
    const auto fallBack = [pHabits](ushort nCode, const QString &strReference) {
        if (!pHabits->mapReferences.contains(nCode))
            pHabits->mapReferences.insert(nCode, strReference);
    };
    fallBack('&', QStringLiteral("&amp;"));
    fallBack('<', QStringLiteral("&lt;"));
    fallBack('>', QStringLiteral("&gt;"));
    fallBack('\r', QStringLiteral("&#13;"));
    // XML itself knows no name for it.
    const bool bNamed = !pHabits->bXml || strSource.contains(QLatin1String("//W3C//DTD XHTML"));
    if (!mapRaw.contains(QChar::Nbsp))
        fallBack(QChar::Nbsp, bNamed ? QStringLiteral("&nbsp;") : QStringLiteral("&#160;"));
}

bool isBoolean(const QString &strName)
{
    static const QSet<QString> setNames = {
        QStringLiteral("checked"),  QStringLiteral("compact"),  QStringLiteral("declare"),
        QStringLiteral("defer"),    QStringLiteral("disabled"), QStringLiteral("hidden"),
        QStringLiteral("ismap"),    QStringLiteral("multiple"), QStringLiteral("nohref"),
        QStringLiteral("noresize"), QStringLiteral("noshade"),  QStringLiteral("nowrap"),
        QStringLiteral("readonly"), QStringLiteral("required"), QStringLiteral("reversed"),
        QStringLiteral("selected")};
    return setNames.contains(strName);
}

QString decodedValue(const QString &strHtml, const SHtmlAttribute &attribute)
{
    return decodeReferences(strHtml, attribute.nValue, attribute.nValue + attribute.nLength,
                            EReferences::InAttribute);
}

QString writeValue(const QString &strText, QChar cQuote, const SPageHabits &habits)
{
    QString strValue;
    for (const QChar c : strText)
        if (c == QLatin1Char('&'))
            strValue += QLatin1String("&amp;");
        else if (c == cQuote)
            strValue +=
                cQuote == QLatin1Char('"') ? QLatin1String("&quot;") : QLatin1String("&#39;");
        else if (c == QLatin1Char('<') && habits.bXml)
            strValue += QLatin1String("&lt;");
        else if (c == QLatin1Char('\n'))
            strValue += habits.strLineEnd;
        else if (c == QLatin1Char('\r'))
            strValue += QLatin1String("&#13;");
        else if (c.unicode() >= 0x80 && habits.mapReferences.contains(c.unicode()))
            strValue += habits.mapReferences.value(c.unicode());
        else
            strValue += c;
    return strValue;
}

// Writes the attribute with the blank before it.
QString writeAttribute(const QString &strHtml, const SHtmlAttribute &attribute,
                       const SPageToken &tag, const SPageHabits &habits)
{
    const QString strSpelled = strHtml.mid(attribute.nName, attribute.nNameLength);
    const QString strName =
        habits.bUpperAttributes && !tag.bForeign ? strSpelled.toUpper() : strSpelled;
    const QString strValue = decodedValue(strHtml, attribute);
    if (strValue.isEmpty() && isBoolean(attribute.strName) && !habits.bXml)
        return QLatin1Char(' ') + strName;
    QChar cQuote = habits.cQuote;
    if (strValue.contains(cQuote))
        cQuote = QLatin1Char(
            cQuote == QLatin1Char('"') && !strValue.contains(QLatin1Char('\'')) ? '\'' : '"');
    const QString strWritten = writeValue(strValue, cQuote, habits);
    return QLatin1Char(' ') + strName + QLatin1Char('=') + cQuote + strWritten + cQuote;
}

QString writeTag(const QString &strHtml, const SPageToken &piece, const SPageHabits &habits)
{
    const bool bEnd = piece.kind == SPageToken::Kind::End;
    QString strName = strHtml.mid(piece.nName, piece.nNameLength);
    if (habits.bUpperTags && !piece.bForeign)
        strName = strName.toUpper();
    QString strTag = QLatin1String(bEnd ? "</" : "<") + strName;
    if (!bEnd)
        for (const SHtmlAttribute &attribute : htmlAttributes(strHtml, tagOf(piece)))
            strTag += writeAttribute(strHtml, attribute, piece, habits);
    return strTag + (!bEnd && piece.bVoid ? habits.strVoidEnd : QStringLiteral(">"));
}

} // namespace

SPageHabits pageHabits(const QString &strSource, const PageTokens &lstTokens)
{
    SPageHabits habits;
    habits.bXml = saysXml(strSource, lstTokens);
    habits.strLineEnd = commonLineEnd(strSource, lstTokens);
    countTags(strSource, lstTokens, &habits);
    countReferences(strSource, lstTokens, &habits);
    return habits;
}

QString writeText(const QString &strText, const SPageHabits &habits)
{
    QString strWritten;
    for (const QChar c : strText) {
        const auto it = habits.mapReferences.constFind(c.unicode());
        if (it != habits.mapReferences.cend())
            strWritten += *it;
        else
            strWritten += c;
    }
    return strWritten;
}

QString writePiece(const QString &strHtml, const SPageToken &piece, const SPageHabits &habits)
{
    switch (piece.kind) {
    case SPageToken::Kind::Start:
    case SPageToken::Kind::End:
        return writeTag(strHtml, piece, habits);
    case SPageToken::Kind::LineEnd:
        return habits.strLineEnd;
    case SPageToken::Kind::Word:
        if (piece.bReferences)
            return writeText(
                decodeReferences(strHtml, piece.nStart, piece.nEnd, EReferences::InText), habits);
        break;
    default:
        break;
    }
    QString strPiece = strHtml.mid(piece.nStart, piece.nEnd - piece.nStart);
    if (habits.strLineEnd != QLatin1String("\n"))
        strPiece.replace(QLatin1Char('\n'), habits.strLineEnd);
    return strPiece;
}

QString changeTag(const QString &strSource, const SPageToken &source, const QString &strOld,
                  const SPageToken &oldTag, const QString &strNew, const SPageToken &newTag,
                  const SPageHabits &habits)
{
    const QVector<SHtmlAttribute> lstOld = htmlAttributes(strOld, tagOf(oldTag));
    const QVector<SHtmlAttribute> lstNew = htmlAttributes(strNew, tagOf(newTag));
    QString strTag;
    int nCopied = source.nStart;
    int nBehind = source.nName + source.nNameLength;
    QSet<QString> setSeen;
    for (const SHtmlAttribute &attribute : htmlAttributes(strSource, tagOf(source))) {
        if (setSeen.contains(attribute.strName))
            continue;
        setSeen.insert(attribute.strName);
        const QByteArray name = attribute.strName.toLatin1();
        const QLatin1String strName(name);
        const SHtmlAttribute *pOld = findAttribute(lstOld, strName);
        const SHtmlAttribute *pNew = findAttribute(lstNew, strName);
        const bool bSame =
            pOld && pNew && decodedValue(strOld, *pOld) == decodedValue(strNew, *pNew);
        if (!bSame && (pOld || pNew)) {
            strTag += strSource.midRef(nCopied, nBehind - nCopied);
            if (pNew)
                strTag += writeAttribute(strNew, *pNew, newTag, habits);
            nCopied = attribute.nEnd;
        }
        nBehind = attribute.nEnd;
    }
    strTag += strSource.midRef(nCopied, nBehind - nCopied);
    for (const SHtmlAttribute &attribute : lstNew)
        if (!setSeen.contains(attribute.strName))
            strTag += writeAttribute(strNew, attribute, newTag, habits);
    return strTag + strSource.midRef(nBehind, source.nEnd - nBehind);
}
