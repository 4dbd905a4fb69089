#pragma once

#include <QRegExp>
#include <QString>
#include <QStringMatcher>

// The options of a search.
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
    int nLineStart = 0; // The start of the match's line in the run.
    int nLineLength = 0;
    SLineMatch match; // The place in that line.
    bool isValid() const { return match.isValid(); }
};

// Searches for one text within single lines. Reentrant, but each object belongs to one thread.
class CLineSearch
{
public:
    // strText must not be empty.
    CLineSearch(const QString &strText, const SSearchOptions &options);

    const SSearchOptions &options() const { return m_options; }

    // The line's only candidate: the first match from nOffset on, or when searching up, from
    // nOffset back (-1 is the line's last character). If it is empty or fails the whole-word test,
    // there is no match; the rest of the line is not tried. No letter or digit touches a whole
    // word; the underscore separates words here.
    SLineMatch find(const QString &strLine, int nOffset) const;

    // Finds the next match in the line from there on that a search could select; skips candidates
    // that fail or are empty.
    SLineMatch findAny(const QString &strLine, int nOffset) const;

    // Runs find() on each line of a run from nOffset on, which may be the end of a line. Searching
    // up goes line by line towards the start, where -1 means the run's last character. Only the
    // line that holds nOffset is searched in part.
    SRunMatch findInRun(const QString &strRun, int nOffset) const;

    // True when the text matches all of strSelected by itself. A regular expression that demands
    // something of its surroundings does not match.
    bool matchesExactly(const QString &strSelected) const;

    // How many characters from the start of a match on decide about it; -1 when there is no limit.
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
    mutable QRegExp m_regExp; // Remembers its last match, so it belongs to one thread.
};
