#include "app/commonhelpers.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

class tst_commonhelpers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void size_hasItsText_data();
    void size_hasItsText();
    void size_isGroupedAsTheLocaleDoes();
    void date_isInTheSystemLocalesFormat();
    void entries_areOrdered_data();
    void entries_areOrdered();
    void order_isStrict();
};

void tst_commonhelpers::size_hasItsText_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *szName, qint64 nSize, const char *szText) {
        QTest::newRow(szName) << nSize << QString(QLatin1String(szText));
    };
    row("none", 0, "0 B");
    row("last of the bytes", 1023, "1,023 B");
    row("first of the kilobytes", 1024, "1 KB");
    row("kilobytes are cut", 2047, "1 KB");
    row("last of the kilobytes", 1048575, "1,023 KB");
    row("first of the megabytes", 1048576, "1.0 MB");
    row("megabytes have one decimal", 1572864, "1.5 MB");
    row("last of the megabytes", 1073741823, "1,024.0 MB"); // Single precision.
    row("first of the gigabytes", 1073741824, "1.00 GB");
    row("gigabytes have two decimals", 1342177280, "1.25 GB");
    row("first of the terabytes", 1099511627776, "1.000 TB");
    row("terabytes have three decimals", 1236950581248, "1.125 TB");
    row("largest", std::numeric_limits<qint64>::max(), "8,388,608.000 TB");
    row("negative", -1, "-1 B");
    row("very negative", -5000, "-5,000 B");
}

void tst_commonhelpers::size_hasItsText()
{
    QFETCH(qint64, size);
    QFETCH(QString, text);
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions); // "C" leaves the grouping out.
    QLocale::setDefault(locale);
    QCOMPARE(getSizeText(size), text);
}

void tst_commonhelpers::size_isGroupedAsTheLocaleDoes()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(getSizeText(1023), QStringLiteral("1.023 B"));
    QCOMPARE(getSizeText(1572864), QStringLiteral("1,5 MB"));
    QLocale::setDefault(QLocale::c());
}

void tst_commonhelpers::date_isInTheSystemLocalesFormat()
{
    const QDateTime date(QDate(2026, 3, 14), QTime(15, 9, 26));
    QCOMPARE(getDateText(date), QLocale::system().toString(date, QLocale::ShortFormat));
    QVERIFY(getDateText(date).contains(QLatin1String("26")));
    QCOMPARE(getDateText(QDateTime()), QString());
}

void tst_commonhelpers::entries_areOrdered_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("less");
    const auto row = [](const char *szName, const char *szFirst, const char *szSecond, bool bLess) {
        QTest::newRow(szName) << QString(QLatin1String(szFirst)) << QString(QLatin1String(szSecond))
                              << bLess;
    };
    row("folder before file", "z/", "a", true);
    row("file not before folder", "a", "z/", false);
    row("files by name", "a", "b", true);
    row("files by name, reversed", "b", "a", false);
    row("case does not count", "B", "a", false);
    row("nor here", "a", "B", true);
    row("equal but for case", "a", "A", false);
    row("the same", "a", "a", false);
    row("folders by name", "B/", "c/", true);
    row("plain, not natural", "10", "9", true);
    row("root before folder", "/", "a/", true);
    row("folder not before root", "a/", "/", false);
    row("root before file", "/", "a", true);
    row("root not before itself", "/", "/", false);
}

void tst_commonhelpers::entries_areOrdered()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, less);
    const QTemporaryDir dir;
    const auto entry = [&dir](const QString &strName) {
        if (strName == QLatin1String("/"))
            return QFileInfo(QDir::rootPath());
        if (strName.endsWith(QLatin1Char('/')))
            QDir(dir.path()).mkdir(strName.chopped(1));
        return QFileInfo(dir.filePath(strName.split(QLatin1Char('/')).first()));
    };
    QCOMPARE(lessFileInfo(entry(first), entry(second)), less);
}

void tst_commonhelpers::order_isStrict()
{
    const QFileInfoList lst = QDir(QDir::rootPath()).entryInfoList() + QDir::drives();
    for (const QFileInfo &a : lst)
        for (const QFileInfo &b : lst)
            QVERIFY(!(lessFileInfo(a, b) && lessFileInfo(b, a)));
}

QTEST_GUILESS_MAIN(tst_commonhelpers)
#include "tst_commonhelpers.moc"
