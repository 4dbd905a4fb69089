#pragma once

#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/findquery.h"

#include <QByteArray>
#include <QString>

#include <atomic>

// One file of a search: what is read of it and what is found in it.

enum class FileKind {
    Text,
    Binary, // Holds a zero byte, and does not begin as UTF-16 does.
    Huge,
    Unreadable,
    None, // A folder, a link, a pipe, a device, or gone meanwhile.
};

// Reads a file that a search looks into. The buffer is used again: no allocation for each file.
FileKind readTextFile(const QString &strPath, QByteArray *pData);

// What tells the bytes from any others.
QByteArray fingerprintOf(const QByteArray &data);

// The matches in the data of one file, decoded as the loader of the editor does it.
QVector<SFileMatch> findInData(const CLineSearch &search, const CByteFilter &filter,
                               const QByteArray &data, int nMost, const std::atomic<bool> &bCancel);
