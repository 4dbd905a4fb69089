#pragma once

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTimer>
#include <QVector>
#include <functional>

// The layout of a plain-text document whose blocks get other formats all the time. The base class
// takes each for a change of the text that reaches twice as far, and has the whole view painted
// anew. Here just the block is laid out and painted again, and only if it was laid out at all. GUI
// thread only.
//
// A very long line has no place in Qt's coordinates, which end at 33 million pixels, and would be
// shaped from its beginning whenever a part of it is painted. Where lines are not wrapped, one of
// more than longestLine() characters is shown in rows of rowLength() characters each; then only the
// rows that can be seen are touched.
//
// Formats of blocks may be kept elsewhere until they are needed: then a block is given them before
// it is laid out.
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
    // For a listener of contentsChange(): nothing but text within that block has changed. Other
    // formats come with it.
    void noteLine(const QTextBlock &block, const QVector<QTextLayout::FormatRange> &lstFormats);
    // The same for several: of nCount blocks from the first on, at most these have changed, and
    // there are as many blocks as before.
    void noteLines(const QTextBlock &first, int nCount, const QVector<QTextBlock> &lstChanged);
    // Asked for each block that is about to be laid out; false when the block has its formats.
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

    int m_nBlocks = 1; // Before the change that comes next.
    qreal m_dWidestRow = 0;
    // What the change that comes next changes, if that is known.
    QTextBlock m_line; // The only block; else invalid.
    QTextBlock m_firstLine;
    int m_nLines = 0;
    QVector<QTextBlock> m_lstChanged;
    int m_nFormatsAt = -1; // The block whose change is one of formats alone; -1 for none.
    FormatSource m_source;
    int m_nRevision = -1; // Of the document, when no edit was under way.
    bool m_bInChange = false; // documentChanged() is running.
    // In blocks that wait for their formats until an edit is over. Unlike a block, a cursor stays
    // valid.
    QVector<QTextCursor> m_lstWaiting;
    QTimer m_timerWaiting;
};
