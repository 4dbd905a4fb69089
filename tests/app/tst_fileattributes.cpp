// A save keeps all that belongs to a file besides its bytes, and adds nothing.

#include "app/filewriter.h"
#include "support/files.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/xattr.h>
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

bool addHardLink(const QString &strPath, const QString &strSecond)
{
    return link(QFile::encodeName(strPath).constData(), QFile::encodeName(strSecond).constData())
        == 0;
}

QByteArray attribute(const QString &strPath, const char *szName)
{
    char arrValue[1000];
    const ssize_t nSize =
        getxattr(QFile::encodeName(strPath).constData(), szName, arrValue, sizeof arrValue);
    return nSize < 0 ? QByteArray() : QByteArray(arrValue, int(nSize));
}

// An access list that lets one more user read and write, in the kernel's format:
// linux/posix_acl_xattr.h.
QByteArray accessList(quint32 nUser)
{
    QByteArray list;
    const auto number = [&](quint32 n, int nBytes) {
        for (int i = 0; i < nBytes; ++i)
            list.append(char(n >> 8 * i));
    };
    const auto entry = [&](quint32 nTag, quint32 nPermissions, quint32 nId) {
        number(nTag, 2);
        number(nPermissions, 2);
        number(nId, 4);
    };
    const quint32 nNobody = 0xffffffff;
    number(2, 4); // Version.
    entry(0x01, 6, nNobody); // Owner.
    entry(0x02, 6, nUser);
    entry(0x04, 4, nNobody); // Group.
    entry(0x10, 6, nNobody); // Mask.
    entry(0x20, 0, nNobody); // Others.
    return list;
}

} // namespace

class tst_fileattributes : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pFolder.reset(new QTemporaryDir); }
    void attributes_areKept();
    void accessList_isKeptAndNoneIsAdded();
    void setIdBits_areKept_data();
    void setIdBits_areKept();
    void capabilities_areKept_data();
    void capabilities_areKept();
    void groupOfASetGidFolder_isKept();

private:
    QString path(const char *szName) const { return m_pFolder->filePath(szName); }

    QScopedPointer<QTemporaryDir> m_pFolder;
};

void tst_fileattributes::attributes_areKept()
{
    put(path("file"), "old");
    const QByteArray name = QFile::encodeName(path("file"));
    if (setxattr(name.constData(), "user.quillan.test", "va\0lue", 6, 0) != 0)
        QSKIP("The file system has no attributes.");
    QCOMPARE(setxattr(name.constData(), "user.quillan.empty", "", 0, 0), 0);
    const ino_t nInode = statOf(path("file")).st_ino;
    QVERIFY(writeFile(path("file"), "new"));
    QVERIFY(statOf(path("file")).st_ino != nInode); // The file is replaced all the same.
    QCOMPARE(attribute(path("file"), "user.quillan.test"), QByteArray("va\0lue", 6));
    QCOMPARE(attribute(path("file"), "user.quillan.empty"), QByteArray(""));
}

void tst_fileattributes::accessList_isKeptAndNoneIsAdded()
{
    const QByteArray folder = QFile::encodeName(m_pFolder->path());
    put(path("plain"), "old");
    QVERIFY(setMode(path("plain"), 0640));
    put(path("listed"), "old");
    const QByteArray list = accessList(g_nNobody);
    if (setxattr(QFile::encodeName(path("listed")).constData(), "system.posix_acl_access",
                 list.constData(), size_t(list.size()), 0)
        != 0)
        QSKIP("The file system has no access lists.");
    // New files in the folder let the other user in from now on.
    QCOMPARE(setxattr(folder.constData(), "system.posix_acl_default", list.constData(),
                      size_t(list.size()), 0),
             0);
    QVERIFY(writeFile(path("plain"), "new"));
    QVERIFY(writeFile(path("listed"), "new"));
    QCOMPARE(attribute(path("plain"), "system.posix_acl_access"), QByteArray());
    QCOMPARE(modeOf(path("plain")), 0640);
    QCOMPARE(attribute(path("listed"), "system.posix_acl_access"), list);
    // A new file has the access list that the folder gives.
    QVERIFY(writeFile(path("new"), "new"));
    QVERIFY(!attribute(path("new"), "system.posix_acl_access").isEmpty());
}

void tst_fileattributes::setIdBits_areKept_data()
{
    QTest::addColumn<int>("nMode");
    QTest::addColumn<bool>("bHardLink");
    for (const int nMode : {04755, 02755, 06711, 01644}) {
        QTest::addRow("%o replaced", nMode) << nMode << false;
        QTest::addRow("%o in place", nMode) << nMode << true;
    }
}

void tst_fileattributes::setIdBits_areKept()
{
    QFETCH(int, nMode);
    QFETCH(bool, bHardLink);
    put(path("file"), "old");
    if (bHardLink)
        QVERIFY(addHardLink(path("file"), path("second")));
    QVERIFY(setMode(path("file"), nMode));
    QCOMPARE(modeOf(path("file")), nMode);
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(contents(path("file")), QByteArray("new"));
    QCOMPARE(modeOf(path("file")), nMode);
}

void tst_fileattributes::capabilities_areKept_data()
{
    QTest::addColumn<bool>("bHardLink"); // Then it is written in place.
    QTest::newRow("replaced") << false;
    QTest::newRow("in place") << true;
}

void tst_fileattributes::capabilities_areKept()
{
    QFETCH(bool, bHardLink);
    put(path("file"), "old");
    if (bHardLink)
        QVERIFY(addHardLink(path("file"), path("second")));
    if (QProcess::execute("setcap", {"cap_net_bind_service=ep", path("file")}) != 0)
        QSKIP("No capability can be given here.");
    const QByteArray before = attribute(path("file"), "security.capability");
    QVERIFY(!before.isEmpty());
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(contents(path("file")), QByteArray("new"));
    QCOMPARE(attribute(path("file"), "security.capability"), before);
}

void tst_fileattributes::groupOfASetGidFolder_isKept()
{
    if (geteuid() != 0)
        QSKIP("Only root can give a file to any group.");
    put(path("file"), "old"); // Its group is our own.
    const QByteArray folder = QFile::encodeName(m_pFolder->path());
    QCOMPARE(chown(folder.constData(), geteuid(), gid_t(g_nNobody)), 0);
    QVERIFY(setMode(m_pFolder->path(), 02775));
    QVERIFY(writeFile(path("file"), "new"));
    QCOMPARE(statOf(path("file")).st_gid, getegid());
    QVERIFY(writeFile(path("fresh"), "new"));
    QCOMPARE(statOf(path("fresh")).st_gid, gid_t(g_nNobody));
}

QTEST_GUILESS_MAIN(tst_fileattributes)
#include "tst_fileattributes.moc"
