#pragma once

#include <QBitArray>
#include <QString>

// Finds the partners of brackets, without a widget.

// Gives the search its lines one after the other, in either direction.
class CBracketLines
{
public:
    virtual ~CBracketLines() = default;

    // Makes that line the current one; false when it is out of reach.
    virtual bool goTo(int nLine) = 0;
    virtual QString text() const = 0;
    // A bit for each character of the current line, set inside comments and strings. Missing bits
    // are 0.
    virtual QBitArray inside() = 0;
};

struct SBracketMatch
{
    enum Result {
        Found,
        None, // The bracket has no partner.
        Beyond // The lines end before the text does.
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

// Finds the partner of the bracket at that place. If it is outside of comments and strings, so is
// its partner; otherwise both are in the same comment or string. Other kinds of brackets do not
// count.
SBracketMatch matchingBracket(CBracketLines *pLines, int nLineCount, int nLine, int nInLine);
