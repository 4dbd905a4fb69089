#pragma once

#include <QString>

// The result of parsing a text.
struct SParseResult
{
    QString strMessage; // Empty: the text parses.
    int nLine = 0; // Counts from 1.
    int nColumn = 0; // Counts from 1.
    bool isGood() const { return strMessage.isEmpty(); }
};

// Refuses XML that would exhaust the parser, before it is parsed into a tree.
//
// Qt's parser, its tree and its serialiser call themselves once per level of elements, and once per
// bracket of a content model: some ten thousand of either end the program. It limits what one
// entity expands to, but not how often entities are used, and declaring many takes it quadratic
// time. The result is good for every document within g_nMaxXmlDepth levels whose entities stay
// reasonable; other errors are left for the parser to find.
SParseResult guardXml(const QString &strText);
// The same for a file's bytes, in the encoding that they declare.
SParseResult guardXml(const QByteArray &bytes);

// The limit of other XML parsers. A level of the serialiser takes about 1 KB of stack, and a main
// thread on Windows has 1 MB.
const int g_nMaxXmlDepth = 256;
