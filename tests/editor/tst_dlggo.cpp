#include "editor/cdlggo.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class tst_dlggo : public QObject
{
    Q_OBJECT

private slots:
    void texts_areThoseOfTheForm();
    void go_emitsTheNumberAndHides_data();
    void go_emitsTheNumberAndHides();
    void enterInTheField_isGo();
    void close_hidesWithoutASignal();
    void escape_hidesWithoutASignal();
    void field_takesIntegersOnly();
    void prepare_selectsWhatWasTyped();
};

void tst_dlggo::texts_areThoseOfTheForm()
{
    CDlgGo dialog;
    QCOMPARE(dialog.objectName(), QString("CDlgGo"));
    QCOMPARE(dialog.windowTitle(), QString("Go to Line"));
    QCOMPARE(dialog.findChild<QLabel *>("label")->text(), QString("Line:"));
    QCOMPARE(dialog.findChild<QPushButton *>("btnGo")->text(), QString("Go"));
    QCOMPARE(dialog.findChild<QPushButton *>("btnClose")->text(), QString("Close"));
    QVERIFY(!dialog.isModal());
}

void tst_dlggo::go_emitsTheNumberAndHides_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("a line") << "12" << 12;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negative") << "-3" << -3;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("only a sign") << "-" << 0;
    QTest::newRow("the largest") << "2147483647" << 2147483647;
}

void tst_dlggo::go_emitsTheNumberAndHides()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    CDlgGo dialog;
    dialog.show();
    QSignalSpy spy(&dialog, &CDlgGo::goToLine);
    QTest::keyClicks(dialog.findChild<QLineEdit *>("lineEdit"), text);
    dialog.findChild<QPushButton *>("btnGo")->click();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toInt(), number);
    QVERIFY(!dialog.isVisible());
}

void tst_dlggo::enterInTheField_isGo()
{
    CDlgGo dialog;
    dialog.show();
    QSignalSpy spy(&dialog, &CDlgGo::goToLine);
    auto *pEdit = dialog.findChild<QLineEdit *>("lineEdit");
    QTest::keyClicks(pEdit, "7");
    QTest::keyClick(pEdit, Qt::Key_Return);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toInt(), 7);
    QVERIFY(!dialog.isVisible());
}

void tst_dlggo::close_hidesWithoutASignal()
{
    CDlgGo dialog;
    dialog.show();
    QSignalSpy spy(&dialog, &CDlgGo::goToLine);
    dialog.findChild<QPushButton *>("btnClose")->click();
    QVERIFY(!dialog.isVisible());
    QVERIFY(spy.isEmpty());
}

void tst_dlggo::escape_hidesWithoutASignal()
{
    CDlgGo dialog;
    dialog.show();
    QSignalSpy spy(&dialog, &CDlgGo::goToLine);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QVERIFY(spy.isEmpty());
}

void tst_dlggo::field_takesIntegersOnly()
{
    CDlgGo dialog;
    auto *pEdit = dialog.findChild<QLineEdit *>("lineEdit");
    QTest::keyClicks(pEdit, "-1a.2 b3");
    QCOMPARE(pEdit->text(), QString("-123"));
}

void tst_dlggo::prepare_selectsWhatWasTyped()
{
    CDlgGo dialog;
    auto *pEdit = dialog.findChild<QLineEdit *>("lineEdit");
    pEdit->setText("12");
    dialog.prepare();
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(pEdit->selectedText(), QString("12"));
    QTRY_VERIFY(pEdit->hasFocus());
}

QTEST_MAIN(tst_dlggo)
#include "tst_dlggo.moc"
