#pragma once

#include <QObject>
#include <QSharedMemory>
#include <QSystemSemaphore>
#include <QTimer>

#include <memory>

// Makes sure that one instance runs at a time, and hands the arguments of later starts to it
// through a shared-memory mailbox (see mailbox.h), which the first instance polls once a second.
//
// If another user made the mailbox, or others may read or write it, nothing uses it or waits for
// it: the instance runs by itself.
class CSingleApp : public QObject
{
    Q_OBJECT

public:
    CSingleApp(QObject *pParent, const QString &strKey);
    ~CSingleApp() override;

    // True when another instance owned the mailbox at construction.
    bool isRunning() const { return m_bRunning; }

    // False when there is no mailbox: later starts open a window of their own.
    bool hasMailbox() const { return m_pMemory->isAttached(); }

    // Leaves a message for the running instance; one that does not fit is dropped. False, and
    // nothing written, in the first instance.
    bool sendMessage(const QString &strText);

    // Leaves the paths in the mailbox, in several messages if one cannot hold them. Before each
    // message it waits up to half a minute for the running instance to take the last one; false
    // when that does not happen.
    bool sendPaths(const QStringList &lstPaths);

signals:
    void messageAvailable(QString message);

public slots:
    void onCheckForMessage();

private:
    enum class Sent { Done, DoesNotFit, Failed };

    bool isTrusted() const;
    bool attachOrCreate();
    bool lock(int nMilliseconds) const;
    bool clearMailbox();
    bool isMailboxEmpty() const;
    Sent send(const QString &strText);
    bool sendInTurn(const QString &strText);

    bool m_bRunning = false;
    bool m_bToClear = false; // The message in the mailbox has been read.
    QString m_strKey;
    QSystemSemaphore m_semaphore; // The lock of m_pMemory, by the same key; outlives it.
    std::unique_ptr<QSharedMemory> m_pMemory;
    QTimer m_timer;
};
