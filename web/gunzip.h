#pragma once

#include <QByteArray>

// True when the bytes begin as those of a gzip file do (RFC 1952).
bool isGzip(const QByteArray &data);

// The content of a gzip file (its first member). Empty if it is damaged, cut short, or larger than
// nMaxBytes: a small file can claim any size.
QByteArray gunzip(const QByteArray &data, int nMaxBytes);
