#include "browser/fileorder.h"

#include <QString>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

struct SKey
{
    int nGroup; // Folders that are roots, folders, roots that are none, the rest.
    QString strName;
    int nPosition;

    bool operator<(const SKey &other) const
    {
        return std::tie(nGroup, strName, nPosition)
            < std::tie(other.nGroup, other.strName, other.nPosition);
    }
};

SKey keyOf(const QFileInfo &info, int nPosition)
{
    const bool bRoot = info.isRoot();
    const QString strName = bRoot ? info.absoluteFilePath() : info.fileName();
    return {(info.isDir() ? 0 : 2) + (bRoot ? 0 : 1), strName.toLower(), nPosition};
}

} // namespace

QFileInfoList sortedFileInfos(const QFileInfoList &lstFileInfos)
{
    std::vector<SKey> keys;
    keys.reserve(size_t(lstFileInfos.size()));
    for (int n = 0; n < lstFileInfos.size(); ++n)
        keys.push_back(keyOf(lstFileInfos.at(n), n));
    std::sort(keys.begin(), keys.end());
    QFileInfoList lstSorted;
    lstSorted.reserve(lstFileInfos.size());
    for (const SKey &key : keys)
        lstSorted.append(lstFileInfos.at(key.nPosition));
    return lstSorted;
}
