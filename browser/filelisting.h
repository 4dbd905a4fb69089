#pragma once

#include "browser/cfilenode.h"

#include <QFileInfo>
#include <QMutex>

#include <list>
#include <memory>
#include <vector>

// The entries in the order of lessFileInfo(), equal ones as they came: what a stable sort with it
// gives, but each entry's key is made once and not once a comparison. Thread-safe.
QFileInfoList sortedFileInfos(const QFileInfoList &lstFileInfos);

using FileNodes = std::vector<std::unique_ptr<CFileNode>>;

// A node for each entry, in order. They belong to nobody's tree yet. Thread-safe.
FileNodes createNodes(const QFileInfoList &lstFileInfos);

// Nodes made ahead of their listing's arrival: the reader's thread makes them while the listing is
// on its way to the model, since for a huge folder that takes longer than the windows may be held
// up. Thread-safe.
class CPreparedListings
{
public:
    void prepare(const QFileInfoList &lstFileInfos);
    // The nodes of a listing, made now if they were not prepared.
    FileNodes take(const QFileInfoList &lstFileInfos);
    void clear();

private:
    struct SListing
    {
        QFileInfoList lstFileInfos; // Shared with the listing under way, which tells them apart.
        FileNodes nodes;
    };

    QMutex m_mutex;
    std::list<SListing> m_listings;
};
