#include "support/awaittimers.h"

#include "document/cfilewatch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

// Which files are watched.
class tst_filewatch : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_pFolder = std::make_unique<QTemporaryDir>();
        m_strFirst = file("first/a.txt");
        m_strSecond = file("second/b.txt");
    }

    void changedFile_isTold()
    {
        CFileWatch watch;
        QSignalSpy told(&watch, &CFileWatch::mayHaveChanged);
        watch.setFiles({m_strFirst, m_strSecond});
        write(m_strSecond);
        QVERIFY(told.wait());
    }

    void fileThatIsWatchedNoMore_isNotTold()
    {
        CFileWatch watch;
        QSignalSpy told(&watch, &CFileWatch::mayHaveChanged);
        watch.setFiles({m_strFirst, m_strSecond});
        watch.setFiles({m_strSecond});
        write(m_strFirst);
        QVERIFY(QFile::remove(m_strFirst));
        QVERIFY(awaitTimers(600)); // Twice what a burst may take.
        QCOMPARE(told.size(), 0);
        write(m_strSecond);
        QVERIFY(told.wait());
    }

    void fileThatComesBack_isTold()
    {
        CFileWatch watch;
        QSignalSpy told(&watch, &CFileWatch::mayHaveChanged);
        QVERIFY(QFile::remove(m_strFirst));
        watch.setFiles({m_strFirst});
        write(m_strFirst);
        QVERIFY(told.wait());
    }

private:
    static void write(const QString &strPath)
    {
        QFile file(strPath);
        QVERIFY(file.open(QIODevice::Append) && file.write("x") == 1);
    }
    QString file(const QString &strName) const
    {
        const QString strPath = m_pFolder->filePath(strName);
        QDir().mkpath(QFileInfo(strPath).path());
        write(strPath);
        return strPath;
    }

    std::unique_ptr<QTemporaryDir> m_pFolder;
    QString m_strFirst;
    QString m_strSecond;
};

QTEST_GUILESS_MAIN(tst_filewatch)
#include "tst_filewatch.moc"
