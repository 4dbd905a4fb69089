#include "editor/spelledlines.h"

#include "editor/bracketlines.h"

#include <QBitArray>
#include <QTextBlock>

namespace {

const int g_nLongestLine = 10000; // Characters; nobody writes prose in a longer one.

// Text that is not checked becomes blanks, so that places stay the same.
QString proseOf(const QTextBlock &block, bool bHasLanguage)
{
    QString strText = block.text();
    if (!bHasLanguage)
        return strText;
    const QBitArray inside = commentsAndStrings(block);
    for (int n = 0; n < strText.size(); ++n)
        if (!inside.testBit(n))
            strText[n] = QLatin1Char(' ');
    return strText;
}

} // namespace

QVector<SSpellWord> misspeltWords(const QTextBlock &block, bool bHasLanguage,
                                  const WordCheck &isCorrect)
{
    QVector<SSpellWord> lst;
    if (block.length() > g_nLongestLine)
        return lst;
    const QString strText = proseOf(block, bHasLanguage);
    const QVector<SSpellWord> lstWords = spellWords(strText);
    for (const SSpellWord &word : lstWords)
        if (!isCorrect(strText.mid(word.nStart, word.nLength)))
            lst.append(word);
    return lst;
}

SSpellWord nextMisspeltWord(const QTextBlock &first, int nPosition, bool bHasLanguage,
                            const WordCheck &isCorrect, int nMostLines)
{
    QTextBlock block = first;
    for (int n = 0; n < nMostLines && block.isValid(); ++n) {
        const QVector<SSpellWord> lstWords = misspeltWords(block, bHasLanguage, isCorrect);
        for (const SSpellWord &word : lstWords)
            if (block.position() + word.end() > nPosition)
                return {block.position() + word.nStart, word.nLength};
        block = block.next();
    }
    return {};
}
