#pragma once

#include "editor/bracketmatch.h"
#include "highlight/chighlightrules.h"
#include "highlight/clinestore.h"

#include <QTextBlock>

#include <functional>

// The characters of a block that its colours show as comments or strings, and the line's end. GUI
// thread.
QBitArray commentsAndStrings(const QTextBlock &block);

// The lines of a document that are shown, with the colours that they have. GUI thread.
class CShownLines : public CBracketLines
{
public:
    // The lines from the first block to the last, both of one document.
    CShownLines(const QTextBlock &first, const QTextBlock &last);

    bool goTo(int nLine) override;
    QString text() const override { return m_block.text(); }
    QBitArray inside() override;

private:
    QTextBlock m_first;
    int m_nFirst;
    int m_nLast;
    QTextBlock m_block;
    int m_nCharsLeft; // What is looked through without a pause that is felt.
};

// All lines of the highlighter's copy, coloured anew where it matters. Any thread, but one at a
// time.
class CStoredLines : public CBracketLines
{
public:
    // Out of reach is everything once the version has passed or isCancelled says true.
    CStoredLines(const CLineStore &store, uint nVersion, const CHighlightRules &rules,
                 const std::function<bool()> &isCancelled);

    bool goTo(int nLine) override;
    QString text() const override { return line().strText; }
    QBitArray inside() override;

private:
    bool holds(int nLine) const;
    const CLineStore::SLine &line() const { return m_batch.lst[m_nLine - m_batch.nFirst]; }

    const CLineStore &m_store;
    const uint m_nVersion;
    const CHighlightRules &m_rules;
    const std::function<bool()> m_isCancelled;
    CLineStore::SBatch m_batch;
    int m_nLine = 0;
};
