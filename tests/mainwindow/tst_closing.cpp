// Closing a large file while it is coloured is clean, by its tab and with the window.
// QUILLAN_CLOSING_CYCLES: how often a large file is opened and closed (200 by hand).

#include "cwindowfixture.h"
#include "editor/textreading.h"
#include "largesource.h"
#include "support/watched.h"
#include "tests/support/boxanswer.h"

#include <QDir>
#include <QMessageBox>

namespace {

int threadCount()
{
    return QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

} // namespace

class tst_closing : public QObject
{
    Q_OBJECT

private slots:
    // What happens while it is loaded is tst_loading's.
    void initTestCase() { setMostShownAtOnce(qint64(1) << 30); }

    void largeFile_closedWhileItIsColoured_leavesNothing()
    {
        bool bGiven = false;
        const int nGiven = qEnvironmentVariableIntValue("QUILLAN_CLOSING_CYCLES", &bGiven);
        const int nCycles = bGiven ? nGiven : 20;
        CWindowFixture f;
        const QString strPath = f.file("large.cpp", largeSource());
        const CConsole console;
        int nThreads = 0;
        for (int n = 0; n < nCycles; ++n) {
            f.window().openFile(strPath);
            QCOMPARE(f.tabs().count(), 1);
            // Another moment each time: before the first results, and amid them.
            for (int nSteps = 0; nSteps < n % 10; ++nSteps)
                QCoreApplication::processEvents();
            if (n % 3 == 1)
                f.editor()->insertPlainText("/*");
            const CBoxAnswer answer({QMessageBox::No});
            f.window().onTabCloseRequested(0);
            QCOMPARE(answer.boxes().size(), n % 3 == 1 ? 1 : 0);
            QCOMPARE(f.tabs().count(), 0);
            if (n == 2)
                nThreads = threadCount();
        }
        QTRY_VERIFY(nCycles <= 2 || threadCount() <= nThreads);
        QCOMPARE(CWindowFixture::content(strPath), largeSource());
        QVERIFY2(CConsole::lines().isEmpty(), qPrintable(CConsole::lines().join('\n')));
    }

    void window_closedWhileALargeFileIsColoured_isGone()
    {
        const CConsole console;
        for (int n = 0; n < 3; ++n) {
            CWindowFixture f;
            f.window().openFile(f.file("large.cpp", largeSource()));
            for (int nSteps = 0; nSteps < n; ++nSteps)
                QCoreApplication::processEvents();
            QVERIFY(f.window().close());
        }
        QVERIFY2(CConsole::lines().isEmpty(), qPrintable(CConsole::lines().join('\n')));
    }
};

QTEST_MAIN(tst_closing)
#include "tst_closing.moc"
