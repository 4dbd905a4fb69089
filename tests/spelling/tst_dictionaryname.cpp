#include "smalldictionary.h"
#include "spelling/dictionaryname.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_dictionaryname : public QObject
{
    Q_OBJECT

private slots:
    void language_findsItsDictionary_data();
    void language_findsItsDictionary();
    void folders_areSearchedInOrder();
    void wordsWithoutRules_areNoDictionary();
};

void tst_dictionaryname::language_findsItsDictionary_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("name");
    QTest::newRow("exact") << "en-GB"
                           << "de_DE"
                           << "en_GB";
    QTest::newRow("any case") << "EN-gb"
                              << "de_DE"
                              << "en_GB";
    QTest::newRow("no region: where most speak it") << "en"
                                                    << "de_DE"
                                                    << "en_US";
    QTest::newRow("no region: the user's own") << "en"
                                               << "en_GB"
                                               << "en_GB";
    QTest::newRow("another region") << "de-AT"
                                    << "en_US"
                                    << "de_DE";
    QTest::newRow("a script between") << "sr-Latn-RS"
                                      << "en_US"
                                      << "sr_RS";
    QTest::newRow("the first by name") << "pt"
                                       << "en_US"
                                       << "pt_BR";
    QTest::newRow("only another region") << "fr"
                                         << "en_US"
                                         << "fr_CA";
    QTest::newRow("no language: the locale's") << ""
                                               << "de_DE"
                                               << "de_DE";
    QTest::newRow("a locale with its encoding") << ""
                                                << "de_AT.UTF-8"
                                                << "de_DE";
    QTest::newRow("not there") << "it"
                               << "en_US"
                               << "";
    QTest::newRow("the plain locale") << ""
                                      << "C"
                                      << "";
    QTest::newRow("no region in its name") << "eo"
                                           << "en_US"
                                           << "eo";
    QTest::newRow("nonsense") << "-x-"
                              << "en_US"
                              << "";
}

void tst_dictionaryname::language_findsItsDictionary()
{
    const QStringList lstNames {"en_US", "en_GB", "de_DE", "sr_RS",
                                "pt_PT", "pt_BR", "fr_CA", "eo"};
    QFETCH(QString, language);
    QFETCH(QString, locale);
    QTEST(dictionaryName(lstNames, language, locale), "name");
}

void tst_dictionaryname::folders_areSearchedInOrder()
{
    const QTemporaryDir folder;
    putDictionary(folder.filePath("first"), "en_US", "one");
    putDictionary(folder.filePath("second"), "en_US", "two");
    putDictionary(folder.filePath("second"), "de_DE", "zwei");
    const QVector<SDictionaryFile> lst = dictionaryFiles(
        {folder.filePath("none"), folder.filePath("first"), folder.filePath("second")});
    QCOMPARE(lst.size(), 2);
    QCOMPARE(lst.at(0).strBase, folder.filePath("first/en_US"));
    QCOMPARE(lst.at(1).strName, QStringLiteral("de_DE"));
}

void tst_dictionaryname::wordsWithoutRules_areNoDictionary()
{
    const QTemporaryDir folder;
    put(folder.filePath("en_US.dic"), "1\nword\n");
    QVERIFY(dictionaryFiles({folder.path()}).isEmpty());
}

QTEST_GUILESS_MAIN(tst_dictionaryname)
#include "tst_dictionaryname.moc"
