#include "highlight/cliteralrules.h"

namespace {

const char *const pszNumber =
    R"(((((0[xX])|#)[a-fA-F0-9]+)|([\+\-]{0,1}\d+([.]\d*){0,1}([eE][\+\-]{0,1}\d*){0,1})))";
const char *const pszOperator = R"((([\+\-\*\/\~\^\!]{1,2})|([*\/+-\!\^~><]{0,1}={1,3})))";
const char *const pszQuoteEnd = R"((^|[^\\])(\\\\)*")";
const char *const pszApostropheEnd = R"((^|[^\\])(\\\\)*')";
const char *const pszContinuation = R"(\\s*$)";

QString escapedStars(const QString &str)
{
    return QString(str).replace(QLatin1Char('*'), QLatin1String("\\*"));
}

bool isUsable(const QRegExp &rx)
{
    return !rx.isEmpty() && rx.isValid();
}

int find(const QRegExp &rx, const QString &strText, int nFrom)
{
    return isUsable(rx) ? rx.indexIn(strText, nFrom) : -1;
}

void addAll(const QRegExp &rx, HighlightRole role, const QString &strText, SHighlightLine *pLine)
{
    for (int n = rx.indexIn(strText); n >= 0 && rx.matchedLength() > 0;
         n = rx.indexIn(strText, n + rx.matchedLength()))
        pLine->lstRanges.push_back({n, rx.matchedLength(), role});
}

} // namespace

CLiteralRules::CLiteralRules() : m_rxSingleLine(QStringLiteral("//")) { }

CLiteralRules::CLiteralRules(const QVariantMap &mapDefinition)
{
    const QVariantMap mapGeneral = mapDefinition.value(QStringLiteral("general")).toMap();
    const QVariantMap mapHighlighting = mapDefinition.value(QStringLiteral("highlighting")).toMap();
    const QVariantMap mapKeywords = mapGeneral.value(QStringLiteral("keywords")).toMap();
    const bool bSensitive = mapKeywords.value(QStringLiteral("casesensitive")).toBool();
    readComments(mapGeneral.value(QStringLiteral("comments")).toList());
    readContexts(mapHighlighting.value(QStringLiteral("contexts")).toList());
    readKeywords(mapHighlighting, bSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

void CLiteralRules::readComments(const QVariantList &lstComments)
{
    for (const QVariant &comment : lstComments) {
        const QVariantMap map = comment.toMap();
        const QString strName = map.value(QStringLiteral("name")).toString().toLower();
        const QString strStart = map.value(QStringLiteral("start")).toString();
        const QString strEnd = map.value(QStringLiteral("end")).toString();
        if (strName == QLatin1String("singleline") && !strStart.isEmpty()) {
            m_rxSingleLine = QRegExp(strStart);
        } else if (strName == QLatin1String("multiline") && !strStart.isEmpty()
                   && !strEnd.isEmpty()) {
            m_rxMultiLineStart = QRegExp(escapedStars(strStart));
            m_rxMultiLineEnd = QRegExp(escapedStars(strEnd));
        }
    }
}

void CLiteralRules::readContexts(const QVariantList &lstContexts)
{
    for (const QVariant &context : lstContexts) {
        const QVariantMap mapContext = context.toMap();
        const QString strName = mapContext.value(QStringLiteral("name")).toString();
        QRegExp *pPattern = strName == QLatin1String("El Open") ? &m_rxTagOpen
            : strName == QLatin1String("El Close")              ? &m_rxTagClose
                                                                : nullptr;
        const QVariantList lstChildren = mapContext.value(QStringLiteral("children")).toList();
        for (const QVariant &child : lstChildren) {
            const QVariantMap mapChild = child.toMap();
            if (pPattern && mapChild.value(QStringLiteral("tag")) == QLatin1String("DetectChar"))
                *pPattern = QRegExp(mapChild.value(QStringLiteral("char")).toString());
        }
    }
    if (m_rxTagOpen.isEmpty() || m_rxTagClose.isEmpty())
        m_rxTagOpen = m_rxTagClose = QRegExp();
}

void CLiteralRules::readKeywords(const QVariantMap &mapHighlighting,
                                 Qt::CaseSensitivity sensitivity)
{
    for (auto it = mapHighlighting.begin(); it != mapHighlighting.end(); ++it) {
        const QStringList lstItems = it.value().toStringList();
        for (const QString &strRaw : lstItems) {
            const QString strItem = strRaw.trimmed();
            if (strItem.isEmpty())
                continue;
            const QString strPattern = it.key() == QLatin1String("reg_exp")
                ? strItem
                : QLatin1String("\\b") + escapedStars(strItem) + QLatin1String("\\b");
            const QRegExp rx(strPattern, sensitivity);
            if (rx.isValid())
                m_lstKeywords.push_back(rx);
        }
    }
}

SHighlightLine CLiteralRules::highlight(const QString &strText, int nPreviousState) const
{
    SHighlightLine line;
    if (strText.isEmpty()) {
        line.nState = qMax(0, nPreviousState);
        return line;
    }
    addAll(QRegExp(QLatin1String(pszNumber)), HighlightRole::Number, strText, &line);
    addAll(QRegExp(QLatin1String(pszOperator)), HighlightRole::Operator, strText, &line);
    addKeywords(strText, nPreviousState, &line);
    addComments(strText, nPreviousState, &line);
    return line;
}

void CLiteralRules::addKeywords(const QString &strText, int nPreviousState,
                                SHighlightLine *pLine) const
{
    const bool bRegions = !m_rxTagOpen.isEmpty();
    const bool bInside =
        bRegions && nPreviousState > 0 && (nPreviousState & SHighlightState::InsideTag);
    int nStart = !bRegions || bInside ? 0 : find(m_rxTagOpen, strText, 0);
    int nEnd = bRegions ? find(m_rxTagClose, strText, 0) : -1;
    while (nStart >= 0) {
        for (const QRegExp &rx : m_lstKeywords)
            for (int n = rx.indexIn(strText, nStart);
                 n >= 0 && rx.matchedLength() > 0 && (nEnd < 0 || n <= nEnd);
                 n = rx.indexIn(strText, n + rx.matchedLength()))
                pLine->lstRanges.push_back({n, rx.matchedLength(), HighlightRole::Keyword});
        if (nEnd < 0) {
            pLine->nState |= bRegions ? SHighlightState::InsideTag : 0;
            return;
        }
        nStart = find(m_rxTagOpen, strText, nEnd + 1);
        nEnd = find(m_rxTagClose, strText, nEnd + 1);
    }
}

void CLiteralRules::addComments(const QString &strText, int nPreviousState,
                                SHighlightLine *pLine) const
{
    const int nSize = strText.size();
    int nAt = 0;
    const auto add = [&](int nStart, int nEnd, HighlightRole role) {
        if (nEnd > nStart)
            pLine->lstRanges.push_back({nStart, nEnd - nStart, role});
        nAt = nEnd;
    };
    const auto continuesLine = [&] {
        return QRegExp(QLatin1String(pszContinuation)).indexIn(strText) >= 0;
    };
    const auto addUpTo = [&](int nStart, int nFrom, const QRegExp &rxEnd, HighlightRole role,
                             SHighlightState::Bit state, QRegExp::CaretMode caret) {
        const int nEnd = isUsable(rxEnd) ? rxEnd.indexIn(strText, nFrom, caret) : -1;
        if (nEnd < 0) {
            pLine->nState |= state;
        }
        add(nStart, nEnd < 0 ? nSize : nEnd + rxEnd.matchedLength(), role);
    };
    const int nOpen = qMax(0, nPreviousState);
    const QRegExp rxQuoteEnd {QLatin1String(pszQuoteEnd)};
    if ((nOpen & SHighlightState::SingleLineComment) && (nOpen & SHighlightState::Continued)) {
        add(0, nSize, HighlightRole::Comment);
        pLine->nState |=
            continuesLine() ? SHighlightState::SingleLineComment | SHighlightState::Continued : 0;
    } else if (nOpen & SHighlightState::MultiLineComment) {
        addUpTo(0, 0, m_rxMultiLineEnd, HighlightRole::Comment, SHighlightState::MultiLineComment,
                QRegExp::CaretAtZero);
    } else if (nOpen & SHighlightState::DoubleQuoted) {
        addUpTo(0, 0, rxQuoteEnd, HighlightRole::String, SHighlightState::DoubleQuoted,
                QRegExp::CaretAtZero);
    } else if (nOpen & SHighlightState::SingleQuoted) {
        addUpTo(0, 0, QRegExp(QLatin1String(pszApostropheEnd)), HighlightRole::String,
                SHighlightState::SingleQuoted, QRegExp::CaretAtZero);
    }
    while (nAt < nSize) {
        const int nLine = find(m_rxSingleLine, strText, nAt);
        const int nMulti = find(m_rxMultiLineStart, strText, nAt);
        const int nQuote = strText.indexOf(QLatin1Char('"'), nAt);
        const auto before = [](int n, int nOther) { return n >= 0 && (nOther < 0 || n < nOther); };
        if (before(nLine, nMulti) && before(nLine, nQuote)) {
            add(nLine, nSize, HighlightRole::Comment);
            pLine->nState |= SHighlightState::SingleLineComment
                | (continuesLine() ? int(SHighlightState::Continued) : 0);
        } else if (before(nMulti, nLine) && before(nMulti, nQuote)) {
            const int nFrom = nAt;
            addUpTo(nMulti, nMulti + m_rxMultiLineStart.matchedLength(), m_rxMultiLineEnd,
                    HighlightRole::Comment, SHighlightState::MultiLineComment,
                    QRegExp::CaretAtZero);
            if (nAt == nFrom)
                return;
        } else if (before(nQuote, nLine) && before(nQuote, nMulti)) {
            addUpTo(nQuote, nQuote + 1, rxQuoteEnd, HighlightRole::String,
                    SHighlightState::DoubleQuoted, QRegExp::CaretAtOffset);
        } else {
            return;
        }
    }
}
