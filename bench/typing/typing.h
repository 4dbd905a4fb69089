#pragma once

#include "operations.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>

#include <functional>

// Shared by both programs: they show a file in a window, type at its end and elsewhere, rest, close
// it, and print the cost in "name<TAB>figure" lines. Arguments: the file, the number of keys,
// "keys" to measure nothing but the keys.

namespace Typing {

constexpr int g_nKeys = 60;
constexpr int g_nIdleMs = 6000;
constexpr int g_nLongestWaitMs = 120000;

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

// Waits until the program does hardly more than blink its cursor.
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

// open() shows the file and gives its editor, close() takes it away.
inline int run(const std::function<QPlainTextEdit *(const QString &)> &open,
               const std::function<void()> &close)
{
    const QStringList lst = QCoreApplication::arguments();
    const int nKeys = lst.value(2).isEmpty() ? g_nKeys : lst.value(2).toInt();
    const bool bRests = lst.value(3) != QLatin1String("keys");
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
    measureKeys(pEdit, nKeys);
    if (!bRests)
        return 0;
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
