#include "mainwindow/ctabwidget.h"

#include <QSignalSpy>
#include <QTabBar>
#include <QtTest>

class TestTabWidget : public QObject
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

QTEST_MAIN(TestTabWidget)
#include "tst_tabwidget.moc"
