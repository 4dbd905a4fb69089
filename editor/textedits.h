#pragma once

#include "editor/ccarets.h"

#include <QString>
#include <QVector>

// A range of a text and its replacement. "\n" ends a line.
struct STextEdit
{
    int nStart;
    int nLength;
    QString strText;
};

// Disjoint edits in the order of the text. All places are those before the first edit.
using TextEdits = QVector<STextEdit>;

// The effect of a command: its edits, and the carets after them. Without edits it does nothing.
struct SCommand
{
    TextEdits lstEdits;
    CCarets carets;
    bool isNothing() const { return lstEdits.isEmpty(); }
};

// Translates places of a text to places after edits. A place at an insertion stays before it. A
// place in a replaced range keeps its distance from the range's start, as far as the new text
// reaches.
class CPositionMap
{
public:
    explicit CPositionMap(const TextEdits &lstEdits);

    int map(int nPosition) const;
    SCaret map(const SCaret &caret) const { return {map(caret.nAnchor), map(caret.nPosition)}; }
    CCarets map(const CCarets &carets) const;

private:
    TextEdits m_lstEdits;
    QVector<int> m_lstGrowth; // The change of length by all edits before the one with that number.
};

class QTextDocument;

// Makes the edits as one step of undo, or as part of the last one. When the step is undone, the
// cursor goes to nCursor. Text typed next is a separate step, wherever it is typed.
void applyEdits(QTextDocument *pDocument, const TextEdits &lstEdits, int nCursor, bool bJoinLast);
