// Kills a program while it saves: the file must be the old one or the new one, or a copy of the old
// bytes must be offered. QUILLAN_KILLS sets how often, for each way of writing.

#include "app/cinplacejournal.h"
#include "app/filewriter.h"
#include "support/files.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <qt_windows.h>

#include <cstdio>

namespace {

constexpr int g_nKills = 12;
constexpr int g_nOldSize = 4 << 20;
constexpr int g_nNewSize = 5 << 20;

// The program that is killed.
int write(const QStringList &lstArguments)
{
    CInPlaceJournal::setFolder(lstArguments.value(3));
    const QByteArray next(g_nNewSize, 'n');
    std::putchar('b');
    std::fflush(stdout);
    return writeFile(lstArguments.value(2), next) ? 0 : 1;
}

bool link(const QString &strPath, const QString &strOther)
{
    const auto wide = [](const QString &strFile) {
        return QDir::toNativeSeparators(strFile).toStdWString();
    };
    return CreateHardLinkW(wide(strOther).c_str(), wide(strPath).c_str(), nullptr);
}

bool hasNote(const QString &strFolder)
{
    return !QDir(strFolder).entryList({QStringLiteral("*.note")}, QDir::Files).isEmpty();
}

} // namespace

class tst_killedsave : public QObject
{
    Q_OBJECT

private slots:
    void file_isOldOrNewOrHasACopyToOffer_data()
    {
        QTest::addColumn<bool>("bInPlace");
        QTest::newRow("replaced") << false;
        QTest::newRow("in place") << true;
    }

    void file_isOldOrNewOrHasACopyToOffer()
    {
        QFETCH(bool, bInPlace);
        const int nKills = qEnvironmentVariableIsSet("QUILLAN_KILLS")
            ? qEnvironmentVariableIntValue("QUILLAN_KILLS")
            : g_nKills;
        QTemporaryDir folder;
        QTemporaryDir journal;
        CInPlaceJournal::setFolder(journal.path());
        const QByteArray old(g_nOldSize, 'o');
        const QByteArray next(g_nNewSize, 'n');
        QMap<QString, int> mapLeft;
        for (int n = 0; n < nKills; ++n) {
            const QString strPath = folder.filePath(QStringLiteral("file%1").arg(n));
            put(strPath, old);
            if (bInPlace)
                QVERIFY(link(strPath, strPath + QStringLiteral("second")));
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {QStringLiteral("--write"), strPath, journal.path()});
            QVERIFY(writer.waitForReadyRead()); // It says that it begins.
            // In place, the file is touched as soon as the note about its copy is there.
            while (bInPlace && writer.state() == QProcess::Running && !hasNote(journal.path()))
                writer.waitForFinished(0);
            QThread::usleep(ulong(n % 40) * (bInPlace ? 40 : 1000));
            writer.kill();
            QVERIFY(writer.state() == QProcess::NotRunning || writer.waitForFinished());
            const QByteArray left = contents(strPath);
            const QVector<SCutOffWriting> lst = CInPlaceJournal::cutOff();
            ++mapLeft[left == old ? "old" : left == next ? "new" : "mixed"];
            if (left == old || left == next) {
                QVERIFY(lst.isEmpty());
            } else {
                QVERIFY2(
                    bInPlace,
                    qPrintable(QStringLiteral("%1 bytes are left, %2 in the folder")
                                   .arg(left.size())
                                   .arg(QDir(folder.path()).entryList(QDir::Files).join(' '))));
                QCOMPARE(lst.size(), 1);
                QString strError;
                QVERIFY2(CInPlaceJournal::restore(lst.at(0), &strError), qPrintable(strError));
                QVERIFY(contents(strPath) == old);
            }
        }
        qInfo("%d kills: %d old, %d new, %d mixed with a copy", nKills, mapLeft["old"],
              mapLeft["new"], mapLeft["mixed"]);
    }
};

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    const QStringList lstArguments = QCoreApplication::arguments();
    if (lstArguments.value(1) == QLatin1String("--write"))
        return write(lstArguments);
    tst_killedsave test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_killedsave.moc"
