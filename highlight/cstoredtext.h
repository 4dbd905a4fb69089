#pragma once

#include "highlight/ccompacttext.h"

#include <vector>

// A text as it was at one moment, sharing its memory with the store that it comes from: taking it
// copies no character, and later edits copy only the runs of lines that they touch. A value; any
// thread.
class CStoredText
{
public:
    // Lines without their ends, one behind the other.
    void append(const CCompactText &text, std::vector<int> lstLengths);

    // With LF between lines.
    QString text() const;

private:
    struct SRun
    {
        CCompactText text;
        std::vector<int> lstLengths; // UTF-16 units of each line.
    };
    std::vector<SRun> m_lstRuns;
};
