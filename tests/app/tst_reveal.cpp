// Shows a file through a file manager on a session bus of the test's own.
#include "app/commonhelpers.h"
#include "support/curlcatcher.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

// Stands for the file manager.
class CFileManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList m_lstUris;
    QString m_strStartupId;
    bool m_bFail = false;

public slots:
    void ShowItems(const QStringList &lstUris, const QString &strStartupId)
    {
        m_lstUris += lstUris;
        m_strStartupId = strStartupId;
        if (m_bFail)
            sendErrorReply(QDBusError::Failed, QStringLiteral("no"));
    }
};

class tst_reveal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void fileManager_isAskedForTheFile_data();
    void fileManager_isAskedForTheFile();
    void refusal_opensTheFolder();
    void noFileManager_opensTheFolder();
    void silentFileManager_isNotWaitedFor();

private:
    bool registerManager() { return QDBusConnection(m_strManager).registerService(m_strService); }
    void unregisterManager() { QDBusConnection(m_strManager).unregisterService(m_strService); }

    const QString m_strManager = QStringLiteral("manager");
    const QString m_strService = QStringLiteral("org.freedesktop.FileManager1");
    QTemporaryDir m_dir;
    QProcess m_daemon;
    CFileManager m_fileManager;
};

void tst_reveal::initTestCase()
{
    const QString strConfig = m_dir.filePath(QStringLiteral("bus.conf"));
    const QString strAddress = QLatin1String("unix:path=") + m_dir.filePath(QStringLiteral("bus"));
    QFile config(strConfig);
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write(QStringLiteral("<busconfig><type>session</type><listen>%1</listen>"
                                "<policy context='default'><allow send_destination='*'/>"
                                "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>")
                     .arg(strAddress)
                     .toUtf8());
    config.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + strConfig, QStringLiteral("--nofork"),
                    QStringLiteral("--print-address=1")});
    if (!m_daemon.waitForStarted())
        QSKIP("no dbus-daemon here");
    QVERIFY(m_daemon.waitForReadyRead()); // The bus listens once it prints its address.
    qputenv("DBUS_SESSION_BUS_ADDRESS", strAddress.toUtf8());
    QDBusConnection manager = QDBusConnection::connectToBus(strAddress, m_strManager);
    QVERIFY(manager.isConnected());
    QVERIFY(manager.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &m_fileManager,
                                   QDBusConnection::ExportAllSlots));
}

void tst_reveal::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus(m_strManager);
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

void tst_reveal::fileManager_isAskedForTheFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("uri");
    const auto row = [](const char *szName, const char *szPath, const char *szUri) {
        QTest::newRow(szName) << QString::fromUtf8(szPath) << QString::fromLatin1(szUri);
    };
    row("plain", "/tmp/a.txt", "file:///tmp/a.txt");
    row("blank", "/tmp/a b.txt", "file:///tmp/a%20b.txt");
    row("percent and hash", "/tmp/100%25#1?.txt", "file:///tmp/100%2525%231%3F.txt");
    row("not ASCII", "/tmp/ä", "file:///tmp/%C3%A4");
    row("quotes", "/tmp/\"a'", "file:///tmp/%22a'");
}

void tst_reveal::fileManager_isAskedForTheFile()
{
    QFETCH(QString, path);
    QFETCH(QString, uri);
    m_fileManager.m_lstUris.clear();
    QVERIFY(registerManager());
    CUrlCatcher catcher;
    QVERIFY(openFilePosition(path));
    QTRY_COMPARE(m_fileManager.m_lstUris, QStringList(uri));
    QCOMPARE(m_fileManager.m_strStartupId, QString());
    // Answers come in turn: a refusal behind this one is the first that opens a folder.
    m_fileManager.m_bFail = true;
    QVERIFY(openFilePosition(m_dir.filePath(QStringLiteral("refused"))));
    QTRY_COMPARE(catcher.m_lstUrls, QList<QUrl> {QUrl::fromLocalFile(m_dir.path())});
    m_fileManager.m_bFail = false;
    unregisterManager();
}

void tst_reveal::refusal_opensTheFolder()
{
    QVERIFY(registerManager());
    m_fileManager.m_bFail = true;
    CUrlCatcher catcher;
    QVERIFY(openFilePosition(m_dir.filePath(QStringLiteral("a.txt"))));
    QTRY_COMPARE(catcher.m_lstUrls, QList<QUrl> {QUrl::fromLocalFile(m_dir.path())});
    m_fileManager.m_bFail = false;
    unregisterManager();
}

void tst_reveal::noFileManager_opensTheFolder()
{
    CUrlCatcher catcher;
    QVERIFY(openFilePosition(m_dir.filePath(QStringLiteral("a.txt"))));
    QTRY_COMPARE(catcher.m_lstUrls, QList<QUrl> {QUrl::fromLocalFile(m_dir.path())});
}

// A file manager that starts slowly: nobody answers while the bus is stopped.
void tst_reveal::silentFileManager_isNotWaitedFor()
{
    QVERIFY(openFilePosition(QStringLiteral("/tmp/first"))); // Connected by now.
    QProcess::execute(QStringLiteral("kill"),
                      {QStringLiteral("-STOP"), QString::number(m_daemon.processId())});
    QElapsedTimer timer;
    timer.start();
    QVERIFY(openFilePosition(QStringLiteral("/tmp/a.txt")));
    QVERIFY(timer.elapsed() < 20000); // The bus waits 25 seconds for an answer.
    QProcess::execute(QStringLiteral("kill"),
                      {QStringLiteral("-CONT"), QString::number(m_daemon.processId())});
}

QTEST_MAIN(tst_reveal)
#include "tst_reveal.moc"
