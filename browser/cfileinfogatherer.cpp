#include "browser/cfileinfogatherer.h"

#include <QDir>
#include <QDirIterator>

#include <chrono>

namespace {

// QFileInfo asks the disk when a value is first needed, and all copies share the answer. The values
// are asked for here, on the reader's thread, so that the GUI thread does not wait.
void readAhead(const QFileInfo &info)
{
    info.isDir();
    info.isFile();
    info.isSymLink();
    info.exists();
    info.absoluteFilePath();
}

} // namespace

CFileInfoGatherer::CFileInfoGatherer(QObject *pParent) : QThread(pParent)
{
    qRegisterMetaType<QFileInfoList>("QFileInfoList");
}

void CFileInfoGatherer::setShowDrives(bool bVal)
{
    setFlag(&m_bShowDrives, bVal);
}

void CFileInfoGatherer::setDirsOnly(bool bVal)
{
    setFlag(&m_bDirsOnly, bVal);
}

void CFileInfoGatherer::setSkipHidden(bool bVal)
{
    setFlag(&m_bSkipHidden, bVal);
}

bool CFileInfoGatherer::showDrives() const
{
    return flag(m_bShowDrives);
}

bool CFileInfoGatherer::dirsOnly() const
{
    return flag(m_bDirsOnly);
}

bool CFileInfoGatherer::skipHidden() const
{
    return flag(m_bSkipHidden);
}

bool CFileInfoGatherer::isFetchMissed() const
{
    return flag(m_bFetchMissed);
}

bool CFileInfoGatherer::flag(const bool &bMember) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return bMember;
}

void CFileInfoGatherer::setFlag(bool *pMember, bool bVal)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    *pMember = bVal;
}

void CFileInfoGatherer::fetch(const QString &strPath)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_strPath = QDir::toNativeSeparators(strPath);
        // Uses the same lock, so that a pass about to start either takes this path or is known to
        // have missed it.
        m_bFetchMissed = isRunning();
        m_bAbort = m_bFetchMissed;
    }
    start(QThread::InheritPriority);
}

void CFileInfoGatherer::stop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bAbort = true;
}

void CFileInfoGatherer::stopAndWait()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_bAbort)
        return;
    m_bAbort = true;
    m_condition.wait_for(lock, std::chrono::milliseconds(5000), [this] { return !m_bInPass; });
}

void CFileInfoGatherer::run()
{
    QString strDirectory;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lstPaths.clear();
        strDirectory = m_strPath;
        m_bFetchMissed = false;
        m_bAbort = false;
        m_bInPass = true;
    }
    do {
        if (m_bAbort)
            continue;
        if (strDirectory.isEmpty())
            listDrives();
        else
            listDirectory(strDirectory);
    } while (takeNext(&strDirectory));
}

// The next folder of the crawl. False when there is none or a stop was asked for; the reader is
// idle then.
bool CFileInfoGatherer::takeNext(QString *pDirectory)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_bAbort && !m_lstPaths.isEmpty()) {
        *pDirectory = m_lstPaths.takeFirst();
        return true;
    }
    m_bAbort = true;
    m_bInPass = false;
    m_condition.notify_one();
    return false;
}

void CFileInfoGatherer::listDirectory(const QString &strDirectory)
{
    const QFileInfoList lstFileInfo = readEntries(strDirectory);
    emit newListOfFiles2(strDirectory, lstFileInfo);
    emit directoryLoaded(strDirectory);
    msleep(100); // A crawl must neither load the disk nor flood the receiver.
}

QFileInfoList CFileInfoGatherer::readEntries(const QString &strDirectory)
{
    const bool bDirsOnly = dirsOnly();
    const bool bSkipHidden = skipHidden();
    QFileInfoList lstFileInfo;
    QDirIterator it(strDirectory,
                    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (!m_bAbort && it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        if (info.fileName().isEmpty() || (bDirsOnly && !info.isDir())
            || (bSkipHidden && info.isHidden()))
            continue;
        readAhead(info);
        lstFileInfo.append(info);
        if (m_bScanSubDirs && !info.isFile())
            m_lstPaths.append(QDir::toNativeSeparators(info.absoluteFilePath()));
    }
    return lstFileInfo;
}

void CFileInfoGatherer::listDrives()
{
    if (!showDrives())
        return;
    const QFileInfoList lstDrives = QDir::drives();
    for (auto it = lstDrives.crbegin(); it != lstDrives.crend(); ++it) {
        readAhead(*it);
        m_lstPaths.append(QDir::toNativeSeparators(it->absoluteFilePath()));
    }
    if (m_bAbort)
        return;
    if (!lstDrives.isEmpty())
        emit newListOfFiles2(QString(), lstDrives);
    emit directoryLoaded(QString());
}
