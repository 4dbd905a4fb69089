#include "highlight/ccompacttext.h"

#include <QRandomGenerator>
#include <QTest>

class tst_compacttext : public QObject
{
    Q_OBJECT
private slots:
    void latin1_staysNarrow();
    void otherLetter_makesItWideWithoutLosingAnything();
    void partWithoutOtherLetters_isNarrowAgain();
    void anyChanges_areThoseOfAString_data();
    void anyChanges_areThoseOfAString();
};

static QString whole(const CCompactText &text)
{
    return text.mid(0, text.size());
}

void tst_compacttext::latin1_staysNarrow()
{
    CCompactText text;
    const QString strText = QStringLiteral("caf\u00e9 \u00ff") + QChar(0) + QLatin1Char('x');
    text.insert(0, strText);
    QVERIFY(!text.isWide());
    QCOMPARE(whole(text), strText);
}

void tst_compacttext::otherLetter_makesItWideWithoutLosingAnything()
{
    CCompactText text;
    text.insert(0, QStringLiteral("caf\u00e9"));
    text.insert(2, QStringLiteral("\u0100"));
    QVERIFY(text.isWide());
    QCOMPARE(whole(text), QStringLiteral("ca\u0100f\u00e9"));
}

void tst_compacttext::partWithoutOtherLetters_isNarrowAgain()
{
    CCompactText text;
    text.insert(0, QStringLiteral("\u0100abc"));
    const CCompactText part = text.part(1);
    QVERIFY(!part.isWide());
    QCOMPARE(whole(part), QStringLiteral("abc"));
}

void tst_compacttext::anyChanges_areThoseOfAString_data()
{
    QTest::addColumn<quint32>("nSeed");
    for (quint32 nSeed = 1; nSeed <= 5; ++nSeed)
        QTest::addRow("%u", nSeed) << nSeed;
}

void tst_compacttext::anyChanges_areThoseOfAString()
{
    QFETCH(quint32, nSeed);
    QRandomGenerator random(nSeed);
    const auto below = [&random](int nBound) { return int(random.bounded(quint32(nBound))); };
    CCompactText text;
    QString strExpected;
    for (int n = 0; n < 2000; ++n) {
        if (below(5) < 3) {
            QString strNew;
            for (int nLetters = below(6); nLetters > 0; --nLetters)
                strNew += QChar(below(n > 1000 ? 0x200 : 0x100));
            const int nAt = below(strExpected.size() + 1);
            text.insert(nAt, strNew);
            strExpected.insert(nAt, strNew);
        } else {
            const int nFrom = below(strExpected.size() + 1);
            const int nLength = below(strExpected.size() - nFrom + 1);
            text.remove(nFrom, nLength);
            strExpected.remove(nFrom, nLength);
        }
        QCOMPARE(text.size(), strExpected.size());
        QCOMPARE(whole(text), strExpected);
    }
}

QTEST_GUILESS_MAIN(tst_compacttext)
#include "tst_compacttext.moc"
