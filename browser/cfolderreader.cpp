#include "browser/cfolderreader.h"

#include <QDeadlineTimer>
#include <QFileInfoList>

CFolderReader::CFolderReader(bool bDirsOnly, const Prepare &prepare, QObject *pParent)
    : QObject(pParent), m_pGatherer(std::make_unique<CFileInfoGatherer>())
{
    m_pGatherer->setScanSubDirs(false);
    m_pGatherer->setSkipHidden(true);
    m_pGatherer->setDirsOnly(bDirsOnly);
    if (prepare) {
        connect(
            m_pGatherer.get(), &CFileInfoGatherer::newListOfFiles2, m_pGatherer.get(),
            [prepare](const QString &, const QFileInfoList &lstFileInfos) {
                prepare(lstFileInfos);
            },
            Qt::DirectConnection);
    }
    connect(m_pGatherer.get(), &CFileInfoGatherer::newListOfFiles2, this, &CFolderReader::listed);
    connect(m_pGatherer.get(), &QThread::finished, this, &CFolderReader::onFinished);
}

CFolderReader::~CFolderReader()
{
    m_pGatherer->disconnect(this);
    release(std::move(m_pGatherer));
}

void CFolderReader::release(std::unique_ptr<CFileInfoGatherer> pGatherer)
{
    const QDeadlineTimer deadline(5000);
    pGatherer->stopAndWait();
    if (pGatherer->wait(deadline))
        return;
    CFileInfoGatherer *pStuck = pGatherer.release();
    connect(pStuck, &QThread::finished, pStuck, &QObject::deleteLater);
}

void CFolderReader::read(const QString &strFolder)
{
    if (!m_pGatherer->isRunning()) {
        m_pGatherer->fetch(strFolder);
        return;
    }
    m_strNext = strFolder;
    m_bNext = true;
}

void CFolderReader::onFinished()
{
    if (!m_bNext || m_pGatherer->isRunning())
        return;
    m_bNext = false;
    m_pGatherer->fetch(m_strNext);
}
