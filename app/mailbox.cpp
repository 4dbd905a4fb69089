#include "app/mailbox.h"

#include <cstring>

namespace {

int writePosition(const char *pMemory, int nSize)
{
    for (int n = 0; n < nSize - 1; ++n) {
        if (pMemory[n] == 0 && pMemory[n + 1] == 0)
            return n == 0 ? 0 : n + 1; // Behind the zero that ends the last message.
    }
    return 0;
}

} // namespace

bool Mailbox::append(char *pMemory, int nSize, const QString &strMessage)
{
    const QByteArray bytes = (strMessage.isEmpty() ? QStringLiteral(" ") : strMessage).toUtf8();
    const int nPosition = writePosition(pMemory, nSize);
    if (bytes.size() > nSize - nPosition)
        return false;
    // The memory was cleared: the zero behind the message is there already.
    std::memcpy(pMemory + nPosition, bytes.constData(), size_t(bytes.size()));
    return true;
}

QStringList Mailbox::messages(const QByteArray &memory)
{
    QStringList lstMessages;
    int nStart = 0;
    while (nStart < memory.size() && memory.at(nStart) != 0) {
        int nEnd = memory.indexOf('\0', nStart);
        if (nEnd < 0)
            nEnd = memory.size();
        lstMessages.append(QString::fromUtf8(memory.constData() + nStart, nEnd - nStart));
        nStart = nEnd + 1;
    }
    return lstMessages;
}
