#include "browser/cfileinfogatherer.h"
#include "browser/testtree.h"
#include "support/cunprivileged.h"

#include <QSignalSpy>
#include <QtTest>

#include <mutex>

// A reader whose signals are recorded on its own thread, in the order they are emitted.
class CRecordedReader : public CFileInfoGatherer
{
public:
    CRecordedReader()
    {
        connect(
            this, &CFileInfoGatherer::newListOfFiles2, this,
            [this](const QString &strPath, const QFileInfoList &lst) {
                const std::lock_guard<std::mutex> guard(m_recordMutex);
                QStringList lstNames;
                for (const QFileInfo &info : lst)
                    lstNames.append(info.fileName().isEmpty() ? info.filePath() : info.fileName());
                m_lstDirectories.append(strPath);
                m_lstNames.append(lstNames);
            },
            Qt::DirectConnection);
        connect(
            this, &CFileInfoGatherer::directoryLoaded, this,
            [this](const QString &strPath) {
                const std::lock_guard<std::mutex> guard(m_recordMutex);
                m_lstLoaded.append(strPath);
            },
            Qt::DirectConnection);
    }
    ~CRecordedReader() override
    {
        stop();
        wait();
    }

    QStringList directories() const
    {
        const std::lock_guard<std::mutex> guard(m_recordMutex);
        return m_lstDirectories;
    }
    QStringList loaded() const
    {
        const std::lock_guard<std::mutex> guard(m_recordMutex);
        return m_lstLoaded;
    }
    QStringList names(int n) const
    {
        const std::lock_guard<std::mutex> guard(m_recordMutex);
        QStringList lst = m_lstNames.value(n);
        lst.sort();
        return lst;
    }

private:
    mutable std::mutex m_recordMutex; // The thread sanitizer knows standard mutexes.
    QStringList m_lstDirectories;
    QStringList m_lstLoaded;
    QList<QStringList> m_lstNames;
};

class tst_fileinfogatherer : public QObject
{
    Q_OBJECT

private slots:
    void newReader_hasItsDefaults();
    void folder_isListedWithoutDots();
    void hiddenEntries_areSkippedOnDemand();
    void dirsOnly_skipsFiles();
    void noScanning_neverListsSubFolders();
    void scanning_goesBreadthFirst();
    void linkLoop_isLeftByStop();
    void emptyPath_listsDrivesThenTheirRoots();
    void emptyPathWithoutDrives_emitsNothing();
    void missingFolder_givesAnEmptyList();
    void folderWithoutPermission_givesAnEmptyList();
    void stopInHugeFolder_deliversAPart();
    void fetchDuringACrawl_endsItAndIsMissed();
    void missedFetch_isListedByTheNextOne();
    void stopAndWait_returnsWithinThePause();
    void idleReader_stopAndWaitReturnsAtOnce();
    void manyFetches_neverLoseTheLast();
};

void tst_fileinfogatherer::newReader_hasItsDefaults()
{
    const CRecordedReader reader;
    QVERIFY(!reader.showDrives());
    QVERIFY(!reader.dirsOnly());
    QVERIFY(!reader.skipHidden());
    QVERIFY(reader.scanSubDirs());
    QVERIFY(!reader.isFetchMissed());
}

void tst_fileinfogatherer::folder_isListedWithoutDots()
{
    const CTestTree tree;
    tree.addFile(nameWithSign());
    tree.addFile(QStringLiteral("größe.txt"));
    tree.addFile(QStringLiteral(".hidden"));
    tree.addLink(linkName("dangling"), QStringLiteral("/nowhere/at/all"));
    CRecordedReader reader;
    reader.setScanSubDirs(false);
    reader.fetch(tree.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories(), QStringList(tree.path()));
    QCOMPARE(reader.loaded(), QStringList(tree.path()));
    QCOMPARE(reader.names(0),
             QStringList({QStringLiteral(".hidden"), linkName("dangling"),
                          QStringLiteral("größe.txt"), nameWithSign()}));
}

void tst_fileinfogatherer::hiddenEntries_areSkippedOnDemand()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral(".hidden"));
    tree.addFolder(QStringLiteral(".folder"));
    tree.addFile(QStringLiteral("shown"));
    CRecordedReader reader;
    reader.setSkipHidden(true);
    reader.fetch(tree.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories(), QStringList(tree.path()));
    QCOMPARE(reader.names(0), QStringList(QStringLiteral("shown")));
}

void tst_fileinfogatherer::dirsOnly_skipsFiles()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("file"));
    tree.addFolder(QStringLiteral("folder"));
    CRecordedReader reader;
    reader.setDirsOnly(true);
    reader.setScanSubDirs(false);
    reader.fetch(tree.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.names(0), QStringList(QStringLiteral("folder")));
}

void tst_fileinfogatherer::noScanning_neverListsSubFolders()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub/deeper"));
    CRecordedReader reader;
    reader.setScanSubDirs(false);
    reader.fetch(tree.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.loaded(), QStringList(tree.path()));
}

void tst_fileinfogatherer::scanning_goesBreadthFirst()
{
    const CTestTree tree;
    const QString strDeep = tree.addFolder(QStringLiteral("a/deep"));
    const QString strOther = tree.addFolder(QStringLiteral("b"));
    CRecordedReader reader;
    QElapsedTimer timer;
    timer.start();
    reader.fetch(tree.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories().first(), tree.path());
    QCOMPARE(reader.directories().last(), strDeep);
    QCOMPARE(reader.directories().size(), 4);
    QVERIFY(reader.directories().contains(strOther));
    QVERIFY2(timer.elapsed() >= 400, "a pause of 100 ms follows each folder");
}

void tst_fileinfogatherer::linkLoop_isLeftByStop()
{
#ifdef Q_OS_WIN
    QSKIP("A shortcut leads into no folder, and other links need a right of their own.");
#endif
    const CTestTree tree;
    tree.addLink(linkName("loop"), tree.path());
    CRecordedReader reader;
    reader.fetch(tree.path());
    QTRY_VERIFY(reader.directories().size() >= 3);
    reader.stopAndWait();
    QVERIFY(reader.wait(30000));
}

void tst_fileinfogatherer::emptyPath_listsDrivesThenTheirRoots()
{
    CRecordedReader reader;
    reader.setShowDrives(true);
    reader.setScanSubDirs(false);
    reader.fetch(QString());
    QVERIFY(reader.wait());
    QStringList lstExpected(QString {});
    const QFileInfoList lstDrives = QDir::drives();
    for (const QFileInfo &drive : lstDrives)
        lstExpected.insert(1, QDir::toNativeSeparators(drive.absoluteFilePath()));
    QCOMPARE(reader.directories(), lstExpected);
    QCOMPARE(reader.loaded(), lstExpected);
    QCOMPARE(reader.names(0).size(), lstDrives.size());
}

void tst_fileinfogatherer::emptyPathWithoutDrives_emitsNothing()
{
    CRecordedReader reader;
    reader.fetch(QString());
    QVERIFY(reader.wait());
    QVERIFY(reader.directories().isEmpty());
    QVERIFY(reader.loaded().isEmpty());
}

void tst_fileinfogatherer::missingFolder_givesAnEmptyList()
{
    const CTestTree tree;
    const QString strGone = tree.path(QStringLiteral("gone"));
    CRecordedReader reader;
    reader.fetch(strGone);
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories(), QStringList(strGone));
    QCOMPARE(reader.loaded(), QStringList(strGone));
    QVERIFY(reader.names(0).isEmpty());
}

void tst_fileinfogatherer::folderWithoutPermission_givesAnEmptyList()
{
#ifndef Q_OS_LINUX
    QSKIP("Nothing takes this program's permissions away here.");
#endif
    const CTestTree tree;
    const QString strClosed = tree.addFolder(QStringLiteral("closed"));
    tree.addFile(QStringLiteral("closed/file"));
    QFile::setPermissions(strClosed, {});
    const CUnprivileged unprivileged;
    CRecordedReader reader;
    reader.fetch(strClosed);
    QVERIFY(reader.wait());
    QVERIFY(reader.names(0).isEmpty());
    QCOMPARE(reader.loaded(), QStringList(strClosed));
    QFile::setPermissions(strClosed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void tst_fileinfogatherer::stopInHugeFolder_deliversAPart()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("folder"));
    tree.addFiles(20000);
    bool bPartial = false;
    // The stop may come before the first entry or behind the last.
    for (int nDelay = 1; nDelay < 200 && !bPartial; nDelay = nDelay * 3 / 2 + 1) {
        CRecordedReader reader;
        reader.fetch(tree.path());
        QThread::msleep(ulong(nDelay));
        reader.stop();
        QVERIFY(reader.wait());
        QCOMPARE(reader.loaded(), reader.directories());
        const int nNames = reader.names(0).size();
        bPartial = nNames > 0 && nNames < 20001;
        // A stop after the last entry may affect the next folder.
        QVERIFY(nNames == 20001 || reader.directories().size() <= 1);
    }
    QVERIFY(bPartial);
}

void tst_fileinfogatherer::fetchDuringACrawl_endsItAndIsMissed()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub/deeper"));
    const CTestTree other;
    CRecordedReader reader;
    reader.fetch(tree.path());
    QTRY_COMPARE(reader.directories().size(), 1);
    reader.fetch(other.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories(), QStringList(tree.path()));
    QVERIFY(reader.isFetchMissed());
}

void tst_fileinfogatherer::missedFetch_isListedByTheNextOne()
{
    const CTestTree tree;
    const CTestTree other;
    CRecordedReader reader;
    reader.fetch(tree.path());
    QTRY_COMPARE(reader.directories().size(), 1);
    reader.fetch(other.path());
    QVERIFY(reader.wait());
    reader.fetch(other.path());
    QVERIFY(reader.wait());
    QCOMPARE(reader.directories(), QStringList({tree.path(), other.path()}));
    QVERIFY(!reader.isFetchMissed());
}

void tst_fileinfogatherer::stopAndWait_returnsWithinThePause()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub/deeper"));
    CRecordedReader reader;
    reader.fetch(tree.path());
    QTRY_COMPARE(reader.directories().size(), 1);
    QElapsedTimer timer;
    timer.start();
    reader.stopAndWait();
    QVERIFY2(timer.elapsed() < 4500, "the wake-up was lost");
    QVERIFY(reader.wait(30000));
    QCOMPARE(reader.directories().size(), 1);
}

void tst_fileinfogatherer::idleReader_stopAndWaitReturnsAtOnce()
{
    CRecordedReader reader;
    QElapsedTimer timer;
    timer.start();
    reader.stopAndWait();
    QVERIFY(timer.elapsed() < 4500);
}

// However the requests fall, the last one is listed or known to be missed.
void tst_fileinfogatherer::manyFetches_neverLoseTheLast()
{
    const CTestTree tree;
    tree.addFiles(200);
    const QString strA = tree.addFolder(QStringLiteral("a"));
    const QString strB = tree.addFolder(QStringLiteral("b"));
    for (int n = 0; n < 15; ++n) {
        CRecordedReader reader;
        reader.setScanSubDirs(n % 2 == 0);
        reader.fetch(tree.path());
        // From no delay to longer than the pause after the first folder.
        QThread::msleep(ulong(n * 8));
        reader.fetch(strA);
        reader.fetch(strB);
        QVERIFY(reader.wait());
        QVERIFY(reader.isFetchMissed() || reader.directories().last() == strB);
    }
}

QTEST_GUILESS_MAIN(tst_fileinfogatherer)
#include "tst_fileinfogatherer.moc"
