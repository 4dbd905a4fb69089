// The moment in which a new file replaces the old one. Every call that can fail does; the file must
// then be completely old or completely new, and the writer's answer must be true.

#include "app/cinplacejournal.h"
#include "app/filereader.h"
#include "app/filestate.h"
#include "app/filewriter.h"
#include "support/faults.h"
#include "support/files.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using Faults::Call;
Q_DECLARE_METATYPE(Call)

namespace {

QByteArray nameOf(const QString &strPath)
{
    return QFile::encodeName(strPath);
}

const QByteArray g_old(300000, 'o');
const QByteArray g_new(400000, 'n');

} // namespace

class tst_commit : public QObject
{
    Q_OBJECT

    QString path(const char *szName) const { return m_pFolder->filePath(szName); }
    int filesInFolder() const
    {
        return QDir(m_pFolder->path()).entryList(QDir::Files | QDir::Hidden).size();
    }

    bool hasNote() const
    {
        return !QDir(m_pJournal->path()).entryList({"*.note"}, QDir::Files).isEmpty();
    }

    QScopedPointer<QTemporaryDir> m_pFolder;
    QScopedPointer<QTemporaryDir> m_pJournal;

private slots:
    void init()
    {
        m_pFolder.reset(new QTemporaryDir);
        m_pJournal.reset(new QTemporaryDir);
        CInPlaceJournal::setFolder(m_pJournal->path());
        put(path("file"), g_old);
    }

    void callThatFails_leavesTheOldFile_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("nBehind");
        QTest::newRow("first write") << Call::Write << 0;
        QTest::newRow("later write") << Call::Write << 100000;
        QTest::newRow("sync") << Call::Sync << 0;
        QTest::newRow("close") << Call::Close << 0;
        QTest::newRow("rename") << Call::Rename << 0;
    }

    void callThatFails_leavesTheOldFile()
    {
        QFETCH(Call, call);
        QFETCH(int, nBehind);
        QString strError;
        SFileState state = readFile(path("file")).state;
        {
            const Faults::CFault fault(call, nameOf(path("file")), nBehind);
            QVERIFY(!writeFile(path("file"), g_new, &strError, &state));
            QCOMPARE(fault.hits(), 1);
        }
        QVERIFY(strError.contains("rror"));
        QVERIFY(contents(path("file")) == g_old);
        QCOMPARE(filesInFolder(), 1);
        QVERIFY(isFileUnchanged(path("file"), &state));
    }

    // The new file is there, but a power cut may undo that.
    void folderThatDoesNotSync_isAFailure()
    {
        QString strError;
        SFileState state;
        // Syncing the temporary file succeeds, syncing the folder fails.
        const Faults::CFault fault(Call::Sync, nameOf(m_pFolder->path()), 1);
        QVERIFY(!writeFile(path("file"), g_new, &strError, &state));
        QCOMPARE(fault.hits(), 1);
        QVERIFY(!strError.isEmpty());
        QVERIFY(contents(path("file")) == g_new);
        QVERIFY(isFileUnchanged(path("file"), &state));
    }

    void callThatFailsInPlace_putsTheOldBytesBack_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("nBehind");
        for (const int nBehind : {0, 1, 4096, 299999, 300000, 399999})
            QTest::addRow("write behind %d", nBehind) << Call::Write << nBehind;
        QTest::newRow("sync") << Call::Sync << 0;
    }

    void callThatFailsInPlace_putsTheOldBytesBack()
    {
        QFETCH(Call, call);
        QFETCH(int, nBehind);
        QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()), 0);
        QString strError;
        SFileState state;
        {
            // Fails once only, so the disk takes the bytes that are put back.
            const Faults::CFault fault(call, nameOf(path("file")), nBehind, EIO, 1);
            QVERIFY(!writeFile(path("file"), g_new, &strError, &state));
            QCOMPARE(fault.hits(), 1);
        }
        QVERIFY(state.bExists && isFileUnchanged(path("file"), &state));
        QVERIFY(!strError.isEmpty());
        QVERIFY(contents(path("second")) == g_old);
        QCOMPARE(filesInFolder(), 2);
        QVERIFY(CInPlaceJournal::cutOff().isEmpty());
        QVERIFY(QDir(m_pJournal->path()).entryList(QDir::Files).isEmpty());
    }

    // The system takes them from a file that is written to: set-id bits where the user is not root,
    // capabilities always.
    void callThatFailsInPlace_keepsThePrivileges()
    {
        const QByteArray name = nameOf(path("file"));
        QCOMPARE(link(name.constData(), nameOf(path("second")).constData()), 0);
        QCOMPARE(chmod(name.constData(), 04755), 0);
        const QByteArray capability =
            QByteArray::fromHex("0100000200040000000000000000000000000000");
        const char *const szName = "security.capability";
        const bool bCapable =
            setxattr(name.constData(), szName, capability.constData(), capability.size(), 0) == 0;
        {
            const Faults::CFault fault(Call::Write, name, 4096, EIO, 1);
            QVERIFY(!writeFile(path("file"), g_new));
            QCOMPARE(fault.hits(), 1);
        }
        struct stat info;
        QCOMPARE(stat(name.constData(), &info), 0);
        QCOMPARE(int(info.st_mode & 07777), 04755);
        char arrNow[64];
        const auto nSize = getxattr(name.constData(), szName, arrNow, sizeof arrNow);
        QCOMPARE(QByteArray(arrNow, int(qMax(nSize, ssize_t(0)))),
                 bCapable ? capability : QByteArray());
    }

    void diskThatTakesNothingBack_leavesTheCopyToOffer()
    {
        QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()), 0);
        QString strError;
        {
            const Faults::CFault fault(Call::Write, nameOf(path("file")), 100000);
            QVERIFY(!writeFile(path("file"), g_new, &strError));
            QCOMPARE(fault.hits(), 2);
        }
        QVERIFY(strError.contains("next start"));
        QVERIFY(contents(path("file")) != g_old);
        const QVector<SCutOffWriting> lst = CInPlaceJournal::cutOff();
        QCOMPARE(lst.size(), 1);
        QCOMPARE(lst.at(0).strPath, path("file"));
        QVERIFY(contents(lst.at(0).strCopy) == g_old);
        QVERIFY(CInPlaceJournal::restore(lst.at(0), &strError));
        QVERIFY(contents(path("second")) == g_old);
        QVERIFY(CInPlaceJournal::cutOff().isEmpty());
    }

    // If the recovery folder has no room, nothing of ours takes room elsewhere.
    void journalThatCannotBeWritten_isMadeUpForInMemory()
    {
        QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()), 0);
        CInPlaceJournal::setFolder(path("file") + "/no-folder");
        QVERIFY(writeFile(path("file"), g_new));
        QVERIFY(contents(path("second")) == g_new);
        QString strError;
        {
            const Faults::CFault fault(Call::Write, nameOf(path("file")), 100000, EIO, 1);
            QVERIFY(!writeFile(path("file"), g_old, &strError));
        }
        QVERIFY(contents(path("second")) == g_new);
    }

    void stateThatIsGivenBack_isThatOfTheFile_data()
    {
        QTest::addColumn<bool>("bInPlace");
        QTest::newRow("replaced") << false;
        QTest::newRow("in place") << true;
    }

    void stateThatIsGivenBack_isThatOfTheFile()
    {
        QFETCH(bool, bInPlace);
        if (bInPlace)
            QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()), 0);
        SFileState state;
        QVERIFY(writeFile(path("file"), g_new, nullptr, &state));
        QVERIFY(fileStateOf(path("file")) == state);
        QVERIFY(isFileUnchanged(path("file"), &state));
    }

    // The new text has the same length and the same tick of the clock.
    void foreignWriteRightBehind_isSeen_data() { stateThatIsGivenBack_isThatOfTheFile_data(); }
    void foreignWriteRightBehind_isSeen()
    {
        QFETCH(bool, bInPlace);
        if (bInPlace)
            QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()), 0);
        for (int n = 0; n < 30; ++n) {
            SFileState state;
            QVERIFY(writeFile(path("file"), "ours", nullptr, &state));
            const int nHandle = open(nameOf(path("file")).constData(), O_WRONLY);
            QCOMPARE(int(write(nHandle, "his.", 4)), 4);
            close(nHandle);
            QVERIFY(!isFileUnchanged(path("file"), &state));
        }
    }

    void killedWriting_leavesOldOrNewOrACopyToOffer_data()
    {
        stateThatIsGivenBack_isThatOfTheFile_data();
    }

    void killedWriting_leavesOldOrNewOrACopyToOffer()
    {
        QFETCH(bool, bInPlace);
        const QByteArray old(4 << 20, 'o');
        const QByteArray next(5 << 20, 'n');
        int nMixed = 0;
        for (int n = 0; n < 60; ++n) {
            QFile::remove(path("second"));
            put(path("file"), old);
            if (bInPlace)
                QCOMPARE(link(nameOf(path("file")).constData(), nameOf(path("second")).constData()),
                         0);
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {"--write", path("file"), m_pJournal->path()});
            QVERIFY(writer.waitForReadyRead()); // It says that it begins.
            // In place, the file is touched as soon as the note about its copy is there.
            while (bInPlace && writer.state() == QProcess::Running && !hasNote())
                writer.waitForFinished(0);
            // Each time it stops at another moment of the writing.
            QThread::usleep(ulong(n) * (bInPlace ? 40 : 400));
            writer.kill();
            QVERIFY(writer.state() == QProcess::NotRunning || writer.waitForFinished());
            const QByteArray left = contents(path("file"));
            const QVector<SCutOffWriting> lst = CInPlaceJournal::cutOff();
            if (left == old || left == next) {
                QVERIFY(lst.isEmpty());
                continue;
            }
            ++nMixed;
            QVERIFY(bInPlace);
            QCOMPARE(lst.size(), 1);
            QCOMPARE(lst.at(0).strPath, path("file"));
            QString strError;
            QVERIFY2(CInPlaceJournal::restore(lst.at(0), &strError), qPrintable(strError));
            QVERIFY(contents(path("file")) == old);
        }
        qInfo("60 kills, %d in the middle of the file, no byte lost", nMixed);
        QVERIFY(!hasNote());
    }

    void copyOfARunningWriting_isNotOffered()
    {
        const CDescriptor file(Platform::openFile(path("file"), Platform::FileAccess::ReadWrite));
        CInPlaceJournal journal;
        QVERIFY(journal.begin(path("file"), file.handle(), g_new));
        QCOMPARE(ftruncate(file.handle(), 5), 0);
        QVERIFY(CInPlaceJournal::cutOff().isEmpty());
        QVERIFY(journal.putBack(file.handle()));
        QVERIFY(contents(path("file")) == g_old);
    }

    void nonsenseInTheJournal_isLeftAlone()
    {
        put(m_pJournal->filePath("a.old"), "bytes");
        put(m_pJournal->filePath("a.note"), "{\"path\":3");
        put(m_pJournal->filePath("b.note"), "nonsense");
        QVERIFY(CInPlaceJournal::cutOff().isEmpty());
        QVERIFY(contents(path("file")) == g_old);
    }
};

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    const QStringList lstArguments = QCoreApplication::arguments();
    // The process that is killed.
    if (lstArguments.value(1) == QLatin1String("--write")) {
        CInPlaceJournal::setFolder(lstArguments.value(3));
        const QByteArray next(5 << 20, 'n');
        if (::write(STDOUT_FILENO, "b", 1) != 1)
            return 2;
        return writeFile(lstArguments.value(2), next) ? 0 : 1;
    }
    tst_commit test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_commit.moc"
