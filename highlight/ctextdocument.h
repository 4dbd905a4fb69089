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
// mark of the selected word, any other a syntax range; the two kinds are replaced separately. Long
// lines are coloured only in part, and lines of 100,000 characters or more not at all, because Qt's
// layout would stall. GUI thread only, except lines(), which is meant for another thread.
//
// In a large text only blocks that were ever laid out have their ranges as additional formats. The
// ranges of all others stay in lines(), where they take a tenth of the memory, until the block is
// about to be laid out. formats() gives the ranges of any block.
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

    // The copy of the lines for the highlighter's thread, always up to date. It is shared, because
    // the thread may outlive the document for a moment.
    std::shared_ptr<CLineStore> lines() const { return m_pLines; }

    // The ranges of a block, laid out or not.
    QVector<QTextLayout::FormatRange> formats(const QTextBlock &block) const;
    // Sets how many UTF-16 units make a text large; counts from the next change of the text on.
    // Tests lower it from some millions.
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
