#pragma once

#include <QBitArray>
#include <QString>

// Which bracket belongs to which, without a widget.

// Lines for the search, asked for one after the other, in either direction.
class CBracketLines
{
public:
    virtual ~CBracketLines() = default;

    // Makes that line the current one; false when it is out of reach.
    virtual bool goTo(int nLine) = 0;
    virtual QString text() const = 0;
    // A bit for each character of the current line that belongs to a comment or string; bits that
    // are missing are 0.
    virtual QBitArray inside() = 0;
};

struct SBracketMatch
{
    enum Result {
        Found,
        None, // The bracket has no partner.
        Beyond // The lines have come to an end before the text has.
    };
    Result result = None;
    int nLine = -1;
    int nInLine = -1;
    bool operator==(const SBracketMatch &other) const
    {
        return result == other.result && nLine == other.nLine && nInLine == other.nInLine;
    }
};

bool isBracket(QChar c);

// The partner of the bracket there: outside of comments and strings one that is outside, too;
// inside, one in the same comment or string. Other kinds of brackets do not count.
SBracketMatch matchingBracket(CBracketLines *pLines, int nLineCount, int nLine, int nInLine);
