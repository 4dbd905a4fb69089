#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>

#include <cstdio>
#include <ctime>

// What both programs do alike: with no argument show an empty window and stay; with a file, open it
// in the window shown and tell how long it took until the text was on the screen.

// Peak of this process so far, in KiB.
inline int peakMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lstLines = file.readAll().split('\n');
    for (const QByteArray &line : lstLines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toInt();
    }
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

// load() shows the bytes, settle() waits until the editor has done all its work.
template<class Load, class Settle>
int runOpening(QPlainTextEdit *pEdit, const Load &load, const Settle &settle)
{
    pEdit->resize(1000, 800);
    pEdit->show();
    const QString strPath = QCoreApplication::arguments().value(1);
    if (strPath.isEmpty())
        return QCoreApplication::exec();
    QCoreApplication::processEvents();

    const qint64 nProcessorBefore = processorTime();
    QElapsedTimer timer;
    timer.start();
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    load(file.readAll());
    QCoreApplication::sendPostedEvents(pEdit, QEvent::MetaCall); // Scroll bars come only now.
    pEdit->viewport()->repaint();
    const qint64 nMicroseconds = timer.nsecsElapsed() / 1000;
    const qint64 nProcessor = processorTime() - nProcessorBefore;
    const int nPeak = peakMemory();
    settle();
    std::printf("%lld %lld %d %d\n", static_cast<long long>(nMicroseconds),
                static_cast<long long>(nProcessor), nPeak, peakMemory());
    return 0;
}
