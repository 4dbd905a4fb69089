#include "cwindowfixture.h"

#include "document/cdocument.h"
#include "document/notice.h"
#include "support/awaittimers.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"
#include "web/cpreviewwidget.h"

#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTextCodec>
#include <QTextCursor>
#include <QToolBar>
#include <QWebFrame>
#include <QWebView>

namespace {

const QByteArray g_page =
    "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>A page</title></head>"
    "<body><p>one <b>two</b></p></body></html>";

CEditWebView *page(CWindowFixture &f)
{
    return f.window().currentDocument().page();
}

CDocument::Kind kind(CWindowFixture &f)
{
    return f.window().currentDocument().kind();
}

QString bodyText(CWindowFixture &f)
{
    return page(f)->page()->mainFrame()->toPlainText();
}

// Puts HTML at the end of the page, as if typed there.
void insert(CWindowFixture &f, const QString &strHtml)
{
    page(f)->setFocus();
    page(f)->triggerPageAction(QWebPage::SelectAll); // A page without focus has no caret to move.
    page(f)->triggerPageAction(QWebPage::MoveToEndOfDocument);
    page(f)->insertHtml(strHtml);
}

// Opens the page and waits until it stands there.
QString openPage(CWindowFixture &f, const QByteArray &html = g_page)
{
    const QString strPath = f.file("page.html", html);
    f.window().openFile(strPath);
    return strPath;
}

} // namespace

class tst_pages : public QObject
{
    Q_OBJECT

private slots:
    // The drafts of one case are nothing to recover in the next.
    void init() { QDir(CWindowFixture::draftFolder()).removeRecursively(); }

    void newHtml_isAnUntitledCleanPage()
    {
        CWindowFixture f;
        f.action("actionNewHtml")->trigger();
        QCOMPARE(kind(f), CDocument::Kind::Page);
        QVERIFY(!f.window().currentDocument().isModified());
        QCOMPARE(f.tabs().tabToolTip(0), QStringLiteral("New file"));
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quillan(Untitled)"));
    }

    void openedPage_showsItsTitleAndTheHtmlToolBar()
    {
        CWindowFixture f;
        openPage(f);
        QTRY_COMPARE(f.tabs().tabText(0), QStringLiteral("A page"));
        QCOMPARE(f.tabs().tabToolTip(0), QStringLiteral("New file"));
        QVERIFY(f.window().findChild<QToolBar *>("htmlToolBar")->isVisible());
        QVERIFY(f.action("actionBold")->isEnabled());
        QVERIFY(!f.action("actionGo_to_Line")->isEnabled());
        f.action("actionNewText")->trigger();
        QVERIFY(!f.window().findChild<QToolBar *>("htmlToolBar")->isVisible());
        QVERIFY(!f.action("actionBold")->isEnabled());
    }

    void openingLookingAndSwapping_modifiesNothing()
    {
        CWindowFixture f;
        const QString strPath = openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        for (int n = 0; n < 2; ++n) {
            f.action("actionSwapHtml")->trigger();
            QCOMPARE(kind(f), CDocument::Kind::Source);
            QTRY_VERIFY(f.editor()->toPlainText().contains("<b>two</b>"));
            QVERIFY(awaitTimers(10)); // As long as the source keeps its flag to itself.
            QVERIFY(!f.window().currentDocument().isModified());
            f.action("actionSwapHtml")->trigger();
            QCOMPARE(kind(f), CDocument::Kind::Page);
            QCOMPARE(bodyText(f), QStringLiteral("one two"));
            QVERIFY(!f.window().currentDocument().isModified());
        }
        QCOMPARE(f.content(strPath), g_page);
    }

    void editsOnBothSides_surviveTheSwap()
    {
        CWindowFixture f;
        const QString strPath = openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        insert(f, "<i>zero</i>");
        QTRY_VERIFY(f.window().currentDocument().isModified());
        QVERIFY(f.window().windowTitle().endsWith("*)"));

        f.action("actionSwapHtml")->trigger();
        QTRY_VERIFY(f.editor()->toPlainText().contains("<i>zero</i>"));
        QVERIFY(f.window().currentDocument().isModified());
        QVERIFY(f.settings().getIsHtmlText());
        QTextCursor cursor = f.editor()->document()->find("two");
        cursor.insertText("three");
        f.editor()->setTextCursor(cursor);

        f.action("actionSwapHtml")->trigger();
        QTRY_VERIFY(bodyText(f).contains("three"));
        QVERIFY(bodyText(f).contains("zero"));
        QTRY_VERIFY(f.window().currentDocument().isModified());
        QVERIFY(!f.settings().getIsHtmlText());
        QVERIFY(f.window().on_actionSave_triggered());
        QVERIFY(f.content(strPath).contains("<i>zero</i>"));
        QVERIFY(f.content(strPath).contains("<b>three</b>"));
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void savedFromTheSource_writesWhatStandsThere()
    {
        CWindowFixture f;
        const QString strPath = openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        f.action("actionSwapHtml")->trigger();
        QTRY_VERIFY(f.editor()->toPlainText().contains("two"));
        f.editor()->document()->find("two").insertText(QString::fromUtf8("zwei é"));
        QVERIFY(f.window().on_actionSave_triggered());
        QVERIFY(f.content(strPath).contains("zwei \xC3\xA9"));
        QTRY_VERIFY(!f.window().currentDocument().isModified());
        f.action("actionSwapHtml")->trigger();
        QTRY_VERIFY(bodyText(f).contains(QString::fromUtf8("zwei é")));
    }

    void settingForSource_opensPagesAsSource()
    {
        CWindowFixture f;
        f.settings().setIsHtmlText(true);
        const QString strPath = openPage(f);
        QCOMPARE(kind(f), CDocument::Kind::Source);
        QCOMPARE(f.window().currentDocument().path(), strPath);
        QCOMPARE(f.tabs().tabText(0), QStringLiteral("page.html"));
        QTRY_VERIFY(f.editor()->toPlainText().contains("<b>two</b>"));
        QCOMPARE(f.editor()->codecName(), QStringLiteral("UTF-8"));
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void previewOfAClosedDocument_goes_thatOfAFileStays()
    {
        CWindowFixture f;
        f.settings().setIsHtmlText(true);
        f.window().findChild<QDockWidget *>("Preview")->show();
        const auto *pPreview = f.window().findChild<CPreviewWidget *>();
        const auto shown = [pPreview] {
            const auto lstViews = pPreview->findChildren<QWebView *>();
            QString strText;
            for (const QWebView *pView : lstViews)
                strText += pView->page()->mainFrame()->toPlainText();
            return strText;
        };
        const auto open = [&f] {
            openPage(f);
            QTRY_VERIFY(f.editor()->toPlainText().contains("<b>two</b>"));
            // As the window finds it, installed.
            f.editor()->setDefinition({{"language", QVariantMap {{"name", "HTML"}}}});
            f.window().onDockPreviewChanged(true);
        };
        open();
        QTRY_VERIFY(shown().contains("one two"));
        f.window().onTabCloseRequested(0);
        QCOMPARE(shown(), QString());
        open();
        QTRY_VERIFY(shown().contains("one two"));
        f.window().onFileSelectionChanged(f.file("other.html", "<p>another file</p>"));
        QTRY_VERIFY(shown().contains("another file"));
        f.window().onTabCloseRequested(0);
        QVERIFY(shown().contains("another file"));
    }

    void pictureOutsideThePagesFolders_isToldInTheBar()
    {
        CWindowFixture f;
        const QTemporaryDir elsewhere;
        const QString strPicture = elsewhere.filePath("a.png");
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(strPicture));
        openPage(f, "<img src='" + QUrl::fromLocalFile(strPicture).toEncoded() + "'>");
        QTRY_VERIFY(
            f.window().currentDocument().notice().strText.startsWith("1 picture is not shown"));
        f.window().currentDocument().dismissNotice();
        QVERIFY(f.window().currentDocument().notice().strText.isEmpty());
    }

    void pageThatCouldEndTheProgram_opensAsItsSource_andAsAPageWhenWanted()
    {
        CWindowFixture f;
        const QByteArray html = QByteArray("<div style='display:flex'>").repeated(17) + "text";
        openPage(f, html);
        QCOMPARE(kind(f), CDocument::Kind::Text);
        QCOMPARE(f.editor()->toPlainText().toLatin1(), html);
        const SNotice notice = f.window().currentDocument().notice();
        QVERIFY(notice.strText.contains("too deep"));
        QCOMPARE(notice.lstChoices.size(), 1);
        notice.lstChoices.constFirst().chosen();
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(kind(f), CDocument::Kind::Page);
        QTRY_COMPARE(bodyText(f), QStringLiteral("text"));
    }

    void textCodecMenu_worksOnTheSource()
    {
        CWindowFixture f;
        openPage(f, "<p>caf\xE9</p>");
        QTRY_COMPARE(bodyText(f), QString::fromUtf8("café"));
        auto *pMenu = f.window().findChild<QMenu *>("menuText_Codec");
        QVERIFY(!pMenu->isEnabled());
        f.action("actionSwapHtml")->trigger();
        QVERIFY(pMenu->isEnabled());
        QCOMPARE(f.label("labelTextCodec"), QStringLiteral("  windows-1252"));
        const auto lstActions = pMenu->actions();
        for (QAction *pAction : lstActions)
            if (pAction->text() == "windows-1251")
                pAction->trigger();
        QTRY_VERIFY(f.editor()->toPlainText().contains(QString::fromUtf8("cafй")));
        QCOMPARE(f.label("labelTextCodec"), QStringLiteral("  windows-1251"));
    }

    void newPageWithAccent_isTheSameWhenReopened()
    {
        CWindowFixture f;
        f.action("actionNewHtml")->trigger();
        insert(f, QString::fromUtf8("é"));
        const QString strPath = f.path("new.html");
        {
            CFileDialogAnswer answer({strPath});
            QVERIFY(f.window().on_actionSave_triggered());
        }
        const QByteArray saved = f.content(strPath);
        f.window().onTabCloseRequested(0);
        f.window().openFile(strPath);
        QTRY_COMPARE(bodyText(f), QString::fromUtf8("é"));
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), saved);
    }

    void pageInAnotherEncoding_keepsItsTextAndDeclaresUtf8()
    {
        CWindowFixture f;
        const QString strText = QString::fromUtf8("中文");
        const QByteArray html = "<html><head><meta charset=\"gb2312\"></head><body><p>"
            + QTextCodec::codecForName("GB2312")->fromUnicode(strText) + "</p></body></html>";
        const QString strPath = openPage(f, html);
        QTRY_COMPARE(bodyText(f), strText);
        insert(f, "!");
        QVERIFY(f.window().on_actionSave_triggered());
        QVERIFY(f.content(strPath).contains(QByteArray("charset=\"utf-8\"")));
        f.window().onTabCloseRequested(0);
        f.window().openFile(strPath);
        QTRY_COMPARE(bodyText(f), QString(strText + "!"));
    }

    void closeModifiedPage_asksForThePage_data()
    {
        QTest::addColumn<bool>("source");
        QTest::newRow("page") << false;
        QTest::newRow("source") << true;
    }

    void closeModifiedPage_asksForThePage()
    {
        QFETCH(bool, source);
        CWindowFixture f;
        const QString strPath = openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        if (source) {
            f.action("actionSwapHtml")->trigger();
            QTRY_VERIFY(f.editor()->toPlainText().contains("two"));
            f.editor()->insertPlainText(" ");
        } else {
            insert(f, "x");
        }
        QTRY_VERIFY(f.window().currentDocument().isModified());
        CBoxAnswer answer({QMessageBox::Cancel, QMessageBox::No});
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("Page modified"));
        QCOMPARE(answer.boxes().at(0).strText, QStringLiteral("Do you save the modified page?"));
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 0);
        QCOMPARE(f.content(strPath), g_page);
    }

    void boldItalicUnderline_changeTheSelection()
    {
        CWindowFixture f;
        openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        page(f)->setFocus();
        f.action("actionSelect_All")->trigger();
        for (const char *szName : {"actionItalic", "actionUnderline"}) {
            QVERIFY(!f.action(szName)->isChecked());
            f.action(szName)->trigger();
            QTRY_VERIFY(f.action(szName)->isChecked());
        }
        QVERIFY(page(f)->isItalic());
        QVERIFY(page(f)->isUnderline());
        QVERIFY(f.window().currentDocument().isModified());
        QVERIFY(f.action("actionUndo")->isEnabled());
        f.action("actionUndo")->trigger();
        QTRY_VERIFY(!page(f)->isUnderline());
    }

    void colourChosen_isStoredWithoutTransparency()
    {
        CWindowFixture f;
        openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        f.action("actionSelect_All")->trigger();
        f.settings().setTextColor(QColor("#0000ff"));
        auto *pAction = f.window().findChild<QAction *>("actionText_Color");
        pAction->menu()->actions().at(2)->trigger(); // Red.
        QCOMPARE(f.settings().getTextColor(), QColor("#ff0000"));
        QTRY_COMPARE(page(f)->foreColor().name(), QStringLiteral("#ff0000"));
    }

    void findInPage_tellsAMiss()
    {
        CWindowFixture f;
        openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        f.action("actionFind")->trigger();
        auto *pDialog = f.window().findChild<QDialog *>("CDlgFind");
        QVERIFY(pDialog);
        pDialog->findChild<QComboBox *>("comboBox_find")->setEditText("absent");
        pDialog->findChild<QAbstractButton *>("btn_find_next")->click();
        QVERIFY(pDialog->findChild<QLabel *>("label_info")->text().contains("cannot be found"));
        pDialog->findChild<QComboBox *>("comboBox_find")->setEditText("two");
        pDialog->findChild<QAbstractButton *>("btn_find_next")->click();
        QCOMPARE(page(f)->selectedText(), QStringLiteral("two"));
        QVERIFY(!pDialog->findChild<QLabel *>("label_info")->text().contains("cannot"));
    }

    void refresh_ofAVanishedFile_keepsThePage()
    {
        CWindowFixture f;
        const QString strPath = openPage(f);
        QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
        QVERIFY(QFile::remove(strPath));
        f.action("actionRefresh")->trigger();
        QVERIFY(!f.label("labelMessage").isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(bodyText(f), QStringLiteral("one two"));
    }

    void recoveredPage_isModifiedUnderItsOwnPath()
    {
        QTemporaryDir folder;
        const QString strPath = QDir::toNativeSeparators(folder.filePath("p.html"));
        QFile file(strPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(g_page);
        file.close();
        {
            CWindowFixture f;
            f.window().openFile(strPath);
            QTRY_COMPARE(bodyText(f), QStringLiteral("one two"));
            insert(f, "mine ");
            QTRY_VERIFY(f.window().currentDocument().isModified());
        }
        CWindowFixture f;
        QPushButton *pRecover = nullptr;
        const auto findButton = [&] {
            const auto lst = f.window().findChildren<QPushButton *>();
            for (QPushButton *pButton : lst)
                pRecover = pButton->text() == "Recover" ? pButton : pRecover;
            return pRecover;
        };
        QTRY_VERIFY(findButton());
        pRecover->click();
        QTRY_VERIFY(bodyText(f).contains("mine"));
        QVERIFY(f.window().currentDocument().isModified());
        QCOMPARE(f.window().currentDocument().path(), strPath);
        QCOMPARE(CWindowFixture::content(strPath), g_page);
    }
};

QTEST_MAIN(tst_pages)
#include "tst_pages.moc"
