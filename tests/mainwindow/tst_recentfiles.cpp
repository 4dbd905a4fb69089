#include "mainwindow/recentfiles.h"

#include <QtTest>

class tst_recentfiles : public QObject
{
    Q_OBJECT

private slots:
    void list_data()
    {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("after");
        const QStringList lstSix = {"/1", "/2", "/3", "/4", "/5", "/6"};
        QTest::newRow("the first") << QStringList() << "/a" << QStringList("/a");
        QTest::newRow("a seventh drops the oldest")
            << lstSix << "/7" << QStringList({"/7", "/1", "/2", "/3", "/4", "/5"});
        QTest::newRow("the third moves to the front")
            << lstSix << "/3" << QStringList({"/3", "/1", "/2", "/4", "/5", "/6"});
        QTest::newRow("another case is another file")
            << QStringList("/a") << "/A" << QStringList({"/A", "/a"});
        QTest::newRow("only the first equal entry goes")
            << QStringList({"/b", "/a", "/a"}) << "/a" << QStringList({"/a", "/b", "/a"});
    }

    void list()
    {
        QFETCH(QStringList, before);
        QFETCH(QString, path);
        QTEST(withRecentFile(before, path), "after");
    }
};

QTEST_GUILESS_MAIN(tst_recentfiles)
#include "tst_recentfiles.moc"
