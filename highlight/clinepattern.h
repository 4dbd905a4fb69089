#pragma once

#include "highlight/canchoredpattern.h"
#include "highlight/crequiredcharacters.h"
#include "highlight/csymbolline.h"

#include <QRegExp>
#include <QString>
#include <optional>

// A pattern of a definition. It finds exactly what QRegExp finds. Plain text is searched for
// directly, a state machine runs most other patterns, and QRegExp does the rest. A pattern that is
// not valid is found nowhere. Not to be used by two threads at a time.
class CLinePattern
{
public:
    CLinePattern() = default;
    explicit CLinePattern(const QString &strPattern,
                          Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

    bool isEmpty() const { return m_bEmpty; }
    bool isValid() const { return m_bValid; }
    // The characters that a line with a match must contain.
    const CRequiredCharacters &required() const { return m_required; }
    // The position of the first match from nFrom on, the longest one there; -1 when there is none.
    // "^" stands for the start of the line.
    int indexIn(const CSymbolLine &line, int nFrom) const;
    // Length of the match found last, in UTF-16 code units; may be 0.
    int matchedLength() const { return m_nLength; }

    // The text that a pattern stands for if it is plain; a null string when it is not.
    static QString plainText(const QString &strPattern);
    // The machine for this line; null when only QRegExp can search it, for example because case
    // does not count and the line has letters that fold into ASCII.
    CAnchoredPattern *machineFor(const CSymbolLine &line) const;

private:
    int indexOfPlain(const CSymbolLine &line, int nFrom) const;
    int indexByAutomaton(CAnchoredPattern *pMachine, const CSymbolLine &line, int nFrom) const;

    bool m_bEmpty = true;
    bool m_bValid = true;
    Qt::CaseSensitivity m_sensitivity = Qt::CaseSensitive;
    CRequiredCharacters m_required;
    QString m_strPlain;
    // The searching thread makes it when it first needs it.
    mutable std::optional<CAnchoredPattern> m_machine;
    QRegExp m_rx;
    mutable int m_nLength = -1;
};
