#include "editor/contentformat.h"
#include "support/processortime.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString repeated(const char *pText, int nTimes)
{
    return QString::fromUtf8(pText).repeated(nTimes);
}

} // namespace

class tst_contentformat : public QObject
{
    Q_OBJECT

private slots:
    void xml_tellsWhereItFails_data();
    void xml_tellsWhereItFails();
    void xml_isLaidOutWithFourSpaces();
    void xml_keepsWhatItHolds();
    void externalEntities_areNeverRead();
    void hostileXml_isRefusedQuickly_data();
    void hostileXml_isRefusedQuickly();
    void reasonableEntities_areAccepted_data();
    void reasonableEntities_areAccepted();
    void deepElements_failAtTheirPlace();
    void deepestAllowedElements_canBeFormatted();
    void json_errorTextIsNeverEmpty_data();
    void json_errorTextIsNeverEmpty();
    void json_isLaidOutByTheWriter();
    void nestedArrays_doNotEndTheProgram();
    void jsonError_hasItsPlace_data();
    void jsonError_hasItsPlace();
};

void tst_contentformat::xml_tellsWhereItFails_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("good") << "<a><b/></a>"
                          << "" << 0 << 0;
    QTest::newRow("good, with a prefix that is not declared") << "<x:a/>"
                                                              << "" << 0 << 0;
    QTest::newRow("unclosed") << "<a>\n<b>\n</a>"
                              << "tag mismatch" << 3 << 4;
    QTest::newRow("empty") << ""
                           << "unexpected end of file" << 1 << 1;
    QTest::newRow("page with a void element") << "<!DOCTYPE html><html><br></html>"
                                              << "tag mismatch" << 1 << 32;
}

void tst_contentformat::xml_tellsWhereItFails()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    QFETCH(int, line);
    QFETCH(int, column);
    const SParseResult result = parseXml(text);
    QCOMPARE(result.strMessage, message);
    QCOMPARE(result.isGood(), message.isEmpty());
    QCOMPARE(result.nLine, line);
    QCOMPARE(result.nColumn, column);
}

void tst_contentformat::xml_isLaidOutWithFourSpaces()
{
    QCOMPARE(formattedXml("<a><b><c/></b></a>"),
             QString("<a>\n    <b>\n        <c/>\n    </b>\n</a>\n"));
}

void tst_contentformat::xml_keepsWhatItHolds()
{
    const QString strText = formattedXml(QString::fromUtf8(
        "<?xml version=\"1.0\"?><a k=\"é&lt;\"><!--c--><![CDATA[x<y]]>z\u00a0</a>"));
    QVERIFY(strText.contains(QString::fromUtf8("k=\"é&lt;\"")));
    QVERIFY(strText.contains("<!--c-->"));
    QVERIFY(strText.contains("<![CDATA[x<y]]>"));
    QVERIFY(strText.contains(QChar(QChar::Nbsp)));
}

void tst_contentformat::externalEntities_areNeverRead()
{
    QTemporaryDir dir;
    QFile file(dir.filePath("secret.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("the secret");
    file.close();
    const QString strUrl = QUrl::fromLocalFile(file.fileName()).toString();
    const QString strText = QStringLiteral("<!DOCTYPE a SYSTEM \"%1\" [<!ENTITY e SYSTEM \"%1\">"
                                           "<!ENTITY % p SYSTEM \"%1\"> %p;]><a>&e;</a>")
                                .arg(strUrl);
    QVERIFY(parseXml(strText).isGood());
    QVERIFY(!formattedXml(strText).contains("the secret"));
}

void tst_contentformat::hostileXml_isRefusedQuickly_data()
{
    QTest::addColumn<QString>("text");
    QString strLaughs = "<!DOCTYPE a [<!ENTITY l0 \"lol\">";
    QString strInside = strLaughs;
    strInside.replace("ENTITY", "ENTITY %");
    for (int i = 1; i < 10; ++i) {
        strLaughs += QStringLiteral("<!ENTITY l%1 \"%2\">")
                         .arg(i)
                         .arg(QStringLiteral("&l%1;").arg(i - 1).repeated(10));
        strInside += QStringLiteral("<!ENTITY % l%1 \"%2\">")
                         .arg(i)
                         .arg(QStringLiteral("%l%1;").arg(i - 1).repeated(10));
    }
    QTest::newRow("billion laughs") << strLaughs + "]><a>&l9;</a>";
    QTest::newRow("billion laughs in an attribute") << strLaughs + "]><a b='&l9;'/>";
    QTest::newRow("billion laughs of declarations") << strInside + " %l9; ]><a/>";
    const QString strLong = "<!DOCTYPE a [<!ENTITY l \"" + repeated("x", 4000) + "\">]>";
    QTest::newRow("one entity, many times") << strLong + "<a>" + repeated("&l;", 100000) + "</a>";
    QTest::newRow("one entity, many times, in an attribute")
        << strLong + "<a b='" + repeated("&l;", 100000) + "'/>";
    QTest::newRow("one declaration, many times") << "<!DOCTYPE a [<!ENTITY % p \"<!--"
            + repeated("x", 100000) + "-->\"> " + repeated("%p; ", 100000) + "]><a/>";
    QTest::newRow("an entity declared by an entity, many times")
        << "<!DOCTYPE a [<!ENTITY % p \"&#60;!ENTITY l '" + repeated("x", 4000) + "'>\"> %p;]><a>"
            + repeated("&l;", 100000) + "</a>";
    QString strMany = "<!DOCTYPE a [";
    for (int i = 0; i < 50000; ++i)
        strMany += QStringLiteral("<!ENTITY e%1 \"x\">").arg(i);
    QTest::newRow("very many entities") << strMany + "]><a/>";
    QTest::newRow("deep elements") << repeated("<a>", 100000) + repeated("</a>", 100000);
    QTest::newRow("deep elements that stay open") << repeated("<a>", 1000000);
    QTest::newRow("deep elements out of entities")
        << "<!DOCTYPE a [<!ENTITY l \"" + repeated("<b>", 1000) + "\">]><a>" + repeated("&l;", 100);
    QTest::newRow("deep content model")
        << "<!DOCTYPE a [<!ELEMENT a " + repeated("(", 200000) + "]><a/>";
    const QString strDeep = "<!ELEMENT a " + repeated("(", 200000) + "]><a/>";
    QTest::newRow("deep content model behind a comment that declares a type")
        << "<?xml version=\"1.0\"?> <!-- <!DOCTYPE b> -->\n<!DOCTYPE a [" + strDeep;
    QTest::newRow("deep content model behind ends in quotations")
        << "<!DOCTYPE a [<!ENTITY b ']>\"'><!ENTITY c \"]>'\"> " + strDeep;
    QTest::newRow("deep content model behind ends in remarks")
        << "<!DOCTYPE a [<!-- ]>' --><?p ]>\" ?>" + strDeep;
    QTest::newRow("deep content model behind a comment that seems to end at once")
        << "<!DOCTYPE a [<!--> ]> -->" + strDeep;
    QTest::newRow("deep content model behind an entity that ends the declaration")
        << "<!DOCTYPE a [<!ENTITY % p \"'\"><!ENTITY b %p; ]> '> " + strDeep;
    QTest::newRow("deep content model out of an entity")
        << "<!DOCTYPE a [<!ENTITY % p \"<!ELEMENT a " + repeated("&#40;", 200000)
            + "\"> %p; ]><a/>";
    QTest::newRow("document type without an end") << "<!DOCTYPE a [<!ELEMENT a (b";
    QTest::newRow("document type that ends in a text") << "<!DOCTYPE a SYSTEM \"b";
}

void tst_contentformat::hostileXml_isRefusedQuickly()
{
    QFETCH(QString, text);
    const CProcessorTime time;
    const SParseResult result = parseXml(text);
    QVERIFY(!result.isGood());
    QVERIFY(result.nLine >= 1);
    QVERIFY(result.nColumn >= 1);
    QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
}

void tst_contentformat::reasonableEntities_areAccepted_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("name spaces of a drawing")
        << "<!DOCTYPE svg [<!ENTITY ns \"http://www.w3.org/2000/svg\">]>"
           "<svg xmlns=\"&ns;\"><g/></svg>";
    QTest::newRow("a sign used often")
        << "<!DOCTYPE a [<!ENTITY nbsp \"&#160;\">]><a>" + repeated("&nbsp;", 2000) + "</a>";
    QTest::newRow("elements in an entity")
        << "<!DOCTYPE a [<!ENTITY br \"<br/>\">]><a>" + repeated("&br;", 3000) + "</a>";
    QTest::newRow("many brackets in the text") << "<!DOCTYPE a><a>" + repeated("(", 200) + "</a>";
    QTest::newRow("very many brackets in the text")
        << "<?xml version=\"1.0\"?>\n<!-- x --><!DOCTYPE a><a>" + repeated("(", 2000) + "</a>";
    QTest::newRow("very many brackets behind declarations")
        << "<!DOCTYPE a [<!-- ]>' --><?p ]>\" ?><!ENTITY b ']>\"'><!ENTITY c \"]>'\">]><a>"
            + repeated("(", 2000) + "</a>";
    QTest::newRow("many character references")
        << "<!DOCTYPE a><a>" + repeated("&#20013;", 100000) + "</a>";
    QTest::newRow("a content model") << "<!DOCTYPE a [<!ELEMENT a ((b|c)*, d?)>]><a><d/></a>";
    QTest::newRow("a per cent sign") << "<a>" + repeated("100% of it; ", 1000) + "</a>";
}

void tst_contentformat::reasonableEntities_areAccepted()
{
    QFETCH(QString, text);
    QCOMPARE(parseXml(text).strMessage, QString());
}

void tst_contentformat::deepElements_failAtTheirPlace()
{
    const SParseResult result = parseXml(repeated("<a>\n", 257) + repeated("</a>", 257));
    QCOMPARE(result.strMessage, QString("elements nest too deeply"));
    QCOMPARE(result.nLine, 257);
}

void tst_contentformat::deepestAllowedElements_canBeFormatted()
{
    const QString strText = repeated("<a>", 256) + repeated("</a>", 256);
    QVERIFY(parseXml(strText).isGood());
    QCOMPARE(formattedXml(strText).count('\n'), 511);
}

void tst_contentformat::json_errorTextIsNeverEmpty_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("good") << "{\"a\": [1, 2]}"
                          << "no error occurred";
    QTest::newRow("empty") << ""
                           << "illegal value";
    QTest::newRow("unclosed") << "{"
                              << "unterminated object";
}

void tst_contentformat::json_errorTextIsNeverEmpty()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    QCOMPARE(parseJson(text).strMessage, message);
}

void tst_contentformat::json_isLaidOutByTheWriter()
{
    QCOMPARE(formattedJson(QString::fromUtf8("{\"b\":[1,\"é\"],\"a\":null}")),
             QString::fromUtf8("{\n    \"a\": null,\n    \"b\": [\n        1,\n"
                               "        \"é\"\n    ]\n}\n"));
}

void tst_contentformat::nestedArrays_doNotEndTheProgram()
{
    QCOMPARE(parseJson(repeated("[", 100000)).strMessage, QString("too deeply nested document"));
    QCOMPARE(formattedJson(repeated("[", 100000)), QString());
}

void tst_contentformat::jsonError_hasItsPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("good") << "[1]" << 0 << 0;
    QTest::newRow("first line") << "[1 2]" << 1 << 5; // It has taken the 2.
    QTest::newRow("further line") << "[\n  1,\n  x]" << 3 << 3;
    // The parser counts bytes: these characters have two, three and four.
    QTest::newRow("behind other characters") << "[\"\u00E4\u4E00\U0001F600\" 1]" << 1 << 10;
}

void tst_contentformat::jsonError_hasItsPlace()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QFETCH(int, column);
    const SParseResult result = parseJson(text);
    QCOMPARE(result.nLine, line);
    QCOMPARE(result.nColumn, column);
}

QTEST_GUILESS_MAIN(tst_contentformat)
#include "tst_contentformat.moc"
