// The filter may keep a file that holds no match, never the other way round.
#include "app/textcodecs.h"
#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/textmatches.h"

#include <QRandomGenerator>
#include <QtTest>

class tst_bytefilter : public QObject
{
    Q_OBJECT

private slots:
    void requiredText_isInEveryMatch_data();
    void requiredText_isInEveryMatch();
    void everyCharacterThatMatches_isKept();
    void randomTexts_areNeverLost();
    void needleAcrossPieces_isFound();
    void usualText_isLeftOut();
};

static bool found(const QString &strFind, const SSearchOptions &options, const QString &strText)
{
    const std::atomic<bool> bCancel = false;
    return !findMatches(CLineSearch(strFind, options), strText, 1, bCancel).isEmpty();
}

static bool kept(const QString &strFind, const SSearchOptions &options, const QString &strText)
{
    const QByteArray data = strText.toUtf8();
    return CByteFilter(strFind, options).mayMatch(data, isAscii(data));
}

void tst_bytefilter::requiredText_isInEveryMatch_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("required");
    QTest::newRow("plain") << "abc"
                           << "abc";
    QTest::newRow("class behind") << "abc[de]f"
                                  << "abc";
    QTest::newRow("class first") << "[de]fgh"
                                 << "";
    QTest::newRow("any sign") << "ab.cde"
                              << "cde";
    QTest::newRow("star") << "abc*d"
                          << "ab";
    QTest::newRow("question mark") << "x?abc"
                                   << "abc";
    QTest::newRow("count") << "abc{0,2}"
                           << "ab";
    QTest::newRow("plus") << "abc+de"
                          << "abc";
    QTest::newRow("choice") << "abc|d"
                            << "";
    QTest::newRow("group") << "(abc)?d"
                           << "";
    QTest::newRow("anchors") << "^abc$"
                             << "abc";
    QTest::newRow("escaped sign") << "a\\.b"
                                  << "a.b";
    QTest::newRow("class escape") << "abc\\d"
                                  << "abc";
    QTest::newRow("word edge") << "\\bab"
                               << "";
    QTest::newRow("code") << "ab\\x0041b"
                          << "ab";
    QTest::newRow("trailing backslash") << "ab\\"
                                        << "ab";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_bytefilter::requiredText_isInEveryMatch()
{
    QFETCH(QString, expression);
    QTEST(requiredText(expression), "required");
}

void tst_bytefilter::everyCharacterThatMatches_isKept()
{
    const QString strLetters = QStringLiteral("abcdefghijklmnopqrstuvwxyzKSI0_");
    for (const bool bRegExp : {false, true}) {
        SSearchOptions options;
        options.bRegExp = bRegExp;
        for (const QChar letter : strLetters) {
            const CByteFilter filter(letter, options);
            const CLineSearch search(letter, options);
            for (uint u = 0x20; u < 0xffff; ++u) {
                if (QChar::isSurrogate(u) || !search.find(QString(QChar(u)), 0).isValid())
                    continue;
                const QByteArray data = QString(QChar(u)).toUtf8();
                QVERIFY2(filter.mayMatch(data, isAscii(data)), qPrintable(QString::number(u, 16)));
            }
        }
    }
}

void tst_bytefilter::randomTexts_areNeverLost()
{
    QRandomGenerator random(7);
    const QString strSigns = QStringLiteral("aAbBkKsS\u212a\u017f\u0130iI.*+?^$[]\\dx \n");
    const auto text = [&](int nMost) -> QString {
        QString str;
        for (int n = random.bounded(1, nMost); n > 0; --n)
            str.append(strSigns.at(random.bounded(strSigns.length())));
        return str;
    };
    int nFound = 0;
    for (int n = 0; n < 60000; ++n) {
        SSearchOptions options;
        options.bMatchCase = random.bounded(2);
        options.bWholeWord = random.bounded(4) == 0;
        options.bRegExp = random.bounded(2);
        const QString strFind = text(5);
        const QString strText = text(30);
        if (!found(strFind, options, strText))
            continue;
        ++nFound;
        QVERIFY2(kept(strFind, options, strText), qPrintable(strFind + " in " + strText));
    }
    QVERIFY(nFound > 5000);
}

void tst_bytefilter::needleAcrossPieces_isFound()
{
    const CByteFilter filter(QStringLiteral("Needle"), SSearchOptions());
    for (int nAt = 16 * 1024 - 8; nAt < 16 * 1024 + 8; ++nAt) {
        QByteArray data(40000, 'x');
        data.replace(nAt, 6, "nEEDLE");
        QVERIFY(filter.mayMatch(data, true));
        QVERIFY(!filter.mayMatch(data.left(nAt + 5), true));
    }
}

void tst_bytefilter::usualText_isLeftOut()
{
    SSearchOptions options;
    QVERIFY(!kept(QStringLiteral("needle"), options, QStringLiteral("a haystack, größer")));
    QVERIFY(!kept(QStringLiteral("sky"), options, QStringLiteral("a haystack, größer")));
    options.bMatchCase = true;
    QVERIFY(!kept(QStringLiteral("größe"), options, QStringLiteral("a haystack, Größe")));
    options.bRegExp = true;
    QVERIFY(!kept(QStringLiteral("need.*le"), options, QStringLiteral("a haystack")));
    QVERIFY(!CByteFilter(QString(QChar(0xd83d)), options).isUseful()); // Half a character.
}

QTEST_GUILESS_MAIN(tst_bytefilter)
#include "tst_bytefilter.moc"
