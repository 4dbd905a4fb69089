// A dock that floats is where it was after the next start, however the program ended.
#include "app/csettings.h"
#include "mainwindow/mainwindow.h"

#include <QDockWidget>
#include <QtTest>

namespace {

// One run of the program's window.
class CRun
{
public:
    CRun() : m_settings("Tavrel Software", "quillan-test")
    {
        g_pSettings = &m_settings;
        m_pWindow = std::make_unique<MainWindow>();
        m_pWindow->showMaximized();
        if (!QTest::qWaitForWindowExposed(m_pWindow.get()))
            qFatal("no window");
    }
    ~CRun()
    {
        m_pWindow.reset();
        g_pSettings = nullptr;
    }
    Q_DISABLE_COPY(CRun)

    MainWindow &window() { return *m_pWindow; }
    QDockWidget *dock(const char *szName)
    {
        return m_pWindow->findChild<QDockWidget *>(QLatin1String(szName));
    }

private:
    CSettings m_settings;
    std::unique_ptr<MainWindow> m_pWindow;
};

} // namespace

class tst_docks : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings("Tavrel Software", "quillan-test").clear(); }

    void floatingDock_comesBackWhereItWas_data()
    {
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("moved");
        for (const char *szName : {"Preview", "Folder Browser"}) {
            for (const char *szEnd : {"close", "exit"}) {
                const QString strRow = QString("%1, %2").arg(szName, szEnd);
                QTest::newRow(qPrintable(strRow)) << szEnd << szName << true;
                QTest::newRow(qPrintable(strRow + ", not moved")) << szEnd << szName << false;
            }
        }
    }

    void floatingDock_comesBackWhereItWas()
    {
        QFETCH(QString, end);
        QFETCH(QString, name);
        QFETCH(bool, moved);
        QRect placed;
        {
            CRun run;
            QDockWidget *pDock = run.dock(qPrintable(name));
            pDock->setFloating(true);
            if (moved)
                pDock->setGeometry(330, 240, 320, 260);
            QVERIFY(QTest::qWaitForWindowExposed(pDock));
            QTRY_VERIFY(pDock->y() > 0);
            placed = pDock->geometry();
            if (end == "close") {
                QVERIFY(run.window().close());
                pDock->hide(); // As the end of the last window does.
            }
        }
        CRun run;
        QDockWidget *pDock = run.dock(qPrintable(name));
        QVERIFY(pDock->isFloating());
        QTRY_VERIFY(pDock->isVisible());
        QTRY_COMPARE(pDock->geometry(), placed);
    }

    void hiddenDock_staysHidden()
    {
        {
            CRun run;
            run.dock("Preview")->setFloating(true);
            run.dock("Preview")->hide();
            QVERIFY(run.window().close());
        }
        CRun run;
        QVERIFY(!run.dock("Preview")->isVisible());
        QVERIFY(run.dock("Folder Browser")->isVisible());
    }
};

QTEST_MAIN(tst_docks)
#include "tst_docks.moc"
