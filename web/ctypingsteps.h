#pragma once

#include <QString>

// Divides typing into steps of undo: at Enter, at a pause of a second, after 20 words, and when the
// owner says so (a save, a change of format). A value, no widgets.
class CTypingSteps
{
public:
    // A key that changes the text comes, at a time in milliseconds. True when it begins a new step.
    bool type(const QString &strText, bool bEnter, qint64 nTime);
    // The owner has ended the step: what comes next begins one without type() saying so.
    void start();
    // Nothing has come since.
    bool isStarted() const { return m_bStarted; }

private:
    qint64 m_nLastTime = 0;
    int m_nWords = 0; // That were begun in this step.
    bool m_bInWord = false;
    bool m_bEnded = false;
    bool m_bStarted = true;
};
