#pragma once

#include <QString>

// A text of many line ends, edited where all are one. Pure functions.

// The edited text with the line ends that its lines had in the original, where these lines are
// still there; new lines end as strEdited has it.
QString withKeptLineEnds(const QString &strOriginal, const QString &strEdited);
