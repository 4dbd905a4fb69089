#pragma once

#include "support/processortime.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QTimer>

#include <sys/inotify.h>
#include <unistd.h>

// Observes what happens beside the work of a test (Linux only).

// Collects what the program and its libraries print while the object lives.
class CConsole
{
public:
    CConsole()
    {
        lines().clear();
        m_previous = qInstallMessageHandler(keep);
    }
    ~CConsole() { qInstallMessageHandler(m_previous); }

    static QStringList &lines()
    {
        static QStringList s_lstLines;
        return s_lstLines;
    }

private:
    static void keep(QtMsgType, const QMessageLogContext &, const QString &strText)
    {
        // Messages of the offscreen platform, which no other platform prints.
        if (!strText.startsWith(QLatin1String("This plugin does not support")))
            lines().append(strText);
    }

    QtMessageHandler m_previous;
};

// Measures for how much work at most the event loop stood still while the object lives.
class CHeartbeat
{
public:
    CHeartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
        m_timer.start(20);
    }

    // Milliseconds of the processors' time, what is running now included.
    qint64 longest()
    {
        beat();
        return m_nLongest;
    }

private:
    void beat() { m_nLongest = qMax(m_nLongest, m_sinceLast.restart()); }

    QTimer m_timer;
    CProcessorTime m_sinceLast;
    qint64 m_nLongest = 0;
};

// Notices whether anybody opens a file.
class CAccessWatch
{
public:
    explicit CAccessWatch(const QString &strPath)
        : m_nQueue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
          m_nWatch(inotify_add_watch(m_nQueue, QFile::encodeName(strPath).constData(), IN_OPEN))
    {
    }
    ~CAccessWatch() { close(m_nQueue); }

    bool isWatching() const { return m_nWatch >= 0; }
    bool wasOpened() const
    {
        char arrEvents[4096];
        return read(m_nQueue, arrEvents, sizeof arrEvents) > 0;
    }

private:
    int m_nQueue;
    int m_nWatch;
};
