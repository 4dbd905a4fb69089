// Which texts count as whole, and that detection may end early without another answer.

#include "app/codecdetection.h"
#include "app/textcodecs.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <QTextCodec>
#include <QTextDecoder>

#include <memory>

namespace {

QTextCodec *codec(const char *szName)
{
    return QTextCodec::codecForName(szName);
}

// The rule literally: decodes everything at once, then looks at every character.
bool isValidAtOnce(QTextCodec *pCodec, const QByteArray &data)
{
    const std::unique_ptr<QTextDecoder> pDecoder(pCodec->makeDecoder());
    const QString strText = pDecoder->toUnicode(data);
    if (pDecoder->hasFailure())
        return false;
    return std::none_of(strText.cbegin(), strText.cend(), [](QChar c) {
        const ushort u = c.unicode();
        return (u >= 0xFDD0 && u <= 0xFDEF) || (u & 0xFFFE) == 0xFFFE
            || (c.isSymbol() && u >= 0x8000);
    });
}

// On Windows only what the codec library has: Qt's own lacks some of ICU's.
QVector<const char *> availableCodecs(std::initializer_list<const char *> codecs)
{
    QVector<const char *> lstCodecs(codecs);
#ifdef Q_OS_WIN
    const auto isMissing = [](const char *szCodec) { return !codec(szCodec); };
    lstCodecs.erase(std::remove_if(lstCodecs.begin(), lstCodecs.end(), isMissing), lstCodecs.end());
#endif
    return lstCodecs;
}

QByteArray randomBytes(QRandomGenerator *pRandom, int nSize, int nBound)
{
    QByteArray data(nSize, '\0');
    for (char &c : data)
        c = char(pRandom->bounded(nBound));
    return data;
}

QByteArray contentOf(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_wholetext : public QObject
{
    Q_OBJECT

private slots:
    void whole_data();
    void whole();
    void whole_isNothingLess_thanEncodingAgain();
    void everyCharacter_isWholeInItsCodec();

    void validity_inPieces_equalsThatAtOnce_forRandomData();
    void validity_inPieces_equalsThatAtOnce_forFaultsAtEveryBorder();
    void validity_inPieces_equalsThatAtOnce_forOurFiles();

    void wideCodec_data();
    void wideCodec();
    void wideCodec_isNotGuessed_forOtherData();
    void unreadableData_isNoEncoding();
};

void tst_wholetext::whole_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("whole");
    const auto row = [](const char *szRow, const char *szCodec, const QByteArray &data,
                        bool bWhole) {
        QTest::newRow(szRow) << QByteArray(szCodec) << data << bWhole;
    };
    row("empty", "UTF-8", "", true);
    row("nothing, no codec", "", "", true);
    row("ASCII, no codec", "", "abc", true);
    row("UTF-8, no codec", "", "caf\xC3\xA9", true);
    row("zero byte, no codec", "", QByteArray("a\0b", 3), false);
    row("zero byte at the end, no codec", "", QByteArray("a\0", 2), false);
    row("undecodable, no codec", "", "caf\xE9", false);
    row("cut off, no codec", "", "caf\xC3", false);
    row("U+FFFD in UTF-8, no codec", "", "\xEF\xBF\xBD", true);
    row("ASCII", "UTF-8", "abc", true);
    row("zero byte", "UTF-8", QByteArray("a\0b", 3), true);
    row("UTF-8", "UTF-8", "caf\xC3\xA9", true);
    row("UTF-8 with mark", "UTF-8", "\xEF\xBB\xBF\xC3\xA9", true);
    row("mark alone", "UTF-8", "\xEF\xBB\xBF", true);
    row("mark within", "UTF-8", "a\xEF\xBB\xBF", true);
    row("U+FFFD", "UTF-8", "\xEF\xBF\xBD", true);
    row("undecodable UTF-8", "UTF-8", "caf\xE9!", false);
    row("overlong", "UTF-8", "\xC0\xAF", false);
    row("overlong of three", "UTF-8", "\xE0\x80\xAF", false);
    row("CESU surrogates", "UTF-8", "\xED\xA0\xBD\xED\xB8\x80", false);
    row("lone surrogate in UTF-8", "UTF-8", "\xED\xA0\x80", false);
    row("beyond Unicode", "UTF-8", "\xF4\x90\x80\x80", false);
    row("UTF-16 with mark", "UTF-16", QByteArray("\xFF\xFE\xE9\0", 4), true);
    row("UTF-16 with the other mark", "UTF-16", QByteArray("\xFE\xFF\0\xE9", 4), true);
    row("UTF-16 without mark", "UTF-16LE", QByteArray("\xE9\0a\0", 4), true);
    row("UTF-16BE without mark", "UTF-16BE", QByteArray("\0\xE9\0a", 4), true);
    row("UTF-16LE with mark", "UTF-16LE", QByteArray("\xFF\xFE\xE9\0", 4), true);
    row("UTF-16, two marks", "UTF-16", QByteArray("\xFF\xFE\xFF\xFE"), true);
    row("UTF-16, odd byte", "UTF-16", QByteArray("\xFF\xFE\xE9\0a", 5), false);
    row("UTF-16, one byte", "UTF-16", "a", false);
    row("UTF-16, lone surrogate", "UTF-16",
        QByteArray("\xFF\xFE\0\xD8"
                   "a\0",
                   6),
        false);
    row("UTF-16, surrogate at the end", "UTF-16",
        QByteArray("\xFF\xFE"
                   "a\0\0\xD8",
                   6),
        false);
    row("UTF-16, pair", "UTF-16", QByteArray("\xFF\xFE\x3D\xD8\0\xDE", 6), true);
    row("UTF-32 with mark", "UTF-32", QByteArray("\xFF\xFE\0\0a\0\0\0", 8), true);
    row("UTF-32 with the other mark", "UTF-32", QByteArray("\0\0\xFE\xFF\0\0\0a", 8), true);
    row("UTF-32, three bytes too many", "UTF-32", QByteArray("\xFF\xFE\0\0a\0\0\0b\0\0", 11),
        false);
    row("Shift_JIS", "Shift_JIS", "\x83J\x83^", true);
    row("Shift_JIS, cut off", "Shift_JIS", "\x83J\x83", false);
    row("Shift_JIS, undecodable", "Shift_JIS", "\x83J\xFF", false);
    row("GB18030", "GB18030", "\xD6\xD0\xCE\xC4", true);
    row("GB18030, undecodable", "GB18030", "\xD6\xD0\xFF", false);
    row("ISO-2022-JP", "ISO-2022-JP", "a\x1B$B$\"\x1B(Bb", true);
    row("windows-1252", "windows-1252", "caf\xE9 \x80", true);
    row("ISO-8859-1", "ISO-8859-1", "caf\xE9 \x80", true);
    row("US-ASCII of other bytes", "US-ASCII", "caf\xE9", false);
}

void tst_wholetext::whole()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, data);
    const QTextCodec *pCodec = name.isEmpty() ? nullptr : codec(name);
    QTEST(isWholeText(pCodec, data), "whole");
}

// Without a byte-order mark the rule is one line.
void tst_wholetext::whole_isNothingLess_thanEncodingAgain()
{
    QRandomGenerator random(41);
    int nWhole = 0;
    const auto lstCodecs =
        availableCodecs({"UTF-8", "UTF-16LE", "Shift_JIS", "GB18030", "EUC-JP", "Big5",
                         "windows-1252", "windows-949", "KOI8-R", "US-ASCII"});
    QVERIFY(lstCodecs.size() > 7);
    for (const char *szCodec : lstCodecs) {
        const QTextCodec *pCodec = codec(szCodec);
        for (int n = 0; n < 3000; ++n) {
            const QByteArray data = randomBytes(&random, random.bounded(9), n % 2 ? 0x100 : 0xA0);
            if (data.contains('\xEF') || data.contains('\xFE'))
                continue;
            const QString strText = pCodec->toUnicode(data);
            const QScopedPointer<QTextEncoder> pEncoder(
                pCodec->makeEncoder(QTextCodec::IgnoreHeader));
            const bool bExpected = strText.isValidUtf16() && pEncoder->fromUnicode(strText) == data;
            QVERIFY2(isWholeText(pCodec, data) == bExpected,
                     qPrintable(QLatin1String(szCodec) + ' ' + data.toHex(' ')));
            nWhole += bExpected;
        }
    }
    QVERIFY(nWhole > 1000);
}

void tst_wholetext::everyCharacter_isWholeInItsCodec()
{
    const QString strText = QString::fromUtf8("Größe, źródło, код, 文字, 한글, 中 😀\n");
    for (const char *szCodec :
         {"UTF-8", "UTF-16", "UTF-16LE", "UTF-16BE", "UTF-32", "UTF-32LE", "UTF-32BE", "GB18030"}) {
        QByteArray data = codec(szCodec)->fromUnicode(strText);
        if (QByteArray(szCodec).startsWith("UTF-32"))
            data.chop(4); // The encoder's own fault with the last character but one.
        QCOMPARE(codec(szCodec)->toUnicode(data), strText);
        QVERIFY2(isWholeText(codec(szCodec), data), szCodec);
#ifndef Q_OS_WIN
        QVERIFY2(!isWholeText(codec("US-ASCII"), data), szCodec);
#endif
    }
}

void tst_wholetext::validity_inPieces_equalsThatAtOnce_forRandomData()
{
    QRandomGenerator random(42);
    const QList<int> lstMibs = QTextCodec::availableMibs();
    int nValid = 0;
    for (int n = 0; n < 60; ++n) {
        const int nSize = n % 4 == 0 ? 1020 + random.bounded(10) : random.bounded(5000);
        const QByteArray data = randomBytes(&random, nSize, n % 3 == 0 ? 0x80 : 0x100);
        for (const int nMib : lstMibs) {
            QTextCodec *pCodec = QTextCodec::codecForMib(nMib);
            const bool bExpected = isValidAtOnce(pCodec, data);
            QVERIFY2(isValidDecoding(pCodec, data) == bExpected, pCodec->name());
            nValid += bExpected;
        }
    }
    QVERIFY(nValid > 500);
}

// Text of each codec, with one wrong byte or none, so that a border of a piece falls on each place.
void tst_wholetext::validity_inPieces_equalsThatAtOnce_forFaultsAtEveryBorder()
{
    const QString strText = QString::fromUtf8("カナ漢字 abc ёж ü 한 😀 ");
    const auto lstCodecs =
        availableCodecs({"UTF-8", "UTF-16", "UTF-32", "GB18030", "Shift_JIS", "EUC-JP",
                         "ISO-2022-JP", "windows-949", "Big5", "windows-1251", "UTF-7"});
    QVERIFY(lstCodecs.size() > 8);
    for (const char *szCodec : lstCodecs) {
        QTextCodec *pCodec = codec(szCodec);
        const QByteArray text = pCodec->fromUnicode(strText.repeated(200));
        for (int nBefore = 0; nBefore < 12; ++nBefore) {
            QByteArray data = QByteArray(nBefore, ' ') + text;
            QCOMPARE(isValidDecoding(pCodec, data), isValidAtOnce(pCodec, data));
            data.insert(1018 + nBefore, '\xFF');
            QCOMPARE(isValidDecoding(pCodec, data), isValidAtOnce(pCodec, data));
        }
    }
}

void tst_wholetext::validity_inPieces_equalsThatAtOnce_forOurFiles()
{
    int nFiles = 0;
    for (const char *szFolder : {"res", "tests/highlight/samples", "fuzz/corpus/load"}) {
        QDirIterator it(QStringLiteral(QUILLAN_SOURCE_DIR "/") + szFolder, QDir::Files,
                        QDirIterator::Subdirectories);
        for (; it.hasNext(); ++nFiles) {
            const QByteArray data = contentOf(it.next());
            for (const char *szCodec :
                 {"UTF-8", "UTF-16", "GB18030", "Shift_JIS", "windows-1251"}) {
                QVERIFY2(isValidDecoding(codec(szCodec), data)
                             == isValidAtOnce(codec(szCodec), data),
                         qPrintable(it.filePath()));
            }
        }
    }
    QVERIFY(nFiles > 50);
}

void tst_wholetext::wideCodec_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("name");
    const QString strText = QString::fromUtf8("Größe 10: 文字 код\n");
    for (const char *szCodec : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"}) {
        const QScopedPointer<QTextEncoder> pEncoder(
            codec(szCodec)->makeEncoder(QTextCodec::IgnoreHeader));
        QTest::newRow(szCodec) << pEncoder->fromUnicode(strText) << QString::fromLatin1(szCodec);
        QTest::addRow("%s with mark", szCodec)
            << codec(szCodec)->fromUnicode(strText) << QString::fromLatin1(szCodec).left(6);
    }
    QTest::newRow("mark and an odd byte") << QByteArray("\xFF\xFE\xE9\0a", 5) << "UTF-16";
    QTest::newRow("odd") << QByteArray("\xE9\0 \0a", 5) << "";
    QTest::newRow("no blank") << QByteArray("\xE9\0a\0", 4) << "";
    QTest::newRow("lone surrogate") << QByteArray("\0\xD8 \0a\0", 6) << "";
    QTest::newRow("unassigned") << QByteArray("\xFF\x05 \0\xE9\0", 6) << "";
    QTest::newRow("control character") << QByteArray("\x01\0 \0\xE9\0", 6) << "";
    QTest::newRow("old encoding") << QByteArray("Gr\xF6\xDF"
                                                "e\n")
                                  << "";
}

void tst_wholetext::wideCodec()
{
    QFETCH(QByteArray, data);
    QTEST(detectWideCodec(data), "name");
}

void tst_wholetext::wideCodec_isNotGuessed_forOtherData()
{
    QRandomGenerator random(43);
    for (int n = 0; n < 2000; ++n) {
        QByteArray data = randomBytes(&random, 40 + random.bounded(100), 0x100);
        if (data.startsWith("\xFF\xFE") || data.startsWith("\xFE\xFF"))
            continue;
        QVERIFY2(detectWideCodec(data).isEmpty(), data.toHex(' '));
    }
}

void tst_wholetext::unreadableData_isNoEncoding()
{
    QRandomGenerator random(44);
    for (int n = 0; n < 50; ++n) {
        const QByteArray data = randomBytes(&random, 5000, 0x100);
        const SDetectedCodec detected = detectLegacyCodec(data, QString());
        QVERIFY2(detected.strName.isEmpty(), qPrintable(detected.strName));
        QVERIFY(!detectCodec(data).bSure);
    }
}

QTEST_GUILESS_MAIN(tst_wholetext)
#include "tst_wholetext.moc"
