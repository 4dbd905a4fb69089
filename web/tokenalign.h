#pragma once

#include <QVector>

// Finds what two sequences have in common. Pure functions.

// For each element of a the index of its partner in b, or -1. Partners are equal and in the same
// order. If the sequences differ little, this is close to the longest such pairing; if they differ
// much, it is coarser, so that the time stays nearly linear.
QVector<int> alignSequences(const QVector<quint64> &lstA, const QVector<quint64> &lstB);
