#include "editor/completionwords.h"

#include "editor/words.h"
#include "highlight/clinestore.h"

#include <algorithm>

namespace {

const int g_nMostOffered = 1000;
const int g_nShortest = 2;
const int g_nLongest = 100; // Longer ones are data.

bool isOffered(const QString &strWord, const QString &strBeginning)
{
    return strWord.length() >= g_nShortest && strWord.length() <= g_nLongest
        && strWord.length() > strBeginning.length() && !strWord.at(0).isDigit()
        && strWord.startsWith(strBeginning, Qt::CaseInsensitive);
}

bool isWord(const QString &strText)
{
    return std::all_of(strText.cbegin(), strText.cend(), isWordCharacter);
}

bool comesBefore(const QString &strLeft, const QString &strRight)
{
    const int nOrder = strLeft.compare(strRight, Qt::CaseInsensitive);
    return nOrder != 0 ? nOrder < 0 : strLeft < strRight;
}

} // namespace

void addWordsLike(const QString &strBeginning, const QString &strLine, int nStart,
                  QSet<QString> *pWords)
{
    for (int n = 0; n < strLine.length();) {
        if (!isWordCharacter(strLine.at(n))) {
            ++n;
            continue;
        }
        int nEnd = n;
        while (nEnd < strLine.length() && isWordCharacter(strLine.at(nEnd)))
            ++nEnd;
        // Compares before it copies, because most words begin otherwise.
        const QStringRef strFirst = strLine.midRef(n, strBeginning.length());
        if (n != nStart && strFirst.compare(strBeginning, Qt::CaseInsensitive) == 0) {
            const QString strWord = strLine.mid(n, nEnd - n);
            if (isOffered(strWord, strBeginning))
                pWords->insert(strWord);
        }
        n = nEnd;
    }
}

QStringList keywordsOf(const QVariantMap &mapDefinition)
{
    QStringList lst;
    const QVariantMap mapLists = mapDefinition.value(QStringLiteral("highlighting")).toMap();
    for (auto it = mapLists.begin(); it != mapLists.end(); ++it) {
        if (it.key() == QLatin1String("reg_exp"))
            continue;
        const QStringList lstItems = it.value().toStringList();
        for (const QString &strItem : lstItems) {
            const QString strWord = strItem.trimmed();
            if (!strWord.isEmpty() && isWord(strWord))
                lst.append(strWord);
        }
    }
    return lst;
}

QStringList wordsToOffer(const CLineStore &lines, uint nVersion, const QVariantMap &mapDefinition,
                         const STypedWord &typed, const std::function<bool()> &isCancelled)
{
    QSet<QString> words;
    const QStringList lstKeywords = keywordsOf(mapDefinition);
    for (const QString &strWord : lstKeywords)
        if (isOffered(strWord, typed.strBeginning))
            words.insert(strWord);
    for (int nAt = 0;;) {
        const CLineStore::SBatch batch = lines.fetch(nVersion, nAt, CLineStore::Any);
        if (isCancelled() || lines.version() != nVersion)
            return QStringList();
        if (batch.lst.empty())
            break;
        for (const CLineStore::SLine &line : batch.lst) {
            addWordsLike(typed.strBeginning, line.strText, nAt == typed.nLine ? typed.nStart : -1,
                         &words);
            ++nAt;
        }
    }
    QStringList lst = words.values();
    std::sort(lst.begin(), lst.end(), comesBefore);
    return lst.mid(0, g_nMostOffered);
}
