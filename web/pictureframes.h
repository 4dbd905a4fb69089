#pragma once

#include <QByteArray>
#include <QSize>

// Counts the pictures of an animation and finds their size by walking over its blocks. There is at
// least one. Pure functions.
int countGifFrames(const QByteArray &data);
int countWebpFrames(const QByteArray &data);

// The size of the whole, or of a frame that is larger. Invalid if the file is cut short.
QSize largestGifFrame(const QByteArray &data);
