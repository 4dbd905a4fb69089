#pragma once

#include <QByteArray>
#include <QSize>

// How many pictures an animation holds, and how large they are: told by walking over its blocks.
// One at least. Pure functions.
int countGifFrames(const QByteArray &data);
int countWebpFrames(const QByteArray &data);

// The whole's size, or that of a frame that is larger than the whole. Invalid when cut short.
QSize largestGifFrame(const QByteArray &data);
