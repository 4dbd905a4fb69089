#pragma once

#include "app/filereader.h"

#include <QString>

class QUrl;

// What a page is made from. A value; no widgets.
struct SPageSource
{
    // A file in the encoding that the user chose; without one, as the page declares or as detected.
    static SPageSource ofFile(const SFileContent &content, const QString &strCodec);
    // A text that is a page, of no file.
    static SPageSource ofText() { return SPageSource(); }

    // What the page engine shall get so that it reads the page in that encoding.
    SFileContent contentToShow() const;
    // For the engine: what a page means that declares nothing, and what it loads.
    QString undeclaredCodecName() const;

    bool bFile = false; // Else the page came as a text or from the network.
    SFileContent content;
    QString strText; // The bytes as text, without a byte-order mark. Decoded once for all who ask.
    QString strCodec = QStringLiteral("UTF-8"); // Of the bytes.
    bool bChosen = false; // By the user.
};

// Reads the file at that address; no file for any other address.
SPageSource readPageSource(const QUrl &url);
