#include "app/csettings.h"
#include "app/settingsfile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QtTest>

class tst_settingsfile : public QObject
{
    Q_OBJECT

private slots:
    void lines_withStreams_go_data()
    {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QByteArray>("kept");
        const auto drops = [](const char *szName, const char *szLine) {
            QTest::newRow(szName) << QByteArray("[General]\na=1\n" + QByteArray(szLine) + "\nb=2\n")
                                  << QByteArray("[General]\na=1\nb=2\n");
        };
        drops("plain", "x=@Variant(\\0\\0\\0\\x7f)");
        drops("date", "x=@DateTime(\\0)");
        drops("quoted", "x=\"@Variant(\\0)\"");
        drops("in a list", "x=a, @Variant(\\0)");
        drops("quotes in between", "x=@Var\"\"iant(\\0)");
        drops("hexadecimal", "x=\\x40Variant(\\0)");
        drops("long hexadecimal", "x=\\x00000040Variant(\\0)");
        drops("octal", "x=\\100Variant\\50\\0)");
        drops("octal before a digit that is none", "x=@Variant\\508\\0)");
        drops("hexadecimal before a sign", "x=@Variant\\x28:\\0)");
        drops("behind a zero", "x=\\0, @Variant(\\0)");
        drops("unknown escape in between", "x=@Va\\qriant(\\0)");
        const auto keeps = [](const char *szName, const QByteArray &ini) {
            QTest::newRow(szName) << ini << ini;
        };
        keeps("empty", "");
        keeps("no stream", "[General]\r\na=@ByteArray(\\0)\r\nb=@Rect(1 2 3 4)\r\n");
        keeps("escaped", "a=@@Variant(x)");
        keeps("within a name", "a=/home/me@Variant(x)");
        QTest::newRow("over two lines") << QByteArray("a=1\nx=@Var\\\niant(\\0)\n") << QByteArray();
    }

    void lines_withStreams_go()
    {
        QFETCH(QByteArray, ini);
        QFETCH(QByteArray, kept);
        QCOMPARE(withoutStreamedValues(ini), kept);
    }

    void settings_withADamagedStream_areReadWithoutIt()
    {
#ifdef Q_OS_WIN
        QSKIP("The settings are in the registry, which is no text.");
#endif
        const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
        QVERIFY(folder.mkpath("someone"));
        QFile file(folder.filePath("someone/something.conf"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        // Asked for as many bytes as an address can count.
        file.write("[General]\nm_nTextFontSize=20\n"
                   "m_strLastPathFileName=@Variant(\\0\\0\\0\\x66\\0\\0\\0\\0\\0)\n");
        file.close();
        dropStreamedValues("someone", "something");
        const CSettings settings("someone", "something");
        QCOMPARE(settings.getTextFontSize(), 20);
        QCOMPARE(settings.getLastPathFileName(), QString());
    }
};

QTEST_GUILESS_MAIN(tst_settingsfile)
#include "tst_settingsfile.moc"
