#pragma once

#include <QString>
#include <QVector>

// A character with its Unicode name in small letters.
struct SSpecialCharacter
{
    uint nCode = 0;
    QString strName;

    QString text() const { return QString::fromUcs4(&nCode, 1); }
    // What shows it: itself, or letters of its name where it is not to be seen.
    QString shown() const;
};

// Those that are often wanted and on no keyboard; read once.
const QVector<SSpecialCharacter> &specialCharacters();

// Those whose names have a word that begins with each word of the text, that have its number
// ("2014", "u+2014"), or are it. All of them for an empty text.
QVector<SSpecialCharacter> findCharacters(const QString &strText);
