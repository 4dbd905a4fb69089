// The progress of long work in the status bar, with real keys on a real display.

#include "cwindowfixture.h"

#include "document/cdocument.h"
#include "editor/cdlgfind.h"
#include "mainwindow/cworkprogress.h"

#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

namespace {

// Follows a work that is stopped: it ends when it is asked to.
class CStoppedWork
{
public:
    CStoppedWork(CWorkProgress *pProgress, const QString &strText, QObject *pOwner = nullptr)
    {
        m_nId = pProgress->begin(
            pOwner, strText,
            [this, pProgress] {
                ++m_nStops;
                pProgress->end(m_nId);
            });
    }

    int id() const { return m_nId; }
    int stops() const { return m_nStops; }

private:
    int m_nId = 0;
    int m_nStops = 0;
};

QString shownText(const CWorkProgress &progress)
{
    return progress.isHidden() ? QString() : progress.findChild<QLabel *>()->text();
}

// On a busy machine the listing of the window's folder is shown, too: before the work, or as "and 1
// more".
bool isShown(CWindowFixture &f, const QString &strText)
{
    return shownText(f.window().workProgress()).startsWith(strText);
}

bool activate(CWindowFixture &f)
{
    f.window().activateWindow();
    return QTest::qWaitForWindowActive(&f.window());
}

} // namespace

class tst_workprogress : public QObject
{
    Q_OBJECT

private slots:
    void shortWork_isNeverShown()
    {
        CWorkProgress progress;
        CStoppedWork shortWork(&progress, "short");
        QElapsedTimer age;
        age.start();
        progress.advance(shortWork.id(), 1, 2);
        // If this comes late, the test was not given time to run; nothing was shown too early.
        while (!age.hasExpired(300)) {
            QCoreApplication::processEvents();
            QVERIFY(progress.isHidden() || age.hasExpired(500));
        }
        progress.end(shortWork.id());
        CStoppedWork later(&progress, "later");
        QTRY_COMPARE(shownText(progress), QStringLiteral("later"));
    }

    void longWork_tellsHowFarItIs()
    {
        CWorkProgress progress;
        CStoppedWork work(&progress, "work");
        QTRY_COMPARE(shownText(progress), QStringLiteral("work"));
        const auto *pBar = progress.findChild<QProgressBar *>();
        QCOMPARE(pBar->maximum(), 0); // Nobody knows yet.
        const qint64 nHuge = qint64(1) << 40; // More than the bar's own numbers hold.
        progress.advance(work.id(), nHuge / 4, nHuge);
        QCOMPARE(pBar->value() * 4, pBar->maximum());
        progress.advance(work.id(), nHuge * 2, nHuge);
        QCOMPARE(pBar->value(), pBar->maximum());
        progress.end(work.id());
        QVERIFY(progress.isHidden());
        progress.advance(work.id(), 1, 2);
        progress.end(work.id());
        QVERIFY(progress.isHidden());
    }

    void severalWorks_areShownOneAfterAnother()
    {
        CWorkProgress progress;
        CStoppedWork first(&progress, "first");
        CStoppedWork second(&progress, "second");
        QTRY_COMPARE(shownText(progress), QStringLiteral("second (and 1 more)"));
        progress.findChild<QToolButton *>()->click();
        QCOMPARE(second.stops(), 1);
        QCOMPARE(first.stops(), 0);
        QCOMPARE(shownText(progress), QStringLiteral("first"));
        CStoppedWork young(&progress, "young"); // Waits for its time.
        QCOMPARE(shownText(progress), QStringLiteral("first (and 1 more)"));
        progress.findChild<QToolButton *>()->click();
        QCOMPARE(first.stops(), 1);
        QVERIFY(progress.isHidden());
        QTRY_COMPARE(shownText(progress), QStringLiteral("young"));
    }

    void workEndsWithItsOwner()
    {
        CWorkProgress progress;
        auto pOwner = std::make_unique<QObject>();
        CStoppedWork work(&progress, "work", pOwner.get());
        QTRY_VERIFY(!progress.isHidden());
        pOwner.reset();
        QVERIFY(progress.isHidden());
        QCOMPARE(work.stops(), 0);
    }

    void askedToStop_isAskedOnce()
    {
        CWorkProgress progress;
        int nStops = 0;
        const int nId = progress.begin(nullptr, "slow to stop", [&nStops] { ++nStops; });
        QTRY_VERIFY(!progress.isHidden());
        progress.stopShown();
        progress.stopShown();
        QCOMPARE(nStops, 1);
        QVERIFY(!progress.isHidden()); // It has not ended yet.
        QVERIFY(!progress.findChild<QToolButton *>()->isEnabled());
        progress.end(nId);
        QVERIFY(progress.isHidden());
    }

    void escape_stopsWhatIsShown()
    {
        CWindowFixture f;
        f.window().on_actionNewText_triggered();
        QVERIFY(activate(f));
        CWorkProgress &progress = f.window().workProgress();
        QVERIFY(progress.isHidden());
        CStoppedWork work(&progress, "work");
        QTest::keyClick(f.editor(), Qt::Key_Escape); // Nothing is shown, so nothing can be stopped.
        QCOMPARE(work.stops(), 0);
        QTRY_VERIFY(isShown(f, "work"));
        QTest::keyClick(f.editor(), Qt::Key_A);
        QCOMPARE(f.editor()->toPlainText(), QStringLiteral("a"));
        QVERIFY(activate(f));
        QTest::keyClick(f.editor(), Qt::Key_Escape);
        QCOMPARE(work.stops(), 1);
        QTRY_VERIFY(progress.isHidden());
    }

    void escapeInTheFindDialog_stopsBeforeItCloses()
    {
        CWindowFixture f;
        f.window().on_actionNewText_triggered();
        QVERIFY(activate(f));
        f.window().on_actionReplace_triggered();
        auto *pDialog = f.window().findChild<QDialog *>("CDlgFind");
        QVERIFY(QTest::qWaitForWindowActive(pDialog));
        CStoppedWork work(&f.window().workProgress(), "work");
        QTRY_VERIFY(isShown(f, "work"));
        QVERIFY(QTest::qWaitForWindowActive(pDialog));
        QTest::keyClick(pDialog, Qt::Key_Escape);
        QCOMPARE(work.stops(), 1);
        QVERIFY(pDialog->isVisible());
        QTRY_VERIFY(f.window().workProgress().isHidden());
        QTest::keyClick(pDialog, Qt::Key_Escape);
        QVERIFY(!pDialog->isVisible());
    }

    void escapeDuringReplaceAll_replacesNothing()
    {
        CWindowFixture f;
        const QByteArray text = QByteArray("aaaa aaaa aaaa aaaa\n").repeated(400000);
        f.window().openFile(f.file("long.txt", text));
        QTRY_VERIFY_WITH_TIMEOUT(!f.window().currentDocument().isArriving(), 60000);
        QVERIFY(activate(f));
        f.settings().m_bFindUseRegularExpression = true; // The slower way.
        f.window().on_actionReplace_triggered();
        auto *pDialog = f.window().findChild<CDlgFind *>();
        pDialog->setFindText("a");
        f.window().onReplaceAll();
        QVERIFY(f.editor()->replaceAllJob());
        QTRY_VERIFY_WITH_TIMEOUT(isShown(f, "Replacing"), 20000);
        QTest::keyClick(f.editor(), Qt::Key_Escape);
        QVERIFY(!f.editor()->replaceAllJob());
        QTRY_VERIFY(!f.window().workProgress().isVisible());
        QCOMPARE(f.editor()->toPlainText().toUtf8(), text);
        QVERIFY(!f.editor()->isModified());
        QVERIFY(!f.label("labelMessage").isEmpty());
    }

    void saveDuringReplaceAll_writesAllOfIt()
    {
        CWindowFixture f;
        const QString strPath =
            f.file("long.txt", QByteArray("aaaa aaaa aaaa aaaa\n").repeated(100000));
        f.window().openFile(strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!f.window().currentDocument().isArriving(), 60000);
        f.settings().m_bFindUseRegularExpression = true;
        f.window().on_actionReplace_triggered();
        f.window().findChild<CDlgFind *>()->setFindText("a");
        f.window().onReplaceAll();
        QVERIFY(f.editor()->replaceAllJob());
        const bool bSaved = f.window().on_actionSave_triggered();
        QVERIFY2(bSaved, qPrintable(f.window().currentDocument().notice().strText));
        QCOMPARE(CWindowFixture::content(strPath), QByteArray("   \n").repeated(100000));
    }

    void refreshDuringReplaceAll_givesTheFileAgain()
    {
        CWindowFixture f;
        const QByteArray text = QByteArray("aaaa aaaa aaaa aaaa\n").repeated(400000);
        f.window().openFile(f.file("long.txt", text));
        CDocument &document = f.window().currentDocument();
        QTRY_VERIFY_WITH_TIMEOUT(!document.isArriving(), 60000);
        f.settings().m_bFindUseRegularExpression = true;
        f.window().on_actionReplace_triggered();
        f.window().findChild<CDlgFind *>()->setFindText("a");
        f.window().onReplaceAll();
        QVERIFY(f.editor()->replaceAllJob());
        QVERIFY(document.reload().isDone());
        QVERIFY(!f.editor()->replaceAllJob());
        QVERIFY(document.isArriving() && f.editor()->isReadOnly());
        QTRY_VERIFY_WITH_TIMEOUT(!document.isArriving(), 60000);
        QVERIFY(!f.editor()->isReadOnly());
        QCOMPARE(f.editor()->toPlainText().toUtf8(), text);
        QVERIFY(!document.isModified());
    }

    void progress_leavesTheStatusBarItsHeight()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        const int nHeight = f.window().statusBar()->height();
        CStoppedWork work(&f.window().workProgress(), "work");
        QTRY_VERIFY(f.window().workProgress().isVisible());
        QCoreApplication::processEvents();
        QCOMPARE(f.window().statusBar()->height(), nHeight);
    }
};

QTEST_MAIN(tst_workprogress)
#include "tst_workprogress.moc"
