#pragma once

#include <QString>
#include <QVector>

// One tag of an HTML text. Positions count UTF-16 units from the start of the text.
struct SHtmlAttribute
{
    QString m_strName; // Lower case.
    int m_nValue = 0; // Position of the value, without quotes.
    int m_nLength = 0; // 0 for an attribute without value.
};

struct SHtmlTag
{
    QString m_strName; // Lower case; "/p" for an end tag.
    int m_nStart = 0;
    int m_nEnd = 0; // Behind the ">".
    QVector<SHtmlAttribute> m_lstAttributes;

    // Null when the tag has no such attribute; of two, the first counts.
    const SHtmlAttribute *attribute(const QString &strName) const;
};

// Walks over the tags of an HTML text as a browser without scripts sees them: what looks like a tag
// in a comment, a script or style, a title or text area is none (WHATWG HTML, 13.2.5 Tokenization).
// Not a parser: it neither nests nor repairs. Keeps a reference to the text.
class CHtmlScanner
{
public:
    explicit CHtmlScanner(const QString &strHtml);

    // Moves to the next tag; false at the end.
    bool next();
    const SHtmlTag &tag() const { return m_tag; }

private:
    int skipMarkup(int nPos) const;
    int readAttributes(int nPos);
    int rawTextEnd(int nPos) const;

    const QString &m_strHtml;
    int m_nPos = 0;
    SHtmlTag m_tag;
};
