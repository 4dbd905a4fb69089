#pragma once

#include "editor/linesearch.h"

#include <QDeadlineTimer>
#include <QTextCursor>

struct SLineReplacement;

// Replaces every match from one end of the document to the other. The result is the same as finding
// and replacing the matches one by one. A changed line gets its whole text at once, which is
// several times faster. But a line with an end of the cursor keep is changed match by match, so
// that cursors in it stay with their text.
class CDocumentReplacer
{
public:
    // pEdit makes the edits; an edit block opened on it makes them one step of undo. The text must
    // not hold ends of lines (see holdsBlockEnd()).
    //
    // nPiece is how many characters are searched before the clock is read again.
    CDocumentReplacer(QTextCursor *pEdit, const CLineSearch &search, const QString &strReplace,
                      const QTextCursor &keep, int nPiece = 1 << 18);

    // The number of matches.
    int run();

    // The same in pieces: works until that time, at least on one line or one piece. False when all
    // is done. The text must not change between the calls.
    bool advance(const QDeadlineTimer &until);
    int count() const { return m_nCount; } // The number of matches so far.
    bool hasEdited() const { return m_bEdited; }
    // In characters of the text at the beginning.
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
    // The place where the work goes on. When searching up, it is the end of the text that is still
    // to be searched.
    int m_nPlace = 0;
    int m_nPieceEnd = -1; // The end of the cursor in a line that is still to come, or -1.
    int m_nShift = 0; // How much longer the finished lines have become.
    bool m_bFromLineEnd = true;
    int m_nCount = 0;
};

// True when a text document would begin a new block in the text.
bool holdsBlockEnd(const QString &strText);
