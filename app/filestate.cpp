#include "app/filestate.h"

#include "app/platformfiles.h"

#include <QCryptographicHash>
#include <QDateTime>

namespace {

// A JSON number is a double, which holds 53 bits.
QString textOfNumber(quint64 n)
{
    return QString::number(n, 16);
}

quint64 numberIn(const QJsonObject &object, const char *szKey)
{
    return object.value(QLatin1String(szKey)).toString().toULongLong(nullptr, 16);
}

} // namespace

bool operator==(const SFileState &one, const SFileState &two)
{
    if (!one.bExists || !two.bExists)
        return one.bExists == two.bExists;
    const bool bHashes = !one.hash.isEmpty() && !two.hash.isEmpty();
    return isSameFile(one, two) && one.nSize == two.nSize && one.nModifiedNs == two.nModifiedNs
        && one.nChangedNs == two.nChangedNs && (!bHashes || one.hash == two.hash);
}

bool operator!=(const SFileState &one, const SFileState &two)
{
    return !(one == two);
}

bool isSameFile(const SFileState &one, const SFileState &two)
{
    return one.bExists && two.bExists && one.nDevice == two.nDevice && one.nInode == two.nInode;
}

SFileState fileStateOf(const QString &strPath)
{
    SFileState state;
    Platform::stateOfPath(strPath, &state);
    return state;
}

SFileState fileStateOf(int nHandle)
{
    SFileState state;
    Platform::stateOfHandle(nHandle, &state);
    return state;
}

bool isFresh(const SFileState &state)
{
    const qint64 nTick = 2000; // Milliseconds. FAT has the slowest clock in use.
    const qint64 nNewest = qMax(state.nModifiedNs, state.nChangedNs) / 1000000;
    return state.bExists && nNewest > QDateTime::currentMSecsSinceEpoch() - nTick;
}

QByteArray hashOfContent(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QJsonObject toJson(const SFileState &state)
{
    if (!state.bExists)
        return {};
    return {
        {QStringLiteral("device"), textOfNumber(state.nDevice)},
        {QStringLiteral("inode"), textOfNumber(state.nInode)},
        {QStringLiteral("size"), textOfNumber(quint64(state.nSize))},
        {QStringLiteral("modified"), textOfNumber(quint64(state.nModifiedNs))},
        {QStringLiteral("changed"), textOfNumber(quint64(state.nChangedNs))},
        {QStringLiteral("hash"), QString::fromLatin1(state.hash.toHex())},
        {QStringLiteral("fresh"), state.bFresh},
    };
}

SFileState fileStateFromJson(const QJsonObject &object)
{
    SFileState state;
    state.bExists = object.contains(QStringLiteral("inode"));
    state.nDevice = numberIn(object, "device");
    state.nInode = numberIn(object, "inode");
    state.nSize = qint64(numberIn(object, "size"));
    state.nModifiedNs = qint64(numberIn(object, "modified"));
    state.nChangedNs = qint64(numberIn(object, "changed"));
    state.hash = QByteArray::fromHex(object.value(QStringLiteral("hash")).toString().toLatin1());
    state.bFresh = object.value(QStringLiteral("fresh")).toBool();
    return state.bExists ? state : SFileState();
}
