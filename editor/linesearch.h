#pragma once

#include <QRegExp>
#include <QString>

// How a text is searched for.
struct SearchOptions
{
    bool bMatchCase = false;
    bool bWholeWord = false;
    bool bSearchUp = false;
    bool bRegExp = false; // QRegExp::RegExp syntax.
};

// A place in a line, in UTF-16 units.
struct LineMatch
{
    int nStart = -1;
    int nLength = 0;
    bool isValid() const { return nStart >= 0; }
    int end() const { return nStart + nLength; }
};

// The search for one text within single lines. Reentrant, but one object serves one thread.
class CLineSearch
{
public:
    // strText must not be empty.
    CLineSearch(const QString &strText, const SearchOptions &options);

    const SearchOptions &options() const { return m_options; }

    // The line's one candidate, seen from nOffset on (searching up: from nOffset back; -1 is the
    // line's last character), where it is not empty and passes the whole-word test. A candidate
    // that fails gives no match: the rest of the line is not tried. A whole word is one that no
    // letter or digit touches; the underscore separates words here.
    LineMatch find(const QString &strLine, int nOffset) const;

    // True when the text matches all of strSelected, which stands alone: what a regular expression
    // demands of its surroundings cannot be met.
    bool matchesExactly(const QString &strSelected) const;

    // How many characters behind the start of a match decide about it; -1 when any may.
    int reach() const { return m_options.bRegExp ? -1 : m_strText.length(); }

private:
    bool passesWordTest(const QString &strLine, const LineMatch &match) const;
    LineMatch candidate(const QString &strLine, int nOffset) const;

    QString m_strText;
    SearchOptions m_options;
    Qt::CaseSensitivity m_case;
    mutable QRegExp m_regExp; // Remembers its last match, hence one thread.
};
