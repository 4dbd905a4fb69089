// The notice bar and the mouse, with events as from the windowing system.

#include "cwindowfixture.h"

#include "document/notice.h"
#include "mainwindow/cnoticebar.h"
#include "support/awaittimers.h"

#include <QPushButton>
#include <QTabBar>
#include <QToolButton>
#include <QWindow>

namespace {

SNotice notice(bool *pChosen = nullptr)
{
    return {QStringLiteral("Something happened."),
            {{QStringLiteral("Answer"),
              [pChosen] {
                  if (pChosen)
                      *pChosen = true;
              }}}};
}

CNoticeBar *bar(CWindowFixture &f)
{
    return f.window().findChild<CNoticeBar *>();
}

QPoint middleOf(CWindowFixture &f, QWidget *pWidget)
{
    return pWidget->mapTo(&f.window(), pWidget->rect().center());
}

} // namespace

class tst_noticebar : public QObject
{
    Q_OBJECT

private slots:
    void bar_standsBetweenTheTabsAndTheDocument()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        bar(f)->show(notice());
        const int nTop = bar(f)->mapTo(&f.window(), QPoint()).y();
        QVERIFY(nTop >= f.tabs().tabBar()->mapTo(&f.window(), QPoint(0, 0)).y()
                    + f.tabs().tabBar()->height());
        QCOMPARE(f.editor()->mapTo(&f.window(), QPoint()).y(), nTop + bar(f)->height());
        QCOMPARE(bar(f)->width(), f.editor()->width());
    }

    void narrowBar_showsAllOfItsButtons()
    {
        CTabWidget tabs;
        auto *pPage = new QWidget;
        pPage->setMinimumSize(100, 200); // More than is left of it.
        tabs.addTab(pPage, "page");
        auto *pBar = new CNoticeBar(&tabs);
        tabs.setHeader(pBar);
        for (const int nWidth : {150, 600}) {
            pBar->show(
                {QStringLiteral("Something happened, and it takes words to tell it. ").repeated(3),
                 {{QStringLiteral("Answer it"), [] {}}, {QStringLiteral("Another"), [] {}}}});
            tabs.resize(nWidth, 260);
            tabs.show();
            QVERIFY(QTest::qWaitForWindowExposed(&tabs));
            QCoreApplication::processEvents();
            QCOMPARE(pBar->width(), pPage->parentWidget()->width());
            const auto lstButtons = pBar->findChildren<QAbstractButton *>();
            QVERIFY(lstButtons.size() >= 3);
            for (QAbstractButton *pButton : lstButtons)
                if (pButton->isVisible())
                    QVERIFY(pBar->rect().contains(pButton->geometry()));
        }
    }

    void buttonDown_nothingMovesUntilItRests()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        QVERIFY(QTest::qWaitForWindowExposed(&f.window()));
        const QPoint place = middleOf(f, f.editor()->viewport());
        const QRect before = f.editor()->geometry();
        QTest::mousePress(f.window().windowHandle(), Qt::LeftButton, {}, place);
        bar(f)->show(notice());
        QVERIFY(bar(f)->isHidden());
        QVERIFY(awaitTimers(QApplication::doubleClickInterval() * 2)); // However long it is held.
        QVERIFY(bar(f)->isHidden());
        QTest::mouseRelease(f.window().windowHandle(), Qt::LeftButton, {}, place);
        QElapsedTimer sinceRelease;
        sinceRelease.start();
        QCoreApplication::processEvents();
        QVERIFY(bar(f)->isHidden() || sinceRelease.hasExpired(QApplication::doubleClickInterval()));
        QTRY_VERIFY(bar(f)->isVisible());
        QVERIFY(sinceRelease.hasExpired(QApplication::doubleClickInterval()));
        QCOMPARE(f.editor()->mapTo(&f.tabs(), QPoint()).y(), bar(f)->y() + bar(f)->height());
        QVERIFY(f.editor()->height() < before.height());
    }

    void whatIsNoLongerToldWhileTheMouseIsDown_isNeverShown()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        QVERIFY(QTest::qWaitForWindowExposed(&f.window()));
        const QPoint place = middleOf(f, f.editor()->viewport());
        QTest::mousePress(f.window().windowHandle(), Qt::LeftButton, {}, place);
        bar(f)->show(notice());
        bar(f)->show({QStringLiteral("Another thing."), {}});
        QTest::mouseRelease(f.window().windowHandle(), Qt::LeftButton, {}, place);
        QTRY_COMPARE(bar(f)->text(), QStringLiteral("Another thing."));
        QVERIFY(bar(f)->findChildren<QPushButton *>().isEmpty());
    }

    void clickOnTheBar_isAnsweredAtOnce()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        QVERIFY(QTest::qWaitForWindowExposed(&f.window()));
        bool bChosen = false;
        bar(f)->show(notice(&bChosen));
        QTest::mouseClick(f.window().windowHandle(), Qt::LeftButton, {},
                          middleOf(f, bar(f)->findChild<QPushButton *>()));
        QVERIFY(bChosen);
        bar(f)->show({});
        QVERIFY(bar(f)->isHidden());
    }
};

QTEST_MAIN(tst_noticebar)
#include "tst_noticebar.moc"
