#include "app/plaintext.h"

#include <QTextDocument>
#include <QtTest>

class tst_plaintext : public QObject
{
    Q_OBJECT

private slots:
    void menuText_doublesTheSign()
    {
        QCOMPARE(withoutMnemonic("a&b&&c"), QString("a&&b&&&&c"));
        QCOMPARE(withoutMnemonic("plain"), QString("plain"));
    }

    void windowTitle_keepsTheMark()
    {
        QCOMPARE(plainWindowTitle("a[*]b"), QString("a[*][*]b"));
        QCOMPARE(plainWindowTitle("plain"), QString("plain"));
    }

    void toolTip_isNoMarkup()
    {
        QCOMPARE(plainToolTip("/tmp/a.txt"), QString("/tmp/a.txt"));
        const QString strTip = plainToolTip("<b>a</b>");
        QVERIFY(Qt::mightBeRichText(strTip));
        QVERIFY(strTip.contains("&lt;b&gt;a&lt;/b&gt;"));
    }

    void visibleName_showsWhatHides_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        const auto u = [](uint nCode) { return QString::fromUcs4(&nCode, 1); };
        QTest::newRow("plain") << "a b.txt"
                               << "a b.txt";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("line end") << "two\nlines"
                                  << "two<U+000A>lines";
        QTest::newRow("escape") << u(0x1b) + "[31m"
                                << "<U+001B>[31m";
        QTest::newRow("delete") << "a" + u(0x7f) << "a<U+007F>";
        QTest::newRow("zero") << QString(QChar(0)) << "<U+0000>";
        QTest::newRow("second control set") << u(0x85) << "<U+0085>";
        QTest::newRow("turned ending") << "gnp" + u(0x202e) + "txt.exe"
                                       << "gnp<U+202E>txt.exe";
        QTest::newRow("isolate") << u(0x2066) + "a"
                                 << "<U+2066>a";
        QTest::newRow("mark") << u(0x200f) + u(0x61c) << "<U+200F><U+061C>";
        QTest::newRow("no width") << u(0x200b) + QString(QChar(0xfeff)) << "<U+200B><U+FEFF>";
        QTest::newRow("line separator") << u(0x2028) << "<U+2028>";
        QTest::newRow("half a pair") << QString(QChar(0xdc80)) + "a"
                                     << "<U+DC80>a";
        QTest::newRow("other half") << "a" + QString(QChar(0xd83d)) << "a<U+D83D>";
        QTest::newRow("pair") << u(0x1f600) << u(0x1f600);
        QTest::newRow("joiner") << u(0x200d) + u(0x200c) << u(0x200d) + u(0x200c);
        QTest::newRow("right to left word") << u(0x5d0) + u(0x5d1) << u(0x5d0) + u(0x5d1);
        QTest::newRow("no-break space") << u(0xa0) << u(0xa0);
    }

    void visibleName_showsWhatHides()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QCOMPARE(visibleName(name), shown);
        QCOMPARE(visibleName(shown), shown);
    }
};

QTEST_MAIN(tst_plaintext)
#include "tst_plaintext.moc"
