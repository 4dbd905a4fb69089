#pragma once

#include <QString>

// For a text with different line ends that was edited with a single kind. Pure functions.

// Gives the lines that still exist in the edited text their original line ends; new lines keep
// those of strEdited.
QString withKeptLineEnds(const QString &strOriginal, const QString &strEdited);
