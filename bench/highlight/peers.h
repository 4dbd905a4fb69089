#pragma once

#include "corpus.h"

#include <QVariant>

// Seconds that one engine takes to colour a corpus; negative when it is not there or knows no such
// language. Preparing the engine and its text is not counted.

double secondsOfOurs(const QVariantMap &mapDefinition, const SCorpus &corpus);
double secondsOfLiteral(const QVariantMap &mapDefinition, const SCorpus &corpus);
double secondsOfKSyntaxHighlighting(const SCorpus &corpus);
double secondsOfScintilla(const SCorpus &corpus);
