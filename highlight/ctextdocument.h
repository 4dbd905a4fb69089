#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <memory>

class CLineStore;
class CPlainTextLayout;

// A plain-text document that shows highlighting computed elsewhere. Format ranges come per block
// with the version of the text that they were computed for and are applied only while that version
// is current. They are additional formats of the block's layout: the text, the undo history and the
// modified flag never change. A range whose format has bit 0 of QTextFormat::UserProperty set is a
// mark of the selected word, any other a syntax range; the two kinds are replaced apart.
// Of a line that Qt could lay out with its ranges only in a pause that is felt, just the first part
// is coloured, and of one of 100,000 characters or more nothing. GUI thread only, except lines(),
// which is meant for another thread.
class CTextDocument : public QTextDocument
{
    Q_OBJECT
public:
    explicit CTextDocument(QObject *pParent = nullptr);
    ~CTextDocument() override;

    // Grows by one with every change of the contents; wraps around.
    uint version() const;
    // Grows whenever a block gets other ranges; wraps around.
    uint look() const { return m_nLook; }

    // The copy of the lines for the highlighter's thread, always as current as the text. Shared,
    // because that thread may outlive the document by the moment that its owner waits for it.
    std::shared_ptr<CLineStore> lines() const { return m_pLines; }

    // Whether the line is shown in rows although lines are not wrapped: see CPlainTextLayout.
    bool isInRows(const QTextBlock &block) const;

    // As onHighlightBlock().
    void setSyntaxRanges(uint nVer, const QTextBlock &block,
                         const QVector<QTextLayout::FormatRange> &lst);

public slots:
    void onContentsChange();
    void onHighlightBlock(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);
    void onHighlightSelected(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);
    void clearAdditionalFormats();

private:
    enum Kind { SyntaxRange = 0, SelectedWordMark = 1 };

    void updateLines(int nPosition, int nCharsRemoved, int nCharsAdded);
    void shiftFormats(const QTextBlock &block, int nAt, int nRemoved, int nAdded);
    void noteLines(const QTextBlock &first, int nFirst, int nCount);
    void replaceRanges(Kind kind, uint nVer, const QTextBlock &tb,
                       const QVector<QTextLayout::FormatRange> &lst);

    std::shared_ptr<CLineStore> m_pLines;
    CPlainTextLayout *m_pLayout; // The base class owns it.
    uint m_nLook = 0;
};

Q_DECLARE_METATYPE(QTextBlock)
Q_DECLARE_METATYPE(QTextLayout::FormatRange)
