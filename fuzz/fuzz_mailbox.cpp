// Reads a mailbox of any content and size, which a foreign process may have left, appends to it,
// and opens the paths in it.

#include "app/arguments.h"
#include "app/mailbox.h"
#include "fuzz/fuzzing.h"

#include <cstring>
#include <memory>

namespace {

// The mailbox is a heap block of exactly its size, so that the sanitizer notices an access to the
// next byte.
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
    // Fills it with the input once and then zeros, or with the input repeated.
    const QByteArray zeros(pData[1] % 2 ? Mailbox::g_nSize : 0, '\0');
    checkMemory(content + zeros, Mailbox::g_nSize, strMessage);
    checkQueue(textOf(content).split(QChar(0), Qt::SkipEmptyParts));
    return 0;
}
