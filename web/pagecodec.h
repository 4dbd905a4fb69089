#pragma once

#include <QByteArray>
#include <QString>

// The encoding of a page's bytes. Reentrant, no widgets.

// The name of the codec that a browser reads the page with: as its byte-order mark says, else as it
// declares, else as detected. Never empty.
QString pageCodecName(const QByteArray &page);

// The bytes of a page as text, without a byte-order mark; in the codec of that name.
QString decodePage(const QByteArray &page, const QString &strCodec);
QString decodePage(const QByteArray &page);

// The codec of a page that declares none: what is detected. Never empty.
QString undeclaredCodecName(const QByteArray &page);
