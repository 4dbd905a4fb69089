// The program as a whole: real processes, real windows, the settings file they leave.

#include "cprogramhome.h"

#include <QtTest>

#include <csignal>

class tst_program : public QObject
{
    Q_OBJECT

private slots:
    void start_showsItsFile()
    {
        CProgramHome home;
        const QProcess *pProcess = home.start({home.file("a.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(a.txt)"), 20000);
        QCOMPARE(home.recentFiles().size(), 1);
    }

    // It would double the time of a start.
    void start_loadsNoOpenGl()
    {
        CProgramHome home;
        const QProcess *pProcess = home.start({home.file("page.html", "<p>text</p>")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(page.html)"), 20000);
        QFile maps(QString("/proc/%1/maps").arg(pProcess->processId()));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        const QByteArray libraries = maps.readAll();
        QVERIFY(libraries.contains("libQt5XcbQpa"));
        QVERIFY(!libraries.contains("xcbglintegrations"));
        QVERIFY(!libraries.contains("libGLX_mesa"));
    }

    void pageNamedFromItsFolder_isShown()
    {
        CProgramHome home;
        home.file("page.html", "<title>Garden</title><p>text</p>");
        const QString strBefore = QDir::currentPath();
        QVERIFY(QDir::setCurrent(home.path(".")));
        const QProcess *pProcess = home.start({"page.html"});
        QDir::setCurrent(strBefore);
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(Garden)"), 20000);
    }

    // The same name in two folders: each start means its own.
    void nameFromAnotherFolder_isTheFileOfThatStart()
    {
        CProgramHome home;
        const QDir dir(home.path("."));
        QVERIFY(dir.mkdir("first") && dir.mkdir("later"));
        home.file("first/a.txt");
        home.file("later/a.txt");
        const QProcess *pFirst = home.start({"a.txt"}, home.path("first"));
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan(a.txt)"), 20000);
        QCOMPARE(home.recentFiles(), QStringList(home.path("first/a.txt")));
        QProcess *pLater = home.start({"a.txt"}, home.path("later"));
        QVERIFY(pLater->waitForFinished(20000));
        QTRY_COMPARE_WITH_TIMEOUT(home.recentFiles(),
                                  QStringList({home.path("later/a.txt"), home.path("first/a.txt")}),
                                  20000);
    }

    void laterStarts_handTheirFilesOver()
    {
        CProgramHome home;
        const QStringList lstNames = {"one.txt", "with blank.txt", "it's.txt",
                                      QString::fromUtf8("日本語 é.txt")};
        const QProcess *pFirst = home.start({});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan"), 20000);
        // The first one pauses until all have written, so that the messages queue.
        ::kill(pid_t(pFirst->processId()), SIGSTOP);
        QList<QProcess *> lstLater;
        for (int n = 0; n < 10; ++n)
            lstLater.append(home.start({home.file(lstNames.at(n % lstNames.size()))}));
        for (QProcess *pLater : qAsConst(lstLater)) {
            QVERIFY(pLater->waitForFinished(20000));
            QCOMPARE(pLater->exitCode(), 0);
            QCOMPARE(pLater->readAll(), QByteArray());
        }
        ::kill(pid_t(pFirst->processId()), SIGCONT);
        QTRY_COMPARE_WITH_TIMEOUT(home.recentFiles().size(), lstNames.size(), 20000);
        for (const QString &strName : lstNames)
            QVERIFY2(home.recentFiles().contains(home.path(strName)), qPrintable(strName));
    }

    void messageBeyondTheMailbox_isDroppedAndHarmsNothing()
    {
        CProgramHome home;
        const QProcess *pFirst = home.start({});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan"), 20000);
        QProcess *pHuge = home.start({QString(70000, 'x')});
        QVERIFY(pHuge->waitForFinished(20000));
        QCOMPARE(pHuge->exitCode(), 0);
        QProcess *pNext = home.start({home.file("after.txt")});
        QVERIFY(pNext->waitForFinished(20000));
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan(after.txt)"), 20000);
    }

    void killedInstance_doesNotBlockTheNextStart()
    {
        CProgramHome home;
        QProcess *pFirst = home.start({home.file("first.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan(first.txt)"), 20000);
        pFirst->kill();
        QVERIFY(pFirst->waitForFinished());
        const QProcess *pNext = home.start({home.file("next.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pNext), QStringList("Quillan(next.txt)"), 20000);
        // Settings that the killed program saved at once are still there.
        QCOMPARE(home.recentFiles().size(), 2);
    }

    // Read as it stands, the value asks for as many bytes as an address can count.
    void start_withADamagedSetting_showsItsFile()
    {
        CProgramHome home;
        home.writeSettings("[General]\nm_nTextFontSize=20\n"
                           "m_strLastPathFileName=@Variant(\\0\\0\\0\\x66\\0\\0\\0\\0\\0)\n");
        const QProcess *pProcess = home.start({home.file("a.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(a.txt)"), 20000);
    }

    // Nobody can make a file below /proc.
    void start_withoutAWritableHome_editsAndSaves()
    {
        CProgramHome home;
        home.setHome("/proc/none");
        const QString strPath = home.file("a.txt", "old\n");
        const QProcess *pProcess = home.start({strPath});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(a.txt)"), 20000);
        const QString strId = run("xdotool",
                                  {"search", "--onlyvisible", "--pid",
                                   QString::number(pProcess->processId()), "--name", "Quillan"});
        run("xdotool",
            {"windowactivate", "--sync", strId.section('\n', 0, 0), "key", "n", "e", "w", "space",
             "ctrl+s"});
        const auto content = [&strPath] {
            QFile file(strPath);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        QTRY_COMPARE_WITH_TIMEOUT(content(), QByteArray("new old\n"), 20000);
        QCOMPARE(pProcess->state(), QProcess::Running);
    }

    void endedBySignal_writesSettingsAndFreesTheMailbox_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void endedBySignal_writesSettingsAndFreesTheMailbox()
    {
        QFETCH(int, signal);
        CProgramHome home;
        QProcess *pFirst = home.start({});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan"), 20000);
        QVERIFY(!home.setting("m_arrFrameState").isValid());
        ::kill(pid_t(pFirst->processId()), signal);
        QVERIFY(pFirst->waitForFinished(20000));
        QCOMPARE(pFirst->exitStatus(), QProcess::NormalExit);
        QCOMPARE(pFirst->exitCode(), 0);
        QCOMPARE(pFirst->readAll(), QByteArray());
        QVERIFY(!home.setting("m_arrFrameState").toByteArray().isEmpty());
        const QProcess *pNext = home.start({});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pNext), QStringList("Quillan"), 20000);
    }
};

QTEST_GUILESS_MAIN(tst_program)
#include "tst_program.moc"
