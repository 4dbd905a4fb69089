#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

// What both programs do alike: show a file in a window, type at its end, rest, close it, and tell
// in "name<TAB>figure" lines what that took. Times are processor time of the whole process, which
// other programs do not add to, except where they are said to be by the clock.

namespace Typing {

constexpr int g_nKeys = 60;
constexpr int g_nWarmUp = 10;
constexpr int g_nIdleMs = 6000;
constexpr int g_nLongestWaitMs = 120000;

inline double processorMs()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

// A line of /proc/self/status in MiB, such as "VmRSS:".
inline double memory(const char *szName)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lstLines = file.readAll().split('\n');
    for (const QByteArray &line : lstLines)
        if (line.startsWith(szName))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return -1;
}

inline void report(const char *szName, double dValue)
{
    std::printf("%s\t%.3f\n", szName, dValue);
    std::fflush(stdout);
}

inline void runFor(int nMs)
{
    QEventLoop loop;
    QTimer::singleShot(nMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// Until hardly anything is done any more: more than a blinking cursor takes.
inline void runUntilRest()
{
    QElapsedTimer timer;
    timer.start();
    for (int nQuiet = 0; nQuiet < 3 && timer.elapsed() < g_nLongestWaitMs;) {
        const double dBefore = processorMs();
        runFor(200);
        nQuiet = processorMs() - dBefore < 10 ? nQuiet + 1 : 0;
    }
}

// Nothing is waiting once a timer that is due has come round a few times.
inline void runUntilIdle()
{
    for (int n = 0; n < 5; ++n) {
        bool bCame = false;
        QTimer::singleShot(0, [&bCame] { bCame = true; });
        while (!bCame)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

class CPaintWatch : public QObject
{
public:
    explicit CPaintWatch(QWidget *pWidget) { pWidget->installEventFilter(this); }
    bool isPainted() const { return m_bPainted; }
    void reset() { m_bPainted = false; }

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override
    {
        if (pEvent->type() != QEvent::Paint)
            return false;
        // Painted when the widget itself has handled it.
        pObject->removeEventFilter(this);
        QCoreApplication::sendEvent(pObject, pEvent);
        pObject->installEventFilter(this);
        m_bPainted = true;
        return true;
    }

private:
    bool m_bPainted = false;
};

inline void press(QWidget *pWidget, int nKey, Qt::KeyboardModifiers modifiers,
                  const QString &strText)
{
    QKeyEvent press(QEvent::KeyPress, nKey, modifiers, strText);
    QCoreApplication::sendEvent(pWidget, &press);
    QKeyEvent release(QEvent::KeyRelease, nKey, modifiers, strText);
    QCoreApplication::sendEvent(pWidget, &release);
}

inline double median(std::vector<double> lst)
{
    std::sort(lst.begin(), lst.end());
    return lst[lst.size() / 2];
}

// Each key until it is painted and, with all that follows from it, done.
[[gnu::noinline]] inline void typeKeys(QPlainTextEdit *pEdit, int nKeys)
{
    const QString strTyped = QStringLiteral("value = next 12 ");
    CPaintWatch watch(pEdit->viewport());
    std::vector<double> lstWhole;
    std::vector<double> lstPainted;
    std::vector<double> lstPaintedClock;
    for (int n = -g_nWarmUp; n < nKeys; ++n) {
        const QString strKey = strTyped.at((n + g_nWarmUp) % strTyped.size());
        watch.reset();
        QElapsedTimer timer;
        timer.start();
        const double dBefore = processorMs();
        press(pEdit, strKey.at(0).toUpper().unicode(), Qt::NoModifier, strKey);
        while (!watch.isPainted())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const double dClock = double(timer.nsecsElapsed()) / 1e6;
        const double dPainted = processorMs() - dBefore;
        runUntilIdle();
        runFor(30); // What other threads still do.
        if (n >= 0) {
            lstWhole.push_back(processorMs() - dBefore);
            lstPainted.push_back(dPainted);
            lstPaintedClock.push_back(dClock);
        }
    }
    report("key", median(lstWhole));
    report("key to repaint", median(lstPainted));
    report("key to repaint by the clock", median(lstPaintedClock));
}

// open() shows the file and gives its editor, close() takes it away.
inline int run(const std::function<QPlainTextEdit *(const QString &)> &open,
               const std::function<void()> &close)
{
    const QStringList lst = QCoreApplication::arguments();
    const int nKeys = lst.value(2).isEmpty() ? g_nKeys : lst.value(2).toInt();
    runUntilRest();
    report("memory before", memory("VmRSS:"));
    const double dStart = processorMs();
    QPlainTextEdit *pEdit = open(lst.value(1));
    pEdit->setFocus();
    runUntilRest();
    report("until at rest", processorMs() - dStart);
    report("memory at rest", memory("VmRSS:"));
    report("peak memory", memory("VmHWM:"));
    press(pEdit, Qt::Key_End, Qt::ControlModifier, QString());
    runUntilRest();
    typeKeys(pEdit, nKeys);
    runUntilRest();
    const double dIdle = processorMs();
    runFor(g_nIdleMs);
    report("idle share", (processorMs() - dIdle) / g_nIdleMs * 100);
    report("focus", pEdit->hasFocus());
    close();
    runUntilRest();
    report("memory after closing", memory("VmRSS:"));
    return 0;
}

} // namespace Typing
