#pragma once

#include <QHash>
#include <QString>

// Stand-ins for the characters that a text document cannot hold, because it takes them for the end
// of a paragraph or a frame: U+2029, U+FDD0 and U+FDD1. So an opened text can be saved unchanged.
//
// A stand-in is a non-character that does not occur in the text it is chosen for.
class CStandIns
{
public:
    // The text for the document. Forgets the stand-ins chosen before.
    QString hide(const QString &strText);

    // The original text: each stand-in that survived the editing becomes its character again.
    QString restore(const QString &strText) const;

private:
    QHash<QChar, QChar> m_mapOriginals; // From stand-in to character.
};
