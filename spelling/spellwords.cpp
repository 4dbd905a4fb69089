#include "spelling/spellwords.h"

#include <QTextBoundaryFinder>

namespace {

const int g_nLongestWord = 60; // Anything longer was not meant as a word.
const QChar g_softHyphen(0x00ad);
const QChar g_curvedApostrophe(0x2019);

bool writesNoBlanks(QChar::Script script)
{
    switch (script) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

// Characters that occur within a name but in no word.
bool isOfNames(QChar c)
{
    return c.isNumber() || c == QLatin1Char('_') || writesNoBlanks(c.script()) || c.isSurrogate();
}

// Only the first letter may be a capital. An abbreviation of capitals is no word either.
bool hasCapitalWithin(const QStringRef &strWord)
{
    for (int n = 1; n < strWord.size(); ++n) {
        const bool bAfterApostrophe = !strWord.at(n - 1).isLetter() && !strWord.at(n - 1).isMark();
        if (strWord.at(n).isUpper() && !bAfterApostrophe)
            return true;
    }
    return false;
}

bool isWord(const QStringRef &strWord)
{
    if (strWord.size() < 2 || strWord.size() > g_nLongestWord || hasCapitalWithin(strWord))
        return false;
    bool bLetter = false;
    for (const QChar c : strWord) {
        if (isOfNames(c))
            return false;
        bLetter = bLetter || c.isLetter();
    }
    return bLetter;
}

// The text between the blanks around the place.
QStringRef pieceAround(const QString &strText, const SSpellWord &word)
{
    int nStart = word.nStart;
    while (nStart > 0 && !strText.at(nStart - 1).isSpace())
        --nStart;
    int nEnd = word.end();
    while (nEnd < strText.size() && !strText.at(nEnd).isSpace())
        ++nEnd;
    return strText.midRef(nStart, nEnd - nStart);
}

// "page.html", "std::sort": no blank where a sentence would have one.
bool hasJoiningPoint(const QStringRef &strPiece)
{
    for (int n = 1; n + 1 < strPiece.size(); ++n) {
        const QChar c = strPiece.at(n);
        if (c == QLatin1Char(':') && strPiece.at(n + 1) == c)
            return true;
        if (c == QLatin1Char('.') && strPiece.at(n - 1).isLetterOrNumber()
            && strPiece.at(n + 1).isLetterOrNumber())
            return true;
    }
    return false;
}

// An address of the web or of mail, a path, a name of a program's part, an option of a command.
bool isAddress(const QStringRef &strPiece)
{
    return hasJoiningPoint(strPiece) || strPiece.contains(QLatin1String("://"))
        || strPiece.contains(QLatin1Char('@')) || strPiece.contains(QLatin1Char('\\'))
        || strPiece.startsWith(QLatin1Char('/')) || strPiece.startsWith(QLatin1String("--"))
        || strPiece.startsWith(QLatin1String("~/")) || strPiece.startsWith(QLatin1String("./"))
        || strPiece.count(QLatin1Char('/')) > 1 || strPiece.startsWith(QLatin1String("www."));
}

} // namespace

QVector<SSpellWord> spellWords(const QString &strText)
{
    QVector<SSpellWord> lst;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, strText);
    int nStart = -1;
    int nPieceEnd = 0; // The end of the last address; words of an address are left out.
    for (int n = 0; n >= 0; n = finder.toNextBoundary()) {
        const QTextBoundaryFinder::BoundaryReasons reasons = finder.boundaryReasons();
        if (reasons & QTextBoundaryFinder::EndOfItem && nStart >= nPieceEnd) {
            const SSpellWord word {nStart, n - nStart};
            if (isWord(strText.midRef(nStart, word.nLength))) {
                const QStringRef strPiece = pieceAround(strText, word);
                if (isAddress(strPiece))
                    nPieceEnd = strPiece.position() + strPiece.size();
                else
                    lst.append(word);
            }
        }
        if (reasons & QTextBoundaryFinder::StartOfItem)
            nStart = n;
    }
    return lst;
}

SSpellWord spellWordAt(const QString &strText, int nPlace)
{
    SSpellWord found;
    const QVector<SSpellWord> lstWords = spellWords(strText);
    for (const SSpellWord &word : lstWords)
        if (word.nStart <= nPlace && nPlace <= word.end())
            found = word;
    return found;
}

QString dictionaryForm(const QString &strWord)
{
    QString strForm = strWord;
    strForm.remove(g_softHyphen);
    return strForm.replace(g_curvedApostrophe, QLatin1Char('\''));
}
