// What the commands of the window do beyond a document's own life.

#include "cwindowfixture.h"

#include "browser/cwidgetfavorfilelist.h"
#include "browser/cwidgetfilelist.h"
#include "editor/cdlggo.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QClipboard>
#include <QDockWidget>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>

class tst_commands : public QObject
{
    Q_OBJECT

private slots:
    void open_withASelectionInTheBrowser_opensIt()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt");
        QListView *pList = listFolder(f);
        pList->setFocus();
        pList->selectAll();
        QTRY_VERIFY(pList->hasFocus());
        CFileDialogAnswer answer({});
        f.action("actionOpen")->trigger();
        QCOMPARE(answer.caption(), QString());
        QCOMPARE(f.window().currentDocument().path(), strPath);
    }

    void open_withoutASelectionInTheBrowser_asks()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt");
        QListView *pList = listFolder(f);
        pList->setFocus();
        pList->clearSelection();
        QTRY_VERIFY(pList->hasFocus());
        CFileDialogAnswer answer({strPath});
        f.action("actionOpen")->trigger();
        QCOMPARE(answer.caption(), QStringLiteral("Open files"));
        QCOMPARE(f.window().currentDocument().path(), strPath);
    }

    void openedDocument_hasTheKeyboard_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("text") << "a.txt";
        QTest::newRow("page") << "a.html";
    }
    void openedDocument_hasTheKeyboard()
    {
        QFETCH(QString, name);
        CWindowFixture f;
        QVERIFY(QTest::qWaitForWindowActive(&f.window()));
        f.window().openFile(f.file(name, "<p>x</p>"));
        QCOMPARE(f.window().focusWidget(), f.window().currentDocument().widget());
    }

    void pathsGiven_firstOfThemPointsTheBrowser_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("folder");
        QTest::newRow("file, folder") << QStringList({"one/a.txt", "two"}) << "one";
        QTest::newRow("folder, file") << QStringList({"two", "one/a.txt"}) << "two";
        QTest::newRow("two folders") << QStringList({"two", "one"}) << "two";
        QTest::newRow("what is not there, folder") << QStringList({"none", "two"}) << "two";
    }
    void pathsGiven_firstOfThemPointsTheBrowser()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, folder);
        CWindowFixture f;
        QVERIFY(QDir(f.path(".")).mkpath("one") && QDir(f.path(".")).mkpath("two"));
        f.file("one/a.txt");
        QStringList lstPaths;
        for (const QString &strName : names)
            lstPaths.append(f.path(strName));
        f.window().parseArguments(lstPaths);
        QCOMPARE(f.window().findChild<CWidgetFavorFileList *>()->rootPath(), f.path(folder));
        QCOMPARE(f.tabs().count(), names.contains("one/a.txt") ? 1 : 0);
    }

    void pathsGiven_bringAMinimisedWindowBack()
    {
        CWindowFixture f;
        f.window().showMinimized();
        f.window().parseArguments({});
        QVERIFY(!f.window().isMinimized());
        QVERIFY(f.window().isVisible());
    }

    void tabs_showTheKindOfDocument()
    {
        CWindowFixture f;
        const QPair<QString, QString> arrKinds[] = {
            {f.file("a.txt"), ":/res/file_text.png"},
            {f.file("a.svg", "<svg/>"), ":/res/file_text_svg.png"},
            {f.file("a.html", "<p>x</p>"), ":/res/html_text.svg"},
            {f.image("i.png"), ":/res/image.png"}};
        for (const auto &[strPath, strIcon] : arrKinds) {
            f.window().openFile(strPath);
            QCOMPARE(f.tabs().tabIcon(f.tabs().currentIndex()).pixmap(16).toImage(),
                     QIcon(strIcon).pixmap(16).toImage());
        }
        f.action("actionNewText")->trigger();
        QCOMPARE(f.tabs().tabIcon(f.tabs().currentIndex()).pixmap(16).toImage(),
                 QIcon(":/res/new_text.svg").pixmap(16).toImage());
    }

    void tabs_areSetUp()
    {
        CWindowFixture f;
        QVERIFY(f.tabs().isMovable());
        QVERIFY(f.tabs().tabsClosable());
        QVERIFY(f.tabs().documentMode());
        QVERIFY(f.tabs().testAttribute(Qt::WA_StyledBackground));
        QCOMPARE(f.tabs().styleSheet(),
                 "QTabWidget {background:#FDFDFD} QTabWidget::tab-bar {" + QString(36, ' ')
                     + "left: 5px; /* move to the right by 5px */" + QString(32, ' ') + "}");
    }

    void swapHtml_tellsWhereItLeads()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.html", "<p>x</p>"));
        QCOMPARE(f.action("actionSwapHtml")->toolTip(),
                 QStringLiteral("Switch to html source edit"));
        f.action("actionSwapHtml")->trigger();
        QCOMPARE(f.action("actionSwapHtml")->toolTip(), QStringLiteral("Switch to html page edit"));
        f.action("actionSwapHtml")->trigger();
        QCOMPARE(f.action("actionSwapHtml")->toolTip(),
                 QStringLiteral("Switch to html source edit"));
    }

    void saveAs_intoAMissingFolder_fails()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("x");
        const QString strPath = f.path("none/a.txt");
        const CFileDialogAnswer file({strPath});
        const CBoxAnswer answer;
        QVERIFY(!f.window().on_actionSave_As_triggered());
        QCOMPARE(answer.boxes().last().icon, QMessageBox::Warning);
        QCOMPARE(answer.boxes().last().strTitle, QStringLiteral("Fail to open file"));
        QCOMPARE(answer.boxes().last().strText, QString("Cannot open file\"" + strPath + "\"."));
        QVERIFY(f.window().currentDocument().isModified());
    }

    void saveAs_ofAnImage_leavesAnEmptyFile()
    {
        CWindowFixture f;
        f.window().openFile(f.image("i.png"));
        const CFileDialogAnswer file({f.path("j.png")});
        QVERIFY(f.window().on_actionSave_As_triggered());
        QCOMPARE(CWindowFixture::content(f.path("j.png")), QByteArray());
        QCOMPARE(f.window().currentDocument().path(), f.path("i.png"));
        QCOMPARE(f.tabs().tabToolTip(0), f.path("j.png"));
    }

    void closingTheWindow_asksForTheUntitledWithoutAPath()
    {
        CWindowFixture f;
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("x");
        const CBoxAnswer answer({QMessageBox::Cancel});
        QVERIFY(!f.window().close());
        QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("File Modified"));
        QCOMPARE(answer.boxes().first().strText, QStringLiteral("Do you save the modified file?"));
        QCOMPARE(answer.boxes().first().defaultButton, QMessageBox::YesToAll);
    }

    void lineWrap_reachesAllEditorsAndTheSettings()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        CHighlightEdit *pFirst = f.editor();
        f.window().openFile(f.file("b.txt"));
        const bool bBefore = f.settings().getLineWrap();
        QCOMPARE(f.action("actionLine_Wrap")->isChecked(), bBefore);
        f.action("actionLine_Wrap")->trigger();
        QCOMPARE(f.settings().getLineWrap(), !bBefore);
        for (const CHighlightEdit *pEditor : {pFirst, f.editor()})
            QCOMPARE(pEditor->lineWrapMode() == QPlainTextEdit::WidgetWidth, !bBefore);
        CSettings stored("Tavrel Software", "quillan-test");
        QCOMPARE(stored.getLineWrap(), !bBefore);
    }

    void editMenu_worksOnTheText()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "text"));
        const auto choose = [&f](const char *szAction) {
            QTRY_VERIFY2(f.action(szAction)->isEnabled(), szAction);
            f.action(szAction)->trigger();
        };
        choose("actionSelect_All");
        choose("actionCut");
        QCOMPARE(f.editor()->toPlainText(), QString());
        choose("actionUndo");
        QCOMPARE(f.editor()->toPlainText(), QString("text"));
        choose("actionRedo");
        QCOMPARE(f.editor()->toPlainText(), QString());
        choose("actionPaste");
        QCOMPARE(f.editor()->toPlainText(), QString("text"));
        QGuiApplication::clipboard()->clear();
        choose("actionSelect_All");
        choose("actionCopy");
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("text"));
    }

    void goToLine_goesThereInTheCurrentEditor()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "1\n2\n3\n4\n"));
        f.action("actionGo_to_Line")->trigger();
        auto *pDialog = f.window().findChild<CDlgGo *>();
        QTRY_VERIFY(pDialog && pDialog->isVisible());
        emit pDialog->goToLine(3);
        QCOMPARE(f.editor()->textCursor().blockNumber(), 2);
    }

    void docks_haveTheirPictures()
    {
        CWindowFixture f;
        const QPair<const char *, QString> arrDocks[] = {
            {"Preview", ":/res/preview.png"}, {"Folder Browser", ":/res/folder_explore.png"}};
        for (const auto &[szName, strIcon] : arrDocks) {
            QAction *pAction = f.window().findChild<QDockWidget *>(szName)->toggleViewAction();
            QCOMPARE(pAction->icon().pixmap(16).toImage(), QIcon(strIcon).pixmap(16).toImage());
        }
    }

    void linkUnderTheMouse_isToldWhileItIsThere()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.html", "<a href='b.html'>link</a>"));
        CEditWebView *pPage = f.window().currentDocument().page();
        emit pPage->overUrl("file:///b.html");
        QCOMPARE(f.label("labelMessage"), QStringLiteral("file:///b.html"));
        emit pPage->linkLeft("file:///b.html");
        QCOMPARE(f.label("labelMessage"), QString());
        // What has been said meanwhile stays.
        emit pPage->overUrl("file:///b.html");
        emit pPage->statusMessage("news");
        emit pPage->linkLeft("file:///b.html");
        QCOMPARE(f.label("labelMessage"), QStringLiteral("news"));
    }

private:
    // The browser's list, showing the folder of the case.
    static QListView *listFolder(CWindowFixture &f)
    {
        auto *pPanel = f.window().findChild<CWidgetFileList *>();
        f.window().parseArguments({f.path(".")});
        auto *pList = pPanel->findChild<QListView *>();
        [&] { QTRY_VERIFY(pList->model()->rowCount(pList->rootIndex()) > 0); }();
        f.window().activateWindow();
        return pList;
    }
};

QTEST_MAIN(tst_commands)
#include "tst_commands.moc"
