#pragma once

#include <QString>

// Reads a text as HTML and style sheets do: it resolves character references and escapes, and
// leaves out characters that may be strewn into addresses. It is lenient: an escape of one language
// counts in the other, too. Keeps a reference to the text.
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
