#include "mainwindow/cclosedtabs.h"

#include <QtTest>

namespace {

SPlace placeAt(const QString &strPath, int nCaret = 0)
{
    SPlace place;
    place.strPath = strPath;
    place.nCaret = nCaret;
    return place;
}

} // namespace

class tst_closedtabs : public QObject
{
    Q_OBJECT

private slots:
    void closed_comeBackTheLastFirst()
    {
        CClosedTabs closed;
        closed.add(placeAt("/a"));
        closed.add(placeAt("/b", 7));
        QCOMPARE(closed.takeLast({}).nCaret, 7);
        QCOMPARE(closed.takeLast({}).strPath, QStringLiteral("/a"));
        QVERIFY(closed.isEmpty());
        QCOMPARE(closed.takeLast({}).strPath, QString());
    }

    void untitled_isNotKept()
    {
        CClosedTabs closed;
        closed.add(placeAt(QString()));
        QVERIFY(closed.isEmpty());
    }

    void closedTwice_isKeptAsItWasLast()
    {
        CClosedTabs closed;
        closed.add(placeAt("/a", 1));
        closed.add(placeAt("/b"));
        closed.add(placeAt("/a", 2));
        QCOMPARE(closed.takeLast({}).nCaret, 2);
        QCOMPARE(closed.takeLast({}).strPath, QStringLiteral("/b"));
        QVERIFY(closed.isEmpty());
    }

    void openOnes_arePassedOver()
    {
        CClosedTabs closed;
        closed.add(placeAt("/a"));
        closed.add(placeAt("/b"));
        closed.add(placeAt("/c"));
        QCOMPARE(closed.takeLast({"/c", "/b"}).strPath, QStringLiteral("/a"));
        QVERIFY(closed.isEmpty());
    }

    void tooMany_dropTheOldest()
    {
        CClosedTabs closed;
        for (int n = 0; n <= g_nMaxClosedTabs; ++n)
            closed.add(placeAt(QString::number(n)));
        for (int n = g_nMaxClosedTabs; n > 0; --n)
            QCOMPARE(closed.takeLast({}).strPath, QString::number(n));
        QVERIFY(closed.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_closedtabs)
#include "tst_closedtabs.moc"
