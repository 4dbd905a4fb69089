#pragma once

#include <QString>

// Divides typing into steps of undo: at Enter, after a pause of a second, after 20 words, and when
// the owner asks for it (a save, a change of format). A value, no widgets.
class CTypingSteps
{
public:
    // A key that changes the text comes, at a time in milliseconds. True when it begins a new step.
    bool type(const QString &strText, bool bEnter, qint64 nTime);
    // The owner has ended the step. The next key begins a new one without type() telling it.
    void start();
    // No key has come since.
    bool isStarted() const { return m_bStarted; }

private:
    qint64 m_nLastTime = 0;
    int m_nWords = 0; // The number of words begun in this step.
    bool m_bInWord = false;
    bool m_bEnded = false;
    bool m_bStarted = true;
};
