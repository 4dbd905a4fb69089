// Loading a large file while other things happen in the window.
#include "cwindowfixture.h"

#include "document/cdocument.h"
#include "document/ceditordocument.h"
#include "editor/longlines.h"
#include "editor/textreading.h"
#include "findinfiles/cwidgetfindinfiles.h"
#include "highlight/ctextdocument.h"
#include "mainwindow/cfinddock.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/cpasttabs.h"
#include "mainwindow/cworkprogress.h"
#include "support/watched.h"
#include "tests/support/boxanswer.h"

#include <QDirIterator>
#include <QEventLoop>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCodec>
#include <QThreadPool>

namespace {

const int g_nLines = 60000;

QByteArray largeText(const QByteArray &word = "word")
{
    QByteArray text;
    text.reserve(g_nLines * 64);
    for (int n = 1; n <= g_nLines; ++n)
        text += word + " in line " + QByteArray::number(n) + ", and some more of it to load\n";
    return text;
}

// Runs the event loop until the signal comes, and not a turn longer.
template<class Sender, class Signal> void runUntil(Sender *pSender, Signal signal)
{
    QEventLoop loop;
    QObject::connect(pSender, signal, &loop, &QEventLoop::quit);
    loop.exec();
}

CDocument *open(CWindowFixture &f, const QString &strPath)
{
    f.window().openFile(strPath);
    CDocument *pDocument = f.window().documents().withPath(strPath);
    if (!pDocument || !pDocument->isArriving())
        qFatal("%s is not being loaded", qPrintable(strPath));
    return pDocument;
}

// Brings the load to one of its moments.
void reach(CDocument *pDocument, const QString &strMoment)
{
    if (strMoment == "first lines")
        runUntil(pDocument, &CDocument::firstTextShown);
    else if (strMoment == "half")
        while (pDocument->editor()->blockCount() < g_nLines / 2)
            runUntil(pDocument, &CDocument::arrivalProgressed);
    if (!pDocument->isArriving())
        qFatal("the load is over");
}

void moments()
{
    QTest::addColumn<QString>("moment");
    for (const char *szMoment : {"reading", "first lines", "half"})
        QTest::newRow(szMoment) << szMoment;
}

QStringList draftFiles()
{
    QStringList lstFiles;
    QDirIterator it(CWindowFixture::draftFolder(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        if (it.next().endsWith(".draft"))
            lstFiles.append(it.filePath());
    return lstFiles;
}

bool press(CWindowFixture &f, const QString &strText)
{
    const auto lst = f.window().findChild<CNoticeBar *>()->findChildren<QPushButton *>();
    for (QPushButton *pButton : lst) {
        if (pButton->text() == strText && pButton->isVisibleTo(pButton->parentWidget())) {
            pButton->click();
            return true;
        }
    }
    return false;
}

QString notice(CWindowFixture &f)
{
    return f.window().findChild<CNoticeBar *>()->text();
}

} // namespace

class tst_loading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        setMostShownAtOnce(1000000);
        setHeaviestLineUnasked(1000000);
        const QString strLink = QCoreApplication::applicationDirPath() + "/highlighter";
        QFile::remove(strLink);
        QVERIFY(QFile::link(QUILLAN_SOURCE_DIR "/highlighter", strLink));
    }

    void whileItLoads_commandsWait()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.xml", largeText()));
        const QStringList lstWaiting = {
            "actionSave",    "actionSave_As", "actionFind",          "actionFind_Next",
            "actionReplace", "actionRefresh", "actionFormatting",    "actionVerify_Valid",
            "actionWindows", "actionUnix",    "actionFind_Previous", "actionColor_Dialog",
            "actionUndo",    "actionCut",     "actionToggle_Comment"};
        reach(pDocument, "first lines");
        f.editor()->selectAll();
        for (const QString &strAction : lstWaiting)
            QVERIFY2(!f.action(qPrintable(strAction))->isEnabled(), qPrintable(strAction));
        QVERIFY(!f.window().findChild<QMenu *>("menuText_Codec")->isEnabled());
        QVERIFY(!f.window().findChild<QMenu *>("menuLanguage")->isEnabled());
        for (const char *szAction : {"actionCopy", "actionSelect_All", "actionGo_to_Line"})
            QVERIFY2(f.action(szAction)->isEnabled(), szAction);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        for (const char *szAction : {"actionSave", "actionSave_As", "actionFind", "actionReplace",
                                     "actionRefresh", "actionWindows", "actionVerify_Valid"})
            QVERIFY2(f.action(szAction)->isEnabled(), szAction);
        QVERIFY(f.window().findChild<QMenu *>("menuText_Codec")->isEnabled());
    }

    void whileItLoads_nothingIsSavedNorSearchedNorReadAnew()
    {
        CWindowFixture f;
        const QByteArray text = largeText();
        const QString strPath = f.file("large.txt", text);
        CDocument *pDocument = open(f, strPath);
        reach(pDocument, "half");
        const CBoxAnswer answer;
        const CFileDialogAnswer dialog({f.path("other.txt")});
        QVERIFY(!f.window().on_actionSave_triggered());
        QVERIFY(!f.window().on_actionSave_As_triggered());
        QVERIFY(!pDocument->saveAnyway().isDone());
        QVERIFY(!pDocument->saveAsAnyway(f.path("other.txt")).isDone());
        QVERIFY(!pDocument->find("word", false).isDone());
        QVERIFY(!pDocument->replaceAll("word", "other").isDone());
        QVERIFY(!pDocument->setCodec("UTF-16").isDone());
        QVERIFY(!pDocument->setReturnFormat(0).isDone());
        QVERIFY(!pDocument->reload().isDone());
        f.window().on_actionRefresh_triggered();
        f.editor()->onRefresh();
        QVERIFY(answer.boxes().isEmpty() && dialog.caption().isEmpty());
        QVERIFY(!QFile::exists(f.path("other.txt")));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->getText().toUtf8(), text);
        QCOMPARE(CWindowFixture::content(strPath), text);
        QVERIFY(!pDocument->isModified());
    }

    void tabAndStatusBar_tellOfIt_andCancelClosesTheTab()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText().repeated(8));
        CDocument *pDocument = open(f, strPath);
        QCOMPARE(f.tabs().tabText(0), QString("large.txt (loading)"));
        auto *pProgress = f.window().findChild<CWorkProgress *>();
        QTRY_VERIFY_WITH_TIMEOUT(pProgress->isVisible(), 60000);
        // On a busy machine the listing of the folder is shown, too.
        QTRY_COMPARE_WITH_TIMEOUT(pProgress->findChild<QLabel *>()->text(),
                                  QString("Loading large.txt"), 60000);
        QVERIFY(pDocument->isArriving());
        pProgress->stopShown();
        QCOMPARE(f.tabs().count(), 0);
        QTRY_VERIFY(pProgress->isHidden());
    }

    void atItsEnd_theTabIsThatOfAnyFile()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.cpp", largeText()));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.tabs().tabText(0), QString("large.cpp"));
        QCOMPARE(f.editor()->languageName(), QString("C++"));
        QVERIFY(f.window().findChild<CWorkProgress *>()->isHidden());
        QVERIFY(pDocument->fileState().bExists && pDocument->isWhole());
        QVERIFY(notice(f).isEmpty());
        f.editor()->insertPlainText("x");
        QCOMPARE(f.tabs().tabText(0), QString("large.cpp*"));
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(CWindowFixture::content(f.path("large.cpp")), QByteArray('x' + largeText()));
    }

    void closedTab_asksNothingAndWritesNothing_data() { moments(); }
    void closedTab_asksNothingAndWritesNothing()
    {
        QFETCH(QString, moment);
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        CWindowFixture f;
        const QByteArray text = largeText();
        const QString strPath = f.file("large.txt", text);
        reach(open(f, strPath), moment);
        const CBoxAnswer answer;
        f.window().documents().drafts().flush();
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 0);
        QVERIFY(answer.boxes().isEmpty());
        f.window().documents().drafts().flush();
        QCOMPARE(draftFiles(), QStringList());
        QVERIFY(notice(f).isEmpty());
        QCOMPARE(CWindowFixture::content(strPath), text);
    }

    void closedWindow_asksNothing_data() { moments(); }
    void closedWindow_asksNothing()
    {
        QFETCH(QString, moment);
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        const CConsole console;
        {
            CWindowFixture f;
            reach(open(f, f.file("large.txt", largeText())), moment);
            const CBoxAnswer answer;
            QVERIFY(f.window().close());
            QVERIFY(answer.boxes().isEmpty());
        }
        QCOMPARE(draftFiles(), QStringList());
        QVERIFY2(CConsole::lines().isEmpty(), qPrintable(CConsole::lines().join('\n')));
    }

    void windowThatGoes_asOnExit_isClean_data() { moments(); }
    void windowThatGoes_asOnExit_isClean()
    {
        QFETCH(QString, moment);
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        const CConsole console;
        {
            CWindowFixture f;
            reach(open(f, f.file("large.txt", largeText())), moment);
        }
        QCOMPARE(draftFiles(), QStringList());
        QVERIFY2(CConsole::lines().isEmpty(), qPrintable(CConsole::lines().join('\n')));
    }

    void sameFileHandedOver_showsItsTab_data() { moments(); }
    void sameFileHandedOver_showsItsTab()
    {
        QFETCH(QString, moment);
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strPath);
        f.window().on_actionNewText_triggered();
        reach(pDocument, moment);
        f.window().parseArgument('"' + strPath + '"');
        QCOMPARE(f.tabs().count(), 2);
        QCOMPARE(&f.window().currentDocument(), pDocument);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->blockCount(), g_nLines + 1);
    }

    void otherDocument_isWorkedInAndSavedMeanwhile()
    {
        CWindowFixture f;
        const QString strOther = f.file("other.txt", "text\n");
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        f.window().openFile(strOther);
        reach(pDocument, "half");
        QCOMPARE(f.window().currentDocument().path(), strOther);
        QTest::keyClicks(f.editor(), "typed ");
        QVERIFY(f.action("actionSave")->isEnabled() && f.action("actionFind")->isEnabled());
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(CWindowFixture::content(strOther), QByteArray("typed text\n"));
        QVERIFY(pDocument->isArriving());
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.window().currentDocument().path(), strOther);
        QCOMPARE(f.tabs().tabText(0), QString("large.txt"));
        QCOMPARE(f.tabs().tabText(1), QString("other.txt"));
    }

    void fileChangedMeanwhile_isToldAtTheEnd_data()
    {
        QTest::addColumn<bool>("removed");
        QTest::newRow("written") << false;
        QTest::newRow("removed") << true;
    }
    void fileChangedMeanwhile_isToldAtTheEnd()
    {
        QFETCH(bool, removed);
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strPath);
        reach(pDocument, "half"); // The file has been read.
        if (removed)
            QVERIFY(QFile::remove(strPath));
        else
            f.file("large.txt", "theirs");
        f.window().documents().checkFiles();
        QVERIFY(notice(f).isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->getText().toUtf8(), largeText());
        QVERIFY2(notice(f).contains(removed ? "no longer there" : "has changed"),
                 qPrintable(notice(f)));
    }

    void refresh_bringsTheNewText_andKeepsTheLine()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->goToLine(40000);
        f.editor()->insertPlainText("typed ");
        f.file("large.txt", largeText("other"));
        const CBoxAnswer answer({QMessageBox::Yes});
        f.window().on_actionRefresh_triggered();
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY(pDocument->isArriving() && !pDocument->isModified());
        QVERIFY(f.editor()->textCursor().block().text().startsWith("typed word"));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->getText().toUtf8(), largeText("other"));
        QCOMPARE(f.editor()->textCursor().blockNumber(), 39999);
        QVERIFY(!pDocument->isModified() && notice(f).isEmpty());
    }

    void refreshThatIsStoppedInTime_leavesTheTextAndItsChanges()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->insertPlainText("typed ");
        const CBoxAnswer answer({QMessageBox::Yes});
        f.window().on_actionRefresh_triggered();
        QVERIFY(pDocument->stopArriving());
        QVERIFY(pDocument->isModified());
        QCOMPARE(f.tabs().tabText(0), QString("large.txt*"));
        QVERIFY(f.window().on_actionSave_triggered());
        QVERIFY(CWindowFixture::content(f.path("large.txt")).startsWith("typed word"));
    }

    void refreshOfTheContextMenu_offersWhatWasTyped()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->insertPlainText("typed ");
        f.editor()->onRefresh();
        QVERIFY(pDocument->isArriving());
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->getText().toUtf8(), largeText());
        QVERIFY(press(f, "Restore"));
        QVERIFY(f.editor()->getText().startsWith("typed word"));
        QVERIFY(pDocument->isModified() && !f.editor()->isReadOnly());
    }

    void textCodec_readsTheFileAgainInTheBackground_andKeepsTheLine()
    {
        CWindowFixture f;
        const QByteArray bytes = largeText("w\xc3\xb6rd").replace('\n', "\r\n");
        CDocument *pDocument = open(f, f.file("large.txt", bytes));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->goToLine(40000);
        for (const char *szCodec : {"windows-1252", "UTF-8"}) {
            const QString strBefore = pDocument->codecName();
            QVERIFY(pDocument->setCodec(szCodec).isDone());
            QVERIFY(pDocument->isArriving());
            QCOMPARE(pDocument->codecName(), strBefore); // That of the text which is still there.
            QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
            QCOMPARE(pDocument->codecName(), QString(szCodec));
            QVERIFY(f.editor()->getText() == QTextCodec::codecForName(szCodec)->toUnicode(bytes));
            QCOMPARE(f.editor()->textCursor().blockNumber(), 39999);
            QVERIFY(!pDocument->isModified() && pDocument->isWhole() && pDocument->isCodecSure());
            QVERIFY(!f.editor()->document()->isUndoAvailable());
            QCOMPARE(f.editor()->returnFormat(), 0);
        }
    }

    void textCodec_ofALargeTextThatWasTyped_keepsWhatWasTyped()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText("w\xc3\xb6rd")));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->insertPlainText("typed ");
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QVERIFY(!pDocument->isArriving() && pDocument->isModified());
        QVERIFY(f.editor()->getText().startsWith("typed w"));
    }

    // From this size on, blocks get their colours when they are laid out.
    void veryLargeText_isReplacedAtOnce_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *szWay : {"text codec", "file became small", "draft"})
            QTest::newRow(szWay) << szWay;
    }
    void veryLargeText_isReplacedAtOnce()
    {
        QFETCH(QString, way);
        CWindowFixture f;
        const QString strPath = f.file("large.xml", largeText("<w\xc3\xb6rd/>"));
        CDocument *pDocument = open(f, strPath);
        f.editor()->textDocument()->setLargeFrom(1000);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QTest::keyClick(f.editor(), Qt::Key_End, Qt::ControlModifier);
        f.editor()->insertPlainText("<typed/>");
        QByteArray expected = largeText("<w\xc3\xb6rd/>") + "<typed/>";
        if (way == "file became small") {
            expected = QByteArray("<other/>\n").repeated(500);
            f.file("large.xml", expected);
            const CBoxAnswer answer({QMessageBox::Yes});
            f.window().on_actionRefresh_triggered();
        } else if (way == "draft") {
            f.editor()->onRefresh();
            QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
            QVERIFY(press(f, "Restore"));
        } else {
            QVERIFY(pDocument->setCodec("windows-1252").isDone());
        }
        QVERIFY(!pDocument->isArriving());
        const QTextCodec *pCodec = QTextCodec::codecForName(pDocument->codecName().toLatin1());
        QCOMPARE(pCodec->fromUnicode(f.editor()->getText()), expected);
        QTRY_VERIFY(!f.editor()->document()->lastBlock().previous().layout()->formats().isEmpty());
    }

    // The other program's version is shown by Refresh, not by the way.
    void textCodec_ofALargeFileThatHasChanged_keepsTheText()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText("w\xc3\xb6rd"));
        CDocument *pDocument = open(f, strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.file("large.txt", largeText("other"));
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QVERIFY(!pDocument->isArriving());
        QVERIFY(f.editor()->getText().startsWith(QString::fromLatin1("w\xc3\xb6rd")));
    }

    void restoreOfADraft_whileItIsReadAgain_stays_data() { moments(); }
    void restoreOfADraft_whileItIsReadAgain_stays()
    {
        QFETCH(QString, moment);
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->insertPlainText("typed ");
        f.editor()->onRefresh();
        if (moment != "half") // Until the new text is there, the old one has as many lines.
            reach(pDocument, moment);
        QVERIFY(press(f, "Restore"));
        QVERIFY(!pDocument->isArriving() && !f.editor()->isReadOnly());
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QVERIFY(f.editor()->getText().startsWith("typed word"));
        QVERIFY(pDocument->isModified());
        QVERIFY(f.window().on_actionSave_triggered() || press(f, "Overwrite"));
        QVERIFY(CWindowFixture::content(f.path("large.txt")).startsWith("typed word"));
    }

    void closedWhileItIsReadAgain_asksNothing_data() { moments(); }
    void closedWhileItIsReadAgain_asksNothing()
    {
        QFETCH(QString, moment);
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->insertPlainText("typed ");
        const CBoxAnswer answer({QMessageBox::Yes});
        f.window().on_actionRefresh_triggered();
        if (moment != "half")
            reach(pDocument, moment);
        f.window().onTabCloseRequested(0);
        QCOMPARE(answer.boxes().size(), 1); // Refresh's own.
        QCOMPARE(f.tabs().count(), 0);
        f.window().documents().drafts().flush();
        QCOMPARE(draftFiles(), QStringList());
        QCOMPARE(CWindowFixture::content(f.path("large.txt")), largeText());
    }

    void reopenedTab_goesToItsPlace_alsoWhenItWasClosedWhileItLoaded()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->goToLine(50000);
        auto *pPast = f.window().findChild<CPastTabs *>();
        f.window().onTabCloseRequested(0);
        pPast->reopenClosed();
        QVERIFY(f.window().currentDocument().isArriving());
        f.window().onTabCloseRequested(0); // Its place is still to come.
        pPast->reopenClosed();
        pDocument = &f.window().currentDocument();
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 49999);
    }

    void goToLine_waitsForTheLine()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        reach(pDocument, "first lines");
        f.window().onGoToLine(55000);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 54999);
    }

    void matchOfFindInFiles_waitsForItsLine()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        f.window().findChild<CFindDock *>()->show(QString());
        auto *pPanel = f.window().findChild<CWidgetFindInFiles *>();
        emit pPanel->matchActivated(strPath, 50000, 5, 2);
        CDocument *pDocument = &f.window().currentDocument();
        QVERIFY(pDocument->isArriving());
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 49999);
        QCOMPARE(f.editor()->textCursor().selectedText(), QString("in"));
    }

    void fileRenamedMeanwhile_keepsItsTab()
    {
        CWindowFixture f;
        const QString strOld = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strOld);
        QVERIFY(QFile::rename(strOld, f.path("new.txt")));
        f.window().documents().followRenamed(strOld, f.path("new.txt"));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.tabs().tabText(0), QString("new.txt"));
        QCOMPARE(f.editor()->getText().toUtf8(), largeText());
    }

    void fileThatCannotBeRead_isToldInTheBarAndItsTabCloses()
    {
        CWindowFixture f;
        CDocument *pDocument = open(f, f.file("large.txt", largeText()));
        QSignalSpy spy(pDocument, &QObject::destroyed);
        const CBoxAnswer answer;
        emit pDocument->arrivalFailed("the reason", true);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QCOMPARE(f.tabs().count(), 0);
        QVERIFY(notice(f).contains("large.txt") && notice(f).contains("the reason"));
        QVERIFY(answer.boxes().isEmpty());
    }

    void readAgainInVain_theTextStays()
    {
        CWindowFixture f;
        const QString strPath = f.file("large.txt", largeText());
        CDocument *pDocument = open(f, strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        auto *pText = qobject_cast<CEditorDocument *>(pDocument);
        QVERIFY(pDocument->reload().isDone());
        pText->editor()->setPathFileName(f.path("nothing.txt")); // What is read next.
        pText->editor()->loadInSlices(LongLines::Ask, true);
        QSignalSpy spy(pDocument, &CDocument::arrivalFailed);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.editor()->getText().toUtf8(), largeText());
        QVERIFY(!f.editor()->isReadOnly());
        QVERIFY(notice(f).contains("could not be loaded"));
    }

    void longLine_isAskedAboutInTheBar_data()
    {
        QTest::addColumn<QString>("answer"); // Empty: the bar is closed.
        QTest::newRow("in pieces") << "Show it in pieces";
        QTest::newRow("whole") << "Show it whole";
        QTest::newRow("none") << QString();
    }
    void longLine_isAskedAboutInTheBar()
    {
        QFETCH(QString, answer);
        CWindowFixture f;
        const QByteArray text = "first\n" + QByteArray(1100000, 'x') + "\nlast\n";
        const QString strPath = f.file("large.txt", text);
        CDocument *pDocument = open(f, strPath);
        QTRY_VERIFY_WITH_TIMEOUT(!notice(f).isEmpty(), 60000);
        QVERIFY(pDocument->isArriving());
        QVERIFY2(notice(f).contains("1,100,000"), qPrintable(notice(f)));
        if (answer.isEmpty())
            emit f.window().findChild<CNoticeBar *>()->dismissed();
        else
            QVERIFY(press(f, answer));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        const bool bWhole = answer == "Show it whole";
        QCOMPARE(f.editor()->isInPieces(), !bWhole);
        QCOMPARE(f.action("actionSave")->isEnabled(), bWhole);
        QCOMPARE(f.action("actionSave_As")->isEnabled(), bWhole);
        QCOMPARE(f.action("actionReplace")->isEnabled(), bWhole);
        QVERIFY(f.action("actionFind")->isEnabled() && f.action("actionRefresh")->isEnabled());
        QCOMPARE(f.editor()->isReadOnly(), !bWhole);
        QCOMPARE(pDocument->saveAnyway().isDone(), bWhole);
        QCOMPARE(CWindowFixture::content(strPath), text);
        QCOMPARE(notice(f).isEmpty(), bWhole);
    }

    void textInPieces_isShownWholeFromItsStart()
    {
        CWindowFixture f;
        const QByteArray text = "first\n" + QByteArray(1100000, 'x') + "\nnext\nlast\n";
        CDocument *pDocument = open(f, f.file("large.txt", text));
        QTRY_VERIFY_WITH_TIMEOUT(!notice(f).isEmpty(), 60000);
        QVERIFY(press(f, "Show it in pieces"));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving(), 60000);
        f.editor()->moveCursor(QTextCursor::End); // A line that the whole text does not have.
        QVERIFY(press(f, "Show it whole"));
        QTRY_VERIFY_WITH_TIMEOUT(!pDocument->isArriving() && !f.editor()->isInPieces(), 60000);
        QCOMPARE(f.editor()->blockCount(), 5);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 0);
    }

    void closedWhileTheBarAsks_isClean()
    {
        CWindowFixture f;
        open(f, f.file("large.txt", QByteArray(1100000, 'x')));
        QTRY_VERIFY_WITH_TIMEOUT(!notice(f).isEmpty(), 60000);
        const CBoxAnswer answer;
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 0);
        QVERIFY(answer.boxes().isEmpty() && notice(f).isEmpty());
    }
};

QTEST_MAIN(tst_loading)
#include "tst_loading.moc"
