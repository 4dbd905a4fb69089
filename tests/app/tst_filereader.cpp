#include "app/filereader.h"
#include "support/faults.h"
#include "support/files.h"
#include "support/memorylimit.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using Fault = SFileContent::Fault;
Q_DECLARE_METATYPE(Fault)

namespace {

QByteArray nameOf(const QString &strPath)
{
    return QFile::encodeName(strPath);
}

// Takes no room on the disk.
bool makeSparse(const QString &strPath, qint64 nSize)
{
    put(strPath, QByteArray());
    return truncate(nameOf(strPath).constData(), nSize) == 0;
}

bool overwrite(const QString &strPath, const QByteArray &bytes)
{
    const int nHandle = open(nameOf(strPath).constData(), O_WRONLY);
    const bool bDone = write(nHandle, bytes.constData(), size_t(bytes.size())) == bytes.size();
    close(nHandle);
    return bDone;
}

// True once the file system's clock has gone on since the file was written, so that a change shows
// in its times.
bool awaitTickAfter(const QString &strPath)
{
    return QTest::qWaitFor([&strPath] {
        const QString strProbe = strPath + ".probe";
        put(strProbe, "now");
        struct stat file = {};
        struct stat probe = {};
        const bool bKnown = stat(nameOf(strPath).constData(), &file) == 0
            && stat(nameOf(strProbe).constData(), &probe) == 0;
        QFile::remove(strProbe);
        const auto newer = [](const timespec &a, const timespec &b) {
            return a.tv_sec > b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec > b.tv_nsec);
        };
        return bKnown && newer(probe.st_mtim, file.st_mtim) && newer(probe.st_ctim, file.st_ctim);
    });
}

QByteArray pattern(int nSize)
{
    QByteArray bytes(nSize, '\0');
    for (int n = 0; n < nSize; ++n)
        bytes[n] = char(n * 31 + n / 251);
    return bytes;
}

} // namespace

class tst_filereader : public QObject
{
    Q_OBJECT

    QString path(const char *szName) const { return m_pFolder->filePath(szName); }

    QScopedPointer<QTemporaryDir> m_pFolder;

private slots:
    void init() { m_pFolder.reset(new QTemporaryDir); }

    void file_isReadWhole_data()
    {
        QTest::addColumn<int>("nSize");
        const int nPiece = 1 << 20;
        for (const int nSize :
             {0, 1, 4095, 4096, 65536, nPiece - 1, nPiece, nPiece + 1, 2 * nPiece, 5 * nPiece + 7})
            QTest::addRow("%d bytes", nSize) << nSize;
    }

    void file_isReadWhole()
    {
        QFETCH(int, nSize);
        const QByteArray bytes = pattern(nSize);
        put(path("file"), bytes);
        const SFileContent content = readFile(path("file"));
        QVERIFY(content.isWhole());
        QVERIFY(content.strError.isEmpty());
        QVERIFY(content.bytes == bytes);
        QCOMPARE(content.state.nSize, qint64(nSize));
        QVERIFY(content.state == fileStateOf(path("file")));
    }

    void whatIsNoFile_isRefusedAtOnce_data()
    {
        QTest::addColumn<QString>("strKind");
        for (const char *szKind :
             {"folder", "pipe", "socket", "zero", "link to zero", "ptmx", "full", "terminal"})
            QTest::newRow(szKind) << szKind;
    }

    void whatIsNoFile_isRefusedAtOnce()
    {
        QFETCH(QString, strKind);
        QString strPath = path("it");
        if (strKind == "folder") {
            strPath = m_pFolder->path();
        } else if (strKind == "pipe") {
            QCOMPARE(mkfifo(nameOf(strPath).constData(), 0600), 0);
        } else if (strKind == "socket") {
            sockaddr_un address = {};
            address.sun_family = AF_UNIX;
            qstrncpy(address.sun_path, nameOf(strPath).constData(), sizeof address.sun_path);
            const int nSocket = socket(AF_UNIX, SOCK_STREAM, 0);
            QCOMPARE(bind(nSocket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
            close(nSocket);
        } else if (strKind == "link to zero") {
            QVERIFY(QFile::link("/dev/zero", strPath));
        } else {
            strPath = "/dev/" + (strKind == "terminal" ? QString("tty") : strKind);
            if (!QFileInfo::exists(strPath))
                QSKIP("There is no such device here.");
        }
        const SFileContent content = readFile(strPath);
        QCOMPARE(content.fault, Fault::NotAFile);
        QVERIFY(content.bytes.isEmpty());
        QVERIFY(!content.strError.isEmpty());
    }

    void missingFile_saysSo()
    {
        const SFileContent content = readFile(path("missing"));
        QCOMPARE(content.fault, Fault::CannotOpen);
        QVERIFY(!content.strError.isEmpty());
        QVERIFY(!content.state.bExists);
    }

    void fileAboveTheCeiling_isReadWhenThatIsRaised()
    {
        put(path("file"), pattern(1001));
        SReadLimits limits;
        limits.nMaxSize = 1000;
        const SFileContent refused = readFile(path("file"), limits);
        QCOMPARE(refused.fault, Fault::TooLarge);
        QVERIFY(refused.bytes.isEmpty());
        QCOMPARE(refused.state.nSize, qint64(1001));
        limits.nMaxSize = refused.state.nSize;
        QCOMPARE(readFile(path("file"), limits).bytes, pattern(1001));
    }

    void fileBeyondAllBounds_isRefused_data()
    {
        QTest::addColumn<qint64>("nSize");
        const qint64 nTwoGigabytes = qint64(1) << 31;
        QTest::newRow("as a QByteArray ends") << nTwoGigabytes - 24;
        QTest::newRow("2 GiB less one") << nTwoGigabytes - 1;
        QTest::newRow("2 GiB") << nTwoGigabytes;
        QTest::newRow("4 GiB and one") << 2 * nTwoGigabytes + 1;
        QTest::newRow("1 TiB") << (qint64(1) << 40);
    }

    void fileBeyondAllBounds_isRefused()
    {
        QFETCH(qint64, nSize);
        if (!makeSparse(path("file"), nSize))
            QSKIP("The file system takes no such file.");
        SReadLimits limits;
        limits.nMaxSize = qint64(1) << 50;
        const SFileContent content = readFile(path("file"), limits);
        QCOMPARE(content.fault, Fault::TooLargeAtAll);
        QVERIFY(!content.strError.isEmpty());
        QCOMPARE(content.state.nSize, nSize);
    }

    void fileThatMemoryCannotHold_isRefused()
    {
        QVERIFY(makeSparse(path("file"), 3 << 20));
        SReadLimits limits;
        limits.nMemoryPerByte = 100 << 20;
        const SFileContent content = readFile(path("file"), limits);
        QCOMPARE(content.fault, Fault::NoMemory);
        QVERIFY(!content.strError.isEmpty());
    }

    void fileThatAddressSpaceCannotHold_isRefused()
    {
#ifdef QUILLAN_ADDRESS_SANITIZER
        QSKIP("The address sanitizer takes terabytes of address space.");
#endif
        QVERIFY(makeSparse(path("file"), 400 << 20));
        SReadLimits limits;
        limits.nMaxSize = g_nMaxReadable;
        const CMemoryLimit limit(200 << 20);
        QCOMPARE(readFile(path("file"), limits).fault, Fault::NoMemory);
    }

    void errorOfTheDisk_isNeverTakenForTheEnd_data()
    {
        QTest::addColumn<int>("nBehind");
        for (const int nBehind : {0, 1, 4096, 100000, 1 << 20, (1 << 20) + 1, 2999999})
            QTest::addRow("behind %d", nBehind) << nBehind;
    }

    void errorOfTheDisk_isNeverTakenForTheEnd()
    {
        QFETCH(int, nBehind);
        put(path("file"), pattern(3000000));
        const Faults::CFault fault(Faults::Call::Read, nameOf(path("file")), nBehind);
        const SFileContent content = readFile(path("file"));
        QVERIFY(fault.hits() > 0);
        QCOMPARE(content.fault, Fault::ReadError);
        QVERIFY(content.bytes.isEmpty());
        QVERIFY(!content.strError.isEmpty());
    }

    void fileThatChangesOnce_isReadAgain_data()
    {
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("as long") << QByteArray(3 << 20, 'n');
        QTest::newRow("longer") << QByteArray((3 << 20) + 5, 'n');
        QTest::newRow("shorter") << QByteArray(100, 'n');
        QTest::newRow("empty") << QByteArray();
    }

    void fileThatChangesOnce_isReadAgain()
    {
        QFETCH(QByteArray, after);
        put(path("file"), QByteArray(3 << 20, 'o'));
        QVERIFY(awaitTickAfter(path("file")));
        bool bChanged = false;
        SReadLimits limits;
        limits.progress = [&](qint64, qint64) {
            if (!bChanged)
                put(path("file"), after);
            bChanged = true;
            return true;
        };
        const SFileContent content = readFile(path("file"), limits);
        QVERIFY(content.isWhole());
        QVERIFY(content.bytes == after);
    }

    void fileThatKeepsChanging_saysSo()
    {
        put(path("file"), QByteArray(1000, 'o'));
        SReadLimits limits;
        limits.progress = [&](qint64, qint64) {
            QFile file(path("file"));
            return file.open(QIODevice::Append) && file.write("more") == 4;
        };
        const SFileContent content = readFile(path("file"), limits);
        QCOMPARE(content.fault, Fault::Changing);
        QVERIFY(content.bytes.size() >= 1000);
        QVERIFY(!content.strError.isEmpty());
        SFileState state = content.state;
        QVERIFY(!isFileUnchanged(path("file"), &state));
    }

    void fileThatGrowsWhileItIsRead_isNotChased_data()
    {
        QTest::addColumn<int>("nSize");
        QTest::newRow("empty at first") << 0;
        QTest::newRow("small") << 1000;
        QTest::newRow("of pieces") << (2 << 20);
    }

    void fileThatGrowsWhileItIsRead_isNotChased()
    {
        QFETCH(int, nSize);
        put(path("file"), QByteArray(nSize, 'o'));
        int nCalls = 0;
        SReadLimits limits;
        limits.progress = [&](qint64 nDone, qint64) {
            ++nCalls;
            return truncate(nameOf(path("file")).constData(), nDone + (1 << 20)) == 0;
        };
        const SFileContent content = readFile(path("file"), limits);
        QCOMPARE(content.fault, nSize == 0 ? Fault::None : Fault::Changing);
        QVERIFY(nCalls <= 60);
    }

    void reading_canBeStopped()
    {
        put(path("file"), pattern(5 << 20));
        SReadLimits limits;
        int nCalls = 0;
        limits.progress = [&](qint64 nDone, qint64 nAll) { return ++nCalls < 3 && nDone <= nAll; };
        const SFileContent content = readFile(path("file"), limits);
        QCOMPARE(content.fault, Fault::Cancelled);
        QCOMPARE(nCalls, 3);
        QVERIFY(content.bytes.isEmpty());
    }

    // The same number of bytes within the same tick of the clock, so no time tells the change.
    void changeRightBehindTheReading_isSeen()
    {
        for (int n = 0; n < 100; ++n) {
            put(path("file"), "before");
            SFileState state = readFile(path("file")).state;
            QVERIFY(overwrite(path("file"), "behind"));
            QVERIFY(!isFileUnchanged(path("file"), &state));
        }
    }

    void replacedFile_isAnotherOne()
    {
        put(path("file"), "bytes");
        put(path("other"), "bytes");
        SFileState state = readFile(path("file")).state;
        QVERIFY(rename(nameOf(path("other")).constData(), nameOf(path("file")).constData()) == 0);
        QVERIFY(!isFileUnchanged(path("file"), &state));
        QVERIFY(!isSameFile(state, fileStateOf(path("file"))));
        QVERIFY(QFile::remove(path("file")));
        QVERIFY(!isFileUnchanged(path("file"), &state));
    }

    void unchangedFile_staysSo()
    {
        put(path("file"), "bytes");
        SFileState state = readFile(path("file")).state;
        QVERIFY(state.bFresh && !state.hash.isEmpty());
        QVERIFY(isFileUnchanged(path("file"), &state));
        QVERIFY(state.bFresh); // Too fresh for the times alone.
        SFileState missing;
        QVERIFY(isFileUnchanged(path("missing"), &missing));
    }

    // No hash is made of an old file.
    void oldFile_isKnownByItsTimes()
    {
        const SFileContent content =
            readFile(QCoreApplication::applicationFilePath(), {g_nMaxReadable, 1, {}, {}});
        QVERIFY(content.isWhole());
        if (isFresh(content.state))
            QSKIP("This program was built a moment ago.");
        QVERIFY(!content.state.bFresh);
        QCOMPARE(content.state.hash.isEmpty(), content.bytes.size() > (4 << 20));
    }

    void permissionsAndLinks_areNoChangeOfTheContent()
    {
        put(path("file"), "bytes");
        SFileState state = readFile(path("file")).state;
        state.bFresh = false;
        QVERIFY(awaitTickAfter(path("file")));
        QVERIFY(chmod(nameOf(path("file")).constData(), 0755) == 0);
        QVERIFY(fileStateOf(path("file")) != state);
        QVERIFY(isFileUnchanged(path("file"), &state));
        QVERIFY(fileStateOf(path("file")) == state);
    }

    // Sets the old times again, as "touch -r" does.
    void changeWithTheOldTime_isSeen()
    {
        put(path("file"), "before");
        SFileState state = readFile(path("file")).state;
        state.bFresh = false;
        struct stat info = {};
        QCOMPARE(stat(nameOf(path("file")).constData(), &info), 0);
        QVERIFY(awaitTickAfter(path("file")));
        QVERIFY(overwrite(path("file"), "behind"));
        const timespec arrTimes[] = {info.st_atim, info.st_mtim};
        QCOMPARE(utimensat(AT_FDCWD, nameOf(path("file")).constData(), arrTimes, 0), 0);
        QCOMPARE(fileStateOf(path("file")).nModifiedNs, state.nModifiedNs);
        QVERIFY(!isFileUnchanged(path("file"), &state));
    }

    void madeUpFiles_areReadToTheirEnd_data()
    {
        QTest::addColumn<QString>("strPath");
        for (const char *szPath :
             {"/proc/self/status", "/proc/cpuinfo", "/sys/kernel/uevent_seqnum"})
            QTest::newRow(szPath) << szPath;
    }

    void madeUpFiles_areReadToTheirEnd()
    {
        QFETCH(QString, strPath);
        if (!QFileInfo(strPath).isReadable())
            QSKIP("There is no such file here.");
        const SFileContent content = readFile(strPath);
        QVERIFY2(content.isWhole(), qPrintable(content.strError));
        QVERIFY(content.bytes.size() > 0);
        QVERIFY(content.bytes.endsWith('\n'));
    }

    void state_survivesJson()
    {
        SFileState state;
        state.bExists = true;
        state.nDevice = ~quint64(0);
        state.nInode = quint64(1) << 63 | 1;
        state.nSize = qint64(1) << 53 | 1;
        state.nModifiedNs = 1763777777123456789;
        state.nChangedNs = -1;
        state.hash = hashOfContent("x");
        state.bFresh = true;
        const SFileState back = fileStateFromJson(toJson(state));
        QVERIFY(back == state);
        QCOMPARE(back.hash, state.hash);
        QVERIFY(back.bFresh);
        QVERIFY(fileStateFromJson(toJson(SFileState())) == SFileState());
        QVERIFY(fileStateFromJson({}) == SFileState());
        QVERIFY(!fileStateFromJson({{"size", 3}}).bExists);
    }

    void equality_looksAtEveryMember()
    {
        put(path("file"), "bytes");
        const SFileState state = readFile(path("file")).state;
        for (int n = 0; n < 6; ++n) {
            SFileState other = state;
            if (n == 0)
                ++other.nDevice;
            else if (n == 1)
                ++other.nInode;
            else if (n == 2)
                ++other.nSize;
            else if (n == 3)
                ++other.nModifiedNs;
            else if (n == 4)
                ++other.nChangedNs;
            else
                other.hash = hashOfContent("other");
            QVERIFY(other != state);
        }
    }
};

QTEST_GUILESS_MAIN(tst_filereader)
#include "tst_filereader.moc"
