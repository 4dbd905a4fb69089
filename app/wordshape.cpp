#include "app/wordshape.h"

#include <string>

namespace {

// Costs, as logarithms of likelihoods.
constexpr double g_nStrangeSign = -9;
constexpr double g_nUsualSign = -3;
constexpr double g_nKnownSign = -4.5;
constexpr double g_nMisplacedSign = -4;
constexpr double g_nCapital = -1;
constexpr double g_nCapitalAfterCapital = -2;
constexpr double g_nCapitalAfterSmall = -4;
constexpr double g_nCodeSignBeside = -1;
constexpr double g_nMixedScripts = -5;
constexpr double g_nForeignNeighbour = -0.75;
constexpr double g_nLoneLetter = -1;

bool isIdeographic(QChar c)
{
    const QChar::Script script = c.script();
    return script == QChar::Script_Han || script == QChar::Script_Hiragana
        || script == QChar::Script_Katakana || script == QChar::Script_Hangul;
}

bool isAmong(QChar c, const char16_t *szSigns)
{
    return std::char_traits<char16_t>::find(szSigns, std::char_traits<char16_t>::length(szSigns),
                                            c.unicode())
        != nullptr;
}

bool isMisplaced(QChar c, QChar before, QChar after)
{
    const bool bLetterBefore = isWordPart(before) && !isIdeographic(before);
    const bool bLetterAfter = isWordPart(after) && !isIdeographic(after);
    if (isAmong(c, u"„‚¿¡")) // These signs stand before a word.
        return bLetterBefore || after.isSpace();
    if (isAmong(c, u"£€")) // These signs stand beside numbers.
        return bLetterBefore || bLetterAfter;
    if (isAmong(c, u"§©®±²³½")) // These signs end a word or stand alone.
        return bLetterAfter;
    return bLetterBefore && bLetterAfter && !isAmong(c, u"’·\u00AD");
}

bool isSameScript(QChar a, QChar b)
{
    return a.script() == b.script() || (isIdeographic(a) && isIdeographic(b))
        || a.script() <= QChar::Script_Common || b.script() <= QChar::Script_Common;
}

double capitalScore(QChar before)
{
    if (before.isLower())
        return g_nCapitalAfterSmall;
    return before.isUpper() ? g_nCapitalAfterCapital : g_nCapital;
}

} // namespace

bool isForeign(QChar c)
{
    return c.unicode() >= 0x80;
}

bool isUnreadable(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
        return isForeign(c);
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
        return true;
    default:
        return c == QChar::ReplacementCharacter;
    }
}

bool isWordPart(QChar c)
{
    const QChar micro(0xB5); // Unicode calls it a letter.
    return (c.isLetter() && c != micro) || c.isMark();
}

double signScore(QChar c, QChar before, QChar after)
{
    double nScore = g_nStrangeSign;
    if (isAmong(c, u"\u00A0«»„“”‘’–—…€°©·、。，「」（）"))
        nScore = g_nUsualSign;
    else if (isAmong(c, u"\u00AD‚¿¡•£™§®±µ×²³½№：；！？『』《》【】・\u3000"))
        nScore = g_nKnownSign;
    if (isMisplaced(c, before, after))
        nScore += g_nMisplacedSign;
    if (isForeign(before) && !isIdeographic(before) && before.isSymbol())
        nScore += g_nMisplacedSign;
    return nScore;
}

double placeScore(QChar c, QChar before, QChar after)
{
    double nScore = 0;
    if (c.isUpper())
        nScore += capitalScore(before);
    if (c.isLower() && after.isUpper() && !isForeign(after))
        nScore += g_nCapitalAfterSmall;
    if (!isIdeographic(c) && !isWordPart(before) && !isWordPart(after))
        nScore += g_nLoneLetter;
    for (const QChar neighbour : {before, after}) {
        if (isAmong(neighbour, u"@[\\]^_`{|}~")) // Second bytes of many East Asian characters.
            nScore += g_nCodeSignBeside;
        if (!isWordPart(neighbour))
            continue;
        if (!isSameScript(c, neighbour))
            nScore += g_nMixedScripts;
        else if (c.script() == QChar::Script_Latin && isForeign(neighbour))
            nScore += g_nForeignNeighbour;
    }
    return nScore;
}
