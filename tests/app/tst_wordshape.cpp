#include "app/wordshape.h"

#include <QString>
#include <QtTest>

namespace {

// The score of the character in the middle of three.
double score(const QString &strThree)
{
    const QChar c = strThree.at(1);
    return isWordPart(c) ? placeScore(c, strThree.at(0), strThree.at(2))
                         : signScore(c, strThree.at(0), strThree.at(2));
}

void row(const char *szName, const char *szFirst, const char *szSecond)
{
    QTest::newRow(szName) << QString::fromUtf8(szFirst) << QString::fromUtf8(szSecond);
}

} // namespace

// How likely a foreign character is beside its neighbours: the better place scores more.
class tst_wordshape : public QObject
{
    Q_OBJECT

private slots:
    void betterPlace_scoresMore_data();
    void betterPlace_scoresMore();
    void equalPlaces_scoreTheSame_data();
    void equalPlaces_scoreTheSame();
    void unreadableCharacters_areInNoText();
};

void tst_wordshape::betterPlace_scoresMore_data()
{
    QTest::addColumn<QString>("better");
    QTest::addColumn<QString>("worse");
    row("opening sign after a letter", " ¿q", "a¿q");
    row("opening sign before a blank", " ¿q", " ¿ ");
    row("money after a letter", "5€ ", "a€ ");
    row("money before a letter", "5€ ", " €a");
    row("paragraph before a letter", " § ", " §a");
    row("power before a letter", "m² ", "m²a");
    row("quotation mark within a word", "a“ ", "a“b");
    row("dash within a word", " – ", "a–b");
    row("rare sign", " – ", " ¤ ");
    row("seldom sign", " – ", " ¶ ");
    row("sign after a foreign symbol", " ° ", "©° ");
    row("capital after a small letter", " Éa", "aÉa");
    row("capital after a capital", " Éa", "AÉa");
    row("capital within a small word", "AÉa", "aÉa");
    row("small letter before a capital", "aéa", "aéA");
    row("another script before", "aéa", "жéa");
    row("another script after", "aéa", "aéж");
    row("foreign neighbour", "aéa", "aéé");
    row("alone", "aé ", " é ");
    row("beside a sign of code", "aé ", "aé|");
    row("after a sign of code", " éa", "[éa");
}

void tst_wordshape::betterPlace_scoresMore()
{
    QFETCH(QString, better);
    QFETCH(QString, worse);
    QVERIFY(score(better) > score(worse));
    QVERIFY(score(better) <= 0);
}

void tst_wordshape::equalPlaces_scoreTheSame_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    row("apostrophe within a word", "l’a", "s’ ");
    row("soft hyphen within a word", "a\u00ADb", " \u00AD ");
    row("quotation mark at either end", " “a", "a“ ");
    row("money at either side of a number", "5€ ", " €5");
    row("between Chinese letters", "中“文", " “ ");
    row("Chinese letter beside Japanese ones", "の中の", "中中中");
}

void tst_wordshape::equalPlaces_scoreTheSame()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QCOMPARE(score(one), score(other));
}

void tst_wordshape::unreadableCharacters_areInNoText()
{
    for (const ushort n : {0x80, 0x9F, 0xE000, 0xFFFD, 0x0378})
        QVERIFY2(isUnreadable(QChar(n)), QByteArray::number(n, 16));
    for (const ushort n : {0x09, 0x41, 0xA0, 0xE9, 0x4E2D})
        QVERIFY2(!isUnreadable(QChar(n)), QByteArray::number(n, 16));
}

QTEST_GUILESS_MAIN(tst_wordshape)
#include "tst_wordshape.moc"
