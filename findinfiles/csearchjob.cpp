#include "findinfiles/csearchjob.h"

#include "editor/linesearch.h"
#include "findinfiles/filereading.h"
#include "findinfiles/filewalk.h"

#include <QDir>

namespace {

const int g_nChunk = 64; // Paths that a thread takes at once.
const size_t g_nMaxChunks = 256; // The most paths that may wait.
const int g_nMaxWaiting = 10000; // The most matches that wait to be taken.
const int g_nMaxMatches = 100000; // The most matches of a search.

} // namespace

CSearchJob::CSearchJob(const SFindQuery &query, int nWorkers)
    : m_query(query),
      m_names(query.strNames),
      m_filter(query.strText, query.options),
      m_nWorkers(nWorkers)
{
}

void CSearchJob::cancel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bCancel = true;
    m_changed.notify_all();
}

void CSearchJob::walk()
{
    walkFiles(m_query.strFolder, m_bCancel,
              [this](const QString &strPath) { return addPath(strPath); });
    addChunk(std::move(m_gathered));
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bWalking = false;
    m_changed.notify_all();
}

bool CSearchJob::addPath(const QString &strPath)
{
    if (m_names.matches(strPath.mid(strPath.lastIndexOf(QLatin1Char('/')) + 1)))
        m_gathered.append(strPath);
    if (m_gathered.size() >= g_nChunk) {
        addChunk(std::move(m_gathered));
        m_gathered = Paths();
    }
    return !m_bCancel;
}

void CSearchJob::addChunk(Paths paths)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_chunks.size() < g_nMaxChunks || m_bCancel; });
    m_chunks.push_back(std::move(paths));
    m_changed.notify_all();
}

bool CSearchJob::nextChunk(Paths *pPaths)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_chunks.empty() || !m_bWalking || m_bCancel; });
    if (m_chunks.empty() || m_bCancel)
        return false;
    *pPaths = std::move(m_chunks.front());
    m_chunks.pop_front();
    m_changed.notify_all();
    return true;
}

void CSearchJob::work()
{
    SSearchOptions options = m_query.options;
    options.bSearchUp = false;
    const CLineSearch search(m_query.strText, options);
    QByteArray data;
    data.reserve(1024 * 1024); // Reused for one file after another.
    Paths paths;
    while (nextChunk(&paths)) {
        for (const QString &strPath : qAsConst(paths))
            if (!m_bCancel)
                searchFile(search, strPath, &data);
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    --m_nWorkers;
}

void CSearchJob::searchFile(const CLineSearch &search, const QString &strPath, QByteArray *pData)
{
    const FileKind kind = readTextFile(strPath, pData);
    SFileMatches found;
    if (kind == FileKind::Text)
        found.lstMatches = findInData(search, m_filter, *pData, g_nMaxMatches, m_bCancel);
    if (!found.lstMatches.isEmpty()) {
        found.strPath = QDir::toNativeSeparators(strPath); // As users know it.
        found.fingerprint = fingerprintOf(*pData);
    }
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_counts.nFiles += kind == FileKind::Text ? 1 : 0;
        m_counts.nBinary += kind == FileKind::Binary ? 1 : 0;
        m_counts.nHuge += kind == FileKind::Huge ? 1 : 0;
        m_counts.nUnreadable += kind == FileKind::Unreadable ? 1 : 0;
    }
    if (!found.lstMatches.isEmpty())
        addFound(std::move(found));
}

void CSearchJob::addFound(SFileMatches found)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_nWaiting < g_nMaxWaiting || m_bCancel; });
    if (m_bCancel)
        return;
    const int nLeft = g_nMaxMatches - m_counts.nMatches;
    if (found.lstMatches.size() >= nLeft) {
        found.lstMatches.resize(nLeft);
        m_counts.bCutOff = true;
        m_bCancel = true; // What was found so far can still be taken.
        m_changed.notify_all();
    }
    m_nWaiting += found.lstMatches.size();
    m_counts.nMatches += found.lstMatches.size();
    ++m_counts.nMatchedFiles;
    m_found.push_back(std::move(found));
}

bool CSearchJob::take(int nMatches, QVector<SFileMatches> *pFound, SFindCounts *pCounts)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    int nTaken = 0;
    while (!m_found.empty() && nTaken < nMatches) {
        nTaken += m_found.front().lstMatches.size();
        pFound->append(std::move(m_found.front()));
        m_found.pop_front();
    }
    m_nWaiting -= nTaken;
    if (nTaken > 0)
        m_changed.notify_all();
    *pCounts = m_counts;
    return m_nWorkers > 0 || !m_found.empty();
}
