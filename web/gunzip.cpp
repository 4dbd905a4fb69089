#include "web/gunzip.h"

#define ZLIB_CONST // The input is only read.
#include <zlib.h>

namespace {

constexpr int g_nGzipOnly = 16; // Added to the window's size, see zlib's inflateInit2().
constexpr int g_nChunk = 64 * 1024;

} // namespace

bool isGzip(const QByteArray &data)
{
    return data.startsWith("\x1f\x8b");
}

QByteArray gunzip(const QByteArray &data, int nMaxBytes)
{
    z_stream stream {};
    if (inflateInit2(&stream, MAX_WBITS + g_nGzipOnly) != Z_OK)
        return QByteArray();
    stream.next_in = reinterpret_cast<const Bytef *>(data.constData());
    stream.avail_in = uInt(data.size());
    QByteArray result;
    QByteArray chunk(g_nChunk, Qt::Uninitialized);
    int nStatus = Z_OK;
    while (nStatus == Z_OK && result.size() <= nMaxBytes) {
        stream.next_out = reinterpret_cast<Bytef *>(chunk.data());
        stream.avail_out = g_nChunk;
        nStatus = inflate(&stream, Z_NO_FLUSH); // Z_BUF_ERROR where the input ends too early.
        result.append(chunk.constData(), g_nChunk - int(stream.avail_out));
    }
    inflateEnd(&stream);
    return nStatus == Z_STREAM_END && result.size() <= nMaxBytes ? result : QByteArray();
}
