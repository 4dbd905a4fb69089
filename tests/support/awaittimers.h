#pragma once

#include <QTest>
#include <QTimer>

// True once every timer of this thread that was due within so many milliseconds has fired. It
// starts a timer, which fires after them however busy the machine is. Use it to show that something
// does not happen.
inline bool awaitTimers(int nMilliseconds)
{
    bool bFired = false;
    QTimer sentinel;
    sentinel.setSingleShot(true);
    sentinel.setTimerType(Qt::PreciseTimer);
    QObject::connect(&sentinel, &QTimer::timeout, [&bFired] { bFired = true; });
    sentinel.start(nMilliseconds + nMilliseconds / 10
                   + 1); // Usual timers may be late by a twentieth.
    return QTest::qWaitFor([&bFired] { return bFired; }, 20 * nMilliseconds + 10000);
}
