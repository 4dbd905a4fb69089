#pragma once

#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/findquery.h"

#include <QByteArray>
#include <QString>

#include <atomic>

// Reads one file of a search and finds the matches in it.

enum class FileKind {
    Text,
    Binary, // It holds a zero byte and does not begin like UTF-16.
    Huge,
    Unreadable,
    None, // It is a folder, a link, a pipe or a device, or no longer there.
};

// Reads a file for a search. The buffer is reused, so that not every file needs an allocation.
FileKind readTextFile(const QString &strPath, QByteArray *pData);

// A hash that identifies the bytes.
QByteArray fingerprintOf(const QByteArray &data);

// The matches in the data of one file, which is decoded as the editor's loader does it.
QVector<SFileMatch> findInData(const CLineSearch &search, const CByteFilter &filter,
                               const QByteArray &data, int nMost, const std::atomic<bool> &bCancel);
