#pragma once

#include "editor/ccarets.h"

#include <QVector>

// Remembers the carets around each command, so that undo can restore them. A command is identified
// by the document's number of undo steps before and after it. A value.
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

    // Forgets the commands that can no longer be redone after this one.
    void add(const SRecord &record);
    // The last command has grown.
    void growLast(int nStepsAfter, const CCarets &after);
    // Another change has become the step with that number.
    void forgetFrom(int nStepsAfter);
    void clear() { m_lst.clear(); }

    // The command that the next undo or redo is about; null when it is none.
    const SRecord *undoneFrom(int nSteps) const;
    const SRecord *redoneFrom(int nSteps) const;

private:
    QVector<SRecord> m_lst; // The keys are numbers of undo steps.
};
