#pragma once

#include <QSet>
#include <QStringList>
#include <QVariantMap>

#include <functional>

class CLineStore;

// Finds completions for the beginning of a word, without a widget.

// The place of the word that is being typed, so that it does not complete itself. Lines count from
// 0.
struct STypedWord
{
    QString strBeginning;
    int nLine = 0;
    int nStart = 0;
};

// The words of the line that begin alike, in any letter case, and are longer. nStart is the start
// of the word that is being typed in this line, or -1.
void addWordsLike(const QString &strBeginning, const QString &strLine, int nStart,
                  QSet<QString> *pWords);

// The language's keywords that are words.
QStringList keywordsOf(const QVariantMap &mapDefinition);

// Words of the text and keywords that begin like the typed one, in alphabetical order, and no more
// than fit a list. Any thread. Empty when the text has another version or isCancelled gives true.
QStringList wordsToOffer(const CLineStore &lines, uint nVersion, const QVariantMap &mapDefinition,
                         const STypedWord &typed, const std::function<bool()> &isCancelled);
