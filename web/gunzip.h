#pragma once

#include <QByteArray>

// True when the bytes begin as those of a gzip file do (RFC 1952).
bool isGzip(const QByteArray &data);

// What a gzip file holds (its first member). Empty when it is damaged, cut short, or holds more
// than nMaxBytes: a small file can claim to hold any amount.
QByteArray gunzip(const QByteArray &data, int nMaxBytes);
