#pragma once

#include "editor/linesearch.h"

#include <QTextCursor>

struct LineReplacement;

// Replaces every match from the document's one end to its other. The document is left as by finding
// and replacing the matches one by one. In a changed line the whole text is set at once, which is
// several times faster; but lines that hold an end of the cursor keep are changed match by match,
// so that cursors in them stay with their text.
class CDocumentReplacer
{
public:
    // pEdit makes the edits; an edit block opened on it makes them one step of undo. The text must
    // not hold ends of lines (see holdsBlockEnd()).
    CDocumentReplacer(QTextCursor *pEdit, const CLineSearch &search, const QString &strReplace,
                      const QTextCursor &keep);

    // The number of matches.
    int run();

private:
    void runForward();
    void runUpwards();
    LineReplacement replaceLine(const RunMatch &found, int nShift);
    void apply(int nLineStart, int nLineLength, const LineReplacement &replacement);
    bool isKept(int nLineStart, int nLineLength) const;

    QTextCursor *m_pEdit;
    const CLineSearch &m_search;
    const QString m_strReplace;
    const QTextCursor m_keep;
    QString m_strDocument; // Before the first edit; paragraph separators end the lines.
    int m_nCount = 0;
};

// True when a text document would begin a new block in the text.
bool holdsBlockEnd(const QString &strText);
