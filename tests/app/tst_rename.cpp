// Another name for a file or folder never replaces anything, whatever the file system can do.
#include "app/platform.h"
#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {

bool g_bOldFileSystem = false; // It does not know renameat2().
bool g_bHardLinks = true;

} // namespace

// They stand before the system's functions for all code in this program.
extern "C" int renameat2(int nOldFolder, const char *szOld, int nNewFolder, const char *szNew,
                         unsigned int nFlags) noexcept
{
    if (g_bOldFileSystem) {
        errno = EINVAL;
        return -1;
    }
    if (nFlags != 0 && faccessat(nNewFolder, szNew, F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return -1;
    }
    return renameat(nOldFolder, szOld, nNewFolder, szNew);
}

extern "C" int link(const char *szOld, const char *szNew) noexcept
{
    if (!g_bHardLinks) {
        errno = EPERM;
        return -1;
    }
    return linkat(AT_FDCWD, szOld, AT_FDCWD, szNew, 0);
}

class tst_rename : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pFolder = std::make_unique<QTemporaryDir>(); }
    void cleanup()
    {
        g_bOldFileSystem = false;
        g_bHardLinks = true;
    }

    void file_getsAFreeName_data() { fileSystems(); }
    void file_getsAFreeName()
    {
        useFileSystem();
        put(path("old"), "text");
        QString strError;
        QVERIFY2(rename("old", "new", &strError), qPrintable(strError));
        QVERIFY(!QFile::exists(path("old")));
        QCOMPARE(contents(path("new")), QByteArray("text"));
    }

    void folder_getsAFreeName_data() { fileSystems(); }
    void folder_getsAFreeName()
    {
        useFileSystem();
        QVERIFY(QDir(m_pFolder->path()).mkdir("old"));
        put(path("old/file"), "text");
        QString strError;
        QVERIFY2(rename("old", "new", &strError), qPrintable(strError));
        QVERIFY(!QFile::exists(path("old")));
        QCOMPARE(contents(path("new/file")), QByteArray("text"));
    }

    void takenName_staysWithItsFile_data() { fileSystems(); }
    void takenName_staysWithItsFile()
    {
        useFileSystem();
        put(path("old"), "text");
        put(path("new"), "other");
        QVERIFY(QDir(m_pFolder->path()).mkdir("folder"));
        for (const char *szOld : {"old", "folder"}) {
            QString strError;
            QVERIFY(!rename(szOld, "new", &strError));
            QCOMPARE(strError, qt_error_string(EEXIST));
        }
        QCOMPARE(contents(path("old")), QByteArray("text"));
        QCOMPARE(contents(path("new")), QByteArray("other"));
    }

    void missingFile_isTold_data() { fileSystems(); }
    void missingFile_isTold()
    {
        useFileSystem();
        QString strError;
        QVERIFY(!rename("old", "new", &strError));
        QVERIFY(!strError.isEmpty());
    }

private:
    static void fileSystems()
    {
        QTest::addColumn<bool>("old");
        QTest::addColumn<bool>("hardLinks");
        QTest::newRow("a new file system") << false << true;
        QTest::newRow("an old one") << true << true;
        QTest::newRow("one without hard links") << true << false;
    }
    static void useFileSystem()
    {
        QFETCH(bool, old);
        QFETCH(bool, hardLinks);
        g_bOldFileSystem = old;
        g_bHardLinks = hardLinks;
    }
    QString path(const char *szName) const { return m_pFolder->filePath(szName); }
    bool rename(const char *szOld, const char *szNew, QString *pError) const
    {
        return Platform::renameWithoutReplacing(path(szOld), path(szNew), pError);
    }
    std::unique_ptr<QTemporaryDir> m_pFolder;
};

QTEST_GUILESS_MAIN(tst_rename)
#include "tst_rename.moc"
