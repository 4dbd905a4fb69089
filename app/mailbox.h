#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The hand-over mailbox between instances, as plain memory.
//
// Layout: a queue of messages, each is UTF-8 (names that are not UTF-8 keep their bytes, see
// CFileNameCodec) and ends with a zero byte. The queue ends where two zero bytes follow each other;
// an empty mailbox begins with a zero byte. No locking here.
namespace Mailbox {

const int g_nSize = 0x10000; // Bytes.

// Queues the message after those waiting. If their end is not found, it overwrites them from the
// start. An empty message is sent as one blank, which opens nothing but shows the window. False,
// and nothing written, when it does not fit. pMemory holds nSize bytes.
bool append(char *pMemory, int nSize, const QString &strMessage);

// The messages that hand over the paths: as few as possible, each of which fits an empty mailbox of
// nSize bytes. Without paths it is one blank. A path that is too long for the mailbox is left out.
QStringList messagesFromPaths(const QStringList &lstPaths, int nSize);

// The messages waiting in a copy of the memory, oldest first. The memory may hold any bytes.
QStringList messages(const QByteArray &memory);

} // namespace Mailbox
