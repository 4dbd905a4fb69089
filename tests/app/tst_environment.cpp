// Variables that are set for Qt reach no program that is started later.

#include "app/platform.h"

#include <QTest>

namespace {

const char g_szChoice[] = "QT_XCB_GL_INTEGRATION";

} // namespace

class tst_environment : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qunsetenv(g_szChoice); }

    void openGl_isLeftOutUntilTheFirstWindow()
    {
        Platform::leaveOutOpenGl();
        QCOMPARE(qgetenv(g_szChoice), QByteArray("none"));
        Platform::restoreEnvironment();
        QVERIFY(!qEnvironmentVariableIsSet(g_szChoice));
    }

    void choiceOfTheUser_stays_data()
    {
        QTest::addColumn<QByteArray>("choice");
        QTest::newRow("another") << QByteArray("xcb_egl");
        QTest::newRow("the same") << QByteArray("none");
        QTest::newRow("empty") << QByteArray("");
    }

    void choiceOfTheUser_stays()
    {
        QFETCH(QByteArray, choice);
        qputenv(g_szChoice, choice);
        Platform::leaveOutOpenGl();
        QCOMPARE(qgetenv(g_szChoice), choice);
        Platform::restoreEnvironment();
        QVERIFY(qEnvironmentVariableIsSet(g_szChoice));
        QCOMPARE(qgetenv(g_szChoice), choice);
    }
};

QTEST_APPLESS_MAIN(tst_environment)
#include "tst_environment.moc"
