#include "app/mailbox.h"

#include "app/arguments.h"
#include "app/cfilenamecodec.h"

#include <cstring>

namespace {

int writePosition(const char *pMemory, int nSize)
{
    for (int n = 0; n < nSize - 1; ++n)
        if (pMemory[n] == 0 && pMemory[n + 1] == 0)
            return n == 0 ? 0 : n + 1; // The place after the zero that ends the last message.
    return 0;
}

} // namespace

bool Mailbox::append(char *pMemory, int nSize, const QString &strMessage)
{
    const QByteArray bytes = strMessage.isEmpty() ? " " : CFileNameCodec::bytesOf(strMessage);
    const int nPosition = writePosition(pMemory, nSize);
    if (bytes.size() > nSize - nPosition)
        return false;
    // The memory was cleared, so the zero after the message is there already.
    std::memcpy(pMemory + nPosition, bytes.constData(), size_t(bytes.size()));
    return true;
}

QStringList Mailbox::messagesFromPaths(const QStringList &lstPaths, int nSize)
{
    const int nRoom = nSize - 2; // Two zeros end the queue.
    QStringList lstMessages = {QString()};
    int nBytes = 0;
    for (const QString &strPath : lstPaths) {
        const QString strQuoted = messageFromPaths({strPath});
        const int nMore = CFileNameCodec::bytesOf(strQuoted).size() + 1; // One more for the blank.
        if (nMore > nRoom)
            continue;
        if (nBytes + nMore > nRoom) {
            lstMessages.append(QString());
            nBytes = 0;
        }
        QString &strMessage = lstMessages.last();
        if (nBytes > 0)
            strMessage += QLatin1Char(' ');
        strMessage += strQuoted;
        nBytes += nMore;
    }
    return lstMessages;
}

QStringList Mailbox::messages(const QByteArray &memory)
{
    QStringList lstMessages;
    int nStart = 0;
    while (nStart < memory.size() && memory.at(nStart) != 0) {
        int nEnd = memory.indexOf('\0', nStart);
        if (nEnd < 0)
            nEnd = memory.size();
        lstMessages.append(CFileNameCodec::textOf(memory.mid(nStart, nEnd - nStart)));
        nStart = nEnd + 1;
    }
    return lstMessages;
}
