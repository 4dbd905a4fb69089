#pragma once

#include "web/pagetokens.h"

// For each piece of a page's serialisation the piece of its source that it comes from, or -1: for
// tags that the source leaves out. What browsers leave out of the source has no partner, either.
QVector<int> sourceOfPieces(const QString &strSource, const PageTokens &lstSource,
                            const QString &strSerialised, const PageTokens &lstSerialised);

// The partners in lstNow of the pieces of lstOld, or -1: two serialisations of one page.
QVector<int> alignPieces(const PageTokens &lstOld, const PageTokens &lstNow);
// Loosely: a tag with a tag of its name, a word with a word.
QVector<int> alignLoosely(const PageTokens &lstOld, const PageTokens &lstNow);
