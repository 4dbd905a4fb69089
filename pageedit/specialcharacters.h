#pragma once

#include <QString>
#include <QVector>

// A character with its Unicode name in small letters.
struct SSpecialCharacter
{
    uint nCode = 0;
    QString strName;

    QString text() const { return QString::fromUcs4(&nCode, 1); }
    // The text that shows it: the character, or letters of its name if it is invisible.
    QString shown() const;
};

// Characters that are often wanted and on no keyboard; read once.
const QVector<SSpecialCharacter> &specialCharacters();

// The characters that a text finds: by words of their names that begin like its words, by their
// number ("2014", "u+2014"), or by the character itself. All of them for an empty text.
QVector<SSpecialCharacter> findCharacters(const QString &strText);
