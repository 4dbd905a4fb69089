#pragma once

#include "highlight/ccompacttext.h"

#include <vector>

// A text as it was at one moment. It shares its memory with its store: taking it copies no
// character, and later edits copy only the runs of lines that they touch. A value; any thread.
class CStoredText
{
public:
    // The lines without their line ends, one after the other.
    void append(const CCompactText &text, std::vector<int> lstLengths);

    // The text with LF between lines.
    QString text() const;

private:
    struct SRun
    {
        CCompactText text;
        std::vector<int> lstLengths; // UTF-16 units of each line.
    };
    std::vector<SRun> m_lstRuns;
};
