#pragma once

#include <QObject>
#include <QSharedMemory>
#include <QTimer>

// Makes sure that one instance runs at a time, and hands the arguments of later starts to it
// through a shared-memory mailbox (see mailbox.h), which the first instance polls once a second.
class CSingleApp : public QObject
{
    Q_OBJECT

public:
    CSingleApp(QObject *pParent, const QString &strKey);

    // True when another instance owned the mailbox at construction.
    bool isRunning() const { return m_bRunning; }

    // Leaves a message for the running instance; one that does not fit is dropped. False, and
    // nothing written, in the first instance.
    bool sendMessage(const QString &strText);

signals:
    void messageAvailable(QString message);

public slots:
    void onCheckForMessage();

private:
    void clearMailbox();

    bool m_bRunning = false;
    QSharedMemory m_memory;
    QTimer m_timer;
};
