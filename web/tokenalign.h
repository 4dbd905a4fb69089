#pragma once

#include <QVector>

// Finds what two sequences have in common. Pure functions.

// For each element of a the index of its partner in b, or -1. Partners are equal and in the same
// order. Close to the longest such pairing where the sequences differ little; where they differ
// much, coarser, so that the time stays near to linear.
QVector<int> alignSequences(const QVector<quint64> &lstA, const QVector<quint64> &lstB);
