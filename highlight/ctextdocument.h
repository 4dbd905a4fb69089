#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <functional>
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
//
// Of a large text only the blocks that are laid out, and those that ever were, have their ranges as
// additional formats. Those of all others stay in lines(), where they take a tenth of the memory,
// and come to the block before it is laid out. Whoever wants the ranges of any block asks
// formats().
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

    // The ranges of a block, laid out or not.
    QVector<QTextLayout::FormatRange> formats(const QTextBlock &block) const;
    // A text of so many UTF-16 units counts as large. For the next change of the text; some
    // millions unless a test says otherwise.
    void setLargeFrom(int nCharacters) { m_nLargeFrom = nCharacters; }
    // The marks of the selected word in a line, for blocks that are laid out later. May be empty.
    using Marker = std::function<QList<QTextLayout::FormatRange>(const QString &strLine)>;
    void setMarker(const Marker &marker) { m_marker = marker; }

    // Whether the line is shown in rows although lines are not wrapped: see CPlainTextLayout.
    bool isInRows(const QTextBlock &block) const;

    // Does what onHighlightBlock() does.
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
    void followSize();
    bool holdFormats(const QTextBlock &block, QVector<QTextLayout::FormatRange> *pFormats);
    QVector<QTextLayout::FormatRange> marksIn(const QTextBlock &block) const;
    void replaceRanges(Kind kind, uint nVer, const QTextBlock &tb,
                       const QVector<QTextLayout::FormatRange> &lst);

    std::shared_ptr<CLineStore> m_pLines;
    CPlainTextLayout *m_pLayout; // The base class owns it.
    uint m_nLook = 0;
    int m_nLargeFrom;
    Marker m_marker;
};

Q_DECLARE_METATYPE(QTextBlock)
Q_DECLARE_METATYPE(QTextLayout::FormatRange)
