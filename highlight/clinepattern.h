#pragma once

#include "highlight/canchoredpattern.h"
#include "highlight/crequiredcharacters.h"
#include "highlight/csymbolline.h"

#include <QRegExp>
#include <QString>
#include <optional>

// A pattern of a definition. It finds what QRegExp finds, which is the authority, but plain text is
// searched for as such and most other patterns are run by a state machine; QRegExp itself does the
// rest. A pattern that is not valid is found nowhere.
// Not to be used by two threads at a time.
class CLinePattern
{
public:
    CLinePattern() = default;
    explicit CLinePattern(const QString &strPattern,
                          Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

    bool isEmpty() const { return m_bEmpty; }
    bool isValid() const { return m_bValid; }
    // What a line that holds a match has to hold.
    const CRequiredCharacters &required() const { return m_required; }
    // The first match from nFrom on and in it the longest; -1 when there is none. "^" stands for
    // the start of the line.
    int indexIn(const CSymbolLine &line, int nFrom) const;
    // Length of the match found last, in UTF-16 code units; may be 0.
    int matchedLength() const { return m_nLength; }

    // The text that a pattern stands for if it is plain; a null string when it is not.
    static QString plainText(const QString &strPattern);
    // The machine that finds it; null when only QRegExp can, as in a line with letters that equal
    // others when case does not count.
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
