#include "editor/windowplace.h"

#include <QTest>

class tst_windowplace : public QObject
{
    Q_OBJECT

private slots:
    void place_isClearOfTheSpot_data()
    {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("spot");
        QTest::addColumn<QPoint>("place");
        const QRect window(400, 300, 200, 100);
        QTest::newRow("covers nothing") << window << QRect(10, 10, 50, 20) << QPoint(400, 300);
        QTest::newRow("touches") << window << QRect(600, 300, 50, 20) << QPoint(400, 300);
        QTest::newRow("near the top") << window << QRect(450, 310, 50, 20) << QPoint(400, 330);
        QTest::newRow("near the foot") << window << QRect(450, 380, 50, 20) << QPoint(400, 280);
        QTest::newRow("near the left") << window << QRect(390, 345, 20, 10) << QPoint(410, 300);
        QTest::newRow("near the right") << window << QRect(590, 345, 20, 10) << QPoint(390, 300);
        QTest::newRow("no room below")
            << QRect(400, 690, 200, 100) << QRect(400, 700, 200, 20) << QPoint(400, 600);
        QTest::newRow("no room anywhere")
            << QRect(0, 0, 1000, 800) << QRect(450, 310, 50, 20) << QPoint(0, 0);
    }

    void place_isClearOfTheSpot()
    {
        QFETCH(QRect, window);
        QFETCH(QRect, spot);
        QTEST(placeBeside(window, spot, QRect(0, 0, 1000, 800)), "place");
    }
};

QTEST_GUILESS_MAIN(tst_windowplace)
#include "tst_windowplace.moc"
