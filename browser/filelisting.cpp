#include "browser/filelisting.h"

#include <QString>

#include <algorithm>
#include <tuple>

namespace {

struct SKey
{
    int nGroup; // The order: folders that are roots, folders, roots that are no folders, the rest.
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

FileNodes createNodes(const QFileInfoList &lstFileInfos)
{
    FileNodes nodes;
    nodes.reserve(size_t(lstFileInfos.size()));
    const QFileInfoList lstSorted = sortedFileInfos(lstFileInfos);
    for (const QFileInfo &info : lstSorted) {
        nodes.push_back(std::make_unique<CFileNode>());
        nodes.back()->setFileInfo(info);
    }
    return nodes;
}

void CPreparedListings::prepare(const QFileInfoList &lstFileInfos)
{
    SListing listing {lstFileInfos, createNodes(lstFileInfos)};
    const QMutexLocker locker(&m_mutex);
    m_listings.push_back(std::move(listing));
}

FileNodes CPreparedListings::take(const QFileInfoList &lstFileInfos)
{
    {
        const QMutexLocker locker(&m_mutex);
        for (auto it = m_listings.begin(); it != m_listings.end(); ++it) {
            if (it->lstFileInfos.isSharedWith(lstFileInfos)) {
                FileNodes nodes = std::move(it->nodes);
                m_listings.erase(it);
                return nodes;
            }
        }
    }
    return createNodes(lstFileInfos);
}

void CPreparedListings::clear()
{
    const QMutexLocker locker(&m_mutex);
    m_listings.clear();
}
