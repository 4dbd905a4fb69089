// The mailbox's segment was made by somebody else: it is too small, full of nonsense, or closed to
// us.

#include "app/csingleapp.h"
#include "app/mailbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <unistd.h>

namespace {

const QString g_strKey = QStringLiteral("foreign-segment");
const int g_nNobody = 65534;

// A segment under our key that no object of Qt's has made.
class CForeignSegment
{
public:
    CForeignSegment(size_t nSize, int nMode)
    {
        const QSharedMemory names(g_strKey); // Makes no file yet.
        const QString strFile = QSharedMemory(g_strKey).nativeKey();
        QFile file(strFile);
        m_bReady = file.open(QIODevice::WriteOnly);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
        const key_t key = ftok(QFile::encodeName(strFile).constData(), 'Q');
        m_nId = shmget(key, nSize, IPC_CREAT | IPC_EXCL | nMode);
        m_pMemory = m_nId < 0 ? nullptr : static_cast<char *>(shmat(m_nId, nullptr, 0));
    }
    ~CForeignSegment()
    {
        if (m_nId >= 0)
            shmctl(m_nId, IPC_RMID, nullptr);
        if (m_pMemory)
            shmdt(m_pMemory);
    }

    bool isReady() const { return m_bReady && m_nId >= 0 && m_pMemory; }
    char *memory() const { return m_pMemory; }

private:
    bool m_bReady = false;
    int m_nId = -1;
    char *m_pMemory = nullptr;
};

} // namespace

// The lock of QSharedMemory under our key, made by no object of Qt's.
class CForeignLock
{
public:
    CForeignLock(int nMode, int nValue)
    {
        QFile file(
            QSharedMemory(g_strKey).nativeKey().replace("qipc_sharedmemory_", "qipc_systemsem_"));
        const bool bFile = file.open(QIODevice::WriteOnly);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
        m_nId = !bFile ? -1
                       : semget(ftok(QFile::encodeName(file.fileName()).constData(), 'Q'), 1,
                                IPC_CREAT | IPC_EXCL | nMode);
        setValue(nValue);
    }
    ~CForeignLock() { semctl(m_nId, 0, IPC_RMID); }

    bool isReady() const { return m_nId >= 0; }
    void setValue(int nValue) { semctl(m_nId, 0, SETVAL, nValue); }
    int value() const { return semctl(m_nId, 0, GETVAL); }

private:
    int m_nId = -1;
};

class tst_foreignsegment : public QObject
{
    Q_OBJECT

    // The exit code; -1 when it did not end by itself.
    static int runAsAnother()
    {
        const QDir dir(QDir::tempPath());
        if (QProcess::execute("chmod", {"a+rx", dir.path(), dir.filePath("..")}) != 0)
            return -1;
        const QString strId = QString::number(g_nNobody);
        QProcess other;
        other.setProcessChannelMode(QProcess::MergedChannels);
        other.start("setpriv",
                    {"--reuid=" + strId, "--regid=" + strId, "--clear-groups",
                     QCoreApplication::applicationFilePath(), "--as-another"});
        return other.waitForFinished(20000) && other.exitStatus() == QProcess::NormalExit
            ? other.exitCode()
            : -1;
    }

private slots:
    // One of the cases ends without detaching, like a program that never gets the lock.
    void cleanup()
    {
        const QByteArray name = QFile::encodeName(QSharedMemory(g_strKey).nativeKey());
        shmctl(shmget(ftok(name.constData(), 'Q'), 0, 0), IPC_RMID, nullptr);
    }

    void segmentOfAnySize_isWrittenWithinItsBounds_data()
    {
        QTest::addColumn<int>("nSize");
        for (const int nSize : {1, 2, 3, 100, 4096, 70000})
            QTest::addRow("%d bytes", nSize) << nSize;
    }

    void segmentOfAnySize_isWrittenWithinItsBounds()
    {
        QFETCH(int, nSize);
        const CForeignSegment segment(size_t(nSize), 0600);
        QVERIFY(segment.isReady());
        CSingleApp app(nullptr, g_strKey);
        QVERIFY(app.isRunning());
        for (int n = 0; n < 100; ++n)
            app.sendMessage(QString(n * 11, 'x'));
    }

    void segmentOfNonsense_isReadAsItIs()
    {
        const CForeignSegment segment(Mailbox::g_nSize, 0600);
        QVERIFY(segment.isReady());
        for (int n = 0; n < Mailbox::g_nSize; ++n)
            segment.memory()[n] = char(n * 7919 >> 3);
        CSingleApp app(nullptr, g_strKey);
        QVERIFY(app.isRunning());
        QVERIFY(app.sendMessage("\"/some/file\""));
        app.onCheckForMessage();
        QVERIFY(Mailbox::messages(QByteArray(segment.memory(), Mailbox::g_nSize)).isEmpty());
    }

    void whatOthersMayUse_isLeftAlone_data()
    {
        QTest::addColumn<int>("nMode");
        for (const int nMode : {0666, 0660, 0606, 0602, 0620, 0604, 0640, 0777})
            QTest::addRow("%o", nMode) << nMode;
    }

    void whatOthersMayUse_isLeftAlone()
    {
        QFETCH(int, nMode);
        const CForeignSegment segment(Mailbox::g_nSize, nMode);
        QVERIFY(segment.isReady());
        QTest::ignoreMessage(QtDebugMsg, "Unable to create single instance.");
        CSingleApp app(nullptr, g_strKey);
        QVERIFY(!app.isRunning());
        QVERIFY(!app.hasMailbox());
        QVERIFY(!app.sendPaths({"/secret"}));
        app.onCheckForMessage();
        QCOMPARE(QByteArray(segment.memory(), Mailbox::g_nSize),
                 QByteArray(Mailbox::g_nSize, '\0'));
    }

    void lockThatOthersMayUse_isLeftAlone_data() { whatOthersMayUse_isLeftAlone_data(); }
    void lockThatOthersMayUse_isLeftAlone()
    {
        QFETCH(int, nMode);
        const CForeignLock foreign(nMode, 0); // Waiting for it would last for ever.
        QVERIFY(foreign.isReady());
        QTest::ignoreMessage(QtDebugMsg, "Unable to create single instance.");
        const CSingleApp app(nullptr, g_strKey);
        QVERIFY(!app.isRunning());
        QVERIFY(!app.hasMailbox());
        QCOMPARE(foreign.value(), 0);
    }

    // Like a stopped process of this user.
    void lockThatNobodyGivesBack_isNotWaitedForAtStart()
    {
        const CForeignLock taken(0600, 0);
        QVERIFY(taken.isReady());
        QTest::ignoreMessage(QtDebugMsg, "Unable to create single instance.");
        const CSingleApp app(nullptr, g_strKey);
        QVERIFY(!app.isRunning());
        QVERIFY(!app.hasMailbox());
        QCOMPARE(taken.value(), 0);
    }

    void lockThatNobodyGivesBack_isNotWaitedForLater()
    {
        CForeignLock lock(0600, 1);
        QVERIFY(lock.isReady());
        CSingleApp app(nullptr, g_strKey);
        QVERIFY(app.hasMailbox() && !app.isRunning());
        CSingleApp later(nullptr, g_strKey);
        QVERIFY(later.isRunning());
        QVERIFY(later.sendMessage("one"));
        QCOMPARE(lock.value(), 1);
        QSignalSpy spy(&app, &CSingleApp::messageAvailable);
        lock.setValue(0);
        app.onCheckForMessage();
        QVERIFY(!later.sendMessage("two"));
        QCOMPARE(spy.size(), 0);
        lock.setValue(1);
        app.onCheckForMessage();
        QCOMPARE(spy.size(), 1);
        lock.setValue(0); // The end does not wait either.
    }

    // A message arrives once, even if the mailbox cannot be emptied afterwards.
    void lockTakenDuringTheEmission_givesNoMessageTwice()
    {
        CForeignLock lock(0600, 1);
        CSingleApp app(nullptr, g_strKey);
        QVERIFY(app.hasMailbox() && !app.isRunning());
        CSingleApp later(nullptr, g_strKey);
        QVERIFY(later.sendMessage("one"));
        int nGot = 0;
        connect(&app, &CSingleApp::messageAvailable, this, [&] {
            ++nGot;
            lock.setValue(0);
        });
        app.onCheckForMessage();
        app.onCheckForMessage();
        lock.setValue(1);
        app.onCheckForMessage();
        QCOMPARE(nGot, 1);
        QVERIFY(later.sendMessage("two"));
        app.onCheckForMessage();
        QCOMPARE(nGot, 2);
        lock.setValue(1);
    }

    void lockOfAnotherUser_isNotWaitedFor()
    {
        if (geteuid() != 0)
            QSKIP("Only root can be two users.");
        const CForeignLock foreign(0666, 0);
        QVERIFY(foreign.isReady());
        QCOMPARE(runAsAnother(), 0);
        QCOMPARE(foreign.value(), 0);
    }

    // The segment belongs to another user and is closed: the program starts by itself and sends
    // nothing.
    void segmentOfAnotherUser_isLeftAlone()
    {
        if (geteuid() != 0)
            QSKIP("Only root can be two users.");
        const CForeignSegment segment(Mailbox::g_nSize, 0600);
        QVERIFY(segment.isReady());
        QCOMPARE(runAsAnother(), 0);
        for (int n = 0; n < Mailbox::g_nSize; ++n)
            QCOMPARE(int(segment.memory()[n]), 0);
    }
};

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    // Another user runs this: an instance that finds the closed segment.
    if (QCoreApplication::arguments().value(1) == QLatin1String("--as-another")) {
        CSingleApp single(nullptr, g_strKey);
        single.onCheckForMessage();
        return single.isRunning() || single.sendMessage(QStringLiteral("x")) ? 1 : 0;
    }
    tst_foreignsegment test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_foreignsegment.moc"
