#pragma once

#include <QString>
#include <QVector>

// The pieces by which two texts of one page are compared: tags, comments, words, blanks, line ends.
// Positions count UTF-16 units.
struct SPageToken
{
    enum class Kind : uchar {
        Word,
        Blank, // Spaces, tabs.
        LineEnd, // One; CR LF is one.
        Start,
        End,
        Other, // Comment, doctype, section.
        Dropped,
    };
    bool isSpace() const { return kind == Kind::Blank || kind == Kind::LineEnd; }

    // Equal for pieces that mean the same. The spelling does not count: letter case of names,
    // quotes, order of attributes, character references, line ends.
    quint64 nKey = 0;
    // Equal for pieces of the same kind: tags of one name, words.
    quint64 nLooseKey = 0;
    int nStart = 0;
    int nEnd = 0;
    Kind kind = Kind::Word;
    bool bReferences = false; // For a word: it may hold character references.
    // What follows is about tags.
    bool bVoid = false;
    bool bSelfClosing = false;
    bool bForeign = false; // Within SVG or MathML.
    int nName = 0;
    int nNameLength = 0;
};

using PageTokens = QVector<SPageToken>;

// Linear time. GUI thread only.
PageTokens pageTokens(const QString &strHtml);
