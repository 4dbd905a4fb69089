#include "app/codecranking.h"

#include "app/languageletters.h"
#include "app/textcodecs.h"

#include <QHash>
#include <QTextCodec>

#include <cmath>

namespace {

// Costs, as logarithms of likelihoods.
constexpr double g_nUnreadable = -1e9;
constexpr double g_nStrangeLetter = -9;
constexpr double g_nKana = -4;
constexpr double g_nCharacter = -5; // One of the most frequent of many.
constexpr double g_nEverydayCharacter = -7;
constexpr double g_nStrangeCharacter = -12;
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
constexpr double g_nOldSystem = -2.5;
constexpr double g_nOwnLanguage = 1.5; // For each letter of its name: "zh_tw" is more than "zh".

bool isForeign(QChar c)
{
    return c.unicode() >= 0x80;
}

// What no text holds.
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

// U+00B5 counts as a letter.
bool isWordPart(QChar c)
{
    return (c.isLetter() && c.unicode() != 0xB5) || c.isMark();
}

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
    if (isAmong(c, u"„‚¿¡")) // They open.
        return bLetterBefore || after.isSpace();
    if (isAmong(c, u"£€")) // They stand with numbers.
        return bLetterBefore || bLetterAfter;
    if (isAmong(c, u"§©®±²³½")) // They end a word, or stand alone.
        return bLetterAfter;
    return bLetterBefore && bLetterAfter && !isAmong(c, u"’·\u00AD");
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

// What the neighbours of a letter say against it.
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

// Reads texts as one language in one codec.
class CReading
{
public:
    CReading(const SLanguageLetters &language, const QTextCodec *pCodec)
        : m_language(language), m_pCodec(pCodec)
    {
        for (int n = 0; n < language.strLetters.size(); ++n)
            m_nSum += 1.0 / (n + 2);
    }

    double score(const QString &strText) const
    {
        double nScore = 0;
        for (int n = 0; n < strText.size(); ++n) {
            const QChar c = strText.at(n);
            if (isUnreadable(c))
                return g_nUnreadable;
            if (!isForeign(c))
                continue;
            const QChar before = n > 0 ? strText.at(n - 1) : QChar(' ');
            const QChar after = n + 1 < strText.size() ? strText.at(n + 1) : QChar(' ');
            if (isWordPart(c))
                nScore += letterScore(c) + placeScore(c, before, after);
            else
                nScore += signScore(c, before, after);
        }
        return nScore;
    }

private:
    double letterScore(QChar c) const
    {
        int nRank = m_language.strLetters.indexOf(c);
        if (nRank < 0)
            nRank = m_language.strLetters.indexOf(c.toLower());
        if (!m_language.isAlphabet())
            return characterScore(c, nRank >= 0);
        // Frequencies of letters fall about as the numbers of their ranks rise.
        return nRank >= 0 ? std::log(1.0 / (nRank + 2) / m_nSum) : g_nStrangeLetter;
    }

    double characterScore(QChar c, bool bFrequent) const
    {
        const bool bKana =
            c.script() == QChar::Script_Hiragana || c.script() == QChar::Script_Katakana;
        if (bKana && m_language.strLanguage == QLatin1String("ja"))
            return g_nKana;
        if (bFrequent)
            return g_nCharacter;
        const QByteArray bytes = m_pCodec->fromUnicode(&c, 1);
        const int nLead = bytes.size() == 2 ? uchar(bytes.at(0)) : 0;
        const bool bEveryday = nLead >= m_language.nFirstLead && nLead <= m_language.nLastLead;
        return bEveryday ? g_nEverydayCharacter : g_nStrangeCharacter;
    }

    const SLanguageLetters &m_language;
    const QTextCodec *m_pCodec;
    double m_nSum = 0;
};

} // namespace

QVector<SReading> readings(const QByteArray &data, const QString &strLocale)
{
    QVector<SReading> lstReadings;
    for (const SLanguageLetters &language : languageLetters()) {
        for (const QString &strCodec : language.lstCodecs) {
            QTextCodec *pCodec = codecForName(strCodec);
            if (!isValidDecoding(pCodec, data, FullWidthSigns::Allowed))
                continue;
            const QString strText = pCodec->toUnicode(data);
            if (strText.isEmpty())
                continue;
            double nScore = CReading(language, pCodec).score(strText);
            if (nScore <= g_nUnreadable)
                continue;
            if (strCodec.startsWith(QLatin1String("IBM"))
                || strCodec.contains(QLatin1String("mac")))
                nScore += g_nOldSystem;
            if (strLocale.startsWith(language.strLanguage))
                nScore += g_nOwnLanguage * language.strLanguage.size();
            lstReadings.append({strCodec, language.strLanguage, strText, nScore});
        }
    }
    std::stable_sort(lstReadings.begin(), lstReadings.end(),
                     [](const SReading &a, const SReading &b) { return a.nScore > b.nScore; });
    return lstReadings;
}
