#pragma once

#include <QByteArray>
#include <QString>

// The encoding of a page's bytes. Reentrant, no widgets.

// The name of the codec with which a browser reads the page: that of its byte-order mark, else the
// declared one, else the detected one. Never empty.
QString pageCodecName(const QByteArray &page);

// The bytes of a page as text, without a byte-order mark; in the codec of that name.
QString decodePage(const QByteArray &page, const QString &strCodec);
QString decodePage(const QByteArray &page);

// The detected codec, for a page that declares none. Never empty.
QString undeclaredCodecName(const QByteArray &page);
