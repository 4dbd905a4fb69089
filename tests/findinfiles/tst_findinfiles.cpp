#include "browser/testtree.h"
#include "findinfiles/cfindinfiles.h"
#include "findinfiles/filereading.h"
#include "findinfiles/filewalk.h"
#include "findinfiles/findquery.h"
#include "support/cunprivileged.h"

#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

// A search and all its signals.
struct SSearched
{
    SSearched()
    {
        QObject::connect(&engine, &CFindInFiles::found, [this](const QVector<SFileMatches> &lst) {
            nLargestBatch = qMax(nLargestBatch, lst.size());
            lstFound += lst;
        });
        QObject::connect(&engine, &CFindInFiles::finished, [this](const SFindCounts &counts) {
            last = counts;
            ++nFinished;
        });
    }

    bool run(const QString &strFolder, const QString &strText, const QString &strNames = QString())
    {
        lstFound.clear();
        nFinished = 0;
        SFindQuery query;
        query.strFolder = strFolder;
        query.strText = strText;
        query.strNames = strNames;
        engine.start(query);
        return QTest::qWaitFor([this] { return nFinished == 1; }, 30000);
    }

    QStringList names(const QString &strFolder) const
    {
        QStringList lst;
        for (const SFileMatches &file : lstFound)
            lst.append(QDir(strFolder).relativeFilePath(file.strPath));
        lst.sort();
        return lst;
    }

    CFindInFiles engine;
    QVector<SFileMatches> lstFound;
    SFindCounts last;
    int nFinished = 0;
    int nLargestBatch = 0;
};

static QStringList walked(const QString &strFolder)
{
    const std::atomic<bool> bCancel = false;
    QStringList lst;
    walkFiles(strFolder, bCancel, [&](const QString &strPath) {
        lst.append(QDir(strFolder).relativeFilePath(strPath));
        return true;
    });
    lst.sort();
    return lst;
}

static bool git(const QString &strFolder, const QStringList &lstArguments)
{
    QProcess process;
    process.setWorkingDirectory(strFolder);
    process.start(QStringLiteral("git"),
                  QStringList({"-c", "user.name=a", "-c", "user.email=a@b"}) + lstArguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

class tst_findinfiles : public QObject
{
    Q_OBJECT

private slots:
    void matches_areToldWithTheirPlaces();
    void nothingToSearch_endsAtOnce_data();
    void nothingToSearch_endsAtOnce();
    void names_areChosen();
    void binaryAndUnreadableFiles_areCounted();
    void pipesAndDevices_areNeverOpened();
    void hugeFile_isLeftOut();
    void links_areNotFollowed();
    void chosenLink_isFollowed();
    void ignoredFiles_areLeftOut();
    void ignoredFolder_isSearchedWhenChosen();
    void repositoriesWithin_followTheirOwnRules();
    void repositorySettings_runNothing();
    void brokenRepository_isSearchedPlainly();
    void strangeNames_areFound();
    void cancel_endsAtOnce();
    void newSearch_forgetsTheOldOne();
    void manyMatches_comeInBatchesAndAreCutOff();
    void receiverThatCancels_isSafe();
    void destruction_leavesNoWork();
};

void tst_findinfiles::matches_areToldWithTheirPlaces()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub/deep"));
    tree.addFile(QStringLiteral("a.txt"), "one\ntwo needle three needle\n");
    tree.addFile(QStringLiteral("sub/deep/b.txt"), "NEEDLE\n");
    tree.addFile(QStringLiteral("sub/c.txt"), "hay\n");
    tree.addFile(QStringLiteral(".hidden"), "needle");
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.names(tree.path()), QStringList({".hidden", "a.txt", "sub/deep/b.txt"}));
    QCOMPARE(searched.last.nFiles, 4);
    QCOMPARE(searched.last.nMatches, 4);
    QCOMPARE(searched.last.nMatchedFiles, 3);
    QVERIFY(!searched.last.bCancelled);
    for (const SFileMatches &file : qAsConst(searched.lstFound)) {
        if (!file.strPath.endsWith("a.txt"))
            continue;
        QCOMPARE(file.lstMatches.size(), 2);
        QCOMPARE(file.lstMatches.at(1).nLine, 2);
        QCOMPARE(file.lstMatches.at(1).nColumn, 17);
        QCOMPARE(file.lstMatches.at(1).nLength, 6);
        QCOMPARE(file.lstMatches.at(1).strExcerpt, QStringLiteral("two needle three needle"));
        QCOMPARE(file.fingerprint, fingerprintOf("one\ntwo needle three needle\n"));
    }
}

void tst_findinfiles::nothingToSearch_endsAtOnce_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty text") << "/tmp"
                                << "";
    QTest::newRow("no folder") << "/nowhere/at/all"
                               << "a";
    QTest::newRow("empty folder") << ""
                                  << "a";
}

void tst_findinfiles::nothingToSearch_endsAtOnce()
{
    QFETCH(QString, folder);
    QFETCH(QString, text);
    SSearched searched;
    QVERIFY(searched.run(folder, text));
    QVERIFY(!searched.engine.isRunning());
    QCOMPARE(searched.last.nFiles, 0);
}

void tst_findinfiles::names_areChosen()
{
    const CTestTree tree;
    for (const char *szName : {"a.cpp", "b.h", "c.txt", "d.CPP"})
        tree.addFile(QLatin1String(szName), "needle");
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle"), QStringLiteral("*.cpp; *.h")));
    QCOMPARE(searched.names(tree.path()), QStringList({"a.cpp", "b.h", "d.CPP"}));
    QCOMPARE(searched.last.nFiles, 3);
}

void tst_findinfiles::binaryAndUnreadableFiles_areCounted()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "needle");
    tree.addFile(QStringLiteral("b"), QByteArray("needle\0needle", 13));
    tree.addFile(QStringLiteral("c"), QByteArray(100000, 'x') + QByteArray("needle\0", 7));
    const QString strClosed = tree.addFile(QStringLiteral("d"), "needle");
    QFile::setPermissions(strClosed, QFileDevice::WriteOwner);
    QFile::setPermissions(tree.path(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner
                              | QFileDevice::ReadOther | QFileDevice::ExeOther);
    const CUnprivileged unprivileged;
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.names(tree.path()), QStringList({"a"}));
    QCOMPARE(searched.last.nBinary, 2);
    QCOMPARE(searched.last.nUnreadable, 1);
    QCOMPARE(searched.last.nFiles, 1);
}

void tst_findinfiles::pipesAndDevices_areNeverOpened()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "needle");
    QCOMPARE(mkfifo(QFile::encodeName(tree.path(QStringLiteral("pipe"))).constData(), 0600), 0);
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.names(tree.path()), QStringList({"a"}));
    QCOMPARE(searched.last.nUnreadable, 0);
    QByteArray data;
    QVERIFY(readTextFile(tree.path(QStringLiteral("pipe")), &data) == FileKind::None);
    QVERIFY(readTextFile(QStringLiteral("/dev/zero"), &data) == FileKind::None);
    QVERIFY(readTextFile(tree.path(), &data) == FileKind::None);
    tree.addFile(QStringLiteral("wide"),
                 QByteArray("\xff\xfe"
                            "a\0b\0",
                            6));
    QVERIFY(readTextFile(tree.path(QStringLiteral("wide")), &data) == FileKind::Text);
    QCOMPARE(data.size(), 6);
    QVERIFY(readTextFile(tree.path(QStringLiteral("gone")), &data) == FileKind::None);
}

void tst_findinfiles::hugeFile_isLeftOut()
{
    const CTestTree tree;
    QFile file(tree.addFile(QStringLiteral("huge"), "needle"));
    QVERIFY(file.resize(qint64(65) * 1024 * 1024)); // A hole: takes no room.
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.last.nHuge, 1);
    QCOMPARE(searched.last.nMatches, 0);
}

void tst_findinfiles::links_areNotFollowed()
{
    const CTestTree tree;
    const CTestTree elsewhere;
    elsewhere.addFile(QStringLiteral("b"), "needle");
    tree.addFile(QStringLiteral("a"), "needle");
    tree.addLink(QStringLiteral("circle"), tree.path());
    tree.addLink(QStringLiteral("out"), elsewhere.path());
    tree.addLink(QStringLiteral("file"), elsewhere.path(QStringLiteral("b")));
    tree.addLink(QStringLiteral("dangling"), QStringLiteral("/nowhere/at/all"));
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.names(tree.path()), QStringList({"a"}));
    QCOMPARE(searched.last.nUnreadable, 0);
}

void tst_findinfiles::chosenLink_isFollowed()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("real"));
    tree.addFile(QStringLiteral("real/a"), "needle");
    const QString strLink = tree.addLink(QStringLiteral("link"), tree.path(QStringLiteral("real")));
    SSearched searched;
    QVERIFY(searched.run(strLink, QStringLiteral("needle")));
    QCOMPARE(searched.names(strLink), QStringList({"a"}));
}

void tst_findinfiles::ignoredFiles_areLeftOut()
{
    const CTestTree tree;
    QVERIFY(git(tree.path(), {"init", "-q"}));
    tree.addFolder(QStringLiteral("build/deep"));
    tree.addFolder(QStringLiteral("src"));
    for (const char *szName : {"a.c", "a.o", "kept.o", "build/b.c", "build/deep/c.c", "src/d.c",
                               "src/e.o", "src/tracked.o", "src/only"})
        tree.addFile(QLatin1String(szName), "needle");
    tree.addFile(QStringLiteral("src/.gitignore"), "only\n");
    QVERIFY(git(tree.path(), {"add", "src/tracked.o", "a.c"})); // Before it is ignored.
    tree.addFile(QStringLiteral(".gitignore"), "*.o\n!kept.o\n/build/\n");
    const QStringList lstExpected {".gitignore",     "a.c",     "kept.o",
                                   "src/.gitignore", "src/d.c", "src/tracked.o"};
    QCOMPARE(walked(tree.path()), lstExpected);
    // The same holds in a sub-folder.
    QCOMPARE(walked(tree.path(QStringLiteral("src"))),
             QStringList({".gitignore", "d.c", "tracked.o"}));
    // A tracked file that has gone is no failure.
    QFile::remove(tree.path(QStringLiteral("a.c")));
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QCOMPARE(searched.names(tree.path()), QStringList({"kept.o", "src/d.c", "src/tracked.o"}));
    QCOMPARE(searched.last.nUnreadable, 0);
}

void tst_findinfiles::ignoredFolder_isSearchedWhenChosen()
{
    const CTestTree tree;
    QVERIFY(git(tree.path(), {"init", "-q"}));
    tree.addFolder(QStringLiteral("build"));
    tree.addFile(QStringLiteral(".gitignore"), "build\n");
    tree.addFile(QStringLiteral("build/a.c"), "needle");
    QCOMPARE(walked(tree.path()), QStringList({".gitignore"}));
    QCOMPARE(walked(tree.path(QStringLiteral("build"))), QStringList({"a.c"}));
}

void tst_findinfiles::repositoriesWithin_followTheirOwnRules()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("plain/inner/deep"));
    tree.addFile(QStringLiteral("plain/a.o"), "needle");
    QVERIFY(git(tree.path(QStringLiteral("plain/inner")), {"init", "-q"}));
    tree.addFile(QStringLiteral("plain/inner/.gitignore"), "*.o\n");
    tree.addFile(QStringLiteral("plain/inner/b.o"), "needle");
    tree.addFile(QStringLiteral("plain/inner/c.c"), "needle");
    // A second one within the first, not a part of it.
    QVERIFY(git(tree.path(QStringLiteral("plain/inner/deep")), {"init", "-q"}));
    tree.addFile(QStringLiteral("plain/inner/deep/d.o"), "needle");
    QCOMPARE(walked(tree.path()),
             QStringList({"plain/a.o", "plain/inner/.gitignore", "plain/inner/c.c",
                          "plain/inner/deep/d.o"}));
    // And one that belongs to it.
    QVERIFY(git(tree.path(QStringLiteral("plain/inner/deep")), {"add", "."}));
    QVERIFY(git(tree.path(QStringLiteral("plain/inner/deep")), {"commit", "-qm", "x"}));
    QVERIFY(git(tree.path(QStringLiteral("plain/inner")), {"add", "-f", "."}));
    QVERIFY(walked(tree.path()).contains("plain/inner/deep/d.o"));
}

void tst_findinfiles::repositorySettings_runNothing()
{
    const CTestTree tree;
    QVERIFY(git(tree.path(), {"init", "-q"}));
    tree.addFile(QStringLiteral("a"), "needle");
    QVERIFY(git(tree.path(), {"add", "a"}));
    const QString strProof = tree.path(QStringLiteral("proof"));
    const QString strHook = tree.addFile(QStringLiteral("hook"),
                                         "#!/bin/sh\ntouch " + QFile::encodeName(strProof) + "\n");
    QFile::setPermissions(strHook, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    for (const char *szKey : {"core.fsmonitor", "core.pager", "core.editor", "core.sshCommand",
                              "alias.ls-files", "alias.check-ignore"})
        QVERIFY(git(tree.path(), {"config", QLatin1String(szKey), strHook}));
    QVERIFY(git(tree.path(), {"config", "core.untrackedCache", "true"}));
    QCOMPARE(walked(tree.path()), QStringList({"a", "hook"}));
    QVERIFY(!QFile::exists(strProof));
}

void tst_findinfiles::brokenRepository_isSearchedPlainly()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral(".git"), "no repository");
    tree.addFile(QStringLiteral("a"), "needle");
    QCOMPARE(walked(tree.path()), QStringList({".git", "a"}));
}

void tst_findinfiles::strangeNames_areFound()
{
    const QStringList lstNames {" ", "a\nb", "größe", "q\"uote", "t\tab", "日本"};
    for (const bool bRepository : {false, true}) {
        const CTestTree tree;
        if (bRepository)
            QVERIFY(git(tree.path(), {"init", "-q"}));
        for (const QString &strName : lstNames)
            tree.addFile(strName, "needle");
        if (bRepository)
            QVERIFY(git(tree.path(), {"add", "t\tab", "größe"}));
        SSearched searched;
        QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
        QCOMPARE(searched.names(tree.path()), lstNames);
    }
}

void tst_findinfiles::cancel_endsAtOnce()
{
    const CTestTree tree;
    for (int n = 0; n < 2000; ++n)
        tree.addFile(QString::number(n), "needle\nneedle\n");
    SSearched searched;
    SFindQuery query;
    query.strFolder = tree.path();
    query.strText = QStringLiteral("needle");
    searched.engine.start(query);
    QVERIFY(searched.engine.isRunning());
    searched.engine.cancel();
    QVERIFY(!searched.engine.isRunning());
    QCOMPARE(searched.nFinished, 1);
    QVERIFY(searched.last.bCancelled);
    const int nFound = searched.lstFound.size();
    QVERIFY(!QTest::qWaitFor([&] { return searched.lstFound.size() > nFound; }, 200));
    QCOMPARE(searched.nFinished, 1);
    searched.engine.cancel();
    QCOMPARE(searched.nFinished, 1);
}

void tst_findinfiles::newSearch_forgetsTheOldOne()
{
    const CTestTree tree;
    for (int n = 0; n < 500; ++n)
        tree.addFile(QString::number(n), "needle\n");
    tree.addFile(QStringLiteral("other"), "thread\n");
    SSearched searched;
    SFindQuery query;
    query.strFolder = tree.path();
    query.strText = QStringLiteral("needle");
    for (int n = 0; n < 20; ++n)
        searched.engine.start(query);
    QVERIFY(searched.run(tree.path(), QStringLiteral("thread")));
    QCOMPARE(searched.names(tree.path()), QStringList({"other"}));
}

void tst_findinfiles::manyMatches_comeInBatchesAndAreCutOff()
{
    const CTestTree tree;
    for (int n = 0; n < 300; ++n)
        tree.addFile(QString::number(n), QByteArray("needle\n").repeated(500));
    SSearched searched;
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QVERIFY(searched.last.bCutOff);
    QVERIFY(!searched.last.bCancelled);
    QCOMPARE(searched.last.nMatches, 100000);
    int nMatches = 0;
    for (const SFileMatches &file : qAsConst(searched.lstFound))
        nMatches += file.lstMatches.size();
    QCOMPARE(nMatches, 100000);
    QVERIFY(searched.nLargestBatch
            <= 5); // Files of 500 in a batch of 2000 matches or a little more.
}

void tst_findinfiles::receiverThatCancels_isSafe()
{
    const CTestTree tree;
    for (int n = 0; n < 50; ++n)
        tree.addFile(QString::number(n), "needle\n");
    SSearched searched;
    connect(&searched.engine, &CFindInFiles::found, this, [&] { searched.engine.cancel(); });
    QVERIFY(searched.run(tree.path(), QStringLiteral("needle")));
    QVERIFY(searched.last.bCancelled);
    QCOMPARE(searched.nFinished, 1);
}

void tst_findinfiles::destruction_leavesNoWork()
{
    const CTestTree tree;
    for (int n = 0; n < 2000; ++n)
        tree.addFile(QString::number(n), QByteArray("needle\n").repeated(100));
    const auto threads = [] { return QDir(QStringLiteral("/proc/self/task")).count(); };
    const uint nBefore = threads();
    for (int n = 0; n < 10; ++n) {
        SSearched searched;
        SFindQuery query;
        query.strFolder = tree.path();
        query.strText = QStringLiteral("needle");
        searched.engine.start(query);
        if (n % 2)
            QTRY_VERIFY(!searched.lstFound.isEmpty());
    }
    QTRY_COMPARE(threads(), nBefore); // The system takes a moment to clear up after a thread.
}

QTEST_MAIN(tst_findinfiles)
#include "tst_findinfiles.moc"
