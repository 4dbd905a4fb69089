#pragma once

#include "app/filereader.h"

#include <QString>

class QUrl;

// The source that a page is made from. A value; no widgets.
struct SPageSource
{
    // A file in the encoding that the user chose. Without one, the declared or detected encoding
    // counts.
    static SPageSource ofFile(const SFileContent &content, const QString &strCodec);
    // A page given as text, without a file.
    static SPageSource ofText() { return SPageSource(); }

    // The bytes for the page engine, which make it read the page in that encoding.
    SFileContent contentToShow() const;
    // For the engine: the encoding of a page that declares none, and of the files that it loads.
    QString undeclaredCodecName() const;

    bool bFile = false; // Else the page came as a text or from the network.
    SFileContent content;
    QString strText; // The bytes as text, without a byte-order mark. Decoded once for all who ask.
    QString strCodec = QStringLiteral("UTF-8"); // The codec of the bytes.
    bool bChosen = false; // The user has chosen the codec.
};

// Reads the file at that address; no file for any other address.
SPageSource readPageSource(const QUrl &url);
