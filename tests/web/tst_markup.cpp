#include "web/markup.h"

#include <QTest>

class tst_markup : public QObject
{
    Q_OBJECT

private slots:
    void repairSerialised_data();
    void repairSerialised();
    void scriptString_data();
    void scriptString();
    void colorFromCss_data();
    void colorFromCss();
    void firstFontFamily_data();
    void firstFontFamily();
};

void tst_markup::repairSerialised_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing to do") << "<p>\nx</p>"
                                   << "<p>\nx</p>";
    QTest::newRow("pre") << "<pre>\nx</pre>"
                         << "<pre>\n\nx</pre>";
    QTest::newRow("pre without line end") << "<pre>x\n</pre>"
                                          << "<pre>x\n</pre>";
    QTest::newRow("pre with attributes") << "<pre class=\"a\">\nx</pre>"
                                         << "<pre class=\"a\">\n\nx</pre>";
    QTest::newRow("text area") << "<textarea>\n</textarea>"
                               << "<textarea>\n\n</textarea>";
    QTest::newRow("listing") << "<listing>\n</listing>"
                             << "<listing>\n\n</listing>";
    QTest::newRow("pre in a comment") << "<!--<pre>\n-->"
                                      << "<!--<pre>\n-->";
    QTest::newRow("pre in a script") << "<script>'<pre>\n'</script>"
                                     << "<script>'<pre>\n'</script>";
    QTest::newRow("frame") << "<iframe>&lt;b&gt; &amp;lt;&nbsp;</iframe>&lt;"
                           << QStringLiteral("<iframe><b> &lt;\u00A0</iframe>&lt;");
    QTest::newRow("noembed") << "<noembed>&lt;</noembed>"
                             << "<noembed><</noembed>";
    QTest::newRow("noframes") << "<noframes>&lt;</noframes>"
                              << "<noframes><</noframes>";
    QTest::newRow("script stays") << "<script>&lt;</script>"
                                  << "<script>&lt;</script>";
    QTest::newRow("plaintext") << "<plaintext>&lt;p&gt;</plaintext></body></html>"
                               << "<plaintext><p>";
    QTest::newRow("carriage return") << "<p>a\rb</p>"
                                     << "<p>a&#13;b</p>";
    QTest::newRow("xml declaration") << "<!--?xml version=\"1.0\"?--><html>"
                                     << "<?xml version=\"1.0\"?><html>";
    QTest::newRow("later xml comment") << "<html><!--?xml x?-->"
                                       << "<html><!--?xml x?-->";
    QTest::newRow("ordinary comment") << "<!-- ?xml ? --><html>"
                                      << "<!-- ?xml ? --><html>";
}

void tst_markup::repairSerialised()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    QCOMPARE(::repairSerialised(html), expected);
}

void tst_markup::scriptString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty") << ""
                           << "\"\"";
    QTest::newRow("plain") << "abc"
                           << "\"abc\"";
    QTest::newRow("quote and backslash") << "a\"b\\c"
                                         << "\"a\\\"b\\\\c\"";
    QTest::newRow("line end") << "a\nb"
                              << "\"a\\nb\"";
    QTest::newRow("line separator") << QString(QChar(0x2028)) << "\"\\u2028\"";
    QTest::newRow("paragraph separator") << QString(QChar(0x2029)) << "\"\\u2029\"";
    QTest::newRow("not ASCII") << QStringLiteral("é中") << QStringLiteral("\"é中\"");
}

void tst_markup::scriptString()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(::scriptString(text), expected);
}

void tst_markup::colorFromCss_data()
{
    QTest::addColumn<QString>("css");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("rgb") << "rgb(1, 2, 3)" << QColor(1, 2, 3);
    QTest::newRow("rgba opaque") << "rgba(1,2,3,1)" << QColor(1, 2, 3);
    QTest::newRow("rgba transparent") << "rgba(0, 0, 0, 0)" << QColor(0, 0, 0, 0);
    QTest::newRow("too much") << "rgb(300, 2, 3)" << QColor(255, 2, 3);
    QTest::newRow("hash") << "#ff0080" << QColor(255, 0, 128);
    QTest::newRow("name") << "red" << QColor(Qt::red);
    QTest::newRow("transparent") << "transparent" << QColor(0, 0, 0, 0);
    QTest::newRow("nothing") << "" << QColor();
    QTest::newRow("nonsense") << "rgb(1, 2)" << QColor();
}

void tst_markup::colorFromCss()
{
    QFETCH(QString, css);
    QFETCH(QColor, expected);
    const QColor clr = ::colorFromCss(css);
    QCOMPARE(clr.isValid(), expected.isValid());
    QCOMPARE(clr.rgba(), expected.rgba());
}

void tst_markup::firstFontFamily_data()
{
    QTest::addColumn<QString>("css");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("one") << "Arial"
                         << "Arial";
    QTest::newRow("list") << "Arial, sans-serif"
                          << "Arial";
    QTest::newRow("single quotes") << "'Times New Roman', serif"
                                   << "Times New Roman";
    QTest::newRow("double quotes with comma") << "\"A, B\", serif"
                                              << "A, B";
    QTest::newRow("escaped quote") << "'O\\'Font', serif"
                                   << "O'Font";
    QTest::newRow("open quote") << "'Arial"
                                << "'Arial";
    QTest::newRow("blanks") << "  Arial  , x"
                            << "Arial";
}

void tst_markup::firstFontFamily()
{
    QFETCH(QString, css);
    QFETCH(QString, expected);
    QCOMPARE(::firstFontFamily(css), expected);
}

QTEST_GUILESS_MAIN(tst_markup)
#include "tst_markup.moc"
