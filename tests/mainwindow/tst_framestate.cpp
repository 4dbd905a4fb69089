#include "mainwindow/framestate.h"

#include <QDataStream>
#include <QDockWidget>
#include <QMainWindow>
#include <QToolBar>
#include <QtTest>

namespace {

// A window with tool bars and panels in all their possible arrangements.
class CFrame : public QMainWindow
{
public:
    CFrame()
    {
        setCentralWidget(new QWidget(this));
        setDockNestingEnabled(true);
        for (const char *szName : {"bar", "größe", "last"}) {
            m_arrBars.append(new QToolBar(this));
            m_arrBars.last()->setObjectName(QString::fromUtf8(szName));
            addToolBar(m_arrBars.last());
        }
        for (const char *szName : {"a", "b", "c", "d"}) {
            m_arrDocks.append(new QDockWidget(this));
            m_arrDocks.last()->setObjectName(QString::fromUtf8(szName));
            addDockWidget(Qt::LeftDockWidgetArea, m_arrDocks.last());
        }
    }

    QList<QToolBar *> m_arrBars;
    QList<QDockWidget *> m_arrDocks;
};

QByteArray arranged(CFrame *pFrame, const QString &strHow)
{
    if (strHow == QLatin1String("tabs"))
        pFrame->tabifyDockWidget(pFrame->m_arrDocks[0], pFrame->m_arrDocks[1]);
    if (strHow == QLatin1String("nested"))
        pFrame->splitDockWidget(pFrame->m_arrDocks[0], pFrame->m_arrDocks[1], Qt::Horizontal);
    if (strHow == QLatin1String("floating"))
        pFrame->m_arrDocks[2]->setFloating(true);
    if (strHow == QLatin1String("hidden")) {
        pFrame->m_arrDocks[3]->hide();
        pFrame->m_arrBars[1]->hide();
    }
    if (strHow == QLatin1String("lines"))
        pFrame->insertToolBarBreak(pFrame->m_arrBars[1]);
    if (strHow == QLatin1String("sides")) {
        pFrame->addToolBar(Qt::BottomToolBarArea, pFrame->m_arrBars[2]);
        pFrame->addDockWidget(Qt::TopDockWidgetArea, pFrame->m_arrDocks[1]);
    }
    return pFrame->saveState(7);
}

} // namespace

class tst_framestate : public QObject
{
    Q_OBJECT

private slots:
    void savedState_isWhole_data() { arrangements(); }
    void savedState_isWhole()
    {
        QFETCH(QString, strHow);
        QFETCH(bool, bShown);
        CFrame frame;
        frame.setVisible(bShown);
        const QByteArray arrState = arranged(&frame, strHow);
        QVERIFY(isFrameStateWhole(arrState));
        QVERIFY(CFrame().restoreState(arrState, 7));
    }

    void emptyWindow_isWhole() { QVERIFY(isFrameStateWhole(QMainWindow().saveState())); }

    void cutState_isNotWhole_data() { arrangements(); }
    void cutState_isNotWhole()
    {
        QFETCH(QString, strHow);
        QFETCH(bool, bShown);
        CFrame frame;
        frame.setVisible(bShown);
        const QByteArray arrState = arranged(&frame, strHow);
        int nWhole = 0;
        for (int nLength = 0; nLength < arrState.size(); ++nLength)
            nWhole += isFrameStateWhole(arrState.left(nLength));
        // A cut between sections leaves a window without tool bars, or with nothing.
        QCOMPARE(nWhole, 2);
    }

    void somethingLeftOver_isNotWhole()
    {
        QVERIFY(!isFrameStateWhole(CFrame().saveState() + '\0'));
        QVERIFY(!isFrameStateWhole("text"));
    }

    void manyGroupsInEachOther_areNotWhole()
    {
        QByteArray arrState;
        QDataStream stream(&arrState, QIODevice::WriteOnly);
        stream << 0xff << 0 << uchar(0xfd) << 1 << 0 << QSize();
        for (int n = 0; n < 100000; ++n)
            stream << uchar(0xfc) << uchar(1) << 1 << uchar(0xfc) << 0 << 0 << 0 << 0;
        stream << uchar(0xfc) << uchar(1) << 0 << QSize() << 0 << 0 << 0 << 0;
        QVERIFY(!isFrameStateWhole(arrState));
    }

    // Damages every byte in turn. Qt gets the states that pass the check, and must return.
    void damagedByte_doesNoHarm()
    {
        CFrame frame;
        const QByteArray arrState = arranged(&frame, QStringLiteral("nested"));
        int nRefused = 0;
        for (int nAt = 0; nAt < arrState.size(); ++nAt) {
            for (const char cDamage : {'\x01', '\x40', '\x7f'}) {
                QByteArray arrDamaged = arrState;
                arrDamaged[nAt] = char(arrDamaged.at(nAt) ^ cDamage);
                if (isFrameStateWhole(arrDamaged))
                    CFrame().restoreState(arrDamaged, 7);
                else
                    ++nRefused;
            }
        }
        QVERIFY(nRefused > 100);
    }

private:
    static void arrangements()
    {
        QTest::addColumn<QString>("strHow");
        QTest::addColumn<bool>("bShown");
        for (const char *szHow :
             {"plain", "tabs", "nested", "floating", "hidden", "lines", "sides"}) {
            QTest::addRow("%s", szHow) << QString(szHow) << false;
            QTest::addRow("%s, shown", szHow) << QString(szHow) << true;
        }
    }
};

QTEST_MAIN(tst_framestate)
#include "tst_framestate.moc"
