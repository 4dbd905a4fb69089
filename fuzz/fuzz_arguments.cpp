// Reads messages of paths that another process may have left, and our own messages.

#include "app/arguments.h"
#include "fuzz/fuzzing.h"

namespace {

void checkRoundTrip(const QString &strText)
{
    QStringList lstPaths;
    const QStringList lstParts = strText.split(QChar(0), Qt::SkipEmptyParts);
    for (const QString &strPart : lstParts)
        if (!strPart.contains(QLatin1Char('"')))
            lstPaths.append(strPart);
    QStringList lstRead = pathsFromMessage(messageFromPaths(lstPaths));
    lstRead.removeAll(QString());
    require(lstRead == lstPaths, "paths without quotes arrive as they are");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    const QString arrTexts[] = {textOf(bytesOf(pData, nSize)), unitsOf(pData, nSize)};
    for (const QString &strText : arrTexts) {
        const QStringList lstPaths = pathsFromMessage(strText);
        const QString strJoined = lstPaths.join(QString());
        require(strJoined.size() <= strText.size(), "no path is made up");
        require(!strJoined.contains(QLatin1Char('"')), "quotes are no part of a path");
        checkRoundTrip(strText);
    }
    const QStringList lstArguments = textOf(bytesOf(pData, nSize)).split(QChar(0));
    const QStringList lstPaths = pathsFromArguments(lstArguments);
    require(!lstPaths.contains(QString()), "empty arguments are left out");
    return 0;
}
