#include "cwindowfixture.h"

#include "document/cdocument.h"
#include "document/notice.h"
#include "tests/support/boxanswer.h"

#include <QMessageBox>
#include <QTextCursor>

namespace {

const auto g_yes = QMessageBox::Yes;
const auto g_no = QMessageBox::No;
const auto g_cancel = QMessageBox::Cancel;

} // namespace

class tst_documents : public QObject
{
    Q_OBJECT

private slots:
    void newText_isAnUntitledCleanTab()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.tabs().tabToolTip(0), QStringLiteral("New file"));
        QVERIFY(!f.window().currentDocument().isModified());
        QCOMPARE(f.window().currentDocument().path(), QString());
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quillan(Untitled)"));
    }

    void typing_marksTitleAndTab()
    {
        CWindowFixture f;
        const QString strPath = f.file("a&b.txt");
        f.window().openFile(strPath);
        QCOMPARE(f.tabs().tabText(0), QStringLiteral("a&&b.txt"));
        f.editor()->insertPlainText("x");
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quillan(a&b.txt*)"));
        f.editor()->undo();
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quillan(a&b.txt)"));
    }

    void openedText_hasNameToolTipAndLanguage()
    {
        CWindowFixture f;
        const QString strPath = f.file("main.cpp", "int main() { return 0; }\n");
        f.window().openFile(strPath);
        QCOMPARE(f.tabs().tabText(0), QStringLiteral("main.cpp"));
        QCOMPARE(f.tabs().tabToolTip(0), strPath);
        QCOMPARE(f.editor()->toPlainText(), QStringLiteral("int main() { return 0; }\n"));
        QCOMPARE(f.label("labelReturnFormat"), QStringLiteral("Unix"));
        QCOMPARE(f.label("labelCursor"), QStringLiteral("row: 1, col: 0, sel: 0"));
    }

    void openPath_again_selectsItsTab()
    {
        CWindowFixture f;
        const QString strFirst = f.file("first.txt");
        f.window().openFile(strFirst);
        f.window().openFile(f.file("second.txt"));
        f.window().openFile(strFirst);
        QCOMPARE(f.tabs().count(), 2);
        QCOMPARE(f.tabs().currentIndex(), 0);
    }

    void openSameFile_spelledOtherwise_opensASecondTab()
    {
        CWindowFixture f;
        f.file("a.txt");
        f.window().openFile(f.path("a.txt"));
        f.window().openFile(f.path("./a.txt"));
        QCOMPARE(f.tabs().count(), 2);
    }

    void suffix_decidesTheKind_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("kind");
        const auto row = [](const char *szName, CDocument::Kind kind) {
            QTest::newRow(szName) << QString::fromLatin1(szName) << int(kind);
        };
        row("picture.SVG", CDocument::Kind::Text);
        row("picture.svgz", CDocument::Kind::Text);
        row("page.HTM", CDocument::Kind::Page);
        row("page.html", CDocument::Kind::Page);
        row("photo.PNG", CDocument::Kind::Image);
        row("photo.jpeg", CDocument::Kind::Image);
        row("code.xhtml", CDocument::Kind::Text);
        row("noending", CDocument::Kind::Text);
    }

    void suffix_decidesTheKind()
    {
        QFETCH(QString, name);
        QFETCH(int, kind);
        CWindowFixture f;
        f.window().openFile(f.file(name, "<svg xmlns='http://www.w3.org/2000/svg'/>"));
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(int(f.window().currentDocument().kind()), kind);
    }

    void openMissingFile_showsFailureAndNoTab_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("text") << QStringLiteral("gone.txt");
        QTest::newRow("page") << QStringLiteral("gone.html");
        QTest::newRow("markup in the name") << QStringLiteral("<b>gone</b>.txt");
    }

    void openMissingFile_showsFailureAndNoTab()
    {
        QFETCH(QString, name);
        CWindowFixture f;
        CBoxAnswer answer;
        f.window().openFile(f.path(name));
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(answer.boxes().at(0).icon, QMessageBox::Critical);
        QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("Fail to open file"));
        QCOMPARE(answer.boxes().at(0).strText,
                 QStringLiteral("Fail to open file(%1).").arg(f.path(name)));
        QCOMPARE(f.tabs().count(), 0);
    }

    void save_writesUtf8WithTheLineEnds()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "a\r\nb\nc");
        f.window().openFile(strPath);
        QCOMPARE(f.editor()->returnFormat(), 0);
        f.editor()->moveCursor(QTextCursor::End);
        f.editor()->insertPlainText(QString::fromUtf8("é"));
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), QByteArray("a\r\nb\r\nc\xC3\xA9"));
        QVERIFY(!f.window().currentDocument().isModified());
        QCOMPARE(f.editor()->codecName(), QStringLiteral("UTF-8"));
    }

    void saveUntitled_asksForAName()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("int x;");
        const QString strPath = f.path("new.cpp");
        CFileDialogAnswer answer({strPath});
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(answer.caption(), QStringLiteral("Save file"));
        QCOMPARE(answer.nameFilters(), QStringList("All files(*.*)"));
        QCOMPARE(f.content(strPath), QByteArray("int x;"));
        QCOMPARE(f.window().currentDocument().path(), strPath);
        QCOMPARE(f.tabs().tabToolTip(0), strPath);
        QVERIFY(!f.settings().getRecentFileList().contains(strPath));
    }

    void saveUntitled_cancelled_staysModified()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("x");
        CFileDialogAnswer answer({});
        QVERIFY(!f.window().on_actionSave_triggered());
        QVERIFY(f.window().currentDocument().isModified());
    }

    void saveIntoMissingFolder_keepsTheDocumentModified()
    {
        CWindowFixture f;
        QDir(f.path("")).mkdir("sub");
        const QString strPath = f.file("sub/a.txt");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("x");
        QVERIFY(QDir(f.path("sub")).removeRecursively());
#ifdef Q_OS_WIN
        if (QFileInfo::exists(f.path("sub")))
            QSKIP("A folder stays until nobody follows it any more.");
#endif
        CBoxAnswer answer;
        QVERIFY(!f.window().on_actionSave_triggered());
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(answer.boxes().at(0).icon, QMessageBox::Critical);
        QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("Fail to save file"));
        QCOMPARE(answer.boxes().at(0).strText,
                 QStringLiteral("Cannot open file(%1).").arg(strPath));
        QVERIFY(f.window().currentDocument().isModified());
    }

    void saveAll_doesNothing()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("x");
        f.window().on_actionSave_All_triggered();
        QCOMPARE(f.content(strPath), QByteArray("old"));
        QVERIFY(f.window().currentDocument().isModified());
        QVERIFY(!f.action("actionSave_All")->isEnabled());
    }

    void openDialog_opensAllAndRemembers()
    {
        CWindowFixture f;
        const QString strOne = f.file("one.txt");
        const QString strTwo = f.file("two.txt");
        CFileDialogAnswer answer({strOne, strTwo});
        f.action("actionOpen")->trigger();
        QCOMPARE(answer.caption(), QStringLiteral("Open files"));
        QCOMPARE(answer.nameFilters(),
                 QStringList("Web file (*.html *.htm *.css *.js); All files(*.*)"));
        QCOMPARE(f.tabs().count(), 2);
        QCOMPARE(f.settings().getLastPathFileName(), strOne);
        QCOMPARE(f.settings().getRecentFileList(), QStringList({strTwo, strOne}));
    }

    void withoutRecentFiles_oneEmptyEntryShows()
    {
        CWindowFixture f;
        QCOMPARE(f.action("actionRecent_File_1")->text(), QStringLiteral("(empty)"));
        QVERIFY(!f.action("actionRecent_File_1")->isEnabled());
        QVERIFY(f.action("actionRecent_File_1")->isVisible());
        for (const char *szName : {"actionRecent_File_2", "actionRecent_File_6"})
            QVERIFY(!f.action(szName)->isVisible());
    }

    void recentFile_opensAndMovesToTheFront()
    {
        CWindowFixture f;
        QStringList lstPaths;
        for (int n = 1; n <= 6; ++n)
            lstPaths.append(f.file(QStringLiteral("f&%1.txt").arg(n)));
        f.window().parseArguments(lstPaths);
        QCOMPARE(f.action("actionRecent_File_3")->text(), f.path("f&&4.txt"));
        f.action("actionRecent_File_3")->trigger();
        QCOMPARE(f.settings().getRecentFileList().size(), 6);
        QCOMPARE(f.settings().getRecentFileList().constFirst(), f.path("f&4.txt"));
        QCOMPARE(f.window().currentDocument().path(), f.path("f&4.txt"));
        f.window().parseArguments({f.file("seventh.txt")});
        QCOMPARE(f.settings().getRecentFileList().size(), 6);
        QVERIFY(!f.settings().getRecentFileList().contains(f.path("f&1.txt")));
    }

    void missingRecentFile_failsAndStays()
    {
        CWindowFixture f;
        const QString strGone = f.path("gone.txt");
        f.settings().setRecentFileList({f.file("here.txt"), strGone});
        CBoxAnswer answer;
        f.window().on_actionRecent_File_2_triggered();
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(f.settings().getRecentFileList().constFirst(), strGone);
    }

    void refresh_asksBeforeDiscarding()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "disk");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("mine");
        {
            CBoxAnswer answer({g_cancel});
            f.action("actionRefresh")->trigger();
            QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("File Modified"));
            QCOMPARE(answer.boxes().at(0).strText,
                     QStringLiteral("Are you sure to refresh and discard the modification?"));
            QCOMPARE(answer.boxes().at(0).defaultButton, g_yes);
        }
        QVERIFY(f.editor()->toPlainText().contains("mine"));
        CBoxAnswer answer({g_yes});
        f.action("actionRefresh")->trigger();
        QCOMPARE(f.editor()->toPlainText(), QStringLiteral("disk"));
        QVERIFY(!f.editor()->isModified());
    }

    void closeModifiedTab_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("tabs");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("Cancel keeps the tab") << int(g_cancel) << 1 << QByteArray("old");
        QTest::newRow("No drops the change") << int(g_no) << 0 << QByteArray("old");
        QTest::newRow("Yes saves") << int(g_yes) << 0 << QByteArray("xold");
    }

    void closeModifiedTab()
    {
        QFETCH(int, answer);
        QFETCH(int, tabs);
        QFETCH(QByteArray, content);
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("x");
        CBoxAnswer boxes({QMessageBox::StandardButton(answer)});
        f.window().onTabCloseRequested(0);
        QCOMPARE(boxes.boxes().at(0).strTitle, QStringLiteral("File modified"));
        QCOMPARE(boxes.boxes().at(0).strText, QStringLiteral("Do you save the modified file?"));
        QCOMPARE(boxes.boxes().at(0).icon, QMessageBox::Warning);
        QCOMPARE(f.tabs().count(), tabs);
        QCOMPARE(f.content(strPath), content);
    }

    void closeOtherTab_saysYes_savesTheCurrentOne()
    {
        CWindowFixture f;
        const QString strOther = f.file("other.txt", "other");
        const QString strCurrent = f.file("current.txt", "current");
        f.window().openFile(strOther);
        f.editor()->insertPlainText("x");
        f.window().openFile(strCurrent);
        f.editor()->insertPlainText("y");
        CBoxAnswer answer({g_yes});
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.content(strCurrent), QByteArray("ycurrent"));
        QCOMPARE(f.content(strOther), QByteArray("other"));
        QCOMPARE(f.tabs().count(), 1);
    }

    void closeWindow_yesToAllOnce_savesAllThree()
    {
        CWindowFixture f;
        QStringList lstPaths;
        for (const char *szName : {"a.txt", "b.txt", "c.txt"}) {
            lstPaths.append(f.file(szName, "old"));
            f.window().openFile(lstPaths.constLast());
            f.editor()->insertPlainText("x");
        }
        CBoxAnswer answer({QMessageBox::YesToAll});
        QVERIFY(f.window().close());
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("File Modified"));
        QCOMPARE(answer.boxes().at(0).strText,
                 QStringLiteral("Do you save the modified file?\n(%1)").arg(lstPaths.constLast()));
        QCOMPARE(answer.boxes().at(0).defaultButton, QMessageBox::YesToAll);
        for (const QString &strPath : qAsConst(lstPaths))
            QCOMPARE(f.content(strPath), QByteArray("xold"));
    }

    void closeWindow_cancelledOnTheWay_keepsTheRest()
    {
        CWindowFixture f;
        for (const char *szName : {"a.txt", "b.txt", "c.txt"}) {
            f.window().openFile(f.file(szName, "old"));
            f.editor()->insertPlainText("x");
        }
        CBoxAnswer answer({g_no, g_cancel});
        QVERIFY(!f.window().close());
        QCOMPARE(answer.boxes().size(), 2);
        QCOMPARE(f.tabs().count(), 2);
        QCOMPARE(f.content(f.path("c.txt")), QByteArray("old"));
    }

    void closeWindow_failedSave_keepsTheDocument()
    {
        CWindowFixture f;
        QDir(f.path("")).mkdir("sub");
        f.window().openFile(f.file("sub/a.txt"));
        f.editor()->insertPlainText("x");
        QVERIFY(QDir(f.path("sub")).removeRecursively());
#ifdef Q_OS_WIN
        if (QFileInfo::exists(f.path("sub")))
            QSKIP("A folder stays until nobody follows it any more.");
#endif
        CBoxAnswer answer({QMessageBox::YesToAll, QMessageBox::Ok});
        QVERIFY(!f.window().close());
        QCOMPARE(f.tabs().count(), 1);
        QVERIFY(f.window().currentDocument().isModified());
    }

    void handOver_opensFilesAndSkipsTheRest()
    {
        CWindowFixture f;
        const QString strPath = f.file("with blank.txt");
        f.window().parseArgument(QStringLiteral("\"%1\" \"%2\"").arg(strPath, f.path("none")));
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.window().currentDocument().path(), strPath);
        QCOMPARE(f.settings().getRecentFileList(), QStringList(strPath));
        f.window().parseArgument(QStringLiteral(" "));
        QCOMPARE(f.tabs().count(), 1);
    }

    void returnFormat_followsTheMenuAndTheDocument()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "a\nb\n");
        f.window().openFile(strPath);
        QVERIFY(f.action("actionUnix")->isChecked());
        f.action("actionWindows")->trigger();
        QVERIFY(f.action("actionWindows")->isChecked());
        QVERIFY(!f.action("actionUnix")->isChecked());
        QCOMPARE(f.label("labelReturnFormat"), QStringLiteral("Windows"));
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), QByteArray("a\r\nb\r\n"));
    }

    void imageAndPage_disableTheReturnFormats()
    {
        CWindowFixture f;
        for (const QString &strPath : {f.image("i.png"), f.file("p.html", "<p>x</p>")}) {
            f.window().openFile(strPath);
            for (const char *szName : {"actionWindows", "actionUnix", "actionOSX"})
                QVERIFY(!f.action(szName)->isEnabled());
            QCOMPARE(f.label("labelReturnFormat"), QString());
        }
    }

    void largeFile_isOpenedWhenTheBarsQuestionIsAnswered()
    {
        CWindowFixture f;
        CDocument::setCeiling(10);
        const QString strPath = f.file("a.txt", "more than ten bytes\n");
        f.window().openFile(f.file("b.txt", "few"));
        QCOMPARE(f.tabs().count(), 1);
        f.window().openFile(strPath);
        f.window().openFile(f.file("c.html", "<p>more than ten bytes"));
        QCOMPARE(f.tabs().count(), 1);
        for (int n = 0; n < 2; ++n) {
            const SNotice notice = f.window().documents().recovery().notice();
            QVERIFY(notice.strText.endsWith("Open it anyway?"));
            notice.lstChoices.constFirst().chosen();
        }
        QVERIFY(f.window().documents().recovery().notice().strText.isEmpty());
        QCOMPARE(f.tabs().count(), 3);
        QCOMPARE(f.window().documents().withPath(strPath)->editor()->rawText(),
                 QString("more than ten bytes\n"));
        QVERIFY(f.window().documents().withPath(strPath)->reload().isDone());
        CDocument::setCeiling(qint64(512) << 20);
    }

    void textCodec_isTickedAndSwitched()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "\xC3\xA9"));
        QCOMPARE(f.label("labelTextCodec"), QStringLiteral("  UTF-8"));
        QAction *pLatin = nullptr;
        const auto lst = f.window().findChild<QMenu *>("menuText_Codec")->actions();
        for (QAction *pAction : lst) {
            QCOMPARE(pAction->isChecked(), pAction->text() == "UTF-8");
            if (pAction->text() == "windows-1252")
                pLatin = pAction;
        }
        QVERIFY(pLatin);
        pLatin->trigger();
        QCOMPARE(f.editor()->toPlainText(), QString::fromUtf8("Ã©"));
        QCOMPARE(f.label("labelTextCodec"), QStringLiteral("  windows-1252"));
        QVERIFY(pLatin->isChecked());
    }

    void doubleClickBesideTabs_opensANewText()
    {
        CWindowFixture f;
        f.window().onTabDbClick(-1);
        QCOMPARE(f.tabs().count(), 1);
        f.window().onTabDbClick(0);
        QCOMPARE(f.tabs().count(), 1);
    }

    void closeRequestBesideTabs_doesNothing()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.window().onTabCloseRequested(-1);
        QCOMPARE(f.tabs().count(), 1);
    }

    void exit_asksNothing()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("x");
        CBoxAnswer answer;
        QTimer::singleShot(0, f.action("actionExit"), &QAction::trigger);
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(answer.boxes().isEmpty());
    }

    void exit_asksWhereDraftsCannotBeWritten()
    {
#ifdef Q_OS_WIN
        QSKIP("A folder goes only when nobody has a file of it open.");
#endif
        const QString strFolder = CWindowFixture::draftFolder();
        QVERIFY(QDir(strFolder).removeRecursively());
        CWindowFixture f;
        QVERIFY(QDir(strFolder).removeRecursively());
        QFile inItsPlace(strFolder);
        QVERIFY(inItsPlace.open(QIODevice::WriteOnly));
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("x");
        {
            const CBoxAnswer answer({QMessageBox::Cancel});
            f.action("actionExit")->trigger();
            QCOMPARE(answer.boxes().size(), 1);
            QVERIFY(f.window().isVisible());
        }
        QVERIFY(!f.window().documents().drafts().isWorking());
        inItsPlace.remove();
        f.window().documents().drafts().flush();
        QVERIFY(f.window().documents().drafts().isWorking());
    }
};

QTEST_MAIN(tst_documents)
#include "tst_documents.moc"
