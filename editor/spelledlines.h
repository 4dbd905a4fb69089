#pragma once

#include "spelling/spellwords.h"

#include <functional>

class QTextBlock;

// Which words of a source text are misspelt. Only comments and strings hold words, as far as the
// highlighter has found them; a text without a language holds nothing else. GUI thread only.

using WordCheck = std::function<bool(const QString &strWord)>; // True for a right one.

// The misspelt words of one line.
QVector<SSpellWord> misspeltWords(const QTextBlock &block, bool bHasLanguage,
                                  const WordCheck &isCorrect);

// The first that ends behind the place, in the document's own positions; one of no length where the
// next nMostLines lines have none.
SSpellWord nextMisspeltWord(const QTextBlock &first, int nPosition, bool bHasLanguage,
                            const WordCheck &isCorrect, int nMostLines);
