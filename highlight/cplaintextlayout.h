#pragma once

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTimer>
#include <QVector>
#include <functional>

// The layout of a plain-text document whose blocks get new formats all the time. The base class
// takes new formats for a change of text, twice as long as the block, and repaints the whole view.
// This class lays out and repaints only the block, and only if it was laid out before. GUI thread
// only.
//
// Qt's coordinates end at 33 million pixels, and Qt shapes a line from its beginning to paint a
// part of it. Therefore, if lines are not wrapped, a line of more than longestLine() characters is
// shown in rows of rowLength() characters. Then only the visible rows are shaped.
//
// Formats may be kept elsewhere until a block is laid out; see setFormatSource().
class CPlainTextLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT
public:
    explicit CPlainTextLayout(QTextDocument *pDocument);

    static int longestLine();
    static int rowLength();
    bool isInRows(const QTextBlock &block) const;

    QRectF blockBoundingRect(const QTextBlock &block) const override;
    QSizeF documentSize() const override;

    void setFormats(const QTextBlock &block, const QVector<QTextLayout::FormatRange> &lstFormats);
    // For a listener of contentsChange(). Only text within that block has changed, and these are
    // its new formats.
    void noteLine(const QTextBlock &block, const QVector<QTextLayout::FormatRange> &lstFormats);
    // The same for several blocks: of nCount blocks at most those of lstChanged have changed, and
    // the number of blocks is the same.
    void noteLines(const QTextBlock &first, int nCount, const QVector<QTextBlock> &lstChanged);
    // Asked for the formats of each block before it is laid out. False if the block has them
    // already.
    using FormatSource =
        std::function<bool(const QTextBlock &, QVector<QTextLayout::FormatRange> *)>;
    void setFormatSource(const FormatSource &source);

protected:
    void documentChanged(int nFrom, int nRemoved, int nAdded) override;

private:
    void noteFormats(const QTextBlock &block, const QVector<QTextLayout::FormatRange> &lstFormats);
    void fetchFormats(const QTextBlock &block);
    void fetchWaiting();
    void layOutInRows(QTextBlock block);
    bool changeRows(int nFrom, int nChanged);
    bool changeLines();

    int m_nBlocks = 1; // The number of blocks before the next change.
    qreal m_dWidestRow = 0;
    // What the next change affects, if that is known.
    QTextBlock m_line; // The only block that changes. Invalid if there may be others.
    QTextBlock m_firstLine;
    int m_nLines = 0;
    QVector<QTextBlock> m_lstChanged;
    int m_nFormatsAt = -1; // The position of the block whose formats alone change; -1 if none.
    FormatSource m_source;
    int m_nRevision = -1; // The document's revision after the last edit. -1 if one may go on.
    bool m_bInChange = false; // documentChanged() is running.
    // They stand in blocks that get their formats after the edit. A cursor stays valid where a
    // block may not.
    QVector<QTextCursor> m_lstWaiting;
    QTimer m_timerWaiting;
};
