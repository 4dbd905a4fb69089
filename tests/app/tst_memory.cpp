#include "app/platform.h"

#include <QFile>
#include <QTest>

#include <memory>
#include <vector>

// Free memory is returned to the system on request.
class tst_memory : public QObject
{
    Q_OBJECT

private slots:
    void returnFreedMemory_returnsWhatLiesBelowSomethingInUse();
};

// The memory of this process in MiB.
static int residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return int(file.readAll().split(' ').value(1).toLongLong() * 4096 / 1024 / 1024);
}

void tst_memory::returnFreedMemory_returnsWhatLiesBelowSomethingInUse()
{
#ifndef __GLIBC__
    QSKIP("another allocator keeps its memory by rules of its own");
#endif
    std::vector<std::unique_ptr<char[]>> lstBlocks;
    for (int n = 0; n < 50000; ++n) {
        lstBlocks.push_back(std::make_unique<char[]>(1000));
        lstBlocks.back()[0] = 'x';
    }
    const auto last = std::make_unique<char[]>(1000); // Keeps the heap from shrinking by itself.
    const int nBefore = residentMemory();
    lstBlocks.clear();
    Platform::returnFreedMemory();
    QVERIFY2(residentMemory() <= nBefore - 30,
             qPrintable(QStringLiteral("%1 MiB, then %2").arg(nBefore).arg(residentMemory())));
    QCOMPARE(int(last[0]), 0);
}

QTEST_GUILESS_MAIN(tst_memory)
#include "tst_memory.moc"
