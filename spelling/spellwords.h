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

// In order. Words are cut as Unicode Standard Annex 29 says, so "don't" is one. Left out is what is
// no word of a language: single letters, abbreviations in capitals, names with digits, "_" or a
// capital within, parts of addresses and of paths, and scripts that write no blanks.
QVector<SSpellWord> spellWords(const QString &strText);

// The word that holds the place or touches it; of two the one that begins there. Without one, a
// word of no length.
SSpellWord spellWordAt(const QString &strText, int nPlace);

// Gives the word as dictionaries spell it: with a straight apostrophe and without soft hyphens.
QString dictionaryForm(const QString &strWord);
