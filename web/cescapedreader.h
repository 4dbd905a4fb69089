#pragma once

#include <QString>

// Reads a text as HTML and style sheets mean it: character references and escapes as what they
// stand for, without the characters that addresses may have strewn in. Lenient: what is an escape
// in the one is taken for it in the other, too. Keeps a reference to the text.
class CEscapedReader
{
public:
    CEscapedReader(const QString &strText, int nPos) : m_strText(strText), m_nPos(nPos) { }

    // The next character; null at the end.
    QChar next();
    // The position of the next character in the text.
    int position() const { return m_nPos; }

private:
    QChar readReference();
    QChar readNumber(int nPos, int nBase);
    QChar readEscape();

    const QString &m_strText;
    int m_nPos;
};
