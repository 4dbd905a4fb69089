#pragma once

#include "highlight/chighlightmgt.h"

#include <QString>

// The options of the comparison.
struct SOptions
{
    QString strRoot;
    QString strOnly; // the only language
    bool bOthers = false; // files that the list of looked-at places is not about
};

// Prints the table with a row per language. Of a single language also the runs of wrong lines and
// the peer's styles.
void printAgreement(const CHighlightMgt &registry, const SOptions &options);
