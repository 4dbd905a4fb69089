#pragma once

#include "editor/linesearch.h"
#include "findinfiles/findquery.h"

#include <atomic>

// The search in the text of one file, apart from files and threads.

// The text's lines as the editor has them, joined by paragraph separators.
QString linesOfText(const QString &strText);

// The matches that pressing Find Next from the start of the text gives one after another, at most
// nMost. Ends early, with what it has, once bCancel is true.
QVector<SFileMatch> findMatches(const CLineSearch &search, const QString &strText, int nMost,
                                const std::atomic<bool> &bCancel);
