// A mailbox of any content and size, as a foreign process may have left it: read, appended to, and
// handed over from the read to the opening of paths.

#include "app/arguments.h"
#include "app/mailbox.h"
#include "fuzz/fuzzing.h"

#include <cstring>
#include <memory>

namespace {

// On a heap block of exactly its size, so that the sanitizer sees the first byte beyond.
void checkMemory(const QByteArray &content, int nSize, const QString &strMessage)
{
    const std::unique_ptr<char[]> pMemory(new char[size_t(nSize)]());
    for (int n = 0; n < nSize && !content.isEmpty(); n += content.size())
        std::memcpy(pMemory.get() + n, content.constData(),
                    size_t(qMin(content.size(), nSize - n)));

    const QByteArray before(pMemory.get(), nSize);
    const QStringList lstBefore = Mailbox::messages(before);
    for (const QString &strPaths : lstBefore)
        pathsFromMessage(strPaths);
    const bool bFits = Mailbox::append(pMemory.get(), nSize, strMessage);
    const QByteArray after(pMemory.get(), nSize);
    require(bFits || after == before, "what does not fit is not written");
    Mailbox::messages(after);
}

void checkQueue(const QStringList &lstMessages)
{
    QByteArray memory(Mailbox::g_nSize, '\0');
    QStringList lstSent;
    for (const QString &strMessage : lstMessages)
        if (Mailbox::append(memory.data(), memory.size(), strMessage))
            lstSent.append(strMessage);
    require(Mailbox::messages(memory) == lstSent, "messages arrive whole and in order");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    if (nSize < 2)
        return 0;
    const QByteArray content = bytesOf(pData + 2, nSize - 2);
    const QString strMessage = textOf(content.left(pData[0] * 64));
    checkMemory(content, pData[1], strMessage);
    // Once and zeros, or over and over.
    const QByteArray zeros(pData[1] % 2 ? Mailbox::g_nSize : 0, '\0');
    checkMemory(content + zeros, Mailbox::g_nSize, strMessage);
    checkQueue(textOf(content).split(QChar(0), Qt::SkipEmptyParts));
    return 0;
}
