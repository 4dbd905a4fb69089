#pragma once

#include "highlight/clinepattern.h"
#include "highlight/csymbolline.h"
#include "highlight/highlightline.h"

// Finds comments and strings, the part of the rules that continues from line to line.
class CCommentScanner
{
public:
    // The arguments are patterns as they are. An empty start means that there is no such comment.
    void setSingleLine(const QString &strStart);
    void setMultiLine(const QString &strStart, const QString &strEnd);

    // Appends the ranges of comments and strings and sets the state bits that they leave.
    void scan(const CSymbolLine &line, int nPreviousState, SHighlightLine *pLine) const;

private:
    // Both give the position after the comment or string; endOfComment() gives -1 when it stays
    // open.
    int continueLineBefore(const CSymbolLine &line, int nPreviousState,
                           SHighlightLine *pLine) const;
    int endOfComment(const CSymbolLine &line, int nFrom) const;

    CLinePattern m_singleLine;
    CLinePattern m_multiLineStart;
    CLinePattern m_multiLineEnd;
};
