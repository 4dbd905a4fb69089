#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "tests/editor/withsettings.h"

#include <QLocale>
#include <QTest>
#include <QTextCodec>

// Runs under the locale zh_CN.
class tst_chineselocale : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void gb18030_opensAsGb18030();
    void utf8_opensAsUtf8();
    void ascii_opensAsGb18030();
    void othersOpen_whereGb18030DoesNotFit();
};

void tst_chineselocale::initTestCase()
{
    QCOMPARE(QLocale::system().name(), QStringLiteral("zh_CN"));
    QCOMPARE(getDefaultCodecName(), QStringLiteral("GB18030"));
}

void tst_chineselocale::gb18030_opensAsGb18030()
{
    WithSettings settings;
    const QString strText = QStringLiteral("简体中文、€é\u00A0𠀀\n");
    CHighlightEdit edit;
    edit.setTextData(QTextCodec::codecForName("GB18030")->fromUnicode(strText), false);
    QCOMPARE(edit.codecName(), QStringLiteral("GB18030"));
    QCOMPARE(edit.getText(), strText);
}

void tst_chineselocale::utf8_opensAsUtf8()
{
    WithSettings settings;
    const QString strText = QStringLiteral("简体中文 café\n");
    CHighlightEdit edit;
    edit.setTextData(strText.toUtf8(), false);
    QCOMPARE(edit.codecName(), QStringLiteral("UTF-8"));
    QCOMPARE(edit.getText(), strText);
}

void tst_chineselocale::ascii_opensAsGb18030()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setTextData("ascii", false);
    QCOMPARE(edit.codecName(), QStringLiteral("GB18030"));
}

void tst_chineselocale::othersOpen_whereGb18030DoesNotFit()
{
    const QString strText = QStringLiteral("Größe, Fläche\n");
    for (const char *szCodec : {"UTF-16", "UTF-16LE", "UTF-32"}) {
        const QByteArray data = QTextCodec::codecForName(szCodec)->fromUnicode(strText);
        QVERIFY(!isValidDecoding(QTextCodec::codecForName("GB18030"), data));
        QCOMPARE(decodeText(codecForName(detectCodec(data).strName), data), strText);
    }
}

QTEST_MAIN(tst_chineselocale)
#include "tst_chineselocale.moc"
