#include "web/filekey.h"

#include "app/filestate.h"

QByteArray fileKey(const QString &strPath)
{
    const SFileState state = fileStateOf(strPath);
    if (!state.bExists)
        return QByteArray();
    return QByteArray::number(state.nDevice, 16) + '.' + QByteArray::number(state.nInode, 16) + '.'
        + QByteArray::number(state.nSize, 16) + '.' + QByteArray::number(state.nModifiedNs, 16);
}
