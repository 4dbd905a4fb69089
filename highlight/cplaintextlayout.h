#pragma once

#include <QPlainTextDocumentLayout>
#include <QTextLayout>
#include <QVector>

// The layout of a plain-text document whose blocks get other formats all the time. The base class
// takes each for a change of the text that reaches twice as far, and has the whole view painted
// anew. Here just the block is laid out and painted again, and only if it was laid out at all. GUI
// thread only.
class CPlainTextLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT
public:
    explicit CPlainTextLayout(QTextDocument *pDocument);

    void setFormats(const QTextBlock &block, const QVector<QTextLayout::FormatRange> &lstFormats);

protected:
    void documentChanged(int nFrom, int nRemoved, int nAdded) override;

private:
    int m_nFormatsAt = -1; // The block whose change is one of formats alone; -1 for none.
};
