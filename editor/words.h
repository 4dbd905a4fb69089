#pragma once

#include <QString>

// A word in a line, in UTF-16 units: letters, digits, marks and "_".
struct SWord
{
    int nStart = 0;
    int nLength = 0;
    int end() const { return nStart + nLength; }
};

bool isWordCharacter(QChar c);

// The word that contains or touches the place. If there is none, a word of length 0 there.
SWord wordAt(const QString &strLine, int nPlace);
