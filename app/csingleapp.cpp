#include "app/csingleapp.h"

#include "app/mailbox.h"
#include "app/platform.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QThread>

#include <cstring>

namespace {

// Milliseconds. A program holds the lock only to copy 64 KB, unless it was stopped meanwhile.
const int g_nLockAtStart = 2000;
const int g_nLockWhileRunning = 100;
const int g_nLongestTurn = 30000;

} // namespace

CSingleApp::CSingleApp(QObject *pParent, const QString &strKey)
    : QObject(pParent),
      m_strKey(strKey),
      m_semaphore(strKey, 1),
      m_pMemory(std::make_unique<QSharedMemory>())
{
    m_pMemory->setKey(strKey);
    // Asks before attaching, because QSharedMemory waits for the lock without an end, and the owner
    // cannot change from here on. Asks again afterwards, because somebody may have made the segment
    // in between.
    if (!isTrusted() || !lock(g_nLockAtStart)) {
        qDebug("Unable to create single instance.");
        return;
    }
    Platform::unlockSegment(m_strKey);
    if (!attachOrCreate() || !isTrusted()) {
        m_pMemory->detach();
        m_bRunning = false;
        qDebug("Unable to create single instance.");
        return;
    }
    if (m_bRunning)
        return;
    clearMailbox();
    connect(&m_timer, &QTimer::timeout, this, &CSingleApp::onCheckForMessage);
    m_timer.start(1000);
}

CSingleApp::~CSingleApp()
{
    // Detaching needs the lock as well. If nobody gives it back, the end of the process detaches.
    if (!m_pMemory->isAttached())
        return;
    if (lock(g_nLockAtStart))
        Platform::unlockSegment(m_strKey);
    else
        static_cast<void>(m_pMemory.release());
}

bool CSingleApp::isTrusted() const
{
    return Platform::ownerOfSegment(m_strKey) != Platform::SegmentOwner::Others;
}

bool CSingleApp::attachOrCreate()
{
    // Tries twice. Another start may create the mailbox between the attempts. And a dead segment is
    // only found once the file exists that its key is made from; an attempt to create leaves that
    // file.
    for (int nAttempt = 0; nAttempt < 2; ++nAttempt) {
        Platform::releaseDeadSegment(m_strKey);
        m_bRunning = m_pMemory->attach(QSharedMemory::ReadWrite);
        if (m_bRunning || m_pMemory->create(Mailbox::g_nSize, QSharedMemory::ReadWrite))
            return true;
    }
    return false;
}

bool CSingleApp::lock(int nMilliseconds) const
{
    return Platform::lockSegment(m_strKey, nMilliseconds);
}

bool CSingleApp::sendMessage(const QString &strText)
{
    return send(strText) != Sent::Failed;
}

CSingleApp::Sent CSingleApp::send(const QString &strText)
{
    if (!m_bRunning || !lock(g_nLockAtStart))
        return Sent::Failed;
    // The creator decided the size of the segment, and it need not have been this program.
    const bool bFits =
        Mailbox::append(static_cast<char *>(m_pMemory->data()), m_pMemory->size(), strText);
    Platform::unlockSegment(m_strKey);
    return bFits ? Sent::Done : Sent::DoesNotFit;
}

bool CSingleApp::isMailboxEmpty() const
{
    if (!lock(g_nLockWhileRunning))
        return false;
    const bool bEmpty = *static_cast<const char *>(m_pMemory->constData()) == 0;
    Platform::unlockSegment(m_strKey);
    return bEmpty;
}

// Waits while another message is in the mailbox. The first instance empties the mailbox after it
// has opened everything it found there, and a message that came in between would be lost.
bool CSingleApp::sendInTurn(const QString &strText)
{
    QElapsedTimer timer;
    timer.start();
    while (!isMailboxEmpty()) {
        if (timer.hasExpired(g_nLongestTurn))
            return false;
        QThread::msleep(20);
    }
    return send(strText) == Sent::Done;
}

bool CSingleApp::sendPaths(const QStringList &lstPaths)
{
    if (!m_bRunning)
        return false;
    const QStringList lstMessages = Mailbox::messagesFromPaths(lstPaths, m_pMemory->size());
    // A message is queued after those that already wait, if it fits there.
    if (lstMessages.size() == 1) {
        const Sent sent = send(lstMessages.constFirst());
        if (sent != Sent::DoesNotFit)
            return sent == Sent::Done;
    }
    for (const QString &strMessage : lstMessages)
        if (!sendInTurn(strMessage))
            return false;
    return true;
}

void CSingleApp::onCheckForMessage()
{
    if (!hasMailbox() || (m_bToClear && !clearMailbox()) || !lock(g_nLockWhileRunning))
        return;
    const QByteArray copy(static_cast<const char *>(m_pMemory->constData()), m_pMemory->size());
    Platform::unlockSegment(m_strKey);
    if (copy.isEmpty() || copy.at(0) == 0)
        return;
    const QStringList lstMessages = Mailbox::messages(copy);
    for (const QString &strMessage : lstMessages)
        emit messageAvailable(strMessage);
    // Clears the mailbox only now, so a message that came meanwhile is dropped unread.
    clearMailbox();
}

bool CSingleApp::clearMailbox()
{
    m_bToClear = !lock(g_nLockWhileRunning);
    if (m_bToClear)
        return false;
    std::memset(m_pMemory->data(), 0, size_t(m_pMemory->size()));
    Platform::unlockSegment(m_strKey);
    return true;
}
