#include "app/csingleapp.h"

#include "app/mailbox.h"
#include "app/platform.h"

#include <QDebug>

#include <cstring>

CSingleApp::CSingleApp(QObject *pParent, const QString &strKey) : QObject(pParent)
{
    m_memory.setKey(strKey);
    // Twice: another start may create the mailbox between the attempts, and a dead segment can only
    // be found once the file that its key is made from is there, which an attempt to create leaves.
    for (int nAttempt = 0; nAttempt < 2; ++nAttempt) {
        Platform::releaseDeadSegment(strKey);
        if (m_memory.attach(QSharedMemory::ReadWrite)) {
            m_bRunning = true;
            return;
        }
        if (m_memory.create(Mailbox::g_nSize, QSharedMemory::ReadWrite)) {
            clearMailbox();
            connect(&m_timer, &QTimer::timeout, this, &CSingleApp::onCheckForMessage);
            m_timer.start(1000);
            return;
        }
    }
    qDebug("Unable to create single instance.");
}

bool CSingleApp::sendMessage(const QString &strText)
{
    if (!m_bRunning)
        return false;
    m_memory.lock();
    // The segment is as large as its creator made it, which need not have been this program.
    Mailbox::append(static_cast<char *>(m_memory.data()), m_memory.size(), strText);
    m_memory.unlock();
    return true;
}

void CSingleApp::onCheckForMessage()
{
    m_memory.lock();
    const QByteArray copy(static_cast<const char *>(m_memory.constData()), m_memory.size());
    m_memory.unlock();
    if (copy.isEmpty() || copy.at(0) == 0)
        return;
    const QStringList lstMessages = Mailbox::messages(copy);
    for (const QString &strMessage : lstMessages)
        emit messageAvailable(strMessage);
    // Cleared only now: what was written meanwhile is dropped unread.
    clearMailbox();
}

void CSingleApp::clearMailbox()
{
    m_memory.lock();
    std::memset(m_memory.data(), 0, size_t(m_memory.size()));
    m_memory.unlock();
}
