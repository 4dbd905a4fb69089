#include "editor/chighlightedit.h"
#include "editor/lineendings.h"
#include "tests/editor/withsettings.h"

#include "app/platform.h"

#include <QTest>
#include <QTextCodec>

class tst_texteditload : public QObject
{
    Q_OBJECT

private slots:
    void utf8Text_editedAndEditedBack_isSavedByteForByte_data();
    void utf8Text_editedAndEditedBack_isSavedByteForByte();
    void everyCharacter_isSavedAsItWasOpened_data();
    void everyCharacter_isSavedAsItWasOpened();
    void separatorsSurvive_undoAndFurtherTyping();

    void codec_isChosenByTheData_data();
    void codec_isChosenByTheData();
    void setCodec_isKeptForDataThatItDecodes();
    void asciiFileThatBecameUtf8_isReadAsUtf8();
    void savedAsUtf8_isReadAsUtf8();
    void undecodableBytes_areShownAllTheSame();
    void zeroByte_endsLineEndDetectionOnly();

    void newDocument_hasThePlatformsLineEnds();
    void fileWithoutLineEnd_keepsThePreviousStyle();
    void emptyDocument_staysEmptyInEveryStyle();
    void mixedLineEnds_countAsWindows();
    void lineEndsOfAStyle_areSavedByteForByte_data();
    void lineEndsOfAStyle_areSavedByteForByte();
    void unknownStyle_writesLinesAsTheyAre();

    void switchingTheCodec_readsTheSameBytesAnew();
    void switchingToTheSameCodec_leavesTheDocumentAlone();
    void switchingToAnUnknownCodec_changesNothing();
    void switchingWithoutACodec_startsFromLatin1();
    void switchingTheCodec_keepsTheModifiedFlag();
};

void tst_texteditload::utf8Text_editedAndEditedBack_isSavedByteForByte_data()
{
    QTest::addColumn<QString>("strText");
    QTest::newRow("German") << "Übergrößenträger, süß\n";
    QTest::newRow("French") << "Où est l’été ? Çà et là : cœur\n";
    QTest::newRow("Spanish") << "¿Mañana? ¡Sí, señor!\n";
    QTest::newRow("Polish") << "Zażółć gęślą jaźń\n";
    QTest::newRow("Russian") << "Съешь ещё этих булок\n";
    QTest::newRow("Greek") << "Ξεσκεπάζω την ψυχοφθόρα\n";
    QTest::newRow("Chinese") << "中文简体與繁體\n";
    QTest::newRow("Japanese") << "いろは カタカナ 漢字 ｶﾅ\n";
    QTest::newRow("Korean") << "다람쥐 헌 쳇바퀴\n";
    QTest::newRow("emoji") << "🙂👩‍👩‍👧 🇪🇺 ❤️\n";
    QTest::newRow("curly quotes") << "“quoted” ‘text’ „unten“\n";
    QTest::newRow("copyright sign") << "© 2016\n";
    QTest::newRow("euro sign") << "5 €\n";
    QTest::newRow("one letter") << "é";
    QTest::newRow("café") << "café\n";
}

void tst_texteditload::utf8Text_editedAndEditedBack_isSavedByteForByte()
{
    QFETCH(QString, strText);
    const QByteArray data = strText.toUtf8();
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData(data, false);
    QCOMPARE(edit.codecName(), QStringLiteral("UTF-8"));
    QCOMPARE(edit.toPlainText(), strText);
    QVERIFY(!edit.isModified());

    edit.moveCursor(QTextCursor::End);
    edit.insertPlainText(QStringLiteral("x"));
    QVERIFY(edit.isModified());
    QCOMPARE(edit.getText().toUtf8(), QByteArray(data + 'x'));
    edit.textCursor().deletePreviousChar();
    QCOMPARE(edit.getText().toUtf8(), data);
}

void tst_texteditload::everyCharacter_isSavedAsItWasOpened_data()
{
    QTest::addColumn<QString>("strText");
    QTest::newRow("no-break space") << "10\u00A0000\u00A0€\n\u00A0\n";
    QTest::newRow("line separator") << "a\u2028b\n\u2028\n";
    QTest::newRow("paragraph separator") << "a\u2029b\n\u2029";
    QTest::newRow("frame marks") << "a\uFDD0b\uFDD1c\n";
    QTest::newRow("every separator") << "\u2029\u2028\uFDD0\uFDD1\u2029\n\u00A0é";
    QTest::newRow("object replacement character") << "a\uFFFCb é\n";
    QTest::newRow("control characters") << "\t\v\f\u001B[1m\u0085\u007F é\n";
    QTest::newRow("directional marks") << "\u200Fשלום\u200E \u202Bab\u202C\n";
    QTest::newRow("non-characters") << "é\uFFFE\uFFFF\uFDD2\uFDEF\n";
    QTest::newRow("private use") << "\uE000\uF8FF\n";
    QTest::newRow("combining marks") << "e\u0301 n\u0303\n";
    QTest::newRow("blanks at line ends") << "é  \n\t\n \n";
    QTest::newRow("zero characters") << QStringLiteral("é\0b\0\n");
}

void tst_texteditload::everyCharacter_isSavedAsItWasOpened()
{
    QFETCH(QString, strText);
    WithSettings settings;
    CHighlightEdit edit;
    edit.resize(300, 200);
    edit.show(); // Laying the text out must not change it.
    edit.setReturnFormat(ReturnFormatUnix); // Line ends behind a zero byte do not count.
    edit.setTextData(strText.toUtf8(), false);
    edit.grab();
    QCOMPARE(edit.getText(), strText);
    QCOMPARE(edit.getText().toUtf8(), strText.toUtf8());
}

void tst_texteditload::separatorsSurvive_undoAndFurtherTyping()
{
    WithSettings settings;
    CHighlightEdit edit;
    const QString strText = QStringLiteral("é\u2029b\u00A0c\n");
    edit.setTextData(strText.toUtf8(), false);
    edit.selectAll();
    edit.insertPlainText(QStringLiteral("x"));
    QCOMPARE(edit.getText(), QStringLiteral("x"));
    edit.undo();
    QCOMPARE(edit.getText(), strText);
    edit.moveCursor(QTextCursor::End);
    edit.insertPlainText(QStringLiteral("\u00A0"));
    QCOMPARE(edit.getText(), QString(strText + QChar(0x00A0)));
}

void tst_texteditload::codec_isChosenByTheData_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("strCodec"); // Empty for whatever the library has first.
    QTest::addColumn<QString>("strText");
    QTextCodec *pShiftJis = QTextCodec::codecForName("Shift_JIS");
    const QString strKana = QStringLiteral("日本語のテキスト、カタカナ\n");

    QTest::newRow("empty") << QByteArray() << ""
                           << "";
    QTest::newRow("one byte") << QByteArray("a") << ""
                              << "a";
    QTest::newRow("ASCII") << QByteArray("int main() {}\n") << ""
                           << "int main() {}\n";
    QTest::newRow("Shift_JIS") << pShiftJis->fromUnicode(strKana) << "Shift_JIS" << strKana;
    const auto legacy = [](const char *szCodec, const QString &strText) {
        QTest::newRow(szCodec) << QTextCodec::codecForName(szCodec)->fromUnicode(strText)
                               << QString::fromLatin1(szCodec) << strText;
    };
    legacy("windows-1252", QStringLiteral("int größe; // für später\n"));
    legacy("IBM850", QStringLiteral("int größe; // für später\n"));
    legacy("windows-1251", QStringLiteral("Простой текст\n"));
    legacy("KOI8-R", QStringLiteral("Простой текст\n"));
    legacy("EUC-JP", strKana);
    legacy("UTF-16", QStringLiteral("größe\n"));
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBFtext") << "UTF-8"
                                     << "text";
    QTest::newRow("UTF-8 mark alone") << QByteArray("\xEF\xBB\xBF") << "UTF-8"
                                      << "";
}

void tst_texteditload::codec_isChosenByTheData()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, strCodec);
    WithSettings settings;
    CHighlightEdit edit;
    QCOMPARE(edit.codecName(), QString());
    edit.setTextData(data, false);
    if (!strCodec.isEmpty())
        QCOMPARE(edit.codecName(), strCodec);
    QTEST(edit.toPlainText(), "strText");
}

void tst_texteditload::setCodec_isKeptForDataThatItDecodes()
{
    WithSettings settings;
    CHighlightEdit edit;
    const QTextCodec *pShiftJis = QTextCodec::codecForName("Shift_JIS");
    edit.setTextData(pShiftJis->fromUnicode(QStringLiteral("カタカナ")), false);
    QCOMPARE(edit.codecName(), QStringLiteral("Shift_JIS"));
    edit.setTextData("ascii", false);
    QCOMPARE(edit.codecName(), QStringLiteral("Shift_JIS"));
}

void tst_texteditload::asciiFileThatBecameUtf8_isReadAsUtf8()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("cafe", false);
    QVERIFY(!edit.codecName().isEmpty());
    edit.setTextData("café", false);
    QCOMPARE(edit.toPlainText(), QStringLiteral("café"));
    QCOMPARE(edit.codecName(), QStringLiteral("UTF-8"));
}

void tst_texteditload::savedAsUtf8_isReadAsUtf8()
{
    WithSettings settings;
    CHighlightEdit edit;
    const QString strText = QStringLiteral("日本語\n");
    edit.setTextData(QTextCodec::codecForName("Shift_JIS")->fromUnicode(strText), false);
    const QByteArray saved = edit.getText().toUtf8();
    edit.markSavedAsUtf8();
    QCOMPARE(edit.codecName(), QStringLiteral("UTF-8"));
    edit.setTextData(saved, false);
    QCOMPARE(edit.toPlainText(), strText);
}

void tst_texteditload::undecodableBytes_areShownAllTheSame()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData(QByteArray("ok \xFF\xFF\xFF\xFE\x81 end"), false);
    QVERIFY(edit.toPlainText().contains(QStringLiteral("ok")));
}

void tst_texteditload::zeroByte_endsLineEndDetectionOnly()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setReturnFormat(2);
    const QByteArray data("ab\0cd\ne", 7);
    edit.setTextData(data, false);
    QCOMPARE(edit.returnFormat(), 2); // The line end lies behind the zero byte.
    QCOMPARE(edit.blockCount(), 2);
    edit.setReturnFormat(1);
    QCOMPARE(edit.getText().toUtf8(), data);
}

void tst_texteditload::newDocument_hasThePlatformsLineEnds()
{
    WithSettings settings;
    CHighlightEdit edit;
    QCOMPARE(edit.returnFormat(), Platform::defaultReturnFormat());
}

void tst_texteditload::fileWithoutLineEnd_keepsThePreviousStyle()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setReturnFormat(2);
    edit.setTextData("no line end", false);
    QCOMPARE(edit.returnFormat(), 2);
}

void tst_texteditload::emptyDocument_staysEmptyInEveryStyle()
{
    WithSettings settings;
    CHighlightEdit edit;
    for (int nFormat = 0; nFormat < 3; ++nFormat) {
        edit.setReturnFormat(nFormat);
        QCOMPARE(edit.getText(), QString());
    }
}

void tst_texteditload::mixedLineEnds_countAsWindows()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("a\r\nb\nc", false);
    QCOMPARE(edit.returnFormat(), 0);
    QCOMPARE(edit.getText(), QStringLiteral("a\r\nb\r\nc"));
}

void tst_texteditload::lineEndsOfAStyle_areSavedByteForByte_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("nFormat");
    QTest::newRow("CR LF") << QByteArray("a\r\n\r\nb\r\n") << 0;
    QTest::newRow("LF") << QByteArray("a\n\nb\n") << 1;
    QTest::newRow("CR") << QByteArray("a\r\rb\r") << 2;
}

void tst_texteditload::lineEndsOfAStyle_areSavedByteForByte()
{
    QFETCH(QByteArray, data);
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData(data, false);
    QTEST(edit.returnFormat(), "nFormat");
    QCOMPARE(edit.blockCount(), 4);
    QCOMPARE(edit.getText().toUtf8(), data);
}

void tst_texteditload::unknownStyle_writesLinesAsTheyAre()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("a\r\nb", false);
    edit.setReturnFormat(5);
    QCOMPARE(edit.getText(), QStringLiteral("a\nb"));
}

void tst_texteditload::switchingTheCodec_readsTheSameBytesAnew()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("caf\xC3\xA9\r\n", false);
    edit.setCodecName(QStringLiteral("ISO-8859-1"));
    QCOMPARE(edit.codecName(), QStringLiteral("ISO-8859-1"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("caf\u00C3\u00A9\n"));
    QCOMPARE(edit.returnFormat(), 0);
    edit.setCodecName(QStringLiteral("UTF-8"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("café\n"));
}

void tst_texteditload::switchingToTheSameCodec_leavesTheDocumentAlone()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("café", false);
    edit.insertPlainText(QStringLiteral("x"));
    edit.setCodecName(QStringLiteral("UTF-8"));
    QVERIFY(edit.document()->isUndoAvailable());
    QCOMPARE(edit.toPlainText(), QStringLiteral("xcafé"));
}

void tst_texteditload::switchingToAnUnknownCodec_changesNothing()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("café", false);
    edit.insertPlainText(QStringLiteral("x"));
    edit.setCodecName(QStringLiteral("no such codec"));
    edit.setCodecName(QString());
    QCOMPARE(edit.codecName(), QStringLiteral("UTF-8"));
    QVERIFY(edit.document()->isUndoAvailable());
}

void tst_texteditload::switchingWithoutACodec_startsFromLatin1()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setPlainText(QStringLiteral("caf\u00C3\u00A9"));
    QCOMPARE(edit.codecName(), QString());
    edit.setCodecName(QStringLiteral("UTF-8"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("café"));
}

void tst_texteditload::switchingTheCodec_keepsTheModifiedFlag()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("café", false);
    edit.setCodecName(QStringLiteral("ISO-8859-1"));
    QVERIFY(!edit.isModified());
    edit.insertPlainText(QStringLiteral("x"));
    edit.setCodecName(QStringLiteral("UTF-8"));
    QVERIFY(edit.isModified());
    QCOMPARE(edit.toPlainText(), QStringLiteral("xcafé"));
}

QTEST_MAIN(tst_texteditload)
#include "tst_texteditload.moc"
