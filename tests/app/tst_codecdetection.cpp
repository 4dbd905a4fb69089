// Single texts whose encoding is found, or known to be a guess. The table of languages is
// tst_encodings.

#include "app/codecdetection.h"
#include "app/codecranking.h"
#include "app/languageletters.h"
#include "app/textcodecs.h"

#include "encodingtexts.h"

#include <QSet>
#include <QTest>
#include <QTextCodec>

namespace {

QByteArray encoded(const char *szCodec, const QString &strText)
{
    return QTextCodec::codecForName(szCodec)->fromUnicode(strText);
}

QString shown(const SDetectedCodec &detected, const QByteArray &data)
{
    return decodeText(codecForName(detected.strName), data);
}

} // namespace

class tst_codecdetection : public QObject
{
    Q_OBJECT

private slots:
    void shortText_isReadRight_data();
    void shortText_isReadRight();
    void eachForeignCharacter_makesAReadingLessLikely_data();
    void eachForeignCharacter_makesAReadingLessLikely();
    void languageOfTheLocale_decidesBetweenEquals();
    void fullWidthSigns_areNoFault();
    void cutText_isStillFound_data();
    void cutText_isStillFound();
    void encodingThatOnlyTheDetectorKnows_isBelieved();
    void foreignLine_countsWhereverItStands();
    void lateByte_tellsSimilarEncodingsApart();
    void guess_isNotSure_data();
    void guess_isNotSure();
    void whatIsFound_decodesEverything();
    void everyLanguage_hasCodecsAndLetters();
};

void tst_codecdetection::shortText_isReadRight_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *szCodec, const char *szText) {
        const QString strText = QString::fromUtf8(szText);
        QTest::addRow("%s in %s", szText, szCodec) << encoded(szCodec, strText) << strText;
    };
    row("windows-1252", "größe");
    row("windows-1252", "Straße");
    row("windows-1252", "naïve");
    row("windows-1252", "Ångström");
    row("windows-1252", "Author: José García");
    row("windows-1252", "50 €");
    row("windows-1252", "It’s a test");
    row("windows-1252", "“quoted” – text");
    row("windows-1252", "20°C ± 3 µm");
    row("windows-1252", "© 2004 Example");
    row("IBM850", "Müller & Söhne");
    row("windows-1250", "Łukasz Wróbel");
    row("ISO-8859-2", "Łukasz Wróbel");
    row("KOI8-R", "Ответ");
    row("windows-1251", "Ответ: гневавшийся");
    row("Shift_JIS", "カタカナ");
    row("Shift_JIS", "データ");
    row("EUC-JP", "日本");
    row("GB18030", "中文");
    row("windows-949", "한글");
    row("ISO-2022-JP", "大きさ, size");
}

void tst_codecdetection::shortText_isReadRight()
{
    QFETCH(QByteArray, data);
    QTEST(shown(detectCodec(data), data), "text");
}

void tst_codecdetection::eachForeignCharacter_makesAReadingLessLikely_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("character");
    const auto row = [](const char *szCodec, const char *szCharacter) {
        QTest::newRow(szCharacter) << QByteArray(szCodec) << QString::fromUtf8(szCharacter);
    };
    row("windows-1252", "ä");
    row("windows-1252", "€");
    row("KOI8-R", "о");
    row("GB18030", "的");
    row("Shift_JIS", "の");
    row("windows-949", "이");
}

// However frequent it is: else a reading with many of them would win.
void tst_codecdetection::eachForeignCharacter_makesAReadingLessLikely()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, character);
    const auto best = [&](const QString &strText) {
        const auto lstReadings = readings(encoded(codec, strText), QString());
        for (const SReading &reading : lstReadings)
            if (reading.strText == strText)
                return reading.nScore;
        return 0.0;
    };
    const double nOnce = best("a " + character + " a");
    const double nTwice = best("a " + character + " a " + character + " a");
    QVERIFY(nOnce < -1);
    QVERIFY(nTwice < nOnce - 1);
}

void tst_codecdetection::languageOfTheLocale_decidesBetweenEquals()
{
    const QByteArray data = encoded("Big5", QString::fromUtf8("// 緩衝區\n"));
    QCOMPARE(detectLegacyCodec(data, QStringLiteral("zh_tw")).strName, QStringLiteral("Big5"));
    QCOMPARE(detectLegacyCodec(data, QStringLiteral("zh_cn")).strName, QStringLiteral("GB18030"));
    QCOMPARE(detectLegacyCodec(data, QStringLiteral("ko_kr")).strName,
             QStringLiteral("windows-949"));
    // The locale does not decide against the evidence of the text.
    const QByteArray german = encoded("windows-1252", QString::fromUtf8("Größe, Fläche, Länge"));
    for (const char *szLocale : {"zh_cn", "ja_jp", "ru_ru", "pl_pl", "el_gr"})
        QCOMPARE(detectLegacyCodec(german, szLocale).strName, QStringLiteral("windows-1252"));
}

void tst_codecdetection::fullWidthSigns_areNoFault()
{
    const QString strText = QString::fromUtf8("価格＝１００円＋税～五月末まで、詳しくはこちら。");
    for (const char *szCodec : {"Shift_JIS", "EUC-JP"}) {
        const QByteArray data = encoded(szCodec, strText);
        QTextCodec *pCodec = QTextCodec::codecForName(szCodec);
        QVERIFY(!isValidDecoding(pCodec, data));
        QVERIFY(isValidDecoding(pCodec, data, FullWidthSigns::Allowed));
        QCOMPARE(detectCodec(data).strName, QString::fromLatin1(szCodec));
    }
}

void tst_codecdetection::cutText_isStillFound_data()
{
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QString>("prose");
    for (const SEncodingText &text : encodingTexts()) {
        for (const QString &strCodec : text.lstCodecs)
            if (text.strLanguage.contains("Chinese") || text.strLanguage == "Japanese"
                || text.strLanguage == "Korean")
                QTest::newRow(qPrintable(strCodec)) << strCodec << text.strProse;
    }
}

void tst_codecdetection::cutText_isStillFound()
{
    QFETCH(QString, codec);
    QFETCH(QString, prose);
    const QByteArray data = encoded(codec.toLatin1(), prose);
    const QString strFound = detectCodec(data).strName;
    for (int nSize = data.size() - 12; nSize < data.size(); ++nSize)
        QCOMPARE(detectCodec(data.left(nSize)).strName, strFound);
}

void tst_codecdetection::encodingThatOnlyTheDetectorKnows_isBelieved()
{
    const QString strText = QString::fromUtf8(
        "Ĉiu ĵaŭdo la aĝa ĝardenisto ŝmiris la ĉaron kaj veturis laŭ la rivero ĝis la urbo, kie li "
        "vendis ŝafojn, ĉapelojn kaj freŝajn panojn al ĉiuj, kiuj aŭdis lian kanton. Ĝojaj infanoj "
        "ĉirkaŭis lin kaj aŭskultis, ĝis la suno malaperis malantaŭ la preĝejo.");
    for (const SLanguageLetters &language : languageLetters())
        QVERIFY(!language.lstCodecs.contains(QStringLiteral("ISO-8859-3")));
    const QByteArray data = encoded("ISO-8859-3", strText);
    QCOMPARE(shown(detectCodec(data), data), strText);
}

void tst_codecdetection::foreignLine_countsWhereverItStands()
{
    const QString strText = QString::fromUtf8("// Größe der Fläche\n");
    const QByteArray code = QByteArray("int count = 0;\n").repeated(20000);
    for (const char *szLineEnd : {"\n", "\r\n", "\r"}) {
        QByteArray data = code + encoded("IBM850", strText) + code;
        data.replace("\n", szLineEnd);
        QCOMPARE(detectCodec(data).strName, QStringLiteral("IBM850"));
    }
}

// Most of the text is the same in both encodings; the difference comes last.
void tst_codecdetection::lateByte_tellsSimilarEncodingsApart()
{
    const QString strSame = QString::fromUtf8("mála káva nová číslo éra\n").repeated(500);
    for (const char *szCodec : {"windows-1250", "ISO-8859-2"}) {
        const QString strText = strSame + QString::fromUtf8("ľahká šťava, žiť, ťažký šál\n");
        const QByteArray data = encoded(szCodec, strText);
        QCOMPARE(detectCodec(data).strName, QString::fromLatin1(szCodec));
    }
}

void tst_codecdetection::guess_isNotSure_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("sure");
    QTest::newRow("ASCII") << QByteArray("abc") << true;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9") << true;
    QTest::newRow("ASCII with an escape") << QByteArray("\x1B$ echo") << true;
    QTest::newRow("mark of UTF-16") << QByteArray("\xFF\xFE\xE9\0", 4) << true;
    QTest::newRow("German words") << encoded("windows-1252",
                                             QString::fromUtf8("Größe, Fläche, Länge"))
                                  << true;
    QTest::newRow("one letter") << QByteArray("\xE9") << false;
    QTest::newRow("one byte that is no letter") << QByteArray("\x81") << false;
    QTest::newRow("zero byte among German words")
        << encoded("windows-1252", QString::fromUtf8("Größe, Fläche, Länge")) + QByteArray("\0", 1)
        << false;
    QTest::newRow("three ideographs") << encoded("Big5", QString::fromUtf8("緩衝區")) << false;
}

void tst_codecdetection::guess_isNotSure()
{
    QFETCH(QByteArray, data);
    QTEST(detectCodec(data).bSure, "sure");
}

void tst_codecdetection::whatIsFound_decodesEverything()
{
    int nTexts = 0;
    for (const SEncodingText &text : encodingTexts()) {
        for (const QString &strCodec : text.lstCodecs) {
            for (const QString &strText : {text.strProse, text.source(), text.strRemark}) {
                const QByteArray data = encoded(strCodec.toLatin1(), strText);
                const SDetectedCodec detected = detectCodec(data);
                QVERIFY2(isWholeText(codecForName(detected.strName), data), qPrintable(strText));
                ++nTexts;
            }
        }
    }
    QVERIFY(nTexts > 120);
}

void tst_codecdetection::everyLanguage_hasCodecsAndLetters()
{
    for (const SLanguageLetters &language : languageLetters()) {
        QVERIFY(!language.strLetters.isEmpty());
        QCOMPARE(QSet<QChar>(language.strLetters.cbegin(), language.strLetters.cend()).size(),
                 language.strLetters.size());
        for (const QChar c : language.strLetters)
            QVERIFY2(codecForName(language.lstCodecs.value(0))->canEncode(c),
                     qPrintable(QString(c)));
        for (const QString &strCodec : language.lstCodecs) {
            const QTextCodec *pCodec = codecForName(strCodec);
#ifdef Q_OS_WIN
            if (!pCodec)
                continue; // Qt's own codecs, without ICU, are fewer.
#endif
            QVERIFY2(pCodec, qPrintable(strCodec));
            QCOMPARE(strCodec, QString::fromLatin1(pCodec->name()));
        }
    }
}

QTEST_GUILESS_MAIN(tst_codecdetection)
#include "tst_codecdetection.moc"
