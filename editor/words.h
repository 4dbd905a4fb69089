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

// The word that holds the place or touches it; without one, the place with no length.
SWord wordAt(const QString &strLine, int nPlace);
