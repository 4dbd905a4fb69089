#pragma once

#include <QChar>

// How characters outside ASCII stand in words, for telling a right reading of bytes from a wrong
// one. Scores are logarithms of likelihoods, at most 0. Pure functions, thread-safe.

// Outside ASCII.
bool isForeign(QChar c);

// True for what no text holds: control characters outside ASCII, unassigned and private ones, and
// U+FFFD.
bool isUnreadable(QChar c);

// A letter, or a mark on one.
bool isWordPart(QChar c);

// For a foreign character that is no part of a word: how usual it is, and whether it stands where
// such signs stand.
double signScore(QChar c, QChar before, QChar after);

// For a foreign letter: how unlikely it is beside its neighbours. A word keeps to one script, and
// only its first letter is a capital.
double placeScore(QChar c, QChar before, QChar after);
