#include "web/pictureframes.h"

#include <QtEndian>

#include <functional>

namespace {

constexpr int g_nGifHeader = 13;
constexpr int g_nGifFrameHeader = 10;

int byteAt(const QByteArray &data, int nPos)
{
    return nPos < data.size() ? uchar(data.at(nPos)) : 0;
}

int shortAt(const QByteArray &data, int nPos)
{
    return byteAt(data, nPos) | byteAt(data, nPos + 1) << 8;
}

// The length of the colour table that such flags announce.
int colourTable(int nFlags)
{
    return nFlags & 0x80 ? 3 << ((nFlags & 7) + 1) : 0;
}

// Gives the position after a row of blocks that each tell their length; the last has length 0.
int behindBlocks(const QByteArray &data, int nPos)
{
    while (const int nLength = byteAt(data, nPos))
        nPos += 1 + nLength;
    return nPos + 1;
}

// Calls seen with the size of each frame.
void walkGif(const QByteArray &data, const std::function<void(const QSize &)> &seen)
{
    int nPos = g_nGifHeader + colourTable(byteAt(data, 10));
    while (nPos < data.size()) {
        const char c = data.at(nPos);
        if (c == '!') {
            nPos = behindBlocks(data, nPos + 2);
        } else if (c == ',') {
            seen(QSize(shortAt(data, nPos + 5), shortAt(data, nPos + 7)));
            nPos += g_nGifFrameHeader + colourTable(byteAt(data, nPos + 9));
            nPos = behindBlocks(data, nPos + 1);
        } else {
            break;
        }
    }
}

} // namespace

int countGifFrames(const QByteArray &data)
{
    int nFrames = 0;
    walkGif(data, [&](const QSize &) { ++nFrames; });
    return qMax(1, nFrames);
}

QSize largestGifFrame(const QByteArray &data)
{
    if (data.size() < g_nGifHeader)
        return QSize();
    QSize size(shortAt(data, 6), shortAt(data, 8));
    walkGif(data, [&](const QSize &frame) { size = size.expandedTo(frame); });
    return size;
}

int countWebpFrames(const QByteArray &data)
{
    int nFrames = 0;
    qint64 nPos = 12;
    while (nPos + 8 <= data.size()) {
        nFrames += data.mid(int(nPos), 4) == "ANMF" ? 1 : 0;
        const auto nLength = qFromLittleEndian<quint32>(data.constData() + nPos + 4);
        nPos += 8 + qint64(nLength) + (nLength & 1);
    }
    return qMax(1, nFrames);
}
