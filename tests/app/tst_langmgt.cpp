#include "app/clangmgt.h"
#include "support/awaittimers.h"

#include <QFile>
#include <QLocale>
#include <QTranslator>
#include <QtTest>

class tst_langmgt : public QObject
{
    Q_OBJECT

private slots:
    void tableOfARun_staysEmpty();
    void emptyLocale_givesTheText();
    void unknownLocale_givesTheTextAndAnEmptyEntry();
    void shippedTable_isReadable();
    void table_isParsed_data();
    void table_isParsed();
    void shippedLocales_findTheirCatalogues_data();
    void shippedLocales_findTheirCatalogues();
};

void tst_langmgt::tableOfARun_staysEmpty()
{
    CLangMgt langMgt(nullptr);
    QVERIFY(awaitTimers(0)); // The table is read in the first turn of the event loop.
    langMgt.init();
    QVERIFY(langMgt.table().isEmpty());
    QVERIFY(!QFile::exists(QStringLiteral(":/lang.txt")));
    QVERIFY(QFile::exists(QStringLiteral(":/share/lang.txt")));
}

void tst_langmgt::emptyLocale_givesTheText()
{
    CLangMgt langMgt(nullptr);
    QCOMPARE(langMgt.translate(QStringLiteral("Cancel")), QStringLiteral("Cancel"));
    QVERIFY(langMgt.table().isEmpty());
}

void tst_langmgt::unknownLocale_givesTheTextAndAnEmptyEntry()
{
    CLangMgt langMgt(nullptr);
    langMgt.setLocale(QStringLiteral("zh_tw"));
    QCOMPARE(langMgt.translate(QStringLiteral("Cancel")), QStringLiteral("Cancel"));
    QCOMPARE(langMgt.table().keys(), QStringList(QStringLiteral("zh_tw")));
    QVERIFY(langMgt.table().first().isNull());
}

void tst_langmgt::shippedTable_isReadable()
{
    QFile file(QStringLiteral(":/share/lang.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QVariantMap table = CLangMgt::parseTable(file.readAll());
    QCOMPARE(table.keys(), QStringList({QStringLiteral("ja_jp"), QStringLiteral("zh_cn")}));
    QVERIFY(!table.value(QStringLiteral("zh_cn")).toMap().value(QStringLiteral("Cancel")).isNull());
    QVERIFY(table.value(QStringLiteral("ja_jp")).toMap().isEmpty());
}

void tst_langmgt::table_isParsed_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QStringList>("locales");
    QTest::newRow("nothing") << QByteArray() << QStringList();
    QTest::newRow("one") << QByteArray("\"zh_cn\":{\"a\":\"b\"}")
                         << QStringList(QStringLiteral("zh_cn"));
    QTest::newRow("with its braces") << QByteArray("{\"zh_cn\":{}}") << QStringList();
    QTest::newRow("broken") << QByteArray("\"zh_cn\":{") << QStringList();
    QTest::newRow("up to the zero byte")
        << QByteArray("\"zh_cn\":{}\0garbage", 18) << QStringList(QStringLiteral("zh_cn"));
    QTest::newRow("with a placeholder")
        << QByteArray("\"%1\":{}") << QStringList(QStringLiteral("%1"));
}

void tst_langmgt::table_isParsed()
{
    QFETCH(QByteArray, data);
    QFETCH(QStringList, locales);
    QCOMPARE(CLangMgt::parseTable(data).keys(), locales);
}

void tst_langmgt::shippedLocales_findTheirCatalogues_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<bool>("found");
    const auto row = [](const char *szPrefix, const char *szLocale, bool bFound) {
        QTest::addRow("%s%s", szPrefix, szLocale)
            << QString(QLatin1String(szLocale)) << QString(QLatin1String(szPrefix)) << bFound;
    };
    row("lang_", "zh_cn", true);
    row("lang_", "ja_jp", true);
    row("qt_", "zh_cn", true);
    row("qt_", "ja_jp", false); // It lists catalogues that the program does not carry.
    row("base_", "zh_cn", false);
    row("base_", "ja_jp", false);
    for (const char *szLocale : {"zh_tw", "de_de", "c"})
        row("lang_", szLocale, false);
}

void tst_langmgt::shippedLocales_findTheirCatalogues()
{
    QFETCH(QString, locale);
    QFETCH(QString, prefix);
    QFETCH(bool, found);
    QTranslator translator;
    QCOMPARE(translator.load(prefix + locale + QLatin1String(".qm"), QStringLiteral(":/")), found);
}

QTEST_GUILESS_MAIN(tst_langmgt)
#include "tst_langmgt.moc"
