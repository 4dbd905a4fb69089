#pragma once

#include <QRegExp>
#include <QString>
#include <QStringMatcher>

// How a text is searched for.
struct SSearchOptions
{
    bool bMatchCase = false;
    bool bWholeWord = false;
    bool bSearchUp = false;
    bool bRegExp = false; // QRegExp::RegExp syntax.
};

// A place in a line, in UTF-16 units.
struct SLineMatch
{
    int nStart = -1;
    int nLength = 0;
    bool isValid() const { return nStart >= 0; }
    int end() const { return nStart + nLength; }
};

// A match in a run: whole lines joined by paragraph separators, as a text cursor selects them.
struct SRunMatch
{
    int nLineStart = 0; // Of the line that holds the match, in the run.
    int nLineLength = 0;
    SLineMatch match; // In that line.
    bool isValid() const { return match.isValid(); }
};

// The search for one text within single lines. Reentrant, but one object serves one thread.
class CLineSearch
{
public:
    // strText must not be empty.
    CLineSearch(const QString &strText, const SSearchOptions &options);

    const SSearchOptions &options() const { return m_options; }

    // The line's one candidate, seen from nOffset on (searching up: from nOffset back; -1 is the
    // line's last character), where it is not empty and passes the whole-word test. A candidate
    // that fails gives no match: the rest of the line is not tried. A whole word is one that no
    // letter or digit touches; the underscore separates words here.
    SLineMatch find(const QString &strLine, int nOffset) const;

    // Finds what a search could select in the line from there on; passes over candidates that fail
    // or are empty.
    SLineMatch findAny(const QString &strLine, int nOffset) const;

    // Runs find() on each line of a run from nOffset on, which may be the end of a line. Searching
    // up goes line by line towards the start, where -1 means the run's last character. Only the
    // line that holds nOffset is searched in part.
    SRunMatch findInRun(const QString &strRun, int nOffset) const;

    // True when the text matches all of strSelected, which stands alone: what a regular expression
    // demands of its surroundings cannot be met.
    bool matchesExactly(const QString &strSelected) const;

    // How many characters behind the start of a match decide about it; -1 when any may.
    int reach() const { return m_options.bRegExp ? -1 : m_strText.length(); }

private:
    SLineMatch candidate(const QString &strLine, int nOffset) const;
    SLineMatch rawCandidate(const QString &strLine, int nOffset) const;
    int plainIndex(const QString &strText, int nOffset) const;
    bool passesWordTest(const QString &strText, const SLineMatch &match) const;
    SRunMatch findPlainInRun(const QString &strRun, int nOffset) const;
    SRunMatch findExpressionInRun(const QString &strRun, int nOffset) const;

    QString m_strText;
    SSearchOptions m_options;
    Qt::CaseSensitivity m_case;
    QStringMatcher m_matcher;
    mutable QRegExp m_regExp; // Remembers its last match, hence one thread.
};
