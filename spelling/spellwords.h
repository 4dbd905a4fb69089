#pragma once

#include <QString>
#include <QVector>

// Words of a text that a dictionary can judge. Pure functions, thread-safe.

// Its place in the text, in UTF-16 units.
struct SSpellWord
{
    int nStart = 0;
    int nLength = 0;
    int end() const { return nStart + nLength; }
    bool operator==(const SSpellWord &other) const
    {
        return nStart == other.nStart && nLength == other.nLength;
    }
};

// The words in order, cut by the rules of Unicode Standard Annex 29, so "don't" is one word. Leaves
// out what is no word of a language: single letters, abbreviations in capitals, names with digits,
// "_" or a capital inside, parts of addresses and paths, and scripts without blanks.
QVector<SSpellWord> spellWords(const QString &strText);

// The word that contains or touches the place; if two touch it, the one that begins there. A word
// of length 0 if there is none.
SSpellWord spellWordAt(const QString &strText, int nPlace);

// Gives the word as dictionaries spell it: with a straight apostrophe and without soft hyphens.
QString dictionaryForm(const QString &strWord);
