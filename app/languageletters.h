#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// The foreign letters (outside ASCII) of a language, as its files in old encodings use them.
struct SLanguageLetters
{
    QString strLanguage; // The beginning of the names of its locales, in lower case.
    QStringList lstCodecs; // The codecs of its files, the likeliest first.
    QString strLetters; // In lower case, the most frequent first.
    // For the languages of many characters: the lead bytes of the everyday ones in lstCodecs. 0 for
    // an alphabet.
    int nFirstLead = 0;
    int nLastLead = 0;

    bool isAlphabet() const { return nFirstLead == 0; }
};

// Every language that the ranking of encodings knows.
const std::vector<SLanguageLetters> &languageLetters();
