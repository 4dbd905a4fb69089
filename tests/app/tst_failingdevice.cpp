// Writers on a failing disk: their answers must be true, and the old file must stay.

#include "support/cfailingdevice.h"

#include "app/cdraftstore.h"
#include "app/csettings.h"
#include "app/filewriter.h"
#include "support/files.h"

#include <QDirIterator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>

namespace {

// While the object lives, no file of this process grows beyond so many bytes. It simulates a full
// disk or a quota at any byte.
class CFileSizeLimit
{
public:
    explicit CFileSizeLimit(qint64 nBytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = rlim_t(nBytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before = {};
};

const int g_nOldSize = 3000;
const int g_nNewSize = 9000;

} // namespace

class tst_failingdevice : public QObject
{
    Q_OBJECT

private slots:
    void writeAll_saysWhetherAllIsWritten_data()
    {
        QTest::addColumn<int>("nLimit"); // -1: none.
        QTest::addColumn<bool>("bFull");
        for (const int nLimit : {0, 1, 15, 16, 17, 255, 256, 257, 999, 1000, 1001, -1}) {
            QTest::addRow("error behind %d", nLimit) << nLimit << false;
            QTest::addRow("full behind %d", nLimit) << nLimit << true;
        }
    }

    void writeAll_saysWhetherAllIsWritten()
    {
        QFETCH(int, nLimit);
        QFETCH(bool, bFull);
        using Fault = CFailingDevice::Fault;
        const QByteArray data(1000, 'd');
        for (const int nPiece : {1, 16, 1000}) {
            CFailingDevice device(nLimit < 0  ? Fault::None
                                      : bFull ? Fault::Full
                                              : Fault::AfterBytes,
                                  nLimit);
            device.setPieces(nPiece);
            QVERIFY(device.open(QIODevice::WriteOnly));
            QCOMPARE(writeAll(&device, data), nLimit < 0 || nLimit >= data.size());
            QCOMPARE(device.written(), nLimit < 0 ? data : data.left(nLimit));
        }
    }

    void writeAll_toADeviceThatDoesNotOpen_fails()
    {
        CFailingDevice device(CFailingDevice::Fault::AtOpen);
        QVERIFY(!device.open(QIODevice::WriteOnly));
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (CFailingDevice): device not open");
        QVERIFY(!writeAll(&device, "data"));
    }

    void file_onADiskThatFailsAtAnyByte_keepsItsBytes_data()
    {
        QTest::addColumn<bool>("bInPlace");
        QTest::newRow("replaced") << false;
        QTest::newRow("in place") << true;
    }

    void file_onADiskThatFailsAtAnyByte_keepsItsBytes()
    {
        QFETCH(bool, bInPlace);
        const QTemporaryDir folder;
        const QString strPath = folder.filePath("file");
        const QByteArray old(g_nOldSize, 'o');
        int nTries = 0;
        for (int nLimit = 0; nLimit < g_nNewSize; nLimit += nLimit < 20 ? 1 : 97) {
            QFile::remove(strPath);
            QFile::remove(folder.filePath("second"));
            put(strPath, old);
            if (bInPlace)
                QCOMPARE(link(QFile::encodeName(strPath).constData(),
                              QFile::encodeName(folder.filePath("second")).constData()),
                         0);
            {
                const CFileSizeLimit limit(nLimit);
                QString strError;
                QVERIFY(!writeFile(strPath, QByteArray(g_nNewSize, 'n'), &strError));
                QVERIFY(!strError.isEmpty());
            }
            ++nTries;
            QCOMPARE(contents(strPath), old);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(),
                     bInPlace ? 2 : 1);
        }
        qInfo("%d tries, no byte lost", nTries);
    }

    void draft_onADiskThatFailsAtAnyByte_keepsTheOneBefore()
    {
        const QTemporaryDir folder;
        SDraft old;
        old.strId = CDraftStore::newId();
        old.strText = QString(g_nOldSize, 'o');
        SDraft next = old;
        next.strText = QString(g_nNewSize, 'n');
        int nTries = 0;
        {
            const CDraftStore store(folder.path());
            QVERIFY(store.write(old));
            for (int nLimit = 0; nLimit < g_nNewSize; nLimit += nLimit < 20 ? 1 : 97, ++nTries) {
                const CFileSizeLimit limit(nLimit);
                QVERIFY(!store.write(next));
            }
        }
        const QVector<SDraft> lstDrafts = CDraftStore(folder.path()).takeAbandoned();
        QCOMPARE(lstDrafts.size(), 1);
        QCOMPARE(lstDrafts.constFirst().strText, old.strText);
        qInfo("%d tries, no byte lost", nTries);
    }

    void settings_onADiskThatFailsAtAnyByte_keepTheOnesBefore()
    {
        int nTries = 0;
        QStringList lstOld(QVector<QString>(6, "/some/where/a file that was opened.txt").toList());
        {
            CSettings settings("someone", "failing");
            settings.setRecentFileList(lstOld);
            settings.save();
        }
        const QString strPath = QSettings("someone", "failing").fileName();
        const QByteArray before = contents(strPath);
        QVERIFY(before.size() > 500);
        for (int nLimit = 0; nLimit < before.size(); nLimit += nLimit < 20 ? 1 : 97, ++nTries) {
            const CFileSizeLimit limit(nLimit);
            CSettings settings("someone", "failing");
            QCOMPARE(settings.getRecentFileList(), lstOld);
            settings.setLastPathFileName(QString::number(nLimit));
            settings.save();
            QCOMPARE(contents(strPath), before);
        }
        qInfo("%d tries, no byte lost", nTries);
    }
};

QTEST_GUILESS_MAIN(tst_failingdevice)
#include "tst_failingdevice.moc"
