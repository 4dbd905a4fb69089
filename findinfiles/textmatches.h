#pragma once

#include "editor/linesearch.h"
#include "findinfiles/findquery.h"

#include <atomic>

// Searches the text of one file, without files and threads.

// The lines of the text, divided as in the editor and joined by paragraph separators.
QString linesOfText(const QString &strText);

// The matches that Find Next would find one after another from the start of the text, at most
// nMost. Once bCancel is true, it ends early with those found so far.
QVector<SFileMatch> findMatches(const CLineSearch &search, const QString &strText, int nMost,
                                const std::atomic<bool> &bCancel);
