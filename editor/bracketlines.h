#pragma once

#include "editor/bracketmatch.h"
#include "highlight/chighlightrules.h"
#include "highlight/clinestore.h"

#include <QTextBlock>

#include <functional>

// Marks the characters of a block that its colours show as comments or strings, and the line's end.
// GUI thread.
QBitArray commentsAndStrings(const QTextBlock &block);

// The visible lines of a document, with their present colours. GUI thread.
class CShownLines : public CBracketLines
{
public:
    // Takes the lines from the first block to the last, both of one document.
    CShownLines(const QTextBlock &first, const QTextBlock &last);

    bool goTo(int nLine) override;
    QString text() const override { return m_block.text(); }
    QBitArray inside() override;

private:
    QTextBlock m_first;
    int m_nFirst;
    int m_nLast;
    QTextBlock m_block;
    int m_nCharsLeft; // As many lines as can be searched without a noticeable pause.
};

// All lines of the highlighter's copy, coloured again where the colours matter. Any thread, but one
// at a time.
class CStoredLines : public CBracketLines
{
public:
    // Every line is out of reach once the version is no longer current or isCancelled gives true.
    CStoredLines(const CLineStore &store, uint nVersion, const CHighlightRules &rules,
                 const std::function<bool()> &isCancelled);

    bool goTo(int nLine) override;
    QString text() const override { return line().strText; }
    QBitArray inside() override;

private:
    bool holds(int nLine) const;
    int stateBefore() const;
    void meetRegions();
    const CLineStore::SLine &line() const { return m_batch.lst[m_nLine - m_batch.nFirst]; }

    const CLineStore &m_store;
    const uint m_nVersion;
    const CHighlightRules &m_rules;
    const std::function<bool()> m_isCancelled;
    CLineStore::SBatch m_batch;
    int m_nLine = 0;
    bool m_bStrangeStates = false; // The states are of other rules.
};
