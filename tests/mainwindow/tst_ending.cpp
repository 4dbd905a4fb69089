// Ending the program at any moment is clean, by key and by signal: while a large file is coloured,
// a folder is listed, a page loads.

#include "cprogramhome.h"
#include "largesource.h"

#include <QDir>
#include <QTest>

#include <csignal>

class TestEnding : public QObject
{
    Q_OBJECT

private slots:
    void program_endedAtABadMoment_endsCleanly_data()
    {
        QTest::addColumn<QString>("strMoment");
        QTest::addColumn<bool>("bByKey");
        for (const char *szMoment : {"highlighting", "listing", "page load"}) {
            QTest::addRow("SIGTERM during %s", szMoment) << szMoment << false;
            QTest::addRow("Ctrl+Q during %s", szMoment) << szMoment << true;
        }
    }

    void program_endedAtABadMoment_endsCleanly()
    {
        QFETCH(QString, strMoment);
        QFETCH(bool, bByKey);
        CProgramHome home;
        QProcess *pProcess = home.start({prepare(home, strMoment)});
        QTRY_VERIFY_WITH_TIMEOUT(!windowTitles(pProcess).isEmpty(), 30000);
        if (bByKey) {
            const QString strPid = QString::number(pProcess->processId());
            const QString strId =
                run("xdotool", {"search", "--onlyvisible", "--pid", strPid, "--name", "Quillan"});
            run("xdotool",
                {"windowactivate", "--sync", strId.section('\n', 0, 0), "key", "ctrl+q"});
        } else {
            ::kill(pid_t(pProcess->processId()), SIGTERM);
        }
        QVERIFY(pProcess->waitForFinished(30000));
        QCOMPARE(pProcess->exitStatus(), QProcess::NormalExit);
        QCOMPARE(pProcess->exitCode(), 0);
        QCOMPARE(pProcess->readAll(), QByteArray());
    }

private:
    // What the program is to be busy with; gives the path to start it with.
    static QString prepare(const CProgramHome &home, const QString &strMoment)
    {
        if (strMoment == "highlighting")
            return home.file("large.cpp", largeSource());
        if (strMoment == "listing") {
            const QString strFolder = home.path("many");
            QDir().mkpath(strFolder);
            for (int n = 0; n < 20000; ++n)
                home.file(QString("many/file %1.txt").arg(n), QByteArray());
            return strFolder;
        }
        QByteArray page = "<html><title>long</title><body>";
        for (int n = 0; n < 20000; ++n)
            page += "<p>Paragraph with <b>bold</b> and <img src=\"none" + QByteArray::number(n)
                + ".png\"> words.</p>\n";
        return home.file("long.html", page);
    }
};

QTEST_MAIN(TestEnding)
#include "tst_ending.moc"
