#include "mainwindow/recentfiles.h"

#include <QDir>
#include <QtTest>

class tst_recentfiles : public QObject
{
    Q_OBJECT

    // As the system writes them.
    static QStringList native(QStringList lstPaths)
    {
        for (QString &strPath : lstPaths)
            strPath = QDir::toNativeSeparators(strPath);
        return lstPaths;
    }

private slots:
    void list_data()
    {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("after");
        const QStringList lstSix = native({"/1", "/2", "/3", "/4", "/5", "/6"});
        QTest::newRow("the first") << QStringList() << "/a" << native({"/a"});
        QTest::newRow("a seventh drops the oldest")
            << lstSix << "/7" << native({"/7", "/1", "/2", "/3", "/4", "/5"});
        QTest::newRow("the third moves to the front")
            << lstSix << "/3" << native({"/3", "/1", "/2", "/4", "/5", "/6"});
#ifdef Q_OS_WIN
        QTest::newRow("another case is the same file")
            << native({"/b", "/a"}) << "/A" << native({"/A", "/b"});
#else
        QTest::newRow("another case is another file")
            << QStringList("/a") << "/A" << QStringList({"/A", "/a"});
#endif
        QTest::newRow("only the first equal entry goes")
            << native({"/b", "/a", "/a"}) << "/a" << native({"/a", "/b", "/a"});
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
