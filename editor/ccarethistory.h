#pragma once

#include "editor/ccarets.h"

#include <QVector>

// The carets around each command, for undo to bring back. A command is known by the number of undo
// steps that a document has before and after it. A value.
class CCaretHistory
{
public:
    struct SRecord
    {
        int nStepsBefore;
        int nStepsAfter;
        CCarets before;
        CCarets after;
    };

    // Forgets what this command has made impossible to redo.
    void add(const SRecord &record);
    // The last command has grown.
    void growLast(int nStepsAfter, const CCarets &after);
    // Something else has become the step with that number.
    void forgetFrom(int nStepsAfter);
    void clear() { m_lst.clear(); }

    // What the next undo or redo takes back or does again; null when it is no command.
    const SRecord *undoneFrom(int nSteps) const;
    const SRecord *redoneFrom(int nSteps) const;

private:
    QVector<SRecord> m_lst; // By the number of steps.
};
