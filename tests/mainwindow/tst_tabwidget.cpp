#include "mainwindow/ctabwidget.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTabBar>
#include <QtTest>

class tst_tabwidget : public QObject
{
    Q_OBJECT

private slots:
    void menuEntry_comesBackAsItsText()
    {
        CTabWidget tabs;
        tabs.addMenuActions({"One", "Two"});
        QSignalSpy spy(&tabs, &CTabWidget::clickAction);
        tabs.menu().actions().at(1)->trigger();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("Two"));
    }

    void middleButton_namesTheTabUnderIt()
    {
        CTabWidget tabs;
        tabs.setDocumentMode(true);
        tabs.addTab(new QWidget, "First");
        tabs.resize(400, 200);
        tabs.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tabs));
        QSignalSpy spy(&tabs, &CTabWidget::emitMidButtonRelease);
        QTest::mouseClick(&tabs, Qt::MiddleButton, {}, QPoint(10, 10));
        QTest::mouseClick(&tabs, Qt::MiddleButton, {}, QPoint(390, 10));
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy.at(0).at(0).toInt(), tabs.tabBar()->tabAt(QPoint(10, 10)));
        QCOMPARE(spy.at(1).at(0).toInt(), -1);
    }

    void doubleClick_alwaysSignalsBesideTheTabs()
    {
        CTabWidget tabs;
        tabs.resize(400, 200);
        QSignalSpy spy(&tabs, &QTabWidget::tabBarDoubleClicked);
        QTest::mouseDClick(&tabs, Qt::LeftButton, {}, QPoint(200, 100));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), -1);
    }

    void header_standsAboveThePageAndTakesItsRoom()
    {
        CTabWidget tabs;
        auto *pPage = new QWidget;
        tabs.addTab(pPage, "First");
        auto *pHeader = new QLabel("notice", &tabs);
        pHeader->hide();
        tabs.setHeader(pHeader);
        tabs.resize(400, 200);
        tabs.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tabs));
        const auto inTabs = [&tabs](QWidget *pWidget) {
            return QRect(pWidget->mapTo(&tabs, QPoint()), pWidget->size());
        };
        const QRect whole = inTabs(pPage);
        pHeader->show();
        const auto isRight = [&](const QRect &area) {
            const QRect header = inTabs(pHeader);
            return header.height() > 0 && header.topLeft() == area.topLeft()
                && header.width() == area.width()
                && inTabs(pPage) == area.adjusted(0, header.height(), 0, 0);
        };
        QVERIFY(isRight(whole));
        tabs.resize(500, 300);
        QCoreApplication::processEvents();
        QVERIFY(isRight(whole.adjusted(0, 0, 100, 100)));
        pHeader->setText("notice\nof two lines");
        QTRY_VERIFY(isRight(whole.adjusted(0, 0, 100, 100)));
        tabs.addTab(new QWidget, "Second");
        tabs.setCurrentIndex(1);
        tabs.setCurrentIndex(0);
        QCoreApplication::processEvents();
        QVERIFY(isRight(whole.adjusted(0, 0, 100, 100)));
        pHeader->hide();
        QCOMPARE(inTabs(pPage), whole.adjusted(0, 0, 100, 100));
    }

    void header_standsAboveTheEmptyPanel()
    {
        CTabWidget tabs;
        auto *pPanel = new QWidget(&tabs);
        tabs.setEmptyPanel(pPanel);
        auto *pHeader = new QLabel("notice", &tabs);
        tabs.setHeader(pHeader);
        tabs.resize(400, 200);
        tabs.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tabs));
        QVERIFY(pHeader->height() > 0);
        QCOMPARE(pPanel->geometry(), tabs.rect().adjusted(0, pHeader->height(), 0, 0));
        pHeader->hide();
        QCOMPARE(pPanel->geometry(), tabs.rect());
    }

    void markup_showsAsItIs()
    {
        CTabWidget tabs;
        tabs.addTab(new QWidget, QString());
        tabs.setPlainTabText(0, "a&b");
        QCOMPARE(tabs.tabText(0), QStringLiteral("a&&b"));
        tabs.setPlainTabToolTip(0, "/tmp/<b>x</b>");
        QVERIFY(tabs.tabToolTip(0).contains("&lt;b&gt;"));
        tabs.setPlainTabToolTip(0, "/tmp/plain & simple");
        QCOMPARE(tabs.tabToolTip(0), QStringLiteral("/tmp/plain & simple"));
    }
};

QTEST_MAIN(tst_tabwidget)
#include "tst_tabwidget.moc"
