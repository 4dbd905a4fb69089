#pragma once

#include <QChar>

// Judges how characters outside ASCII stand in words, which tells a right reading of bytes from a
// wrong one. Scores are logarithms of likelihoods, at most 0. Pure functions, thread-safe.

// True for a character outside ASCII.
bool isForeign(QChar c);

// True for characters that no text holds: control characters outside ASCII, unassigned and private
// ones, and U+FFFD.
bool isUnreadable(QChar c);

// True for a letter or a mark on one.
bool isWordPart(QChar c);

// The score of a foreign character that is no part of a word. It depends on how usual the character
// is and whether it stands where such signs stand.
double signScore(QChar c, QChar before, QChar after);

// The score of a foreign letter beside its neighbours. A word keeps to one script, and only its
// first letter is a capital.
double placeScore(QChar c, QChar before, QChar after);
