#include "editor/cstandins.h"
#include "editor/lineendings.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextDocument>

namespace {

// The rule literally, over decoded text.
int literalReturnFormat(const QByteArray &data, int nPrevious)
{
    const int nZero = data.indexOf('\0');
    const QString strText = QString::fromUtf8(nZero < 0 ? data : data.left(nZero));
    if (strText.contains(QStringLiteral("\r\n")))
        return 0;
    if (strText.contains(QLatin1Char('\n')))
        return 1;
    return strText.contains(QLatin1Char('\r')) ? 2 : nPrevious;
}

} // namespace

class tst_lineendings : public QObject
{
    Q_OBJECT

private slots:
    void detection_data();
    void detection();
    void detectionOnBytes_equalsDetectionOnText();
    void conversion_data();
    void conversion();
    void conversion_leavesNoOtherLineEnd();
    void lineCount_isThatOfADocument();

    void standIns_areNotNeededForOrdinaryText();
    void standIns_takeThePlaceOfParagraphAndFrameMarks();
    void standIns_areNoneOfTheTextsOwnCharacters();
    void standIns_giveUpOnlyWhenEveryCharacterIsTaken();
};

void tst_lineendings::detection_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("nFormat"); // 7: the previous one

    QTest::newRow("null") << QByteArray() << 7;
    QTest::newRow("empty") << QByteArray("") << 7;
    QTest::newRow("no line end") << QByteArray("abc") << 7;
    QTest::newRow("LF") << QByteArray("a\nb") << 1;
    QTest::newRow("CR") << QByteArray("a\rb") << 2;
    QTest::newRow("CR at the end") << QByteArray("a\r") << 2;
    QTest::newRow("CR LF") << QByteArray("a\r\nb") << 0;
    QTest::newRow("LF CR is no CR LF") << QByteArray("a\n\rb") << 1;
    QTest::newRow("one CR LF among LF") << QByteArray("a\r\nb\nc") << 0;
    QTest::newRow("one CR LF behind LF and CR") << QByteArray("a\nb\rc\r\n") << 0;
    QTest::newRow("LF among CR") << QByteArray("a\rb\nc\r") << 1;
    QTest::newRow("behind a zero byte") << QByteArray("a\0b\n", 4) << 7;
    QTest::newRow("CR before a zero byte, LF behind") << QByteArray("a\r\0\n", 4) << 2;
    QTest::newRow("behind a broken lead byte") << QByteArray("a\xE2\r\nb") << 0;
    QTest::newRow("behind a byte-order mark") << QByteArray("\xEF\xBB\xBF\n") << 1;
}

void tst_lineendings::detection()
{
    QFETCH(QByteArray, data);
    QFETCH(int, nFormat);
    QCOMPARE(detectReturnFormat(data, 7), nFormat);
    QCOMPARE(literalReturnFormat(data, 7), nFormat);
}

void tst_lineendings::detectionOnBytes_equalsDetectionOnText()
{
    // Few different bytes, so that they meet in every order: line ends, lead and trail bytes of two
    // to four, broken ones, a byte-order mark.
    const QByteArray alphabet("\r\n\r\nab\xC3\xA9\xE2\x82\xAC\xF0\x9F\xEF\xBB\xBF\xFF\x80\0", 19);
    QRandomGenerator random(20);
    for (int n = 0; n < 200000; ++n) {
        QByteArray data;
        for (int nLeft = random.bounded(9); nLeft > 0; --nLeft)
            data += alphabet.at(random.bounded(alphabet.size()));
        QVERIFY2(detectReturnFormat(data, 3) == literalReturnFormat(data, 3),
                 data.toHex(' ').constData());
    }
}

void tst_lineendings::conversion_data()
{
    QTest::addColumn<QString>("strText");
    QTest::addColumn<int>("nFormat");
    QTest::addColumn<QString>("strExpected");

    const QString strMixed = QStringLiteral("a\r\nb\nc\rd\n\re\r\r\nf");
    QTest::newRow("Windows") << strMixed << 0 << "a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\nf";
    QTest::newRow("Unix") << strMixed << 1 << "a\nb\nc\nd\n\ne\n\nf";
    QTest::newRow("OSX") << strMixed << 2 << "a\rb\rc\rd\r\re\r\rf";
    QTest::newRow("unknown") << strMixed << 3 << strMixed;
    QTest::newRow("negative") << strMixed << -1 << strMixed;
    for (int n = 0; n < 3; ++n) {
        QTest::addRow("empty as %d", n) << QString() << n << QString();
        QTest::addRow("one line as %d", n) << "a\u00A0\u2028b" << n << "a\u00A0\u2028b";
    }
}

void tst_lineendings::conversion()
{
    QFETCH(QString, strText);
    QFETCH(int, nFormat);
    QTEST(withLineEnds(strText, nFormat), "strExpected");
}

void tst_lineendings::conversion_leavesNoOtherLineEnd()
{
    const QString lstEnds[] = {QStringLiteral("\r\n"), QStringLiteral("\n"), QStringLiteral("\r")};
    QRandomGenerator random(21);
    for (int n = 0; n < 20000; ++n) {
        QString strText;
        for (int nLeft = random.bounded(12); nLeft > 0; --nLeft)
            strText += QLatin1Char("\r\na"[random.bounded(3)]);
        for (int nFormat = 0; nFormat < 3; ++nFormat) {
            QString strRest = withLineEnds(strText, nFormat);
            strRest.remove(lstEnds[nFormat]);
            QVERIFY(!strRest.contains(QLatin1Char('\r')) && !strRest.contains(QLatin1Char('\n')));
        }
    }
}

void tst_lineendings::lineCount_isThatOfADocument()
{
    QRandomGenerator random(22);
    for (int n = 0; n < 3000; ++n) {
        QString strText;
        for (int nLeft = random.bounded(12); nLeft > 0; --nLeft)
            strText += QLatin1Char("\r\na"[random.bounded(3)]);
        QTextDocument document(strText);
        QCOMPARE(lineCount(strText), document.blockCount());
    }
}

void tst_lineendings::standIns_areNotNeededForOrdinaryText()
{
    CStandIns standIns;
    const QString strText = QStringLiteral("a\u00A0\u2028\uFFFC\uFFFE\uFDD2\r\n");
    QCOMPARE(standIns.hide(strText), strText);
    QCOMPARE(standIns.restore(strText), strText);
}

void tst_lineendings::standIns_takeThePlaceOfParagraphAndFrameMarks()
{
    CStandIns standIns;
    const QString strText = QStringLiteral("a\u2029b\uFDD0c\uFDD1d\u2029\u2029");
    const QString strHidden = standIns.hide(strText);
    QCOMPARE(strHidden.size(), strText.size());
    for (const QChar c : {QChar(0x2029), QChar(0xFDD0), QChar(0xFDD1)})
        QVERIFY(!strHidden.contains(c));
    QCOMPARE(standIns.restore(strHidden), strText);

    // The next text has nothing to do with this one.
    QCOMPARE(standIns.hide(strHidden), strHidden);
    QCOMPARE(standIns.restore(strHidden), strHidden);
}

void tst_lineendings::standIns_areNoneOfTheTextsOwnCharacters()
{
    CStandIns standIns;
    QString strText = QStringLiteral("\u2029\uFDD1");
    for (ushort u = 0xFDD2; u <= 0xFDEE; ++u)
        strText += QChar(u);
    const QString strHidden = standIns.hide(strText);
    QVERIFY(!strHidden.contains(QChar(0x2029)) && !strHidden.contains(QChar(0xFDD1)));
    QCOMPARE(standIns.restore(strHidden), strText);
}

void tst_lineendings::standIns_giveUpOnlyWhenEveryCharacterIsTaken()
{
    CStandIns standIns;
    QString strText(QChar(0x2029));
    for (int n = 0xE000; n <= 0xFDEF; ++n)
        strText += QChar(n);
    strText.remove(QChar(0xFDD0)).remove(QChar(0xFDD1));
    QCOMPARE(standIns.hide(strText), strText);
    QCOMPARE(standIns.restore(strText), strText);
}

QTEST_MAIN(tst_lineendings)
#include "tst_lineendings.moc"
