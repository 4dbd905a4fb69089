#include "app/textcodecs.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRandomGenerator>
#include <QRegExp>
#include <QTest>
#include <QTextCodec>
#include <QTextDecoder>

#include <memory>

// The rules literally, without any short cut.
namespace Literal {

bool isValidDecoding(QTextCodec *pCodec, const QByteArray &data)
{
    if (!pCodec)
        return false;
    const std::unique_ptr<QTextDecoder> pDecoder(pCodec->makeDecoder());
    const QString strText = pDecoder->toUnicode(data);
    if (pDecoder->hasFailure())
        return false;
    for (const QChar c : strText) {
        const ushort u = c.unicode();
        if (u >= 0xFDD0 && u <= 0xFDEF)
            return false;
        if ((u & ~1) == 0xFFFE)
            return false;
        if (c.isSymbol() && u >= 0x8000)
            return false;
    }
    return true;
}

QString detectCodecName(const QByteArray &data, const QString &strPreferred)
{
    if (!strPreferred.isEmpty()) {
        QTextCodec *pCodec = QTextCodec::codecForName(strPreferred.toLatin1());
        if (pCodec && Literal::isValidDecoding(pCodec, data))
            return QString::fromLatin1(pCodec->name());
    }
    for (const int nMib : QTextCodec::availableMibs()) {
        QTextCodec *pCodec = QTextCodec::codecForMib(nMib);
        if (pCodec->name().startsWith("ISO-") || pCodec->name().startsWith("windows-"))
            continue;
        if (Literal::isValidDecoding(pCodec, data))
            return QString::fromLatin1(pCodec->name());
    }
    return QString();
}

// Unicode 15, table 3-7: well-formed UTF-8 byte sequences.
bool isUtf8(const QByteArray &data)
{
    const auto byteAt = [&data](int n) { return n < data.size() ? uchar(data.at(n)) : 0; };
    const auto isBetween = [](int n, int nLow, int nHigh) { return n >= nLow && n <= nHigh; };
    for (int n = 0; n < data.size();) {
        const int nLead = byteAt(n);
        int nTrail = 0;
        int nLow = 0x80;
        int nHigh = 0xBF;
        if (nLead <= 0x7F)
            nTrail = 0;
        else if (isBetween(nLead, 0xC2, 0xDF))
            nTrail = 1;
        else if (isBetween(nLead, 0xE0, 0xEF))
            nTrail = 2;
        else if (isBetween(nLead, 0xF0, 0xF4))
            nTrail = 3;
        else
            return false;
        if (nLead == 0xE0)
            nLow = 0xA0;
        if (nLead == 0xED)
            nHigh = 0x9F;
        if (nLead == 0xF0)
            nLow = 0x90;
        if (nLead == 0xF4)
            nHigh = 0x8F;
        for (int nAt = 1; nAt <= nTrail; ++nAt) {
            if (!isBetween(byteAt(n + nAt), nLow, nHigh))
                return false;
            nLow = 0x80;
            nHigh = 0xBF;
        }
        n += 1 + nTrail;
    }
    return true;
}

bool hasNonAscii(const QByteArray &data)
{
    return std::any_of(
        data.cbegin(), data.cend(), [](char c) { return uchar(c) >= 0x80; });
}

} // namespace Literal

class tst_textcodecs : public QObject
{
    Q_OBJECT

private slots:
    void catalogue_hidesByItsPatterns_data();
    void catalogue_hidesByItsPatterns();
    void catalogue_isSortedWithoutDuplicates();
    void catalogue_equalsTheLiteralRule();

    void preferredCodec_isByLocaleAsWritten_data();
    void preferredCodec_isByLocaleAsWritten();
    void defaultCodec_isUtf8WhereNoRuleApplies();

    void cleanDecoding_data();
    void cleanDecoding();
    void asciiDecoding_isDecidedAsTheDecoderWould();

    void detection_ofAscii_isTheFirstOtherThanCodePages();
    void detection_prefersTheLocalesCodec();
    void detection_equalsTheLiteralRule_data();
    void detection_equalsTheLiteralRule();
    void detection_equalsTheLiteralRuleForRandomData();

    void utf8Check_equalsTheLiteralRuleForRandomData();
    void utf8Check_acrossPieces_data();
    void utf8Check_acrossPieces();

    void cutUtf8_losesItsLastPart_data();
    void cutUtf8_losesItsLastPart();

    void loadingCodec_data();
    void loadingCodec();

    void decodedText_data();
    void decodedText();
};

void tst_textcodecs::catalogue_hidesByItsPatterns_data()
{
    QTest::addColumn<bool>("bHidden");
    // At least one name for each alternative of each pattern.
    const char *const szHidden[] = {"437",
                                    "big5hk",
                                    "gb18030",
                                    "koi8",
                                    "ucs-2",
                                    "roman8",
                                    "turkish",
                                    "ASCII",
                                    "ascii7",
                                    "chinese",
                                    "CP936",
                                    "DOS-862",
                                    "HZ",
                                    "ibm-437",
                                    "JIS",
                                    "KOI8-R",
                                    "latin1",
                                    "MS936",
                                    "PC-Multilingual-850+euro",
                                    "TIS-620",
                                    "X-EUC-JP",
                                    "ISO-8859-1",
                                    "BOCU-1",
                                    "Big5-HKSCS",
                                    "SCSU",
                                    "sjis",
                                    "sun_eu_greek",
                                    "GB_2312-80",
                                    "ELOT_928",
                                    "ebcdic-de",
                                    "Extended_UNIX_Code_Packed_Format_for_Japanese",
                                    "eucjis"};
    const char *const szShown[] = {"EUC-JP", "EUC-KR",    "Big5",  "GBK",      "GB18030",
                                   "GB2312", "Shift_JIS", "UTF-8", "UTF-16LE", "windows-1252"};
    for (const char *szName : szHidden)
        QTest::newRow(szName) << true;
    for (const char *szName : szShown)
        QTest::newRow(szName) << false;
}

void tst_textcodecs::catalogue_hidesByItsPatterns()
{
    QFETCH(bool, bHidden);
    const QString strName = QString::fromLatin1(QTest::currentDataTag());
    if (!QTextCodec::availableCodecs().contains(strName.toLatin1()))
        QSKIP("This codec library does not have it.");
    QCOMPARE(getCodecList().contains(strName), !bHidden);
}

void tst_textcodecs::catalogue_isSortedWithoutDuplicates()
{
    const QStringList lst = getCodecList();
    QVERIFY(lst.size() > 5);
    for (int n = 1; n < lst.size(); ++n)
        QVERIFY2(lst.at(n - 1) < lst.at(n), qPrintable(lst.at(n)));
}

void tst_textcodecs::catalogue_equalsTheLiteralRule()
{
    QStringList lstExpected;
    const QList<QByteArray> lstAll = QTextCodec::availableCodecs();
    for (const QByteArray &name : lstAll) {
        const QString strName = QString::fromLatin1(name);
        if (QRegExp("^\\d").indexIn(strName) < 0 && QRegExp("^[b|g|k|u|r|t]").indexIn(strName) < 0
            && QRegExp("^[a|c|d|h-p|t|x]", Qt::CaseInsensitive).indexIn(strName) < 0
            && QRegExp("^(as|iso|bo|big5-|sc|sj|su|(gb2312,)|gb_)", Qt::CaseInsensitive)
                    .indexIn(strName)
                < 0
            && QRegExp("^[Ee][^U]").indexIn(strName) < 0)
            lstExpected.append(strName);
    }
    lstExpected.removeDuplicates();
    lstExpected.sort();
    QCOMPARE(getCodecList(), lstExpected);
}

void tst_textcodecs::preferredCodec_isByLocaleAsWritten_data()
{
    QTest::addColumn<QString>("strCodec");
    QTest::newRow("zh_cn") << "GB18030";
    QTest::newRow("zh-tw") << "GB18030";
    QTest::newRow("ja-jp") << "Shift-JIS";
    // The real answer of the system, and answers that do not count.
    QTest::newRow("zh-cn") << "";
    QTest::newRow("zh_tw") << "";
    QTest::newRow("ja_jp") << "";
    QTest::newRow("zh_CN") << "";
    QTest::newRow("en_us") << "";
    QTest::newRow("c") << "";
}

void tst_textcodecs::preferredCodec_isByLocaleAsWritten()
{
    QTEST(preferredCodecName(QString::fromLatin1(QTest::currentDataTag())), "strCodec");
}

void tst_textcodecs::defaultCodec_isUtf8WhereNoRuleApplies()
{
    QVERIFY(QLocale::system().name() != QLatin1String("zh_CN"));
    QCOMPARE(getDefaultCodecName(), QStringLiteral("UTF-8"));
}

void tst_textcodecs::cleanDecoding_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("bClean");
    QTest::newRow("no codec") << QByteArray("no such codec") << QByteArray("a") << false;
    QTest::newRow("empty") << QByteArray("UTF-8") << QByteArray() << true;
    QTest::newRow("ASCII") << QByteArray("UTF-8") << QByteArray("abc") << true;
    QTest::newRow("e acute") << QByteArray("UTF-8") << QByteArray("\xC3\xA9") << true;
    QTest::newRow("cut off") << QByteArray("UTF-8") << QByteArray("a\xC3") << true;
    QTest::newRow("broken") << QByteArray("UTF-8") << QByteArray("\xC3(") << false;
    QTest::newRow("U+FDD0") << QByteArray("UTF-8") << QByteArray("\xEF\xB7\x90") << false;
    QTest::newRow("U+FDEF") << QByteArray("UTF-8") << QByteArray("\xEF\xB7\xAF") << false;
    QTest::newRow("U+FDF0") << QByteArray("UTF-8") << QByteArray("\xEF\xB7\xB0") << true;
    QTest::newRow("U+FFFE") << QByteArray("UTF-8") << QByteArray("a\xEF\xBF\xBE") << false;
    QTest::newRow("U+FFFF") << QByteArray("UTF-8") << QByteArray("\xEF\xBF\xBF") << false;
    QTest::newRow("U+FFFD") << QByteArray("UTF-8") << QByteArray("\xEF\xBF\xBD") << false;
    QTest::newRow("euro sign") << QByteArray("UTF-8") << QByteArray("\xE2\x82\xAC") << true;
    QTest::newRow("full-width plus") << QByteArray("UTF-8") << QByteArray("\xEF\xBC\x8B") << false;
    QTest::newRow("emoji") << QByteArray("UTF-8") << QByteArray("\xF0\x9F\x99\x82") << true;
    QTest::newRow("Latin 1 takes all")
        << QByteArray("ISO-8859-1") << QByteArray("\xFF\x80") << true;
}

void tst_textcodecs::cleanDecoding()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, data);
    QTextCodec *pCodec = QTextCodec::codecForName(codec);
    QCOMPARE(Literal::isValidDecoding(pCodec, data), isValidDecoding(pCodec, data));
    QTEST(isValidDecoding(pCodec, data), "bClean");
}

void tst_textcodecs::asciiDecoding_isDecidedAsTheDecoderWould()
{
    QByteArray all;
    for (int n = 0; n < 0x80; ++n)
        all += char(n);
    const QList<int> lstMibs = QTextCodec::availableMibs();
    for (const int nMib : lstMibs) {
        QTextCodec *pCodec = QTextCodec::codecForMib(nMib);
        for (const QByteArray &data : {all, QByteArray("text\n"), QByteArray()}) {
            QCOMPARE(isValidDecoding(pCodec, data), Literal::isValidDecoding(pCodec, data));
            QVERIFY2(decodeText(pCodec, data) == pCodec->toUnicode(data), pCodec->name());
        }
    }
}

void tst_textcodecs::detection_ofAscii_isTheFirstOtherThanCodePages()
{
    const QString strName = detectCodecName("plain text\n", QString());
    QVERIFY(!strName.isEmpty() && !strName.startsWith(QLatin1String("ISO-")));
    QCOMPARE(strName, Literal::detectCodecName("plain text\n", QString()));
}

void tst_textcodecs::detection_prefersTheLocalesCodec()
{
    const QString strText = QStringLiteral("简体中文，你好");
    const QByteArray data = QTextCodec::codecForName("GB18030")->fromUnicode(strText);
    QCOMPARE(detectCodecName(data, QStringLiteral("GB18030")), QStringLiteral("GB18030"));
    QCOMPARE(detectCodecName("\xFF\xFF", QStringLiteral("GB18030")),
             Literal::detectCodecName("\xFF\xFF", QStringLiteral("GB18030")));
    QCOMPARE(detectCodecName(data, QStringLiteral("no such codec")),
             detectCodecName(data, QString()));
}

void tst_textcodecs::detection_equalsTheLiteralRule_data()
{
    QTest::addColumn<QByteArray>("data");
    const QString strTexts[] = {QStringLiteral("Zażółć gęślą jaźń"),
                                QStringLiteral("Съешь ещё этих мягких булок"),
                                QStringLiteral("日本語のテキスト、カタカナ"),
                                QStringLiteral("中文简体"),
                                QStringLiteral("다람쥐 헌 쳇바퀴"),
                                QStringLiteral("plain ASCII"),
                                QStringLiteral("café €")};
    const char *const szCodecs[] = {
        "UTF-8", "UTF-16LE", "UTF-16", "UTF-32",     "Shift_JIS", "EUC-JP",       "GB18030",
        "GBK",   "Big5",     "EUC-KR", "ISO-8859-2", "KOI8-R",    "windows-1251", "ISO-2022-JP"};
    for (const char *szCodec : szCodecs) {
        const QTextCodec *pCodec = QTextCodec::codecForName(szCodec);
        if (!pCodec)
            continue;
        for (int n = 0; n < 7; ++n)
            if (pCodec->canEncode(strTexts[n]))
                QTest::addRow("%s of text %d", szCodec, n) << pCodec->fromUnicode(strTexts[n]);
    }
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zero byte") << QByteArray("a\0b", 3);
    QTest::newRow("mark of UTF-8") << QByteArray("\xEF\xBB\xBF"
                                                 "a");
    QTest::newRow("mark of UTF-16") << QByteArray("\xFF\xFE");
}

void tst_textcodecs::detection_equalsTheLiteralRule()
{
    QFETCH(QByteArray, data);
    for (const QString &strPreferred :
         {QString(), QStringLiteral("GB18030"), QStringLiteral("Shift-JIS")})
        QCOMPARE(detectCodecName(data, strPreferred), Literal::detectCodecName(data, strPreferred));
    QCOMPARE(detectCodecName(data), detectCodecName(data, QString()));
}

void tst_textcodecs::detection_equalsTheLiteralRuleForRandomData()
{
    QRandomGenerator random(31);
    for (int n = 0; n < 300; ++n) {
        QByteArray data;
        const int nBound = n % 3 == 0 ? 0x80 : 0x100;
        for (int nLeft = random.bounded(20); nLeft > 0; --nLeft)
            data += char(random.bounded(nBound));
        QVERIFY2(detectCodecName(data, QString()) == Literal::detectCodecName(data, QString()),
                 data.toHex(' ').constData());
    }
}

void tst_textcodecs::utf8Check_equalsTheLiteralRuleForRandomData()
{
    // Bytes at the borders of the table of well-formed sequences.
    const QByteArray alphabet("a\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE"
                              "\xEF\xF0\xF1\xF3\xF4\xF5\xFF\xBB\xBF");
    QRandomGenerator random(32);
    int nSound = 0;
    for (int n = 0; n < 300000; ++n) {
        QByteArray data;
        for (int nLeft = random.bounded(7); nLeft > 0; --nLeft)
            data += alphabet.at(random.bounded(alphabet.size()));
        const bool bExpected = Literal::isUtf8(data) && Literal::hasNonAscii(data);
        nSound += bExpected;
        QVERIFY2(isMultiByteUtf8(data) == bExpected, data.toHex(' ').constData());
    }
    QVERIFY(nSound > 1000);
}

void tst_textcodecs::utf8Check_acrossPieces_data()
{
    QTest::addColumn<QByteArray>("tail");
    QTest::addColumn<bool>("bSound");
    QTest::newRow("two bytes") << QByteArray("\xC3\xA9") << true;
    QTest::newRow("three bytes") << QByteArray("\xE2\x82\xAC") << true;
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x99\x82") << true;
    QTest::newRow("more behind") << QByteArray("\xF0\x9F\x99\x82\xC3\xA9"
                                               "abc")
                                 << true;
    QTest::newRow("cut off") << QByteArray("\xF0\x9F\x99") << false;
    QTest::newRow("broken") << QByteArray("\xF0\x9F\x99"
                                          "a")
                            << false;
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << false;
    QTest::newRow("lead byte alone, then sound") << QByteArray("\xE2\xC3\xA9") << false;
    QTest::newRow("trail byte alone") << QByteArray("\xC3\xA9\x80") << false;
}

void tst_textcodecs::utf8Check_acrossPieces()
{
    QFETCH(QByteArray, tail);
    QFETCH(bool, bSound);
    // Every position that a border between pieces can have within the sequence.
    for (int nBefore = 0; nBefore < 8; ++nBefore) {
        const QByteArray data = QByteArray(0x10000 - nBefore, 'a') + tail;
        QCOMPARE(isMultiByteUtf8(data), bSound);
    }
}

void tst_textcodecs::cutUtf8_losesItsLastPart_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("left");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("ASCII") << QByteArray("abc") << 3;
    QTest::newRow("two bytes, whole") << QByteArray("a\xC3\xA9") << 3;
    QTest::newRow("two bytes, cut") << QByteArray("a\xC3") << 1;
    QTest::newRow("three bytes, whole") << QByteArray("a\xE4\xB8\xAD") << 4;
    QTest::newRow("three bytes, one of them") << QByteArray("a\xE4") << 1;
    QTest::newRow("three bytes, two of them") << QByteArray("a\xE4\xB8") << 1;
    QTest::newRow("four bytes, whole") << QByteArray("a\xF0\x9F\x98\x80") << 5;
    QTest::newRow("four bytes, three of them") << QByteArray("a\xF0\x9F\x98") << 1;
    QTest::newRow("no character's beginning") << QByteArray("\x80\x80\x80\x80") << 4;
    QTest::newRow("shorter than a look back") << QByteArray("\xA9") << 1;
}

void tst_textcodecs::cutUtf8_losesItsLastPart()
{
    QFETCH(QByteArray, data);
    QFETCH(int, left);
    QCOMPARE(withoutCutUtf8(data), data.left(left));
}

void tst_textcodecs::loadingCodec_data()
{
    QTest::addColumn<QString>("strCurrent");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("strExpected");
    const QByteArray shiftJis =
        QTextCodec::codecForName("Shift_JIS")->fromUnicode(QStringLiteral("カタカナ、日本"));
    const QString strAscii = detectCodecName("ascii");

    QTest::newRow("unknown, UTF-8") << "" << QByteArray("café") << "UTF-8";
    QTest::newRow("unknown, ASCII") << "" << QByteArray("cafe") << strAscii;
    QTest::newRow("unknown, Shift_JIS") << "" << shiftJis << "Shift_JIS";
    QTest::newRow("unknown, empty") << "" << QByteArray() << strAscii;
    QTest::newRow("set, decodes") << "ISO-8859-1" << QByteArray("café") << "ISO-8859-1";
    QTest::newRow("set, decodes UTF-8") << "UTF-8" << QByteArray("café") << "UTF-8";
    QTest::newRow("set, cannot decode UTF-8") << "US-ASCII" << QByteArray("café") << "UTF-8";
    QTest::newRow("set, cannot decode, no UTF-8")
        << "US-ASCII" << QByteArray("\xFF\xFE\xFF") << "US-ASCII";
    QTest::newRow("set, unknown codec, UTF-8") << "no such codec" << QByteArray("café") << "UTF-8";
    QTest::newRow("set, unknown codec, ASCII")
        << "no such codec" << QByteArray("cafe") << "no such codec";
}

void tst_textcodecs::loadingCodec()
{
    QFETCH(QString, strCurrent);
    QFETCH(QByteArray, data);
    QTEST(codecNameForData(strCurrent, data), "strExpected");
}

void tst_textcodecs::decodedText_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("strText");
    const QByteArray zero("a\0é", 4);
    QTest::newRow("null without codec") << QByteArray() << QByteArray() << "";
    QTest::newRow("UTF-8 without codec") << QByteArray() << QByteArray("café") << "café";
    QTest::newRow("up to the zero byte without codec") << QByteArray() << zero << "a";
    QTest::newRow("past the zero byte with codec")
        << QByteArray("UTF-8") << zero << QStringLiteral("a\0é");
    QTest::newRow("ASCII past the zero byte")
        << QByteArray("UTF-8") << QByteArray("a\0b", 3) << QStringLiteral("a\0b");
    QTest::newRow("mark is eaten by UTF-8") << QByteArray("UTF-8")
                                            << QByteArray("\xEF\xBB\xBF"
                                                          "a")
                                            << "a";
    QTest::newRow("UTF-16 with mark")
        << QByteArray("UTF-16") << QByteArray("\xFF\xFE\xE9\x00", 4) << "é";
}

void tst_textcodecs::decodedText()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, data);
    QTEST(decodeText(codecForName(QString::fromLatin1(codec)), data), "strText");
}

QTEST_GUILESS_MAIN(tst_textcodecs)
#include "tst_textcodecs.moc"
