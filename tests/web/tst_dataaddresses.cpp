#include "support/gzipped.h"
#include "support/madepictures.h"
#include "web/dataaddresses.h"
#include "web/pageresources.h"

#include <QTest>
#include <QTextCodec>

class tst_dataaddresses : public QObject
{
    Q_OBJECT

private slots:
    void icon_data();
    void icon();
    void harmfulData_isFoundHoweverItIsSpelled_data();
    void harmfulData_isFoundHoweverItIsSpelled();
    void harmlessData_staysAsItIs_data();
    void harmlessData_staysAsItIs();
    void refusedAddress_leadsNowhereAndComesBack();
    void bytesInOtherEncodings_areLookedAt_data();
    void bytesInOtherEncodings_areLookedAt();
    void textMadeToBeReadForEver_isReadOnce();
    void resource_isTextFontOrPicture_data();
    void resource_isTextFontOrPicture();
};

namespace {

QString base64(const QByteArray &data)
{
    return QString::fromLatin1(data.toBase64());
}

const char g_szDrawing[] =
    "<svg xmlns='http://www.w3.org/2000/svg'><image href='/dev/zero'/></svg>";

QByteArray large()
{
    return pngClaiming(60000, 60000);
}

} // namespace

void tst_dataaddresses::harmfulData_isFoundHoweverItIsSpelled_data()
{
    QTest::addColumn<QString>("text");
    const QString strLarge = base64(large());
    const QString strPng = QStringLiteral("image/png;base64,") + strLarge;
    const QString strEncoded = QString::fromLatin1(large().toPercentEncoding());
    QTest::newRow("quoted") << "<img src=\"data:" + strPng + "\">";
    QTest::newRow("single quotes") << "<img src='data:" + strPng + "'>";
    QTest::newRow("no quotes") << "<img src=data:" + strPng + ">";
    QTest::newRow("style sheet") << "body { background: url(data:" + strPng + ") }";
    QTest::newRow("upper case") << "<img src=\"DaTa:" + strPng + "\">";
    QTest::newRow("character references") << "<img src=\"&#100;at&#x41;&colon;" + strPng + "\">";
    QTest::newRow("reference without end") << "<img src=\"&#100ata:" + strPng + "\">";
    QTest::newRow("line ends within") << "<img src=\"da\nt\ta\r:" + strPng + "\">";
    QTest::newRow("line ends referred to") << "<img src=\"da&Tab;ta&NewLine;:" + strPng + "\">";
    QTest::newRow("escapes") << "body { background: url(\\64 ata:" + strPng + ") }";
    QTest::newRow("escaped letters") << "body { background: url(da\\ta\\3a " + strPng + ") }";
    QTest::newRow("joined lines") << "body { background: url('da\\\nta:" + strPng + "') }";
    QTest::newRow("escapes as references")
        << "<p style=\"background: url(&#92;64 ata:" + strPng + ")\">";
    QTest::newRow("percent signs") << "<img src=\"data:image/png," + strEncoded + "\">";
    QTest::newRow("payload with references")
        << "<img src=\"data:image/png;base64," + QString(strLarge).replace('A', "&#65;") + "\">";
    QTest::newRow("payload over lines")
        << "<img src=\"data:image/png;base64," + QString(strLarge).insert(9, "\n ") + "\">";
    QTest::newRow("other type") << "<img src=\"data:text/plain;base64," + strLarge + "\">";
    QTest::newRow("no type") << "<img src=\"data:;base64," + strLarge + "\">";
    QTest::newRow("within a frame")
        << "<iframe srcdoc=\"<img src=&quot;data:" + strPng + "&quot;>\">";
    QTest::newRow("within a drawing within") << "<img src=\"data:image/svg+xml;base64,"
            + base64(("<svg><image href='data:" + strPng + "'/></svg>").toLatin1()) + "\">";
    QTest::newRow("within a page within") << "<iframe src=\"data:text/html;base64,"
            + base64(("<img src='data:" + strPng + "'>").toLatin1()) + "\">";
    QTest::newRow("drawing as a picture")
        << "<img src=\"data:image/png;base64," + base64(g_szDrawing) + "\">";
    QTest::newRow("drawing as text") << "<img src=\"data:text/html," + QString(g_szDrawing) + "\">";
    QTest::newRow("compressed drawing")
        << "<img src=\"data:image/svg+xml;base64," + base64(gzipped(g_szDrawing)) + "\">";
    QTest::newRow("drawing by an entity") << "<img src=\"data:text/xml;base64,"
            + base64("<!DOCTYPE x [<!ENTITY s '<svg/>']>&s;") + "\">";
    QTest::newRow("tells no size") << "<img src=\"data:image/x-mng;base64," + base64(mng()) + "\">";
}

void tst_dataaddresses::harmfulData_isFoundHoweverItIsSpelled()
{
    QFETCH(QString, text);
    const QString strSafe = refuseHarmfulData(text);
    QVERIFY(strSafe != text);
    QVERIFY(strSafe.contains(QLatin1String("quillan-refused:")));
}

void tst_dataaddresses::harmlessData_staysAsItIs_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << "";
    QTest::newRow("picture") << "<img src=\"data:image/png;base64," + base64(savedPicture("PNG"))
            + "\">";
    QTest::newRow("picture in a style sheet")
        << "url('data:image/gif;base64," + base64(gifOf(9, 9, 3)) + "')";
    QTest::newRow("drawing")
        << "url(\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg'><g/></svg>\")";
    QTest::newRow("font") << "url(data:font/woff;base64," + base64("wOFF\1\2\3") + ")";
    QTest::newRow("style sheet") << "<link rel=stylesheet href=\"data:text/css,p { color: red }\">";
    QTest::newRow("page") << "<iframe src=\"data:text/html,<!DOCTYPE html><p>Text</p>\">";
    QTest::newRow("words") << "<p>The data: one, two. Metadata: none. A & B, C:\\data\\x, &data;";
    QTest::newRow("words without end") << "data:";
}

void tst_dataaddresses::harmlessData_staysAsItIs()
{
    QFETCH(QString, text);
    QCOMPARE(refuseHarmfulData(text), text);
    QCOMPARE(restoreRefusedData(text), text);
}

void tst_dataaddresses::refusedAddress_leadsNowhereAndComesBack()
{
    const QString strText = "a<img src=\"data:image/png;base64," + base64(large())
        + "\">b<img src=\"data:image/png;base64," + base64(savedPicture("PNG")) + "\">c";
    const QString strSafe = refuseHarmfulData(strText);
    QVERIFY(strSafe.startsWith(QLatin1String("a<img src=\"quillan-refused:image/png")));
    QVERIFY(strSafe.contains(QLatin1String(">b<img src=\"data:image/png")));
    QCOMPARE(refuseHarmfulData(strSafe), strSafe);
    QCOMPARE(restoreRefusedData(strSafe), strText);
}

void tst_dataaddresses::bytesInOtherEncodings_areLookedAt_data()
{
    QTest::addColumn<QByteArray>("codec");
    for (const char *szCodec :
         {"UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE", "Shift_JIS", "GB18030"})
        QTest::newRow(szCodec) << QByteArray(szCodec);
}

void tst_dataaddresses::bytesInOtherEncodings_areLookedAt()
{
    QFETCH(QByteArray, codec);
    const QTextCodec *pCodec = QTextCodec::codecForName(codec);
    const QString strHarmless = QStringLiteral("<p>\u65e5\u672c</p>");
    const QString strHarmful = strHarmless + "<img src=\"data:;base64," + base64(large()) + "\">";
    const QByteArray harmless = pCodec->fromUnicode(strHarmless);
    QCOMPARE(refuseHarmfulData(harmless), harmless);
    const QByteArray safe = refuseHarmfulData(pCodec->fromUnicode(strHarmful));
    QCOMPARE(restoreRefusedData(pCodec->toUnicode(safe)), strHarmful);
    QVERIFY(pCodec->toUnicode(safe) != strHarmful);
    QVERIFY(pCodec->toUnicode(safe).startsWith(strHarmless));
}

void tst_dataaddresses::textMadeToBeReadForEver_isReadOnce()
{
    // Each address would be all the rest of the text.
    const QString strText = QStringLiteral("data:").repeated(100000);
    QVERIFY(refuseHarmfulData(strText).size() > strText.size());
    QCOMPARE(restoreRefusedData(refuseHarmfulData(strText)), strText);
}

void tst_dataaddresses::resource_isTextFontOrPicture_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("harmless");
    QTest::addColumn<bool>("drawing"); // When named so.
    QTest::newRow("text") << QByteArray("p { color: red }\n") << true << true;
    QTest::newRow("nothing") << QByteArray() << true << true;
    QTest::newRow("font") << QByteArray("\0\1\0\0\0\x0b", 6) << true << true;
    QTest::newRow("picture") << savedPicture("PNG") << true << true;
    QTest::newRow("large picture") << large() << false << false;
    QTest::newRow("drawing") << QByteArray(g_szDrawing) << false << true;
    QTest::newRow("drawing with a prefix") << QByteArray("<s:svg/>") << false << true;
    QTest::newRow("part of a drawing") << QByteArray("<g>") << false << true;
    QTest::newRow("page") << QByteArray("<!DOCTYPE html><p>") << true << true;
    QTest::newRow("unknown bytes") << QByteArray("\1\2\3") << false << false;
    QTest::newRow("program of a page") << QByteArray("%!PS") << false << false;
}

void tst_dataaddresses::resource_isTextFontOrPicture()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, harmless);
    QFETCH(bool, drawing);
    QCOMPARE(isHarmlessResource(data, false), harmless);
    QCOMPARE(isHarmlessResource(data, true), drawing);
}

// The engine would decode and keep it by itself, whatever it is.
void tst_dataaddresses::icon_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("refused");
    const auto add = [](const char *szHtml, bool bRefused) {
        QTest::newRow(szHtml) << QString::fromLatin1(szHtml) << bRefused;
    };
    add("<link rel=icon href='data:image/png;base64,iVBORw0KGgo='>", true);
    add("<link rel=\"icon\" href=\"data:image/x-icon;base64,AAABAAEA\">", true);
    add("<link rel=icon href='data:image/svg+xml,%3Csvg xmlns=%22x%22/%3E'>", true);
    add("<link rel=icon href=data:>", true);
    add("<link rel=icon href='data:,'>", true);
    add("<link rel=icon href='data:;base64,'>", true);
    add("<link rel=icon href='data:image/png,%89PNG%0D%0A'>", true);
    add("<link href='data:,x' rel='shortcut icon'>", true);
    add("<LINK REL=ICON HREF=DATA:,x>", true);
    add("<link rel='apple-touch-icon' href='data:,x'>", true);
    add("<link rel='i&#99;on' href='data:,x'>", true);
    add("<link rel=icon href='&#100;a\nt\ta&colon;,x'>", true);
    add("<link rel=icon href='  data:,x'>", true);
    add("<link rel=icon href='&Tab;da&NewLine;ta:,x'>", true);
    add("<link title='<p>' rel=icon href='data:,x'>", true);
    add("<link title='rel=stylesheet>' rel=icon href='data:,x'/>", true);
    add("<h:link rel='icon' href='data:,x'/>", true);
    add("<link rel=icon href=a.png>", false);
    add("<link rel=stylesheet href='data:text/css,p{}'>", false);
    add("<a rel=icon href='data:,x'>", false);
    add("<!-- <link rel=icon href='data:,x'> -->", false);
}

void tst_dataaddresses::icon()
{
    QFETCH(QString, html);
    QFETCH(bool, refused);
    const QString strSafe = refuseHarmfulData(html);
    QCOMPARE(strSafe != html, refused);
    QCOMPARE(strSafe.contains(QLatin1String("quillan-refused:")), refused);
    QCOMPARE(refuseHarmfulData(strSafe), strSafe);
    const QByteArray bytes = refuseHarmfulData(html.toLatin1());
    QCOMPARE(bytes != html.toLatin1(), refused);
    if (refused)
        QVERIFY(restoreRefusedData(strSafe).contains(QLatin1String("data:")));
}

QTEST_GUILESS_MAIN(tst_dataaddresses)
#include "tst_dataaddresses.moc"
