// Ending the program at any moment is clean, by key and by signal: while a large file is coloured,
// a folder is listed, a page loads, text is dragged.

#include "cprogramhome.h"
#include "largesource.h"
#include "support/manyfiles.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <csignal>

class tst_ending : public QObject
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

    // The drag waits for its drop in an event loop of its own, which must end, too.
    void program_endedWhileTextIsDragged_endsCleanly()
    {
        CProgramHome home;
        // As wide and high as any window, so that there is text wherever the mouse is put.
        const QByteArray text = QByteArray("words ").repeated(60).append('\n').repeated(200);
        const QString strPath = home.file("a.txt", text);
        QProcess *pProcess = home.start({strPath});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(a.txt)"), 30000);
        const QString strId =
            run("xdotool", {"search", "--onlyvisible", "--name", "Quillan\\(a.txt\\)"});
        run("xdotool",
            {"windowactivate", "--sync", strId, "key", "ctrl+a", "mousemove", "800", "400",
             "mousedown", "1"});
        const int nWindows = windowsBeside(strId);
        int nMoves = 0;
        // The dragged text is shown in a separate window.
        QTRY_VERIFY_WITH_TIMEOUT(dragOn(++nMoves) && windowsBeside(strId) > nWindows, 30000);
        ::kill(pid_t(pProcess->processId()), SIGTERM);
        const bool bEnded = pProcess->waitForFinished(30000);
        run("xdotool", {"mouseup", "1"});
        QVERIFY(bEnded);
        QCOMPARE(pProcess->exitStatus(), QProcess::NormalExit);
        QCOMPARE(pProcess->exitCode(), 0);
        QCOMPARE(pProcess->readAll(), QByteArray());
        QFile file(strPath);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), text);
    }

private:
    static bool dragOn(int nMoves)
    {
        run("xdotool", {"mousemove", QString::number(800 + nMoves % 50 * 5), "440"});
        return true;
    }

    // How many windows the owner of this one shows: X numbers a client's windows within its range.
    static int windowsBeside(const QString &strId)
    {
        const int nClientBits = 21;
        const QStringList lstIds =
            run("xdotool", {"search", "--onlyvisible", "--name", ""}).split('\n');
        return int(std::count_if(lstIds.begin(), lstIds.end(), [&](const QString &str) {
            return str.toULong() >> nClientBits == strId.toULong() >> nClientBits;
        }));
    }

    // Prepares the work that keeps the program busy; gives the path to start it with.
    static QString prepare(const CProgramHome &home, const QString &strMoment)
    {
        if (strMoment == "highlighting")
            return home.file("large.cpp", largeSource());
        if (strMoment == "listing") {
            const QString strFolder = home.path("many");
            QDir().mkpath(strFolder);
            makeFiles(strFolder, 20000);
            return strFolder;
        }
        QByteArray page = "<html><title>long</title><body>";
        for (int n = 0; n < 20000; ++n)
            page += "<p>Paragraph with <b>bold</b> and <img src=\"none" + QByteArray::number(n)
                + ".png\"> words.</p>\n";
        return home.file("long.html", page);
    }
};

QTEST_MAIN(tst_ending)
#include "tst_ending.moc"
