#pragma once

#include <QByteArray>

#include <zlib.h>

// The bytes as a gzip file has them.
inline QByteArray gzipped(const QByteArray &data)
{
    const int nGzip = 16; // Added to the window's size, see zlib's deflateInit2().
    const int nMemory = 8; // What it uses by itself.
    z_stream stream {};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + nGzip, nMemory,
                     Z_DEFAULT_STRATEGY)
        != Z_OK)
        qFatal("cannot compress");
    QByteArray packed(int(deflateBound(&stream, uLong(data.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data.constData()));
    stream.avail_in = uInt(data.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = uInt(packed.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END)
        qFatal("cannot compress");
    packed.truncate(int(stream.total_out));
    deflateEnd(&stream);
    return packed;
}
