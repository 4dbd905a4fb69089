// Properties of files that only Windows has, and what a save keeps of them.

#include "app/filereader.h"
#include "app/filewriter.h"
#include "app/platform.h"
#include "app/platformfiles.h"
#include "support/files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <aclapi.h>
#include <qt_windows.h>
#include <sddl.h>

#include <string>

namespace {

const wchar_t *wide(const QString &strText)
{
    return reinterpret_cast<const wchar_t *>(strText.utf16());
}

// A file that another program has open; nShared tells what it shares.
class COtherProgram
{
public:
    COtherProgram(const QString &strPath, DWORD nShared)
        : m_hFile(CreateFileW(wide(QDir::toNativeSeparators(strPath)), GENERIC_READ, nShared,
                              nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    ~COtherProgram() { CloseHandle(m_hFile); }
    COtherProgram(const COtherProgram &) = delete;
    COtherProgram &operator=(const COtherProgram &) = delete;
    bool hasIt() const { return m_hFile != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_hFile;
};

bool isWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

// The text in the system's own form.
QString accessList(const QString &strPath)
{
    PSECURITY_DESCRIPTOR pDescriptor = nullptr;
    std::wstring strName = QDir::toNativeSeparators(strPath).toStdWString();
    if (GetNamedSecurityInfoW(strName.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, nullptr, nullptr, &pDescriptor)
        != ERROR_SUCCESS)
        return QString();
    LPWSTR szText = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(
        pDescriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &szText, nullptr);
    const QString strText = szText ? QString::fromWCharArray(szText) : QString();
    LocalFree(szText);
    LocalFree(pDescriptor);
    return strText;
}

bool setTimeOfMaking(const QString &strPath, const FILETIME &time)
{
    const HANDLE hFile = CreateFileW(wide(QDir::toNativeSeparators(strPath)), FILE_WRITE_ATTRIBUTES,
                                     FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool bDone = SetFileTime(hFile, &time, nullptr, nullptr);
    CloseHandle(hFile);
    return bDone;
}

// Its upper half: steps of seven minutes.
DWORD timeOfMaking(const QString &strPath)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(wide(QDir::toNativeSeparators(strPath)), GetFileExInfoStandard, &data);
    return data.ftCreationTime.dwHighDateTime;
}

DWORD attributes(const QString &strPath)
{
    return GetFileAttributesW(wide(QDir::toNativeSeparators(strPath)));
}

} // namespace

class tst_windowsfiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_folder.isValid()); }

    void paths_areTheSameInAnyCaseAndWithAnySeparator_data()
    {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::addColumn<bool>("same");
        const auto row = [](const char *szLeft, const char *szRight, bool bSame) {
            QTest::newRow(szLeft) << QString::fromUtf8(szLeft) << QString::fromUtf8(szRight)
                                  << bSame;
        };
        row("C:\\a.txt", "C:\\a.txt", true);
        row("C:\\b.txt", "c:/B.TXT", true);
        row("C:\\Ä.txt", "C:\\ä.txt", true);
        row("C:\\Ж.txt", "C:\\ж.TXT", true);
        row("C:\\ß.txt", "C:\\ss.txt", false);
        row("\\\\server\\share\\a", "//SERVER/Share/A", true);
        row("C:\\a", "C:\\ab", false);
        row("C:\\c", "D:\\c", false);
        row("", "C:\\d", false);
    }

    void paths_areTheSameInAnyCaseAndWithAnySeparator()
    {
        QFETCH(QString, left);
        QFETCH(QString, right);
        QTEST(Platform::isSamePath(left, right), "same");
        QTEST(Platform::isSamePath(right, left), "same");
    }

    void names_areThoseThatTheSystemTakes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("taken");
        for (const char *szName : {"a", "a.txt", ".a", "a b", "ä中Ж", "CONSOLE", "aux1"})
            QTest::newRow(szName) << QString::fromUtf8(szName) << true;
        for (const char *szName : {"", ".", "..", "a.", "a ", "a:b", "a\\b", "a/b", "a?", "a*",
                                   "<a", "a|b", "a\"", "a\tb", "CON", "nul", "LPT1"})
            QTest::newRow(szName) << QString::fromUtf8(szName) << false;
    }

    void names_areThoseThatTheSystemTakes()
    {
        QFETCH(QString, name);
        QTEST(Platform::isFileName(name), "taken");
    }

    void fileOfAnotherSpelling_isTheSameFile()
    {
        const QString strPath = newFile("Spelling.txt");
        SFileState one;
        SFileState other;
        QVERIFY(Platform::stateOfPath(strPath, &one));
        QVERIFY(Platform::stateOfPath(m_folder.filePath("SPELLING.TXT"), &other));
        QVERIFY(isSameFile(one, other));
    }

    void readOnlyFile_isNotWritten()
    {
        const QString strPath = newFile("readonly.txt");
        QVERIFY(
            SetFileAttributesW(wide(QDir::toNativeSeparators(strPath)), FILE_ATTRIBUTE_READONLY));
        QString strError;
        QVERIFY(!writeFile(strPath, "new", &strError));
        QVERIFY(!strError.isEmpty());
        QCOMPARE(contents(strPath), QByteArray("old"));
        SetFileAttributesW(wide(QDir::toNativeSeparators(strPath)), FILE_ATTRIBUTE_NORMAL);
    }

    void fileInAFolderThatIsGone_isNotWritten()
    {
        const QDir folder(m_folder.filePath("gone"));
        QVERIFY(folder.mkpath("."));
        const QString strPath = newFile("gone/a.txt");
        QVERIFY(QDir(folder).removeRecursively());
        QString strError;
        QVERIFY(!writeFile(strPath, "new", &strError));
        QVERIFY(!strError.isEmpty());
        QVERIFY(!folder.exists());
    }

    void hiddenFile_staysHidden()
    {
        const QString strPath = newFile("hidden.txt");
        QVERIFY(SetFileAttributesW(wide(QDir::toNativeSeparators(strPath)), FILE_ATTRIBUTE_HIDDEN));
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strPath), QByteArray("new"));
        QVERIFY(attributes(strPath) & FILE_ATTRIBUTE_HIDDEN);
    }

    // Letters that no code page has together.
    void path_reachesAnotherProgram()
    {
        const QString strPath = QStringLiteral("C:\\Größe\\文字 код.txt");
        QCOMPARE(Platform::pathOfBytes(Platform::bytesOfPath(strPath)), strPath);
    }

    void accessList_isKept()
    {
        const QString strPath = newFile("closed.txt");
        PSECURITY_DESCRIPTOR pClosed = nullptr; // Only the user who made the file may do anything.
        QVERIFY(ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:P(A;;FA;;;OW)(A;;FA;;;BA)", SDDL_REVISION_1, &pClosed, nullptr));
        QVERIFY(SetFileSecurityW(wide(QDir::toNativeSeparators(strPath)), DACL_SECURITY_INFORMATION,
                                 pClosed));
        LocalFree(pClosed);
        const QString strList = accessList(strPath);
        QVERIFY(strList != accessList(newFile("open.txt")));
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strPath), QByteArray("new"));
        QCOMPARE(accessList(strPath), strList);
    }

    void timeOfMaking_isKept()
    {
        const QString strPath = newFile("old.txt");
        const FILETIME old = {0, 0x01c00000}; // In the year 2000.
        if (!setTimeOfMaking(strPath, old) || timeOfMaking(strPath) != old.dwHighDateTime)
            QSKIP("This file system does not know when a file was made.");
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(timeOfMaking(strPath), old.dwHighDateTime);
    }

    void hardLinks_stayOneFile()
    {
        const QString strPath = newFile("link.txt");
        const QString strOther = m_folder.filePath("other.txt");
        QVERIFY(CreateHardLinkW(wide(QDir::toNativeSeparators(strOther)),
                                wide(QDir::toNativeSeparators(strPath)), nullptr));
        QVERIFY(Platform::mustWriteInPlace(strPath));
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strOther), QByteArray("new"));
    }

    void alternateStream_isKept()
    {
        const QString strPath = newFile("stream.txt");
        QFile stream(strPath + ":note");
        if (!stream.open(QIODevice::WriteOnly) || stream.write("kept") != 4)
            QSKIP("This file system has no streams.");
        stream.close();
        QDir dir(m_folder.path());
        if (dir.entryList().contains("stream.txt:note"))
            QSKIP("This file system takes the stream for a name.");
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strPath), QByteArray("new"));
        QCOMPARE(contents(strPath + ":note"), QByteArray("kept"));
    }

    void fileThatAnotherReadsAndShares_isSaved()
    {
        const QString strPath = newFile("shared.txt");
        const COtherProgram other(strPath, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
        QVERIFY(other.hasIt());
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strPath), QByteArray("new"));
    }

    // It cannot be replaced, but written.
    void fileThatAnotherKeepsInItsPlace_isWrittenInPlace()
    {
        const QString strPath = newFile("placed.txt");
        const COtherProgram other(strPath, FILE_SHARE_READ | FILE_SHARE_WRITE);
        QVERIFY(other.hasIt());
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(contents(strPath), QByteArray("new"));
        QCOMPARE(beside("placed.txt"), QStringList("placed.txt"));
    }

    void fileThatAnotherHoldsAlone_staysAsItWas()
    {
        const QString strPath = newFile("held.txt");
        {
            const COtherProgram other(strPath, FILE_SHARE_READ);
            QVERIFY(other.hasIt());
            QString strError;
            QVERIFY(!writeFile(strPath, "new", &strError));
            QVERIFY(!strError.isEmpty());
        }
        QCOMPARE(contents(strPath), QByteArray("old"));
        QCOMPARE(beside("held.txt"), QStringList("held.txt"));
    }

    void longPath_isWrittenAndReadBack()
    {
        QString strFolder = m_folder.path();
        while (strFolder.length() < 300)
            strFolder += "/a folder with a long name";
        QVERIFY(QDir().mkpath(strFolder));
        const QString strPath = strFolder + "/a.txt";
        QVERIFY(writeFile(strPath, "first"));
        QVERIFY(writeFile(strPath, "second"));
        QCOMPARE(readFile(strPath).bytes, QByteArray("second"));
    }

    void reservedName_isNoFile_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *szName : {"CON", "NUL", "COM1", "nul.txt"})
            QTest::newRow(szName) << QString(szName);
    }

    void reservedName_isNoFile()
    {
        QFETCH(QString, name);
        QVERIFY(!readFile(m_folder.filePath(name)).isWhole());
    }

    void name_isNotGivenToWhatAnotherHas()
    {
        const QString strOld = newFile("from.txt");
        const QString strNew = newFile("to.txt");
        QVERIFY(!Platform::renameWithoutReplacing(strOld, strNew, nullptr));
        QVERIFY(QFile::exists(strOld));
    }

    void noteOfTheTrash_goesWithItsFile()
    {
        const QString strNote = newFile("$Iletters.txt");
        const QString strOther = newFile("$Iothers.txt");
        Platform::forgetTrashed(m_folder.filePath("letters.txt"));
        QVERIFY(QFile::exists(strNote));
        Platform::forgetTrashed(m_folder.filePath("$Rletters.txt"));
        QVERIFY(!QFile::exists(strNote));
        QVERIFY(QFile::exists(strOther));
    }

    void name_changesOnlyItsCase()
    {
        const QString strOld = newFile("case.txt");
        QVERIFY(Platform::renameWithoutReplacing(strOld, m_folder.filePath("CASE.txt"), nullptr));
        if (isWine())
            QEXPECT_FAIL("", "Wine says that it did, and does not.", Continue);
        QCOMPARE(beside("case.txt"), QStringList("CASE.txt"));
    }

private:
    QString newFile(const QString &strName) const
    {
        const QString strPath = m_folder.filePath(strName);
        put(strPath, "old");
        return strPath;
    }

    // Files whose names begin as this one.
    QStringList beside(const QString &strName) const
    {
        return QDir(m_folder.path()).entryList({strName.left(4) + "*"});
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_windowsfiles)
#include "tst_windowsfiles.moc"
