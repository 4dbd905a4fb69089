#include "app/codecranking.h"

#include "app/languageletters.h"
#include "app/textcodecs.h"
#include "app/wordshape.h"

#include <QHash>
#include <QTextCodec>

#include <algorithm>
#include <cmath>

namespace {

// Costs, as logarithms of likelihoods.
constexpr double g_nUnreadable = -1e9;
constexpr double g_nStrangeLetter = -9;
constexpr double g_nKana = -4;
// The cost of one of the most frequent letters of a large alphabet.
constexpr double g_nCharacter = -5;
constexpr double g_nEverydayCharacter = -7;
constexpr double g_nStrangeCharacter = -12;
constexpr double g_nOldSystem = -2.5;
// Counts for each letter of the locale's name, so that "zh_tw" is more than "zh".
constexpr double g_nOwnLanguage = 1.5;

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
        // The frequency of a letter is roughly in inverse proportion to its rank.
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

// The text in a codec; empty where it does not decode the data.
QString decodedText(const QString &strCodec, const QByteArray &data)
{
    QTextCodec *pCodec = codecForName(strCodec);
    const bool bValid = isValidDecoding(pCodec, data, FullWidthSigns::Allowed);
    return bValid ? pCodec->toUnicode(data) : QString();
}

// This part does not depend on the text.
double priorScore(const SLanguageLetters &language, const QString &strCodec,
                  const QString &strLocale)
{
    double nScore = 0;
    if (strCodec.startsWith(QLatin1String("IBM")) || strCodec.contains(QLatin1String("mac")))
        nScore += g_nOldSystem;
    if (strLocale.startsWith(language.strLanguage))
        nScore += g_nOwnLanguage * language.strLanguage.size();
    return nScore;
}

} // namespace

QVector<SReading> readings(const QByteArray &data, const QString &strLocale)
{
    QHash<QString, QString> texts; // Decoded once for each codec, because many languages share one.
    QVector<SReading> lstReadings;
    for (const SLanguageLetters &language : languageLetters()) {
        for (const QString &strCodec : language.lstCodecs) {
            if (!texts.contains(strCodec))
                texts.insert(strCodec, decodedText(strCodec, data));
            const QString strText = texts.value(strCodec);
            if (strText.isEmpty())
                continue;
            const double nScore = CReading(language, codecForName(strCodec)).score(strText);
            if (nScore > g_nUnreadable) {
                lstReadings.append({strCodec, language.strLanguage, strText,
                                    nScore + priorScore(language, strCodec, strLocale)});
            }
        }
    }
    std::stable_sort(lstReadings.begin(), lstReadings.end(),
                     [](const SReading &a, const SReading &b) { return a.nScore > b.nScore; });
    return lstReadings;
}
