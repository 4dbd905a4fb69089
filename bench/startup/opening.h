#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QTimer>

#include <cstdio>
#include <ctime>

// Shared by both programs. Without an argument they show an empty window and stay. With a file they
// open it in the shown window and print how long it took until the text was on the screen.

// Peak of this process so far, in KiB.
inline int peakMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lstLines = file.readAll().split('\n');
    for (const QByteArray &line : lstLines)
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toInt();
    return 0;
}

// Processor time of the calling thread so far, in microseconds: what a busy machine does not add
// to.
inline qint64 processorTime()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000 + time.tv_nsec / 1000;
}

// The longest work of the calling thread between two turns of its event loop, in microseconds of
// processor time.
class CLongestGap
{
public:
    CLongestGap()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
        m_timer.start(0);
    }
    void tick()
    {
        const qint64 nNow = processorTime();
        m_nLongest = qMax(m_nLongest, nNow - m_nLast);
        m_nLast = nNow;
    }
    qint64 longest() const { return m_nLongest; }

private:
    QTimer m_timer;
    qint64 m_nLast = processorTime();
    qint64 m_nLongest = 0;
};

inline void paint(QPlainTextEdit *pEdit)
{
    QCoreApplication::sendPostedEvents(pEdit, QEvent::MetaCall); // Scroll bars come only now.
    pEdit->viewport()->repaint();
}

// load() reads and shows the file of that path, calls its second argument when the first lines are
// there, and returns when all are. settle() waits until the editor has done all its work.
template<class Load, class Settle>
int runOpening(QPlainTextEdit *pEdit, const Load &load, const Settle &settle)
{
    pEdit->resize(1000, 800);
    pEdit->show();
    const QString strPath = QCoreApplication::arguments().value(1);
    if (strPath.isEmpty())
        return QCoreApplication::exec();
    QCoreApplication::processEvents();

    CLongestGap gap;
    const qint64 nProcessorBefore = processorTime();
    qint64 nFirst = 0;
    QElapsedTimer timer;
    timer.start();
    load(strPath, [&] {
        paint(pEdit);
        nFirst = timer.nsecsElapsed() / 1000;
    });
    paint(pEdit);
    const qint64 nMicroseconds = timer.nsecsElapsed() / 1000;
    const qint64 nProcessor = processorTime() - nProcessorBefore;
    gap.tick();
    const qint64 nGap = gap.longest();
    const int nPeak = peakMemory();
    settle();
    std::printf("%lld %lld %d %d %lld %lld\n", static_cast<long long>(nMicroseconds),
                static_cast<long long>(nProcessor), nPeak, peakMemory(),
                static_cast<long long>(nFirst), static_cast<long long>(nGap));
    return 0;
}
