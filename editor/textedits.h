#pragma once

#include "editor/ccarets.h"

#include <QString>
#include <QVector>

// A range of a text and what comes in its place. "\n" ends a line.
struct STextEdit
{
    int nStart;
    int nLength;
    QString strText;
};

// Edits in the order of the text, disjoint; all places are those before the first edit.
using TextEdits = QVector<STextEdit>;

// What a command does: its edits, and the carets after them. Without edits it does nothing.
struct SCommand
{
    TextEdits lstEdits;
    CCarets carets;
    bool isNothing() const { return lstEdits.isEmpty(); }
};

// Tells where places of a text are after edits. A place at an insertion stays in front of it. A
// place in a replaced range keeps its distance from the range's start as far as there is text.
class CPositionMap
{
public:
    explicit CPositionMap(const TextEdits &lstEdits);

    int map(int nPosition) const;
    SCaret map(const SCaret &caret) const { return {map(caret.nAnchor), map(caret.nPosition)}; }
    CCarets map(const CCarets &carets) const;

private:
    TextEdits m_lstEdits;
    QVector<int> m_lstGrowth; // By all edits before the one with that number.
};

class QTextDocument;

// Makes the edits as one step of undo, or as part of the last one. The cursor goes to nCursor when
// the step is undone. What is typed next is a step of its own, wherever it is typed.
void applyEdits(QTextDocument *pDocument, const TextEdits &lstEdits, int nCursor, bool bJoinLast);
