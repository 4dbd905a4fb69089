// A question on the screen belongs to the document that it was asked about, whatever happens
// meanwhile: a later start hands a file over, another program writes, a tab goes.
#include "cwindowfixture.h"

#include "mainwindow/cnoticebar.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QMessageBox>
#include <QPushButton>
#include <QWebFrame>

namespace {

const QByteArray g_latin1 = "caf\xe9\n"; // What a save would change.

// As CSingleApp does it when a later start was given a file.
void handOver(CWindowFixture &f, const QString &strPath)
{
    f.window().parseArgument(QLatin1Char('"') + strPath + QLatin1Char('"'));
}

CNoticeBar *bar(CWindowFixture &f)
{
    return f.window().findChild<CNoticeBar *>();
}

bool press(CWindowFixture &f, const QString &strText)
{
    const auto lstButtons = bar(f)->findChildren<QPushButton *>();
    for (QPushButton *pButton : lstButtons) {
        if (pButton->text() == strText) {
            pButton->click();
            return true;
        }
    }
    return false;
}

void write(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), qint64(data.size()));
}

} // namespace

class tst_questions : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir(CWindowFixture::draftFolder()).removeRecursively(); }

    void closingATab_whileAFileArrives_savesTheOneThatWasAsked()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "old");
        const QString strArriving = f.file("arriving.txt", g_latin1);
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        const CBoxAnswer answer({QMessageBox::Yes}, [&] { handOver(f, strArriving); });
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.content(strMine), QByteArray("mine old"));
        QCOMPARE(f.content(strArriving), g_latin1);
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.window().currentDocument().path(), strArriving);
    }

    void closingTheWindow_whileAFileArrives_savesWhatWasAsked()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "old");
        const QString strArriving = f.file("arriving.txt", g_latin1);
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        const CBoxAnswer answer({QMessageBox::YesToAll}, [&] { handOver(f, strArriving); });
        QVERIFY(f.window().close());
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(f.content(strMine), QByteArray("mine old"));
        QCOMPARE(f.content(strArriving), g_latin1);
    }

    void refreshing_whileAFileArrives_readsTheOneThatWasAsked()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "disk");
        const QString strArriving = f.file("arriving.txt", "theirs");
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        const CBoxAnswer answer({QMessageBox::Yes}, [&] {
            handOver(f, strArriving);
            f.editor()->insertPlainText("typed ");
        });
        f.window().on_actionRefresh_triggered();
        QCOMPARE(f.window().currentDocument().path(), strArriving);
        QCOMPARE(f.editor()->toPlainText(), QString("typed theirs"));
        f.tabs().setCurrentIndex(0);
        QCOMPARE(f.editor()->toPlainText(), QString("disk"));
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void saveAs_whileAFileArrives_savesTheOneThatWasAsked()
    {
        CWindowFixture f;
        const QString strArriving = f.file("arriving.txt", g_latin1);
        f.action("actionNewText")->trigger();
        f.editor()->insertPlainText("mine");
        const CFileDialogAnswer answer({f.path("new.txt")});
        QTimer::singleShot(0, this, [&] { handOver(f, strArriving); });
        QVERIFY(f.window().on_actionSave_As_triggered());
        QCOMPARE(f.content(f.path("new.txt")), QByteArray("mine"));
        QCOMPARE(f.content(strArriving), g_latin1);
        QCOMPARE(f.tabs().tabToolTip(0), f.path("new.txt"));
        QCOMPARE(f.tabs().tabToolTip(1), strArriving);
    }

    void askedTab_thatGoesMeanwhile_isNotTouched()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "old");
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        const CBoxAnswer answer({QMessageBox::No}, [&] {
            const CBoxAnswer second({QMessageBox::Yes});
            f.window().onTabCloseRequested(0);
        });
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 0);
        QCOMPARE(f.content(strMine), QByteArray("mine old"));
    }

    void anotherProgramWritesWhileTheQuestionStands_isAskedAboutInTheBar()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "old");
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        const CBoxAnswer answer({QMessageBox::Yes}, [&] { write(strMine, "theirs"); });
        f.window().onTabCloseRequested(0);
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.content(strMine), QByteArray("theirs"));
        QVERIFY(bar(f)->text().startsWith("Not saved: another program"));
    }

    void overwrite_savesTheDocumentOfTheBar()
    {
        CWindowFixture f;
        const QString strMine = f.file("mine.txt", "old");
        f.window().openFile(strMine);
        f.editor()->insertPlainText("mine ");
        write(strMine, "theirs");
        QVERIFY(!f.window().on_actionSave_triggered());
        QVERIFY(press(f, "Overwrite"));
        QCOMPARE(f.content(strMine), QByteArray("mine old"));
    }

    void yesForABackgroundTab_offersItsTextAtOnce()
    {
        CWindowFixture f;
        const QString strOther = f.file("notes.txt", "other");
        const QString strCurrent = f.file("current.txt", "current");
        f.window().openFile(strOther);
        f.editor()->insertPlainText("x");
        f.window().openFile(strCurrent);
        f.editor()->insertPlainText("y");
        {
            const CBoxAnswer answer({QMessageBox::Yes});
            f.window().onTabCloseRequested(0);
        }
        QCOMPARE(bar(f)->text(), QString("notes.txt was closed with unsaved changes."));
        QCOMPARE(f.content(strOther), QByteArray("other"));
        QVERIFY(press(f, "Restore"));
        QCOMPARE(f.window().currentDocument().path(), strOther);
        QCOMPARE(f.editor()->toPlainText(), QString("xother"));
        QVERIFY(f.window().currentDocument().isModified());
        QTRY_COMPARE(bar(f)->text(), QString());
    }

    void yesForABackgroundTab_unanswered_isOfferedAtTheNextStart()
    {
        {
            CWindowFixture f;
            f.window().openFile(f.file("notes.txt", "other"));
            f.editor()->insertPlainText("x");
            f.window().openFile(f.file("current.txt", "current"));
            const CBoxAnswer answer({QMessageBox::Yes});
            f.window().onTabCloseRequested(0);
        }
        CWindowFixture f;
        QTRY_VERIFY(bar(f)->text().contains("notes.txt"));
    }

    void noInABox_isTheUsersWord()
    {
        CWindowFixture f;
        f.window().openFile(f.file("notes.txt", "other"));
        f.editor()->insertPlainText("x");
        const CBoxAnswer answer({QMessageBox::No});
        f.window().onTabCloseRequested(0);
        QCOMPARE(bar(f)->text(), QString());
    }

    void recoveredPageWithAPicture_staysModified()
    {
        QTemporaryDir folder;
        const QString strPath = folder.filePath("p.html");
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(folder.filePath("i.png")));
        write(folder.filePath("s.css"), "p{color:blue}");
        write(strPath,
              "<!DOCTYPE html><html><head><link rel=stylesheet href=s.css></head>"
              "<body><p>one<img src=i.png></p></body></html>");
        {
            CWindowFixture f;
            f.window().openFile(strPath);
            CEditWebView *pPage = f.window().currentDocument().page();
            QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QString("one"));
            pPage->triggerPageAction(QWebPage::SelectAll);
            pPage->insertHtml("mine <img src=\"i.png\">");
            QTRY_VERIFY(f.window().currentDocument().isModified());
        }
        CWindowFixture f;
        QTRY_VERIFY(bar(f)->text().contains("p.html"));
        QVERIFY(press(f, "Recover"));
        CEditWebView *pPage = f.window().currentDocument().page();
        QSignalSpy spy(pPage, &CEditWebView::loadFinished);
        QTRY_VERIFY(pPage->page()->mainFrame()->toPlainText().contains("mine"));
        QTRY_VERIFY(!spy.isEmpty());
        QVERIFY(f.window().currentDocument().isModified());
        const CBoxAnswer answer({QMessageBox::Cancel});
        f.window().onTabCloseRequested(0);
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(f.tabs().count(), 1);
    }

    void contextMenuRefreshOfAPage_overUnsavedText_offersIt()
    {
        CWindowFixture f;
        const QString strPath = f.file("p.html", "<html><body><p>disk</p></body></html>");
        f.window().openFile(strPath);
        CEditWebView *pPage = f.window().currentDocument().page();
        QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QString("disk"));
        pPage->triggerPageAction(QWebPage::SelectAll);
        pPage->insertHtml("mine");
        QTRY_VERIFY(f.window().currentDocument().isModified());
        pPage->onRefresh();
        QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QString("disk"));
        QVERIFY(bar(f)->text().contains("p.html"));
        QVERIFY(press(f, "Restore"));
        QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QString("mine"));
        QVERIFY(f.window().currentDocument().isModified());
    }
};

QTEST_MAIN(tst_questions)
#include "tst_questions.moc"
