// The program as a whole: real processes, real windows, the settings file they leave.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>
#include <vector>

namespace {

const char g_szProgram[] = QUILLAN_BINARY_DIR "/quillan";

// One start of the program, with a settings folder and a mailbox that the cases do not share.
class CHome
{
public:
    CHome()
    {
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("HOME", m_folder.path());
        m_environment.insert("XDG_CONFIG_HOME", m_folder.filePath("config"));
        m_environment.insert("XDG_DATA_HOME", m_folder.filePath("data"));
        m_environment.insert("TMPDIR", m_folder.path());
    }

    ~CHome()
    {
        for (const auto &pProcess : m_lstProcesses) {
            // In order, so that no segment stays behind in the system.
            pProcess->terminate();
            if (!pProcess->waitForFinished(5000))
                pProcess->kill();
            pProcess->waitForFinished();
        }
    }

    QProcess *start(const QStringList &lstArguments)
    {
        m_lstProcesses.push_back(std::make_unique<QProcess>());
        QProcess *pProcess = m_lstProcesses.back().get();
        pProcess->setProcessEnvironment(m_environment);
        pProcess->setProcessChannelMode(QProcess::MergedChannels);
        pProcess->start(QString::fromLatin1(g_szProgram), lstArguments);
        return pProcess;
    }

    QString path(const QString &strName) const { return m_folder.filePath(strName); }

    QString file(const QString &strName, const QByteArray &data = "text\n") const
    {
        QFile file(m_folder.filePath(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot make %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QStringList recentFiles() const
    {
        const QString strConf = m_folder.filePath("config/Tavrel Software/quillan.conf");
        return QSettings(strConf, QSettings::IniFormat).value("m_lstRecentFiles").toStringList();
    }

    QVariant setting(const char *szKey) const
    {
        const QString strConf = m_folder.filePath("config/Tavrel Software/quillan.conf");
        return QSettings(strConf, QSettings::IniFormat).value(QLatin1String(szKey));
    }

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::vector<std::unique_ptr<QProcess>> m_lstProcesses;
};

QString run(const QString &strProgram, const QStringList &lstArguments)
{
    QProcess process;
    process.start(strProgram, lstArguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

// The titles of the process's visible windows.
QStringList windowTitles(const QProcess *pProcess)
{
    QStringList lstTitles;
    const QString strPid = QString::number(pProcess->processId());
    const QStringList lstIds =
        run("xdotool", {"search", "--onlyvisible", "--all", "--pid", strPid, "--name", "Quillan"})
            .split('\n', Qt::SkipEmptyParts);
    for (const QString &strId : lstIds)
        lstTitles.append(run("xdotool", {"getwindowname", strId}));
    return lstTitles;
}

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void start_showsItsFile()
    {
        CHome home;
        const QProcess *pProcess = home.start({home.file("a.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(a.txt)"), 20000);
        QCOMPARE(home.recentFiles().size(), 1);
    }

    void pageNamedFromItsFolder_isShown()
    {
        CHome home;
        home.file("page.html", "<title>Garden</title><p>text</p>");
        const QString strBefore = QDir::currentPath();
        QVERIFY(QDir::setCurrent(home.path(".")));
        const QProcess *pProcess = home.start({"page.html"});
        QDir::setCurrent(strBefore);
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pProcess), QStringList("Quillan(Garden)"), 20000);
    }

    void laterStarts_handTheirFilesOver()
    {
        CHome home;
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
        CHome home;
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
        CHome home;
        QProcess *pFirst = home.start({home.file("first.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pFirst), QStringList("Quillan(first.txt)"), 20000);
        pFirst->kill();
        QVERIFY(pFirst->waitForFinished());
        const QProcess *pNext = home.start({home.file("next.txt")});
        QTRY_COMPARE_WITH_TIMEOUT(windowTitles(pNext), QStringList("Quillan(next.txt)"), 20000);
        // What the killed one had remembered at once is still there.
        QCOMPARE(home.recentFiles().size(), 2);
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
        CHome home;
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

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
