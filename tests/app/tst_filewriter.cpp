#include "app/filewriter.h"
#include "support/files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const int g_nNobody = 65534;

struct stat statOf(const QString &strPath)
{
    struct stat info = {};
    stat(QFile::encodeName(strPath).constData(), &info);
    return info;
}

int modeOf(const QString &strPath)
{
    return int(statOf(strPath).st_mode) & 07777;
}

bool setMode(const QString &strPath, int nMode)
{
    return chmod(QFile::encodeName(strPath).constData(), mode_t(nMode)) == 0;
}

// Runs this program's "write" command (see main()) by another program, given as a list of words.
int runWriter(const QStringList &lstPrefix, const QString &strPath, int nSize)
{
    QStringList lstWords = lstPrefix;
    lstWords << QCoreApplication::applicationFilePath() << QStringLiteral("--write") << strPath
             << QString::number(nSize);
    return QProcess::execute(lstWords.takeFirst(), lstWords);
}

// Makes this process an ordinary user, because root may write to everything.
QStringList asOrdinaryUser()
{
    if (geteuid() != 0)
        return {QStringLiteral("env")};
    const QString strId = QString::number(g_nNobody);
    return {QStringLiteral("setpriv"), QStringLiteral("--reuid=") + strId,
            QStringLiteral("--regid=") + strId, QStringLiteral("--clear-groups")};
}

bool giveToOrdinaryUser(const QString &strPath)
{
    return geteuid() != 0
        || chown(QFile::encodeName(strPath).constData(), g_nNobody, g_nNobody) == 0;
}

bool hasPrivateMounts()
{
    return geteuid() == 0 && QProcess::execute("unshare", {"--mount", "true"}) == 0;
}

// Arguments: mount point, place for a copy, this program, 1 for a hard link. Only the script sees
// the mount, so the script compares.
const char g_szFullDisk[] = R"SH(set -e
mount -t tmpfs -o size=64k tmpfs "$1"
cd "$1"
head -c 20000 /dev/zero | tr '\0' o >file
cp file "$2"
[ "$4" = 0 ] || ln file second
"$3" --write "$1/file" 30000
[ "$(stat -c %s file)" = 30000 ]
cat "$2" >file
if "$3" --write "$1/file" 300000; then exit 2; fi
cmp file "$2"
[ "$(ls -A | grep -cvx second)" = 1 ]
)SH";

// The same arguments: a disk that turns read-only under an open file, as after an error of the
// device.
const char g_szReadOnlyDisk[] = R"SH(set -e
mount -t tmpfs tmpfs "$1"
cd "$1"
head -c 20000 /dev/zero | tr '\0' o >file
cp file "$2"
[ "$4" = 0 ] || ln file second
"$3" --write "$1/file" 20000
cp file "$2"
mount -o remount,ro "$1"
if "$3" --write "$1/file" 300; then exit 2; fi
if "$3" --write "$1/new" 300; then exit 3; fi
cmp file "$2"
[ "$(ls -A | grep -cvx second)" = 1 ]
)SH";

// The same arguments: a single file of another file system, as containers have them.
const char g_szMountPoint[] = R"SH(set -e
cd "$1"
echo old >file
echo below >below
mount --bind below file
"$3" --write "$1/file" 30000
[ "$(stat -c %s file)" = 30000 ]
umount file
cmp below <(head -c 30000 /dev/zero | tr '\0' n)
[ "$(cat file)" = old ]
[ "$(ls -A | wc -l)" = 2 ]
)SH";

// The same arguments: a file of more than 2 GiB that is written in place where its holes cannot be
// filled.
const char g_szHugeFile[] = R"SH(set -e
mount -t tmpfs -o size=4m tmpfs "$1"
cd "$1"
truncate -s 2200M file
echo end >>file
ln file second
before=$(stat -c %s file)
if "$3" --write "$1/file" 20000000; then exit 2; fi
[ "$(stat -c %s file)" = "$before" ]
[ "$(tail -c 4 file)" = end ]
[ "$(head -c 30000000 file | tr -d '\0' | wc -c)" = 0 ]
"$3" --write "$1/file" 2000
[ "$(stat -c %s second)" = 2000 ]
)SH";

// The same arguments: a disk that takes all writes and loses them: a file system in a file, larger
// than the disk on which that file lies.
const char g_szFailingDisk[] = R"SH(
mkdir "$1/below" "$1/disk"
mount -t tmpfs -o size=3m tmpfs "$1/below" || exit 77
truncate -s 16M "$1/below/image"
mkfs.ext4 -q -O ^has_journal -E lazy_itable_init=1 "$1/below/image" >&2 || exit 77
mount -o loop "$1/below/image" "$1/disk" || exit 77
set -e
head -c 20000 /dev/zero | tr '\0' o >"$1/disk/file"
sync -f "$1/disk/file"
if said=$("$3" --write "$1/disk/file" 9000000); then exit 2; fi
grep -q "did not keep" <<<"$said"
cmp "$1/disk/file" <(head -c 20000 /dev/zero | tr '\0' o)
umount "$1/disk"
)SH";

} // namespace

class tst_filewriter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newFile_isWrittenWithOrdinaryPermissions();
    void existingFile_isReplaced_data();
    void existingFile_isReplaced();
    void nothingIsLeftBesideTheFile();
    void longestName_isWritten_data();
    void longestName_isWritten();
    void permissions_areKept_data();
    void permissions_areKept();
    void foreignGroup_isKept();
    void symbolicLink_isFollowed();
    void chainOfLinks_isFollowed();
    void relativeLink_isFollowedFromItsOwnFolder();
    void relativeLink_inALinkedFolder_isFollowedFromWhereItLies();
    void danglingLink_getsItsTarget();
    void linkLoop_fails();
    void hardLinks_areWrittenInPlace();
    void pipe_isWrittenTo();
    void fileThatIsAMountPoint_isWritten();
    void hugeFileInPlaceOnAFullDisk_keepsItsBytes();
    void diskThatFailsBehindTheCache_isNoticed();
    void folder_fails();
    void missingFolder_fails();
    void readOnlyFile_failsAndKeepsItsBytes();
    void readOnlyFolder_writesTheFileInPlace();
    void readOnlyFileInReadOnlyFolder_failsAndKeepsItsBytes();
    void newFileInReadOnlyFolder_fails();
    void fullDisk_failsAndKeepsTheOldBytes_data();
    void fullDisk_failsAndKeepsTheOldBytes();
    void readOnlyDisk_failsAndKeepsTheOldBytes_data();
    void readOnlyDisk_failsAndKeepsTheOldBytes();

private:
    QString path(const char *szName) const
    {
        return m_pFolder->filePath(QString::fromLatin1(szName));
    }
    void openFolderToEveryone();
    int runWithPrivateMounts(const char *szScript, bool bHardLink) const;

    QScopedPointer<QTemporaryDir> m_pFolder;
};

void tst_filewriter::init()
{
    m_pFolder.reset(new QTemporaryDir);
    QVERIFY(m_pFolder->isValid());
}

void tst_filewriter::cleanup()
{
    setMode(m_pFolder->path(), 0700);
    m_pFolder.reset();
}

// The private folders above it, too, so that the ordinary user gets there.
void tst_filewriter::openFolderToEveryone()
{
    QVERIFY(giveToOrdinaryUser(m_pFolder->path()));
    QDir dir(m_pFolder->path());
    while (dir.cdUp() && dir.absolutePath() != QDir::rootPath()) {
        const int nMode = modeOf(dir.absolutePath());
        if (geteuid() == 0 && (nMode & 0001) == 0)
            QVERIFY(setMode(dir.absolutePath(), nMode | 0011));
    }
    QVERIFY(setMode(m_pFolder->path(), 0755));
}

void tst_filewriter::newFile_isWrittenWithOrdinaryPermissions()
{
    const mode_t nMask = umask(022);
    QString strError = QStringLiteral("untouched");
    QVERIFY(writeFile(path("new"), "bytes", &strError));
    umask(nMask);
    QCOMPARE(contents(path("new")), QByteArray("bytes"));
    QCOMPARE(strError, QStringLiteral("untouched"));
    QCOMPARE(modeOf(path("new")), 0644);
}

void tst_filewriter::existingFile_isReplaced_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("longer") << QByteArray("old") << QByteArray(300000, 'n');
    QTest::newRow("shorter") << QByteArray(300000, 'o') << QByteArray("new");
    QTest::newRow("empty") << QByteArray("old") << QByteArray();
    QTest::newRow("null") << QByteArray() << QByteArray();
    QTest::newRow("zero bytes") << QByteArray("old") << QByteArray("a\0b\0", 4);
}

void tst_filewriter::existingFile_isReplaced()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, data);
    put(path("file"), old);
    QVERIFY(writeFile(path("file"), data));
    QCOMPARE(contents(path("file")), data);
    // The same for writing in place.
    put(path("linked"), old);
    QVERIFY(QFile::exists(path("linked")));
    QCOMPARE(link(QFile::encodeName(path("linked")).constData(),
                  QFile::encodeName(path("other")).constData()),
             0);
    QVERIFY(writeFile(path("linked"), data));
    QCOMPARE(contents(path("other")), data);
}

void tst_filewriter::nothingIsLeftBesideTheFile()
{
    put(path("file"), "old");
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(QDir(m_pFolder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList {QStringLiteral("file")});
}

// The copy that replaces a file has a longer name.
void tst_filewriter::longestName_isWritten_data()
{
    QTest::addColumn<int>("nLength");
    for (const int nLength : {247, 248, 249, 254, 255})
        QTest::addRow("%d bytes", nLength) << nLength;
}

void tst_filewriter::longestName_isWritten()
{
    QFETCH(int, nLength);
    const QString strPath = path(QByteArray(nLength, 'x').constData());
    QVERIFY(writeFile(strPath, "new"));
    QCOMPARE(contents(strPath), QByteArray("new"));
    QVERIFY(writeFile(strPath, "newer"));
    QCOMPARE(contents(strPath), QByteArray("newer"));
    QCOMPARE(QDir(m_pFolder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void tst_filewriter::permissions_areKept_data()
{
    QTest::addColumn<int>("nMode");
    QTest::newRow("executable") << 0755;
    QTest::newRow("private") << 0600;
    QTest::newRow("shared") << 0664;
    QTest::newRow("for all") << 0666;
}

void tst_filewriter::permissions_areKept()
{
    QFETCH(int, nMode);
    put(path("file"), "old");
    QVERIFY(setMode(path("file"), nMode));
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(modeOf(path("file")), nMode);
    QCOMPARE(contents(path("file")), QByteArray("new"));
}

void tst_filewriter::foreignGroup_isKept()
{
    if (geteuid() != 0)
        QSKIP("Only root can give a file to any group.");
    put(path("file"), "old");
    QCOMPARE(chown(QFile::encodeName(path("file")).constData(), 0, g_nNobody), 0);
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(contents(path("file")), QByteArray("new"));
    QCOMPARE(int(statOf(path("file")).st_gid), g_nNobody);
}

void tst_filewriter::symbolicLink_isFollowed()
{
    put(path("target"), "old");
    QVERIFY(setMode(path("target"), 0755));
    QVERIFY(QFile::link(path("target"), path("link")));
    QVERIFY(writeFile(path("link"), "new"));
    QVERIFY(QFileInfo(path("link")).isSymLink());
    QVERIFY(!QFileInfo(path("target")).isSymLink());
    QCOMPARE(contents(path("target")), QByteArray("new"));
    QCOMPARE(modeOf(path("target")), 0755);
}

void tst_filewriter::chainOfLinks_isFollowed()
{
    put(path("target"), "old");
    QVERIFY(QFile::link(path("target"), path("link1")));
    QVERIFY(QFile::link(path("link1"), path("link2")));
    QVERIFY(writeFile(path("link2"), "new"));
    QVERIFY(QFileInfo(path("link1")).isSymLink() && QFileInfo(path("link2")).isSymLink());
    QCOMPARE(contents(path("target")), QByteArray("new"));
}

void tst_filewriter::relativeLink_isFollowedFromItsOwnFolder()
{
    QVERIFY(QDir(m_pFolder->path()).mkdir(QStringLiteral("sub")));
    put(path("target"), "old");
    QVERIFY(QFile::link(QStringLiteral("../target"), path("sub/link")));
    QVERIFY(writeFile(path("sub/link"), "new"));
    QVERIFY(QFileInfo(path("sub/link")).isSymLink());
    QCOMPARE(contents(path("target")), QByteArray("new"));
}

void tst_filewriter::relativeLink_inALinkedFolder_isFollowedFromWhereItLies()
{
    QVERIFY(QDir(m_pFolder->path()).mkpath(QStringLiteral("deep/folder")));
    QVERIFY(QFile::link(path("deep/folder"), path("linked")));
    QVERIFY(QFile::link(QStringLiteral("../target"), path("deep/folder/link")));
    put(path("deep/target"), "old");
    put(path("target"), "another file");
    QVERIFY(writeFile(path("linked/link"), "new"));
    QCOMPARE(contents(path("deep/target")), QByteArray("new"));
    QCOMPARE(contents(path("target")), QByteArray("another file"));

    QVERIFY(QFile::remove(path("deep/target")));
    QVERIFY(writeFile(path("linked/link"), "newer"));
    QCOMPARE(contents(path("deep/target")), QByteArray("newer"));
}

void tst_filewriter::danglingLink_getsItsTarget()
{
    QVERIFY(QFile::link(path("target"), path("link")));
    QVERIFY(!QFileInfo::exists(path("link")));
    QVERIFY(writeFile(path("link"), "new"));
    QVERIFY(QFileInfo(path("link")).isSymLink());
    QCOMPARE(contents(path("target")), QByteArray("new"));
}

void tst_filewriter::linkLoop_fails()
{
    QVERIFY(QFile::link(path("b"), path("a")));
    QVERIFY(QFile::link(path("a"), path("b")));
    QString strError;
    QVERIFY(!writeFile(path("a"), "new", &strError));
    QVERIFY(!strError.isEmpty());
    QVERIFY(QFileInfo(path("a")).isSymLink() && QFileInfo(path("b")).isSymLink());
}

void tst_filewriter::hardLinks_areWrittenInPlace()
{
    put(path("first"), "old text that is longer");
    QCOMPARE(link(QFile::encodeName(path("first")).constData(),
                  QFile::encodeName(path("second")).constData()),
             0);
    const ino_t nInode = statOf(path("first")).st_ino;
    QVERIFY(writeFile(path("first"), "new"));
    QCOMPARE(contents(path("second")), QByteArray("new"));
    QCOMPARE(statOf(path("first")).st_ino, nInode);
    QCOMPARE(int(statOf(path("first")).st_nlink), 2);
}

void tst_filewriter::pipe_isWrittenTo()
{
    const QByteArray name = QFile::encodeName(path("pipe"));
    QCOMPARE(mkfifo(name.constData(), 0600), 0);
    QProcess reader;
    reader.start(QStringLiteral("cat"), {path("pipe")});
    QVERIFY(reader.waitForStarted());
    QVERIFY(writeFile(path("pipe"), "through the pipe"));
    QVERIFY(reader.waitForFinished());
    QCOMPARE(reader.readAllStandardOutput(), QByteArray("through the pipe"));
    QVERIFY(S_ISFIFO(statOf(path("pipe")).st_mode));
}

void tst_filewriter::fileThatIsAMountPoint_isWritten()
{
    if (!hasPrivateMounts())
        QSKIP("Needs a mount namespace of its own.");
    QCOMPARE(runWithPrivateMounts(g_szMountPoint, false), 0);
}

// Takes no room but for holes.
void tst_filewriter::hugeFileInPlaceOnAFullDisk_keepsItsBytes()
{
    if (!hasPrivateMounts())
        QSKIP("Needs a mount namespace of its own.");
    QCOMPARE(runWithPrivateMounts(g_szHugeFile, true), 0);
}

void tst_filewriter::diskThatFailsBehindTheCache_isNoticed()
{
    if (!hasPrivateMounts() || !QFileInfo::exists("/dev/loop-control"))
        QSKIP("Needs a mount namespace of its own and loop devices.");
    const int nStatus = runWithPrivateMounts(g_szFailingDisk, false);
    if (nStatus == 77)
        QSKIP("No loop device can be had.");
    QCOMPARE(nStatus, 0);
}

void tst_filewriter::folder_fails()
{
    QString strError;
    QVERIFY(!writeFile(m_pFolder->path(), "new", &strError));
    QVERIFY(!strError.isEmpty());
    QVERIFY(QFileInfo(m_pFolder->path()).isDir());
}

void tst_filewriter::missingFolder_fails()
{
    QString strError;
    QVERIFY(!writeFile(path("no/such/folder/file"), "new", &strError));
    QVERIFY(!strError.isEmpty());
    QVERIFY(!writeFile(path("no/such/folder/file"), "new"));
}

void tst_filewriter::readOnlyFile_failsAndKeepsItsBytes()
{
    openFolderToEveryone();
    put(path("file"), "old");
    QVERIFY(giveToOrdinaryUser(path("file")));
    QVERIFY(setMode(path("file"), 0444));
    QCOMPARE(runWriter(asOrdinaryUser(), path("file"), 100), 1);
    QCOMPARE(contents(path("file")), QByteArray("old"));
    QCOMPARE(modeOf(path("file")), 0444);
}

void tst_filewriter::readOnlyFolder_writesTheFileInPlace()
{
    openFolderToEveryone();
    put(path("file"), "old");
    QVERIFY(giveToOrdinaryUser(path("file")));
    QVERIFY(setMode(m_pFolder->path(), 0555));
    QCOMPARE(runWriter(asOrdinaryUser(), path("file"), 100), 0);
    QCOMPARE(contents(path("file")), QByteArray(100, 'n'));
    QCOMPARE(runWriter(asOrdinaryUser(), path("file"), 1), 0);
    QCOMPARE(contents(path("file")), QByteArray("n"));
}

void tst_filewriter::readOnlyFileInReadOnlyFolder_failsAndKeepsItsBytes()
{
    openFolderToEveryone();
    put(path("file"), "old");
    QVERIFY(giveToOrdinaryUser(path("file")));
    QVERIFY(setMode(path("file"), 0444));
    QVERIFY(setMode(m_pFolder->path(), 0555));
    QCOMPARE(runWriter(asOrdinaryUser(), path("file"), 100), 1);
    QCOMPARE(contents(path("file")), QByteArray("old"));
}

void tst_filewriter::newFileInReadOnlyFolder_fails()
{
    openFolderToEveryone();
    QVERIFY(setMode(m_pFolder->path(), 0555));
    QCOMPARE(runWriter(asOrdinaryUser(), path("file"), 100), 1);
    QVERIFY(!QFileInfo::exists(path("file")));
}

int tst_filewriter::runWithPrivateMounts(const char *szScript, bool bHardLink) const
{
    return QProcess::execute("unshare",
                             {"--mount", "bash", "-c", QString::fromLatin1(szScript), "bash",
                              m_pFolder->path(), QDir::temp().filePath("copy"),
                              QCoreApplication::applicationFilePath(), QString::number(bHardLink)});
}

void tst_filewriter::fullDisk_failsAndKeepsTheOldBytes_data()
{
    QTest::addColumn<bool>("bHardLink"); // Then it is written in place.
    QTest::newRow("replaced") << false;
    QTest::newRow("in place") << true;
}

void tst_filewriter::fullDisk_failsAndKeepsTheOldBytes()
{
    QFETCH(bool, bHardLink);
    if (!hasPrivateMounts())
        QSKIP("Needs a mount namespace of its own.");
    QCOMPARE(runWithPrivateMounts(g_szFullDisk, bHardLink), 0);
}

void tst_filewriter::readOnlyDisk_failsAndKeepsTheOldBytes_data()
{
    fullDisk_failsAndKeepsTheOldBytes_data();
}

void tst_filewriter::readOnlyDisk_failsAndKeepsTheOldBytes()
{
    QFETCH(bool, bHardLink);
    if (!hasPrivateMounts())
        QSKIP("Needs a mount namespace of its own.");
    QCOMPARE(runWithPrivateMounts(g_szReadOnlyDisk, bHardLink), 0);
}

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    const QStringList lstArguments = QCoreApplication::arguments();
    // The command that another user or another mount table must run.
    if (lstArguments.value(1) == QLatin1String("--write")) {
        const QByteArray data(lstArguments.value(3).toInt(), 'n');
        QString strError;
        const bool bDone = writeFile(lstArguments.value(2), data, &strError);
        QTextStream(stdout) << strError;
        return bDone ? 0 : 1;
    }
    tst_filewriter test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_filewriter.moc"
