#include "web/previewtext.h"

#include <algorithm>

namespace {

// The time for a line grows with the square of this: 5000 take some 30 ms, 250,000 take 13 s.
constexpr int g_nMostShaped = 5000;
constexpr ushort g_nEllipsis = 0x2026;

bool isShapedScript(QChar::Script script)
{
    switch (script) {
    case QChar::Script_Unknown:
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Armenian:
    case QChar::Script_Georgian:
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Bopomofo:
        return false;
    default:
        return true;
    }
}

bool isShaped(QChar c)
{
    if (c.unicode() < 0x300) // Most text.
        return false;
    return c.isMark() || c.isSurrogate() || c.category() == QChar::Other_Format
        || isShapedScript(c.script());
}

// The end of the line that begins there.
int endOfLine(const QString &strText, int nPos)
{
    const auto isEnd = [](QChar c) {
        return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::ParagraphSeparator;
    };
    return int(std::find_if(strText.cbegin() + nPos, strText.cend(), isEnd) - strText.cbegin());
}

// How many characters of a line are shown.
int shownLength(const QStringRef &strLine)
{
    int nShaped = 0;
    for (int n = 0; n < strLine.size(); ++n)
        if (isShaped(strLine.at(n)) && ++nShaped > g_nMostShaped)
            return strLine.at(n).isLowSurrogate() ? n - 1 : n;
    return strLine.size();
}

} // namespace

QString withCutLines(const QString &strText)
{
    QString strResult;
    int nCopied = 0;
    int nLine = 0;
    while (nLine < strText.size()) {
        const int nEnd = endOfLine(strText, nLine);
        if (nEnd - nLine > g_nMostShaped) {
            const int nShown = shownLength(strText.midRef(nLine, nEnd - nLine));
            if (nLine + nShown < nEnd) {
                strResult += strText.midRef(nCopied, nLine + nShown - nCopied);
                strResult += QChar(g_nEllipsis);
                nCopied = nEnd;
            }
        }
        nLine = nEnd + 1;
    }
    return nCopied == 0 ? strText : QString(strResult + strText.midRef(nCopied));
}
