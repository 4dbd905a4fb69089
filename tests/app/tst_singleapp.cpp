// Two real processes: this program starts itself as the other instance.
#include "app/arguments.h"
#include "app/csingleapp.h"
#include "app/platform.h"

#include <QProcess>
#include <QSharedMemory>
#include <QSignalSpy>
#include <QtTest>

#include <thread>

namespace {

const char g_szKey[] = "quillan_test_single";

QStringList manyPaths(int nCount)
{
    QStringList lstPaths;
    for (int n = 0; n < nCount; ++n)
        lstPaths.append(QStringLiteral("/some/folder/%1").arg(n, -120, 10, QLatin1Char('x')));
    return lstPaths;
}

// Runs as an instance. The first one prints "first" and then each message, until its input ends. A
// later one sends its arguments and prints "later"; with "--paths N" it sends that many paths.
int runInstance(const QStringList &lstMessages)
{
    CSingleApp single(nullptr, QLatin1String(g_szKey));
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    if (single.isRunning()) {
        bool bSent = true;
        if (lstMessages.value(0) == QLatin1String("--paths")) {
            out << (single.sendPaths(manyPaths(lstMessages.value(1).toInt())) ? "later" : "failed")
                << Qt::endl;
            return 0;
        }
        for (const QString &strMessage : lstMessages)
            bSent = single.sendMessage(strMessage) && bSent;
        out << (bSent ? "later" : "failed") << Qt::endl;
        return 0;
    }
    QObject::connect(&single, &CSingleApp::messageAvailable, [&out](const QString &strMessage) {
        out << "got:" << strMessage << Qt::endl;
    });
    out << "first" << Qt::endl;
    return QCoreApplication::exec();
}

class CInstance
{
public:
    explicit CInstance(const QStringList &lstMessages = {})
    {
        m_process.start(QCoreApplication::applicationFilePath(),
                        QStringList(QStringLiteral("--instance")) + lstMessages);
    }
    ~CInstance() { kill(); }

    QString line()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(5000)) { }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    bool hasEnded() { return m_process.waitForFinished(5000) && m_process.exitCode() == 0; }

private:
    QProcess m_process;
};

} // namespace

class tst_singleapp : public QObject
{
    Q_OBJECT

private slots:
    void laterInstance_handsOverAndEnds();
    void severalMessages_arriveInOrder();
    void moreFilesThanFit_allArrive();
    void filesBehindAFullMailbox_arriveLater();
    void noArguments_sendABlank();
    void killedInstance_isSucceeded();
    void endedInstance_freesTheSegment();
    void firstInstance_sendsNothing();
    void deadSegment_isReleasedButALiveOneIsNot();
    void messagesDuringTheEmission_areErasedUnread();
    void noSegment_saysSoAndRuns();
};

void tst_singleapp::laterInstance_handsOverAndEnds()
{
    CInstance first;
    QCOMPARE(first.line(), QStringLiteral("first"));
    CInstance later({QStringLiteral("\"/a b\" \"/ä\"")});
    QCOMPARE(later.line(), QStringLiteral("later"));
    QVERIFY(later.hasEnded());
    QCOMPARE(first.line(), QStringLiteral("got:\"/a b\" \"/ä\""));
}

void tst_singleapp::severalMessages_arriveInOrder()
{
    CInstance first;
    QCOMPARE(first.line(), QStringLiteral("first"));
    CInstance later({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
    QVERIFY(later.hasEnded());
    for (const char *szExpected : {"got:1", "got:2", "got:3"})
        QCOMPARE(first.line(), QLatin1String(szExpected));
    CInstance again({QStringLiteral("4")});
    QVERIFY(again.hasEnded());
    QCOMPARE(first.line(), QStringLiteral("got:4"));
}

void tst_singleapp::moreFilesThanFit_allArrive()
{
    CInstance first;
    QCOMPARE(first.line(), QStringLiteral("first"));
    CInstance later({"--paths", "1200"});
    QStringList lstGot;
    for (int n = 0; n < 3; ++n) {
        const QString strLine = first.line();
        QVERIFY(strLine.startsWith("got:"));
        lstGot += pathsFromMessage(strLine.mid(4));
    }
    lstGot.removeAll(QString());
    QCOMPARE(lstGot, manyPaths(1200));
    QCOMPARE(later.line(), QStringLiteral("later"));
    QVERIFY(later.hasEnded());
}

// A later start finds no room for one of its messages.
void tst_singleapp::filesBehindAFullMailbox_arriveLater()
{
    const QString strKey = QStringLiteral("quillan_test_full");
    CSingleApp single(nullptr, strKey);
    CSingleApp later(nullptr, strKey);
    QVERIFY(later.sendMessage(QString(60000, 'x')));
    QSignalSpy spy(&single, &CSingleApp::messageAvailable);
    std::thread sender([&later] { later.sendPaths(manyPaths(100)); });
    QTRY_COMPARE(spy.size(), 2); // The timer empties the mailbox meanwhile.
    sender.join();
    QStringList lstGot = pathsFromMessage(spy.at(1).at(0).toString());
    lstGot.removeAll(QString());
    QCOMPARE(lstGot, manyPaths(100));
}

void tst_singleapp::noArguments_sendABlank()
{
    CInstance first;
    QCOMPARE(first.line(), QStringLiteral("first"));
    CInstance later({QString()});
    QVERIFY(later.hasEnded());
    QCOMPARE(first.line(), QStringLiteral("got:")); // The blank is trimmed here.
}

void tst_singleapp::killedInstance_isSucceeded()
{
    {
        CInstance first;
        QCOMPARE(first.line(), QStringLiteral("first"));
        first.kill();
    }
    CInstance next;
    QCOMPARE(next.line(), QStringLiteral("first"));
    CInstance later({QStringLiteral("hello")});
    QCOMPARE(later.line(), QStringLiteral("later"));
    QCOMPARE(next.line(), QStringLiteral("got:hello"));
}

void tst_singleapp::endedInstance_freesTheSegment()
{
    const QString strKey = QStringLiteral("quillan_test_ended");
    {
        const CSingleApp single(nullptr, strKey);
        QVERIFY(!single.isRunning());
        QSharedMemory memory(strKey);
        QVERIFY(memory.attach());
        QCOMPARE(memory.size() >= 65536, true);
        QCOMPARE(QByteArray(static_cast<const char *>(memory.constData()), 65536),
                 QByteArray(65536, '\0'));
    }
    QSharedMemory memory(strKey);
    QVERIFY(!memory.attach());
}

void tst_singleapp::firstInstance_sendsNothing()
{
    CSingleApp single(nullptr, QStringLiteral("quillan_test_sends"));
    QVERIFY(!single.sendMessage(QStringLiteral("x")));
    QSignalSpy spy(&single, &CSingleApp::messageAvailable);
    single.onCheckForMessage();
    QCOMPARE(spy.size(), 0);
}

void tst_singleapp::deadSegment_isReleasedButALiveOneIsNot()
{
    const QString strKey = QStringLiteral("quillan_test_live");
    const CSingleApp single(nullptr, strKey);
    Platform::releaseDeadSegment(strKey);
    const CSingleApp later(nullptr, strKey);
    QVERIFY(later.isRunning());
}

// The segment is cleared after the signals, whatever came meanwhile.
void tst_singleapp::messagesDuringTheEmission_areErasedUnread()
{
    const QString strKey = QStringLiteral("quillan_test_erased");
    CSingleApp single(nullptr, strKey);
    CSingleApp later(nullptr, strKey);
    QStringList lstGot;
    connect(&single, &CSingleApp::messageAvailable, this, [&](const QString &strMessage) {
        lstGot.append(strMessage);
        later.sendMessage(QStringLiteral("meanwhile"));
    });
    QVERIFY(later.sendMessage(QStringLiteral("one")));
    single.onCheckForMessage();
    single.onCheckForMessage();
    QCOMPARE(lstGot, QStringList(QStringLiteral("one")));
}

void tst_singleapp::noSegment_saysSoAndRuns()
{
    QTest::ignoreMessage(QtDebugMsg, "Unable to create single instance.");
    CSingleApp single(nullptr, QString()); // An empty key cannot be created.
    QVERIFY(!single.isRunning());
    QVERIFY(!single.sendMessage(QStringLiteral("x")));
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList lstArguments = QCoreApplication::arguments();
    if (lstArguments.value(1) == QLatin1String("--instance"))
        return runInstance(lstArguments.mid(2));
    tst_singleapp test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_singleapp.moc"
