// The mailbox's segment, made by somebody else: too small, full of nonsense, or closed to us.

#include "app/csingleapp.h"
#include "app/mailbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/ipc.h>
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

class TestForeignSegment : public QObject
{
    Q_OBJECT

private slots:
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

    // Of another user who lets nobody in: we start by ourselves and say nothing to anybody.
    void segmentOfAnotherUser_isLeftAlone()
    {
        if (geteuid() != 0)
            QSKIP("Only root can be two users.");
        const CForeignSegment segment(Mailbox::g_nSize, 0600);
        QVERIFY(segment.isReady());
        QDir dir(QDir::tempPath());
        QVERIFY(QProcess::execute("chmod", {"a+rx", dir.path(), dir.filePath("..")}) == 0);
        const QString strId = QString::number(g_nNobody);
        QProcess other;
        other.setProcessChannelMode(QProcess::MergedChannels);
        other.start("setpriv",
                    {"--reuid=" + strId, "--regid=" + strId, "--clear-groups",
                     QCoreApplication::applicationFilePath(), "--as-another"});
        QVERIFY(other.waitForFinished(20000));
        QCOMPARE(other.exitStatus(), QProcess::NormalExit);
        QCOMPARE(other.exitCode(), 0);
        for (int n = 0; n < Mailbox::g_nSize; ++n)
            QCOMPARE(int(segment.memory()[n]), 0);
    }
};

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    // What another user runs: an instance that finds the closed segment.
    if (QCoreApplication::arguments().value(1) == QLatin1String("--as-another")) {
        CSingleApp single(nullptr, g_strKey);
        single.onCheckForMessage();
        return single.isRunning() || single.sendMessage(QStringLiteral("x")) ? 1 : 0;
    }
    TestForeignSegment test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_foreignsegment.moc"
