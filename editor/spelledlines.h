#pragma once

#include "spelling/spellwords.h"

#include <functional>

class QTextBlock;

// Finds the misspelt words of a source text. Only comments and strings are checked, as far as the
// highlighter has found them. A text without a language is checked as a whole. GUI thread only.

// Gives true for a word that is spelled right.
using WordCheck = std::function<bool(const QString &strWord)>;

// The misspelt words of one line.
QVector<SSpellWord> misspeltWords(const QTextBlock &block, bool bHasLanguage,
                                  const WordCheck &isCorrect);

// The first misspelt word that ends after the place, in positions of the document. Its length is 0
// if the next nMostLines lines have none.
SSpellWord nextMisspeltWord(const QTextBlock &first, int nPosition, bool bHasLanguage,
                            const WordCheck &isCorrect, int nMostLines);
