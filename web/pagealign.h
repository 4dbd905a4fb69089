#pragma once

#include "web/pagetokens.h"

// For each piece of a page's serialisation the piece of its source that it comes from, or -1 for
// tags that the source leaves out. Pieces of the source that browsers drop have no partner either.
QVector<int> sourceOfPieces(const QString &strSource, const PageTokens &lstSource,
                            const QString &strSerialised, const PageTokens &lstSerialised);

// The partners in lstNow of the pieces of lstOld, or -1. Both are serialisations of one page.
QVector<int> alignPieces(const PageTokens &lstOld, const PageTokens &lstNow);
// Pairs loosely: a tag with a tag of the same name, a word with any word.
QVector<int> alignLoosely(const PageTokens &lstOld, const PageTokens &lstNow);
