// Saving to a pipe or device, and beyond the largest size of a file: no endless wait, and no signal
// that ends the program.

#include "app/filewriter.h"
#include "support/files.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct stat statOf(const QString &strPath)
{
    struct stat info = {};
    stat(QFile::encodeName(strPath).constData(), &info);
    return info;
}

bool addHardLink(const QString &strPath, const QString &strSecond)
{
    return link(QFile::encodeName(strPath).constData(), QFile::encodeName(strSecond).constData())
        == 0;
}

// Runs this program's "write" command (see main()) by another program, given as a list of words.
int runWriter(QStringList lstWords, const QString &strPath, int nSize)
{
    lstWords << QCoreApplication::applicationFilePath() << QStringLiteral("--write") << strPath
             << QString::number(nSize);
    return QProcess::execute(lstWords.takeFirst(), lstWords);
}

} // namespace

class tst_pipes : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pFolder.reset(new QTemporaryDir); }
    void pipeWithoutReader_failsSoon();
    void pipeWhoseReaderLeaves_failsAndDoesNotEndTheProgram();
    void pipeWhoseReaderSleeps_failsSoon();
    void device_takesTheBytes();
    void deviceThatIsFull_fails();
    void limitOfFileSizes_failsAndDoesNotEndTheProgram_data();
    void limitOfFileSizes_failsAndDoesNotEndTheProgram();

private:
    QString path(const char *szName) const { return m_pFolder->filePath(szName); }

    QScopedPointer<QTemporaryDir> m_pFolder;
};

void tst_pipes::pipeWithoutReader_failsSoon()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QString strError;
    QVERIFY(!writeFile(path("pipe"), "nobody reads this", &strError));
    QVERIFY(!strError.isEmpty());
    QVERIFY(S_ISFIFO(statOf(path("pipe")).st_mode));
}

// The writer is a separate process, because a fault that ends it would otherwise end the test.
void tst_pipes::pipeWhoseReaderLeaves_failsAndDoesNotEndTheProgram()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QProcess reader;
    reader.start("head", {"-c", "10", path("pipe")});
    QVERIFY(reader.waitForStarted());
    QCOMPARE(runWriter({"env"}, path("pipe"), 10000000), 1);
    QVERIFY(reader.waitForFinished());
}

void tst_pipes::pipeWhoseReaderSleeps_failsSoon()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const int nReader = open(QFile::encodeName(path("pipe")).constData(), O_RDONLY | O_NONBLOCK);
    QString strError;
    QVERIFY(!writeFile(path("pipe"), QByteArray(1000000, 'x'), &strError));
    close(nReader);
    QVERIFY(!strError.isEmpty());
}

void tst_pipes::device_takesTheBytes()
{
    QVERIFY(writeFile("/dev/null", QByteArray(100000, 'x')));
}

void tst_pipes::deviceThatIsFull_fails()
{
    QString strError;
    QVERIFY(!writeFile("/dev/full", "x", &strError));
    QVERIFY(!strError.isEmpty());
}

void tst_pipes::limitOfFileSizes_failsAndDoesNotEndTheProgram_data()
{
    QTest::addColumn<bool>("bHardLink"); // Then it is written in place.
    QTest::newRow("replaced") << false;
    QTest::newRow("in place") << true;
}

void tst_pipes::limitOfFileSizes_failsAndDoesNotEndTheProgram()
{
    QFETCH(bool, bHardLink);
    put(path("file"), "old");
    if (bHardLink)
        QVERIFY(addHardLink(path("file"), path("second")));
    QCOMPARE(runWriter({"bash", "-c", "ulimit -f 1; exec \"$@\"", "bash"}, path("file"), 100000),
             1);
    QCOMPARE(contents(path("file")), QByteArray("old"));
    QCOMPARE(QDir(m_pFolder->path()).entryList(QDir::Files | QDir::Hidden).size(),
             bHardLink ? 2 : 1);
}

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    const QStringList lstArguments = QCoreApplication::arguments();
    if (lstArguments.value(1) == QLatin1String("--write")) {
        const QByteArray data(lstArguments.value(3).toInt(), 'n');
        return writeFile(lstArguments.value(2), data) ? 0 : 1;
    }
    tst_pipes test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_pipes.moc"
