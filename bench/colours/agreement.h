#pragma once

#include "highlight/chighlightmgt.h"

#include <QString>

// The options of the comparison.
struct SOptions
{
    QString strRoot;
    QString strOnly; // The only language.
    bool bOthers = false; // Other files than those of the list of places that were looked at.
};

// Prints the table with a row per language. Of a single language also the runs of wrong lines and
// the peer's styles.
void printAgreement(const CHighlightMgt &registry, const SOptions &options);
