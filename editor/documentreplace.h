#pragma once

#include "editor/linesearch.h"

#include <QDeadlineTimer>
#include <QTextCursor>

struct SLineReplacement;

// Replaces every match from the document's one end to its other. The document is left as by finding
// and replacing the matches one by one. In a changed line the whole text is set at once, which is
// several times faster; but lines that hold an end of the cursor keep are changed match by match,
// so that cursors in them stay with their text.
class CDocumentReplacer
{
public:
    // pEdit makes the edits; an edit block opened on it makes them one step of undo. The text must
    // not hold ends of lines (see holdsBlockEnd()).
    //
    // nPiece: how many characters are searched before the time is asked for again.
    CDocumentReplacer(QTextCursor *pEdit, const CLineSearch &search, const QString &strReplace,
                      const QTextCursor &keep, int nPiece = 1 << 18);

    // The number of matches.
    int run();

    // The same in pieces: works until that time, at least on one line or one piece. False when all
    // is done. In between the text must not change.
    bool advance(const QDeadlineTimer &until);
    int count() const { return m_nCount; } // Of the matches so far.
    bool hasEdited() const { return m_bEdited; }
    // Counts characters of the text as it was at the beginning.
    int done() const;
    int length() const { return m_strDocument.length(); }

private:
    void begin();
    bool isAtEnd() const;
    void stepForward();
    void stepUpwards();
    SLineReplacement replaceLine(const SRunMatch &found, int nShift);
    void apply(int nLineStart, int nLineLength, const SLineReplacement &replacement);
    bool isKept(int nLineStart, int nLineLength) const;

    QTextCursor *m_pEdit;
    const CLineSearch m_search;
    const QString m_strReplace;
    const QTextCursor m_keep;
    const int m_nPiece;
    bool m_bBegun = false;
    bool m_bEdited = false;
    QString m_strDocument; // Before the first edit; paragraph separators end the lines.
    int m_nPlace = 0; // Where the work goes on; searching up, behind what is still to be searched.
    int m_nPieceEnd = -1; // The end of a line that the work has not passed, or -1.
    int m_nShift = 0; // By how much the lines done have become longer.
    bool m_bFromLineEnd = true;
    int m_nCount = 0;
};

// True when a text document would begin a new block in the text.
bool holdsBlockEnd(const QString &strText);
