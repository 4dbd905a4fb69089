#pragma once

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define BENCH_COUNT_FROM_HERE CALLGRIND_START_INSTRUMENTATION
#define BENCH_COUNTED(szName)                                                                      \
    CALLGRIND_STOP_INSTRUMENTATION;                                                                \
    CALLGRIND_DUMP_STATS_AT(szName)
#else
#define BENCH_COUNT_FROM_HERE
#define BENCH_COUNTED(szName) (void)(szName)
#endif

// Measures the cost of keys in processor time of the whole process, to which other programs do not
// add. Under "valgrind --tool=callgrind --instr-atstart=no" each kind of key leaves a profile of
// its own, named in it as its trigger.

namespace Typing {

constexpr int g_nWarmUp = 10;

inline double processorMs()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
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

// Nothing is pending once a due timer has fired a few times.
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
        // The paint event counts when the widget itself has handled it.
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

struct SCosts
{
    std::vector<double> lstWhole;
    std::vector<double> lstPainted;
    std::vector<double> lstPaintedClock;
};

// Until it is painted and, with all that follows from it, done.
inline void measureOne(QPlainTextEdit *pEdit, const std::function<void()> &act, SCosts *pCosts)
{
    CPaintWatch watch(pEdit->viewport());
    QElapsedTimer timer;
    timer.start();
    const double dBefore = processorMs();
    act();
    while (!watch.isPainted())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    pCosts->lstPaintedClock.push_back(double(timer.nsecsElapsed()) / 1e6);
    pCosts->lstPainted.push_back(processorMs() - dBefore);
    runUntilIdle();
    runFor(30); // What other threads still do.
    pCosts->lstWhole.push_back(processorMs() - dBefore);
}

// act(n) is the one of that number; those of the warm-up have negative ones.
inline SCosts measure(QPlainTextEdit *pEdit, const char *szName, int nTimes,
                      const std::function<void(int)> &act)
{
    SCosts warmUp;
    for (int n = -g_nWarmUp; n < 0; ++n)
        measureOne(
            pEdit, [&] { act(n); }, &warmUp);
    SCosts costs;
    BENCH_COUNT_FROM_HERE;
    for (int n = 0; n < nTimes; ++n)
        measureOne(
            pEdit, [&] { act(n); }, &costs);
    BENCH_COUNTED(szName);
    report(szName, median(costs.lstWhole));
    return costs;
}

inline void measureTyping(QPlainTextEdit *pEdit, int nKeys)
{
    const QString strTyped = QStringLiteral("value = next 12 ");
    const SCosts costs = measure(pEdit, "key", nKeys, [&](int n) {
        const QString strKey = strTyped.at((n + g_nWarmUp) % strTyped.size());
        press(pEdit, strKey.at(0).toUpper().unicode(), Qt::NoModifier, strKey);
    });
    report("key to repaint", median(costs.lstPainted));
    report("key to repaint by the clock", median(costs.lstPaintedClock));
}

// Begins at the start, so that the cursor is in the last line of the view and further steps down
// scroll.
inline void goToMiddle(QPlainTextEdit *pEdit)
{
    press(pEdit, Qt::Key_Home, Qt::ControlModifier, QString());
    runUntilIdle();
    QTextCursor cursor = pEdit->textCursor();
    cursor.setPosition(pEdit->document()->findBlockByNumber(pEdit->blockCount() / 2).position());
    pEdit->setTextCursor(cursor);
    runFor(500);
}

inline void measureKey(QPlainTextEdit *pEdit, const char *szName, int nKeys, int nKey,
                       const QString &strText = QString())
{
    measure(
        pEdit, szName, nKeys, [=](int) { press(pEdit, nKey, Qt::NoModifier, strText); });
}

inline void measureMiddle(QPlainTextEdit *pEdit, int nKeys)
{
    goToMiddle(pEdit);
    measureKey(pEdit, "Down", nKeys, Qt::Key_Down);
    measureKey(pEdit, "Page Down", nKeys, Qt::Key_PageDown);
    goToMiddle(pEdit);
    measureKey(pEdit, "key in the middle", nKeys, Qt::Key_X, QStringLiteral("x"));
    measureKey(pEdit, "Backspace", nKeys, Qt::Key_Backspace);
    measureKey(pEdit, "Enter", nKeys, Qt::Key_Return, QStringLiteral("\r"));
    measureKey(pEdit, "Backspace over a line end", nKeys, Qt::Key_Backspace);
    const QTextBlock block = pEdit->document()->findBlockByNumber(pEdit->blockCount() / 3);
    QString strLines;
    for (QTextBlock line = block; line.blockNumber() < block.blockNumber() + 100;
         line = line.next())
        strLines += line.text() + QLatin1Char('\n');
    QGuiApplication::clipboard()->setText(strLines);
    measure(
        pEdit, "paste of 100 lines", nKeys, [=](int) { pEdit->paste(); });
    measure(pEdit, "undo of it", nKeys,
            [=](int) { press(pEdit, Qt::Key_Z, Qt::ControlModifier, QString()); });
}

inline void measureKeys(QPlainTextEdit *pEdit, int nKeys)
{
    measureTyping(pEdit, nKeys);
    if (pEdit->blockCount() > 1000)
        measureMiddle(pEdit, nKeys);
}

} // namespace Typing
