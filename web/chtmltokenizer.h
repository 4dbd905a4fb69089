#pragma once

#include "web/htmltoken.h"

#include <QHash>

// Cuts an HTML text into tokens as a browser without scripts does: in a comment, script, style,
// title or text area there are no tags (WHATWG HTML, 13.2.5 Tokenization). It is no parser: it
// neither nests nor repairs. It follows SVG and MathML only as far as they decide what a tag is.
// Linear in the text's length. Keeps a reference to the text. Reentrant.
class CHtmlTokenizer
{
public:
    explicit CHtmlTokenizer(const QString &strHtml);

    // Moves to the next token; false at the end.
    bool next();
    const SHtmlToken &token() const { return m_token; }

private:
    void readText();
    void readRawText();
    void readTag();
    int tagEnd(int nPos, bool *pSlash) const;
    void readMarkup();
    void readComment();
    bool isMarkupAt(int nPos) const;
    bool isForeign() const;
    void followStart(const QString &strName);
    void followEnd(const QString &strName);
    int scriptEnd(int nPos) const;
    int endTagOf(const QString &strName, int nPos) const;
    bool isTagNamed(int nPos, const QString &strName) const;
    void finish(SHtmlToken::Kind kind, int nEnd);

    const QString &m_strHtml;
    int m_nPos = 0;
    SHtmlToken m_token;
    QString m_strRawElement; // Its content comes next.
    QVector<QString> m_lstForeign; // Open elements that switch between HTML, SVG and MathML.
    QHash<QString, int> m_mapForeign; // How often each of them is open.
};

QVector<SHtmlToken> htmlTokens(const QString &strHtml);
