#include "mainwindow/cfilewatch.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void write(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), qint64(data.size()));
}

} // namespace

class TestFileWatch : public QObject
{
    Q_OBJECT

private slots:
    void change_isReportedOnce_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("written") << "write";
        QTest::newRow("replaced by rename") << "rename";
        QTest::newRow("deleted") << "delete";
        QTest::newRow("folder vanishes") << "folder";
    }

    void change_isReportedOnce()
    {
        QFETCH(QString, how);
        QTemporaryDir folder;
        QDir(folder.path()).mkdir("sub");
        const QString strPath = folder.filePath("sub/a.txt");
        write(strPath, "old");
        CFileWatch watch(nullptr);
        QSignalSpy spy(&watch, &CFileWatch::changed);
        watch.remember(strPath);
        QVERIFY(!watch.isChanged(strPath));
        if (how == "write") {
            write(strPath, "new text");
        } else if (how == "rename") {
            write(folder.filePath("b"), "new text");
            QFile::remove(strPath);
            QVERIFY(QFile::rename(folder.filePath("b"), strPath));
        } else if (how == "delete") {
            QVERIFY(QFile::remove(strPath));
        } else {
            QVERIFY(QDir(folder.filePath("sub")).removeRecursively());
        }
        QVERIFY(watch.isChanged(strPath));
        QTRY_COMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), strPath);
        // Nine more changes are part of the one that was told.
        for (int n = 0; n < 9; ++n) {
            if (how != "folder")
                write(strPath, QByteArray(n + 20, 'x'));
            watch.check();
        }
        QCOMPARE(spy.size(), 1);
    }

    void ownWriting_isNotReported()
    {
        QTemporaryDir folder;
        const QString strPath = folder.filePath("a.txt");
        write(strPath, "old");
        CFileWatch watch(nullptr);
        QSignalSpy spy(&watch, &CFileWatch::changed);
        watch.remember(strPath);
        write(strPath, "ours, longer");
        watch.remember(strPath);
        watch.check();
        QVERIFY(spy.isEmpty());
        // The next one of somebody else is.
        write(strPath, "theirs");
        QTRY_COMPARE(spy.size(), 1);
    }

    void fileThatComesBackElsewhere_isSeenAgain()
    {
        QTemporaryDir folder;
        const QString strPath = folder.filePath("a.txt");
        write(strPath, "old");
        CFileWatch watch(nullptr);
        QSignalSpy spy(&watch, &CFileWatch::changed);
        watch.remember(strPath);
        QVERIFY(QFile::remove(strPath));
        QTRY_COMPARE(spy.size(), 1);
        write(strPath, "back");
        watch.remember(strPath);
        write(strPath, "and changed");
        QTRY_COMPARE(spy.size(), 2);
    }

    void forgottenFile_isNotReported()
    {
        QTemporaryDir folder;
        const QString strPath = folder.filePath("a.txt");
        const QString strOther = folder.filePath("b.txt");
        write(strPath, "old");
        write(strOther, "old");
        CFileWatch watch(nullptr);
        QSignalSpy spy(&watch, &CFileWatch::changed);
        watch.remember(strPath);
        watch.remember(strOther);
        watch.forget(strPath);
        write(strPath, "new text");
        write(strOther, "new text");
        QTRY_COMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), strOther);
    }
};

QTEST_GUILESS_MAIN(TestFileWatch)
#include "tst_filewatch.moc"
