#pragma once

#include "highlight/symbols.h"

#include <QString>
#include <vector>

// A line as the patterns see it: a symbol for each character and one for the line's end. It is made
// once for all searches in the line. Not to be used by two threads at a time.
class CSymbolLine
{
public:
    CSymbolLine() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a text is a line wherever one is asked for.
    CSymbolLine(const QString &strText) { assign(strText); }

    // Replaces the line and reuses its memory.
    void assign(const QString &strText);

    const QString &text() const { return m_strText; }
    int size() const { return m_strText.size(); }
    // size() + 1 of them, the last one being LineEndSymbol.
    const uchar *symbols() const { return m_lstSymbols.data(); }
    // The same with the capitals of ASCII as small letters.
    const uchar *folded() const;
    // Whether it holds a letter beyond ASCII that equals one of ASCII when letter case does not
    // count.
    bool hasFolding() const { return m_bFolding; }

private:
    void readOthers();

    QString m_strText;
    std::vector<uchar> m_lstSymbols {LineEndSymbol};
    bool m_bFolding = false;
    mutable std::vector<uchar> m_lstFolded;
    mutable bool m_bFolded = false;
};
