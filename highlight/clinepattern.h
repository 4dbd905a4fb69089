#pragma once

#include <QRegExp>
#include <QString>

// A case-sensitive pattern of a definition, such as the start of a comment. Most are plain text and
// searched for as such; the others are a QRegExp. One that is not valid is found nowhere.
// Not to be used by two threads at a time: QRegExp keeps its last match.
class CLinePattern
{
public:
    CLinePattern() = default;
    explicit CLinePattern(const QString &strPattern);

    bool isEmpty() const { return m_bEmpty; }
    // The first match from nFrom on, -1 when there is none. "^" stands for the start of the line.
    int indexIn(const QString &strText, int nFrom) const;
    // Of the match found last, in UTF-16 code units; may be 0 for a QRegExp.
    int matchedLength() const;

    // The text that a QRegExp pattern stands for if it is plain; a null string when it is not.
    static QString plainText(const QString &strPattern);

private:
    bool m_bEmpty = true;
    QString m_strPlain; // empty: m_rx decides
    QRegExp m_rx;
};
