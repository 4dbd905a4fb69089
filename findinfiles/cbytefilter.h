#pragma once

#include "editor/linesearch.h"

#include <QByteArray>
#include <QByteArrayMatcher>

// Tells by a file's bytes that nothing can be found in it, which is so for most files and takes a
// tenth of the time that decoding and searching them would. Thread-safe.
class CByteFilter
{
public:
    CByteFilter(const QString &strText, const SSearchOptions &options);

    // False only when the search finds nothing in the data. The data is ASCII, or valid UTF-8 where
    // bAscii is false.
    bool mayMatch(const QByteArray &data, bool bAscii) const;
    // False when every data may match.
    bool isUseful() const { return !m_matcher.pattern().isEmpty(); }

private:
    // What the bytes of every match hold; in lower case where case is ignored.
    QByteArrayMatcher m_matcher;
    bool m_bIgnoreCase;
    bool m_bAsciiOnly = false; // Data that is not ASCII may hold the needle in other letters.
    bool m_bFolded = false; // Letters outside ASCII stand for some of the needle's.
};

// The longest text that is part of every match of a regular expression, as far as a short look at
// it tells; empty when it tells nothing.
QString requiredText(const QString &strExpression);
