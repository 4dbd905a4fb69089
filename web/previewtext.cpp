#include "web/previewtext.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// The time for a line grows with the square of this: 5000 take some 30 ms, 250,000 take 13 s.
constexpr int g_nMostShaped = 5000;

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

} // namespace

int shownLength(const QString &strLine)
{
    int nShaped = 0;
    for (int n = 0; n < strLine.size(); ++n) {
        if (isShaped(strLine.at(n)) && ++nShaped > g_nMostShaped)
            return strLine.at(n).isLowSurrogate() ? n - 1 : n;
    }
    return strLine.size();
}

void cutLongLines(QTextDocument *pDocument)
{
    for (QTextBlock block = pDocument->begin(); block.isValid(); block = block.next()) {
        if (block.length() <= g_nMostShaped)
            continue;
        const int nShown = shownLength(block.text());
        if (nShown == block.length() - 1)
            continue;
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + nShown);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(QString(QChar(0x2026)));
    }
}
