#pragma once

#include "browser/cfilenode.h"

#include <QFileInfo>
#include <QMutex>

#include <list>
#include <memory>
#include <vector>

// Sorts the entries stably in the order of lessFileInfo(). It is faster than a sort with that
// function, because each entry's key is made once and not in each comparison. Thread-safe.
QFileInfoList sortedFileInfos(const QFileInfoList &lstFileInfos);

using FileNodes = std::vector<std::unique_ptr<CFileNode>>;

// A node for each entry, in order. The nodes are in no tree yet. Thread-safe.
FileNodes createNodes(const QFileInfoList &lstFileInfos);

// Nodes that the reader's thread makes before their listing arrives at the model, because for a
// huge folder that takes too long for the GUI thread. Thread-safe.
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
        QFileInfoList lstFileInfos; // Shared with the listing on its way, by which they are found.
        FileNodes nodes;
    };

    QMutex m_mutex;
    std::list<SListing> m_listings;
};
