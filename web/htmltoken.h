#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// One piece of an HTML text. Positions count UTF-16 units from the start of the text. The pieces
// have no gaps between them, so together they are the text.
struct SHtmlToken
{
    enum class Kind {
        Text, // With character references.
        EscapableText, // Content of a title or text area: references, but no tags.
        RawText, // Content of a script or style, for example: neither.
        CData, // A section within SVG or MathML.
        StartTag,
        EndTag,
        Comment, // Also a processing instruction, and whatever else browsers read as a comment.
        Doctype,
        Dropped, // Text that a browser ignores: a tag that the end of the text cuts off, or "</>".
    };

    bool isTag() const { return kind == Kind::StartTag || kind == Kind::EndTag; }
    // Whether it is a tag of that name; other tokens have no name.
    bool isNamed(const QString &strHtml, QLatin1String strName) const;
    bool isStart(const QString &strHtml, QLatin1String strName) const;
    QString name(const QString &strHtml) const; // Lower case.

    Kind kind = Kind::Text;
    int nStart = 0;
    int nEnd = 0;
    int nName = 0; // Only tags have a name.
    int nNameLength = 0;
    bool bSelfClosing = false; // Written with "/>".
};

struct SHtmlAttribute
{
    QString strName; // Lower case.
    int nName = 0; // The name as it is spelled.
    int nNameLength = 0;
    int nValue = 0; // Without quotes.
    int nLength = 0; // 0 for an attribute without value.
    int nEnd = 0; // The position after the closing quote.
    QChar cQuote; // Null for a value without quotes.
    bool bValue = false; // There is an "=".
};

// The attributes of a start or end tag in order, including those that a browser ignores because
// their name came before.
QVector<SHtmlAttribute> htmlAttributes(const QString &strHtml, const SHtmlToken &tag);
// Null if there is none of that name. Of several the first counts.
const SHtmlAttribute *findAttribute(const QVector<SHtmlAttribute> &lstAttributes,
                                    QLatin1String strName);

// The elements that have neither content nor end tag.
const QStringList &voidElements();
// True for what HTML calls white space: space, tab, line feed, form feed, carriage return.
bool isHtmlSpace(QChar c);
