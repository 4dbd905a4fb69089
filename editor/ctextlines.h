#pragma once

#include <QString>

class QTextDocument;

// The text for the commands on lines: numbered lines without their ends. Lines count from 0.
// Positions are those of a document, in UTF-16 units; each line end takes one.
//
// Ask only for lines that exist. Only these lines are copied.
class CTextLines
{
public:
    virtual ~CTextLines() = default;

    virtual int count() const = 0; // At least 1.
    virtual QString text(int nLine) const = 0;
    virtual int length(int nLine) const = 0;
    virtual int start(int nLine) const = 0;
    virtual int lineAt(int nPosition) const = 0;

    int end(int nLine) const { return start(nLine) + length(nLine); }
    int column(int nPosition) const { return nPosition - start(lineAt(nPosition)); }
    int lastLine() const { return count() - 1; }
};

// The lines of a document, which has to outlive this object.
class CDocumentLines : public CTextLines
{
public:
    explicit CDocumentLines(const QTextDocument *pDocument) : m_pDocument(pDocument) { }

    int count() const override;
    QString text(int nLine) const override;
    int length(int nLine) const override;
    int start(int nLine) const override;
    int lineAt(int nPosition) const override;

private:
    const QTextDocument *m_pDocument;
};
