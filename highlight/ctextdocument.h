#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <memory>

class CLineStore;

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

    // The copy of the lines for the highlighter's thread, always as current as the text. Shared,
    // because that thread may outlive the document by the moment that its owner waits for it.
    std::shared_ptr<CLineStore> lines() const { return m_pLines; }

    // Between the two calls neighbouring blocks are marked for repainting together, which spares
    // laying each out on its own. No event loop may run between them.
    void beginResults();
    void endResults();

public slots:
    void onContentsChange();
    void onHighlightBlock(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);
    void onHighlightSelected(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);
    void clearAdditionalFormats();

private:
    enum Kind { SyntaxRange = 0, SelectedWordMark = 1 };

    void updateLines(int nPosition, int nCharsRemoved, int nCharsAdded);
    void replaceRanges(Kind kind, uint nVer, const QTextBlock &tb,
                       const QList<QTextLayout::FormatRange> &lst);
    void flushDirty();

    std::shared_ptr<CLineStore> m_pLines;
    bool m_bCollecting = false;
    // The extent whose formats changed and that is not marked yet, in characters; empty: none.
    int m_nDirtyFrom = 0;
    int m_nDirtyEnd = 0;
};

Q_DECLARE_METATYPE(QTextBlock)
Q_DECLARE_METATYPE(QTextLayout::FormatRange)
