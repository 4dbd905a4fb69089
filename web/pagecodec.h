#pragma once

#include <QByteArray>
#include <QString>

class QUrl;

// The encoding of a page's bytes. Reentrant, no widgets.

// The name of the codec that a browser reads the page with: as its byte-order mark says, else as it
// declares, else as detected. Never empty.
QString pageCodecName(const QByteArray &page);

// False when not all of the page can be shown, and so saved: some of its bytes are no text in its
// encoding.
bool isPageWhole(const QByteArray &page);

// The bytes of a page as text, without a byte-order mark.
QString decodePage(const QByteArray &page);

// The codec for a page at that address that declares none: what is detected in a file of this disk,
// UTF-8 for any other. Reads the file.
QString undeclaredCodecName(const QUrl &url);
