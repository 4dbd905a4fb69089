// Opening closed tabs again, switching between many tabs, and the panel of a window without tabs,
// with real keys and clicks on a real display.

#include "cwindowfixture.h"

#include "app/platform.h"
#include "document/cdocument.h"
#include "document/place.h"
#include "mainwindow/clinkbutton.h"
#include "mainwindow/cstartpanel.h"
#include "mainwindow/session.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QWebFrame>

namespace {

QString sessionFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
        + QStringLiteral("/last-session");
}

QByteArray longText()
{
    QByteArray text;
    for (int n = 1; n <= 500; ++n)
        text += "line " + QByteArray::number(n) + '\n';
    return text;
}

QByteArray longPage()
{
    return "<html><body><p>top</p>" + QByteArray("<p>words</p>").repeated(300) + "</body></html>";
}

bool activate(CWindowFixture &f)
{
    f.window().showMaximized();
    f.window().activateWindow();
    return QTest::qWaitForWindowActive(&f.window());
}

QWidget *keyTarget()
{
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }))
        qFatal("no window is active");
    QWidget *pFocus = QApplication::focusWidget();
    return pFocus ? pFocus : QApplication::activeWindow();
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(keyTarget(), key, modifiers);
}

int topLine(CHighlightEdit *pEditor)
{
    return pEditor->cursorForPosition(QPoint(0, 0)).blockNumber();
}

CStartPanel *panel(CWindowFixture &f)
{
    return f.window().findChild<CStartPanel *>();
}

// The texts of the visible links.
QStringList links(CWindowFixture &f)
{
    QStringList lstTexts;
    const auto lstLinks = panel(f)->findChildren<CLinkButton *>();
    for (const CLinkButton *pLink : lstLinks)
        if (pLink->isVisible())
            lstTexts.append(pLink->accessibleName());
    return lstTexts;
}

CLinkButton *link(CWindowFixture &f, const QString &strText)
{
    const auto lstLinks = panel(f)->findChildren<CLinkButton *>();
    for (CLinkButton *pLink : lstLinks)
        if (pLink->isVisible() && pLink->accessibleName() == strText)
            return pLink;
    qFatal("no link %s", qPrintable(strText));
}

QString statusText(CWindowFixture &f)
{
    return f.window().statusBar()->findChild<QLabel *>()->text();
}

const auto g_ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
const char g_szLast[] = "Reopen what was open last time";

} // namespace

class tst_pasttabs : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        QFile::remove(sessionFile());
    }

    void closedText_comesBackWhereItWas()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file("a.txt", longText()));
        f.editor()->goToLine(120);
        f.editor()->verticalScrollBar()->setValue(110);
        const int nCaret = f.editor()->textCursor().position();
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().count(), 0);
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(f.tabs().count(), 1);
        QCOMPARE(f.window().currentDocument().path(), f.path("a.txt"));
        QCOMPARE(f.editor()->textCursor().position(), nCaret);
        QTRY_COMPARE(topLine(f.editor()), 110);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
    }

    void severalClosed_comeBackInTurnAndThenItSaysSo()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        for (const char *szName : {"a.txt", "b.txt", "c.txt"})
            f.window().openFile(f.file(szName));
        f.window().on_actionNewText_triggered();
        for (int n = 4; n > 0; --n) {
            press(Qt::Key_W, Qt::ControlModifier);
            QTRY_COMPARE(f.tabs().count(), n - 1);
        }
        for (const char *szName : {"a.txt", "b.txt", "c.txt"}) {
            press(Qt::Key_T, g_ctrlShift);
            QTRY_COMPARE(f.window().currentDocument().path(), f.path(szName));
        }
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(statusText(f), QStringLiteral("No closed tab is left to open again."));
        QCOMPARE(f.tabs().count(), 3);
    }

    void closedFileThatIsGone_isToldWithoutABox()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file("a.txt"));
        const QString strPath = f.image("b.png");
        f.window().openFile(strPath);
        f.window().onTabCloseRequested(1);
        QVERIFY(QFile::remove(strPath));
        const CBoxAnswer answer;
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(statusText(f), "No longer there: " + strPath);
        QCOMPARE(answer.boxes().size(), 0);
        QCOMPARE(f.tabs().count(), 1);
    }

    void closedPage_comesBackAsPageOrSource()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        const QString strPath = f.file("a.html", longPage());
        f.window().openFile(strPath);
        CEditWebView *pPage = f.window().currentDocument().page();
        QSignalSpy spyLoaded(pPage, &CEditWebView::loadFinished);
        QVERIFY(spyLoaded.wait());
        pPage->setCaretPlace({40, 3});
        const auto caret = pPage->caretPlace();
        QVERIFY(caret && caret->nElements == 40 && caret->nText == 3);
        pPage->page()->mainFrame()->setScrollPosition(QPoint(0, 700));
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().count(), 0);
        f.settings().setIsHtmlText(true); // As other pages open; not this one.
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(f.window().currentDocument().kind(), CDocument::Kind::Page);
        pPage = f.window().currentDocument().page();
        QTRY_COMPARE(pPage->page()->mainFrame()->scrollPosition(), QPoint(0, 700));
        QVERIFY(pPage->caretPlace() && *pPage->caretPlace() == *caret);
        QVERIFY(!f.window().currentDocument().isModified());
        press(Qt::Key_Q); // Goes where the caret was.
        QTRY_VERIFY(pPage->toHtml().contains("worqds"));
        QVERIFY(f.window().currentDocument().undo().isDone());

        f.window().on_actionSwapHtml_triggered();
        f.editor()->goToPosition(15);
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().count(), 0);
        f.settings().setIsHtmlText(false);
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(f.window().currentDocument().kind(), CDocument::Kind::Source);
        QTRY_COMPARE(f.editor()->textCursor().position(), 15);
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void tabs_areReachedByNumberAndPageKeys()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        for (int n = 1; n <= 12; ++n)
            f.window().openFile(f.file(QStringLiteral("%1.txt").arg(n)));
        f.editor()->setFocus();
        press(Qt::Key_9, Qt::AltModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 8);
        press(Qt::Key_1, Qt::AltModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 0);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
        press(Qt::Key_PageUp, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 11);
        press(Qt::Key_PageDown, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 0);
        QCOMPARE(f.editor()->toPlainText(), QStringLiteral("text\n"));
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void tabKeys_workInAPageAndItsSource()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file("a.txt"));
        f.window().on_actionNewHtml_triggered();
        CEditWebView *pPage = f.window().currentDocument().page();
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(pPage));
        press(Qt::Key_1, Qt::AltModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 0);
        press(Qt::Key_2, Qt::AltModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 1);
        press(Qt::Key_PageUp, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 0);
        press(Qt::Key_PageDown, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 1);
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void numberWithoutTab_isTold()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file("a.txt"));
        press(Qt::Key_5, Qt::AltModifier);
        QTRY_COMPARE(statusText(f), QStringLiteral("There is no tab 5."));
        QCOMPARE(f.tabs().currentIndex(), 0);
    }

    void list_namesAllTabsAndGoesToTheChosen()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        QDir(f.path(".")).mkpath("x");
        QDir(f.path(".")).mkpath("y");
        f.window().openFile(f.file("x/a & b.txt"));
        f.window().openFile(f.file("y/a & b.txt"));
        // A name that a label might take for markup, where the system has such names.
        const QString strMarkup = Platform::isFileName("<b>c.txt") ? "<b>c.txt" : "&lt;c.txt";
        f.window().openFile(f.file(strMarkup));
        auto *pButton = f.window().findChild<QToolButton *>("tabList");
        QVERIFY(pButton->isVisible());
        QStringList lstTexts;
        QTimer::singleShot(0, pButton, [pButton, &lstTexts] {
            if (!QTest::qWaitForWindowExposed(pButton->menu()))
                qFatal("no menu");
            for (const QAction *pAction : pButton->menu()->actions())
                lstTexts.append(pAction->text());
            QTest::keyClick(pButton->menu(), Qt::Key_Up); // From the current one, the third.
            QTest::keyClick(pButton->menu(), Qt::Key_Return);
        });
        press(Qt::Key_0, Qt::AltModifier);
        const QString strShown = QString(strMarkup).replace("&", "&&") + "\tAlt+3";
        const QString strX = QDir::toNativeSeparators("…/x");
        const QString strY = QDir::toNativeSeparators("…/y");
        QTRY_COMPARE(lstTexts,
                     QStringList({"a && b.txt – " + strX + "\tAlt+1",
                                  "a && b.txt – " + strY + "\tAlt+2", strShown}));
        QTRY_COMPARE(f.tabs().currentIndex(), 1);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
    }

    void longNames_areShortenedInTheMiddle()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file(QString(120, 'w') + ".txt"));
        const QTabBar *pBar = f.tabs().tabBar();
        QCOMPARE(pBar->elideMode(), Qt::ElideMiddle);
        const int nCharacter = pBar->fontMetrics().averageCharWidth();
        QVERIFY(pBar->tabRect(0).width() <= 60 * nCharacter);
        QCOMPARE(pBar->tabToolTip(0), f.path(QString(120, 'w') + ".txt"));
        for (int n = 0; n < 40; ++n)
            f.window().on_actionNewText_triggered();
        const int nWidth = f.tabs().widget(0)->width();
        QTRY_VERIFY(pBar->width() <= nWidth);
        for (int n = 0; n < pBar->count(); ++n)
            QVERIFY(pBar->tabRect(n).width() >= 12 * nCharacter);
    }

    void emptyWindow_saysWhatCanBeDone()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        QVERIFY(panel(f)->isVisible());
        QCOMPARE(links(f),
                 QStringList({"New Text (Ctrl+N)", "New HTML (Ctrl+Shift+N)", "Open... (Ctrl+O)"}));
        QVERIFY(!f.window().findChild<QToolButton *>("tabList")->isVisible());
        QTest::mouseClick(link(f, "New Text (Ctrl+N)"), Qt::LeftButton);
        QTRY_COMPARE(f.tabs().count(), 1);
        QVERIFY(!panel(f)->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(panel(f)->isVisible());
    }

    void emptyWindow_isWalkedWithKeys()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().on_actionNewText_triggered();
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(QApplication::focusWidget(),
                     static_cast<QWidget *>(link(f, "New Text (Ctrl+N)")));
        press(Qt::Key_Tab);
        QTRY_COMPARE(QApplication::focusWidget(),
                     static_cast<QWidget *>(link(f, "New HTML (Ctrl+Shift+N)")));
        press(Qt::Key_Down);
        QTRY_COMPARE(QApplication::focusWidget(),
                     static_cast<QWidget *>(link(f, "Open... (Ctrl+O)")));
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        QTRY_VERIFY(f.window().currentDocument().page());
    }

    void recentFiles_areLinksWithNamesAsTheyStand()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        const bool bTags = Platform::isFileName("a & <b>b.txt");
        const QString strFirst = f.file(bTags ? "a & <b>b.txt" : "a & &lt;b.txt");
        const QString strSecond = f.file("c.txt");
        f.window().parseArguments({strSecond, strFirst});
        f.window().onTabCloseRequested(1);
        f.window().onTabCloseRequested(0);
        QTRY_COMPARE(links(f).mid(3), QStringList({strFirst, strSecond}));
        QVERIFY(link(f, strFirst)->text().contains("&&"));
        QTest::mouseClick(link(f, strSecond), Qt::LeftButton);
        QTRY_COMPARE(f.window().currentDocument().path(), strSecond);
        QCOMPARE(f.settings().getRecentFileList(), QStringList({strSecond, strFirst}));
    }

    void emptyArea_stillTakesDoubleClicksMenuAndDrops()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        const QPoint below(panel(f)->width() / 2, panel(f)->height() - 4);
        QWidget *pUnder = f.tabs().childAt(below);
        QVERIFY(panel(f)->isAncestorOf(pUnder));
        QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(1, 1),
                               pUnder->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(pUnder, &menu);
        QTRY_VERIFY(f.tabs().menu().isVisible());
        const_cast<QMenu &>(f.tabs().menu()).close();
        QTest::mouseDClick(pUnder, Qt::LeftButton, {}, QPoint(1, 1));
        QTRY_COMPARE(f.tabs().count(), 1);
        f.window().onTabCloseRequested(0);

        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(f.file("d.txt"))});
        QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(pUnder, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(pUnder, &drop);
        QTRY_COMPARE(f.window().currentDocument().path(), f.path("d.txt"));
    }

    void lastSession_isOfferedAndComesBackAsItWas()
    {
        QTemporaryDir folder;
        const auto path = [&folder](const char *szName) { return folder.filePath(szName); };
        QString strCurrent;
        {
            CWindowFixture f;
            QVERIFY(activate(f));
            for (const char *szName : {"a.txt", "b.html", "c.txt"}) {
                QFile file(path(szName));
                QVERIFY(file.open(QIODevice::WriteOnly));
                file.write(QByteArray(szName).endsWith("l") ? longPage() : longText());
                file.close();
                f.window().openFile(path(szName));
            }
            f.window().on_actionNewText_triggered(); // Has no file: does not come back.
            f.tabs().setCurrentIndex(1);
            QTRY_VERIFY(f.window().currentDocument().page()->toHtml().contains("words"));
            f.window().on_actionSwapHtml_triggered();
            f.editor()->goToPosition(20);
            f.tabs().setCurrentIndex(0);
            f.editor()->goToLine(300);
            f.editor()->verticalScrollBar()->setValue(290);
            strCurrent = f.window().currentDocument().path();
            QVERIFY(f.window().close());
        }
        CWindowFixture f;
        QVERIFY(activate(f));
        QCOMPARE(f.tabs().count(), 0); // Nothing is opened by itself.
        QTest::mouseClick(link(f, g_szLast), Qt::LeftButton);
        QTRY_COMPARE(f.tabs().count(), 3);
        QCOMPARE(f.window().currentDocument().path(), strCurrent);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
        QCOMPARE(f.editor()->textCursor().blockNumber(), 299);
        QTRY_COMPARE(topLine(f.editor()), 290);
        CDocument *pPage = f.window().documents().withPath(path("b.html"));
        QTRY_COMPARE(pPage->kind(), CDocument::Kind::Source);
        QTRY_COMPARE(pPage->editor()->textCursor().position(), 20);
        QCOMPARE(f.window().currentDocument().path(), strCurrent); // The page stays behind.
        QCOMPARE(f.tabs().indexOf(pPage->widget()), 1);
    }

    void lastSession_ofAWindowEndedByExit_comesBack()
    {
        QTemporaryDir folder;
        const QString strPath = QDir::toNativeSeparators(folder.filePath("a.txt"));
        {
            CWindowFixture f;
            QFile file(strPath);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.close();
            f.window().openFile(strPath);
        }
        QCOMPARE(readSession(sessionFile()).lstPlaces.value(0).strPath, strPath);
    }

    void runWithoutFiles_keepsTheLastSession()
    {
        SSession session;
        SPlace place;
        place.strPath = "/some/file.txt";
        session.lstPlaces = {place};
        QVERIFY(writeSession(sessionFile(), session));
        {
            CWindowFixture f;
            f.window().on_actionNewText_triggered();
            f.window().onTabCloseRequested(0);
            QVERIFY(f.window().close());
        }
        QCOMPARE(readSession(sessionFile()).lstPlaces.size(), 1);
    }

    void cancelledClose_keepsTheSessionAndTheWayBack()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().openFile(f.file("a.txt"));
        f.window().openFile(f.file("b.txt"));
        f.tabs().setCurrentIndex(0);
        f.editor()->insertPlainText("x");
        {
            const CBoxAnswer answer({QMessageBox::Cancel});
            QVERIFY(!f.window().close());
        }
        QVERIFY(!QFile::exists(sessionFile()));
        QCOMPARE(f.tabs().count(), 1);
        QVERIFY(activate(f));
        press(Qt::Key_T, g_ctrlShift);
        QTRY_COMPARE(f.window().currentDocument().path(), f.path("b.txt"));
    }

    void lastSession_withFilesThatAreGone_opensTheRest()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("here.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        SSession session;
        for (const char *szName : {"gone & 1.txt", "here.txt"}) {
            SPlace place;
            place.strPath = folder.filePath(szName);
            place.nCaret = 1 << 30;
            place.scroll = {1 << 30, 1 << 30};
            session.lstPlaces.append(place);
        }
        session.strCurrent = folder.filePath("gone & 1.txt");
        QVERIFY(writeSession(sessionFile(), session));
        CWindowFixture f;
        QVERIFY(activate(f));
        const CBoxAnswer answer;
        QTest::mouseClick(link(f, g_szLast), Qt::LeftButton);
        QTRY_COMPARE(f.tabs().count(), 1);
        QCOMPARE(f.window().currentDocument().path(),
                 QDir::toNativeSeparators(folder.filePath("here.txt")));
        QCOMPARE(statusText(f), QStringLiteral("No longer there: gone & 1.txt"));
        QCOMPARE(answer.boxes().size(), 0);
    }
};

QTEST_MAIN(tst_pasttabs)
#include "tst_pasttabs.moc"
