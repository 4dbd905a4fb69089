#pragma once

#include <QSet>
#include <QStringList>
#include <QVariantMap>

#include <functional>

class CLineStore;

// What can be offered for the beginning of a word, without a widget.

// The place of the word that is typed, so that it is not offered for itself. Lines count from 0.
struct STypedWord
{
    QString strBeginning;
    int nLine = 0;
    int nStart = 0;
};

// The words of the line that begin like it, in any letter case, and are longer. nStart: of the word
// that is typed in this line, or -1.
void addWordsLike(const QString &strBeginning, const QString &strLine, int nStart,
                  QSet<QString> *pWords);

// The language's keywords that are words.
QStringList keywordsOf(const QVariantMap &mapDefinition);

// Words of the text and keywords that begin like the typed one, in the order of the alphabet, not
// more than a list can be looked through for. On any thread; empty when the text has another
// version or isCancelled says true.
QStringList wordsToOffer(const CLineStore &lines, uint nVersion, const QVariantMap &mapDefinition,
                         const STypedWord &typed, const std::function<bool()> &isCancelled);
