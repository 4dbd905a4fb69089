#include "webtest.h"

#include "web/cpagemerge.h"
#include "web/cpagereader.h"
#include "web/htmlreferences.h"
#include "web/keptlines.h"
#include "web/pageaddresses.h"
#include "web/tokenalign.h"

#include <QRandomGenerator>

// The source of a page with the changes of the page merged in, and the parts of the merge.
class tst_pagemerge : public QObject
{
    Q_OBJECT

private slots:
    void change_isWrittenAsTheSourceWrites_data();
    void change_isWrittenAsTheSourceWrites();
    void unchangedPage_isTheSource();
    void sourceThatMakesAnotherPage_isMended();
    void readerThatNeverAgrees_givesTheWholePage();
    void places_goThereAndBack();
    void references_data();
    void references();
    void alignment_isAsLongAsTheLongest();
    void alignment_ofManyRepetitions_isNearlyWhole();
    void keptLines_data();
    void keptLines();
    void movedAddresses_data();
    void movedAddresses();
};

void tst_pagemerge::change_isWrittenAsTheSourceWrites_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("from"); // In the page.
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *szName, const char *szSource, const char *szFrom,
                        const char *szTo, const char *szExpected) {
        QTest::newRow(szName) << QString::fromUtf8(szSource) << QString::fromUtf8(szFrom)
                              << QString::fromUtf8(szTo) << QString::fromUtf8(szExpected);
    };
    row("letter", "<P>one<P>two", "two", "twox", "<P>one<P>twox");
    row("reference kept", "<p>caf&eacute; x", "é x", "és x", "<p>caf&eacute;s x");
    row("reference by habit", "<p>&eacute; x</p>", "x", "xé", "<p>&eacute; x&eacute;</p>");
    row("character by habit", "<p>é x</p>", "x", "xé", "<p>é xé</p>");
    row("unescaped ampersand kept", "<p>AT&T x</p>", "AT&amp;T", "AT&amp;Ts", "<p>AT&Ts x</p>");
    row("less-than sign", "<p>x</p>", "x", "x&lt;y", "<p>x&lt;y</p>");
    row("upper-case tags", "<P>x y</P>", "x", "<b>x</b>", "<P><B>x</B> y</P>");
    row("XHTML line break", "<?xml version=\"1.0\"?><html><body><p>x y<br/></p></body></html>",
        "x y", "x<br>y", "<?xml version=\"1.0\"?><html><body><p>x<br/>y<br/></p></body></html>");
    row("split without end tags", "<p>one\n<p>two\n", "one", "o</p><p>ne",
        "<p>o</p><p>ne\n<p>two\n");
    row("join without end tags", "<p>one\n<p>two\n", "one\n</p><p>two", "onetwo", "<p>onetwo\n");
    row("after an implied end", "<p>one<p>two", "</p><p>two", "</p><ul><li>x</li></ul><p>two",
        "<p>one</p><ul><li>x</li></ul><p>two");
    row("attribute added", "<P CLASS=a  ID='b'>x</P>", "id=\"b\">", "id=\"b\" align=\"right\">",
        "<P CLASS=a  ID='b' ALIGN='right'>x</P>");
    row("attribute changed", "<p class=a id=b >x</p>", "class=\"a\"", "class=\"c d\"",
        "<p class=\"c d\" id=b >x</p>");
    row("attribute removed", "<p class=a id=b>x</p>", " class=\"a\"", "", "<p id=b>x</p>");
    row("boolean attribute", "<input name=a>", "name=\"a\">", "name=\"a\" checked=\"\">",
        "<input name=a checked>");
    row("image that is self-closing", "<p><img src=\"a.png\" /></p>", "a.png\">",
        "a.png\" width=\"5\">", "<p><img src=\"a.png\" width=\"5\" /></p>");
    row("line ends", "<p>a\r\n<p>b\r\n", "<p>b", "<p>b<br>\nc", "<p>a\r\n<p>b<br>\r\nc\r\n");
    row("first line of preformatted text", "<pre>\none</pre>", "one", "xone", "<pre>\nxone</pre>");
    row("table without its body", "<table><tr><td>1</table>", "<tr><td>1</td></tr>",
        "<tr><td>1</td></tr><tr><td>2</td></tr>",
        "<table><tr><td>1</td></tr><tr><td>2</td></tr></table>");
    row("rows without end tags", "<table><tr><td>1<td>2\n</table>", "2\n</td></tr>",
        "2</td></tr>\n<tr><td></td><td></td></tr>\n",
        "<table><tr><td>1<td>2</td></tr>\n<tr><td></td><td></td></tr>\n</table>");
    row("stray end tag stays", "<p>one</i> two", "two", "twos", "<p>one</i> twos");
    row("marks of the clipboard", "<p>x</p>", "x", "x<!--StartFragment-->y<!--EndFragment-->",
        "<p>xy</p>");
    row("comments and sections", "<!-- a --><p>x</p><!-- b -->", "x", "y",
        "<!-- a --><p>y</p><!-- b -->");
    row("blanks behind the page", "<html><body><p>x</p></body>\n</html>\n", "<p>x</p>",
        "<p>x</p><p>y</p>", "<html><body><p>x</p><p>y</p></body>\n</html>\n");
}

void tst_pagemerge::change_isWrittenAsTheSourceWrites()
{
    QFETCH(QString, source);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, expected);
    CPageReader reader;
    const QString strShown = reader.serialised(source);
    QVERIFY2(strShown.count(from) == 1, qPrintable(strShown));
    const QString strNow = QString(strShown).replace(from, to);
    CPageMerge merge(source, strShown);
    const QString strMerged =
        merge.merged(strNow, [&](const QString &strText) { return reader.serialised(strText); });
    QCOMPARE(strMerged, expected);
    QCOMPARE(comparablePage(reader.serialised(strMerged)), comparablePage(strNow));
}

void tst_pagemerge::unchangedPage_isTheSource()
{
    CPageReader reader;
    const QString strSource = QStringLiteral("<P>one<TABLE>lost<TR><TD>x</I></TABLE>");
    const QString strShown = reader.serialised(strSource);
    CPageMerge merge(strSource, strShown);
    const auto read = [&](const QString &strText) { return reader.serialised(strText); };
    QCOMPARE(merge.merged(strShown, read), strSource);
}

// For example the bytes were decoded differently: the shown page counts.
void tst_pagemerge::sourceThatMakesAnotherPage_isMended()
{
    CPageReader reader;
    const QString strSource = QStringLiteral("<P>one\n<P>tvo\n");
    const QString strShown = reader.serialised(QString(strSource).replace('v', 'w'));
    CPageMerge merge(strSource, strShown);
    const auto read = [&](const QString &strText) { return reader.serialised(strText); };
    QCOMPARE(merge.merged(strShown, read), QStringLiteral("<P>one\n<P>two\n"));
    QCOMPARE(merge.merged(QString(strShown).replace("one", "ones"), read),
             QStringLiteral("<P>ones\n<P>two\n"));
}

void tst_pagemerge::readerThatNeverAgrees_givesTheWholePage()
{
    const QString strShown = QStringLiteral("<html><head></head><body><p>x</p></body></html>");
    CPageMerge merge(QStringLiteral("<p>x"), strShown);
    const QString strNow = QString(strShown).replace('x', 'y');
    int nCalls = 0;
    const QString strMerged = merge.merged(strNow, [&](const QString &strText) -> QString {
        return strText + QString::number(++nCalls);
    });
    QCOMPARE(strMerged, strNow);
    QVERIFY(nCalls < 40);
}

void tst_pagemerge::places_goThereAndBack()
{
    CPageReader reader;
    const QString strSource =
        QStringLiteral("<HTML>\r\n<TITLE>t&amp;t</TITLE>\r\n<P>one &lt;two\r\n"
                       "<P>caf&eacute; <B>bold</B> end\r\n");
    CPageMerge merge(strSource, reader.serialised(strSource));
    for (const char *szWord : {"two", "one", "bold", "end", "t&amp"}) {
        const int nPosition = strSource.indexOf(QLatin1String(szWord)) + 1;
        QCOMPARE(merge.sourcePosition(merge.placeOf(nPosition)), nPosition);
    }
    // Behind five start tags (html, head, title, body, p) and "one".
    QCOMPARE(merge.sourcePosition({5, 3}), strSource.indexOf(QLatin1String("one")) + 3);
}

void tst_pagemerge::references_data()
{
    QTest::addColumn<QString>("spelled");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inAttribute");
    const auto row = [](const char *szSpelled, const char *szText, const char *szAttribute) {
        QTest::newRow(szSpelled) << QString::fromUtf8(szSpelled) << QString::fromUtf8(szText)
                                 << QString::fromUtf8(szAttribute);
    };
    row("a &amp; b", "a & b", "a & b");
    row("&lt;&gt;&quot;&apos;", "<>\"'", "<>\"'");
    row("&nbsp;&copy;&mdash;", "\xC2\xA0©—", "\xC2\xA0©—");
    row("&#65;&#x42;&#X43", "ABC", "ABC");
    row("&#150;", "–", "–");
    row("&#0;", "\xEF\xBF\xBD", "\xEF\xBF\xBD");
    row("&copy x", "© x", "© x");
    row("&copy=1&amp=2", "©=1&=2", "&copy=1&amp=2");
    row("&copyx", "©x", "&copyx");
    row("&notit;", "¬it;", "&notit;");
    row("& &; &#; &#x; &unknown;", "& &; &#; &#x; &unknown;", "& &; &#; &#x; &unknown;");
    row("&mdash", "&mdash", "&mdash");
    row("\r\n\r", "\n\n", "\n\n");
}

void tst_pagemerge::references()
{
    QFETCH(QString, spelled);
    QFETCH(QString, text);
    QFETCH(QString, inAttribute);
    QCOMPARE(decodeReferences(spelled, 0, spelled.size(), EReferences::InText), text);
    QCOMPARE(decodeReferences(spelled, 0, spelled.size(), EReferences::InAttribute), inAttribute);
    const SDecodedText decoded =
        decodeWithPositions(spelled, 0, spelled.size(), EReferences::InText);
    QCOMPARE(decoded.lstPositions.size(), decoded.strText.size() + 1);
}

namespace {

int pairsOf(const QVector<quint64> &lstA, const QVector<quint64> &lstB)
{
    const QVector<int> lstPairs = alignSequences(lstA, lstB);
    int nPairs = 0;
    int nLast = -1;
    for (int n = 0; n < lstPairs.size(); ++n) {
        if (lstPairs.at(n) < 0)
            continue;
        if (lstPairs.at(n) <= nLast || lstA.at(n) != lstB.at(lstPairs.at(n)))
            return -1;
        nLast = lstPairs.at(n);
        ++nPairs;
    }
    return nPairs;
}

// By the definition.
int longestOf(const QVector<quint64> &lstA, const QVector<quint64> &lstB)
{
    QVector<QVector<int>> lstBest(lstA.size() + 1, QVector<int>(lstB.size() + 1, 0));
    for (int i = lstA.size() - 1; i >= 0; --i) {
        for (int j = lstB.size() - 1; j >= 0; --j)
            lstBest[i][j] = lstA.at(i) == lstB.at(j) ? lstBest[i + 1][j + 1] + 1
                                                     : qMax(lstBest[i + 1][j], lstBest[i][j + 1]);
    }
    return lstBest[0][0];
}

} // namespace

void tst_pagemerge::alignment_isAsLongAsTheLongest()
{
    QRandomGenerator random(5);
    for (int n = 0; n < 3000; ++n) {
        const auto sequence = [&] {
            QVector<quint64> lst(random.bounded(30));
            for (quint64 &nKey : lst)
                nKey = random.bounded(6);
            return lst;
        };
        const QVector<quint64> lstA = sequence();
        const QVector<quint64> lstB = sequence();
        const int nPairs = pairsOf(lstA, lstB);
        // A sure run ends a search early; apart from that nothing is lost.
        QVERIFY(nPairs >= 0);
        QVERIFY(nPairs >= longestOf(lstA, lstB) * 8 / 10);
    }
}

void tst_pagemerge::alignment_ofManyRepetitions_isNearlyWhole()
{
    QVector<quint64> lstA;
    QVector<quint64> lstB;
    for (int n = 0; n < 100000; ++n) { // Cells without end tags, and with them.
        lstA << 1 << 2;
        lstB << 1 << 2 << 3;
    }
    QCOMPARE(pairsOf(lstA, lstB), lstA.size());
    QVector<quint64> lstC;
    for (int n = 0; n < 100000; ++n)
        lstC << n * 7919ULL % 100003 + 10;
    QCOMPARE(pairsOf(lstA, lstC), 0);
}

void tst_pagemerge::keptLines_data()
{
    QTest::addColumn<QString>("original");
    QTest::addColumn<QString>("edited");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one kind") << "a\r\nb\r\n"
                              << "a\nc\n"
                              << "a\nc\n";
    QTest::newRow("changed line") << "a\r\nb\nc\n"
                                  << "a\r\nX\r\nc\r\n"
                                  << "a\r\nX\nc\n";
    QTest::newRow("new line") << "a\nb\r\nc\n"
                              << "a\r\nb\r\nnew\r\nc\r\n"
                              << "a\nb\r\nnew\nc\n";
    QTest::newRow("last line without an end") << "a\nb\r\nc"
                                              << "a\r\nb\r\nc"
                                              << "a\nb\r\nc";
    QTest::newRow("all three") << "a\nb\r\nc\rd"
                               << "a\r\nb\r\nc\r\ne"
                               << "a\nb\r\nc\re";
}

void tst_pagemerge::keptLines()
{
    QFETCH(QString, original);
    QFETCH(QString, edited);
    QFETCH(QString, expected);
    QCOMPARE(withKeptLineEnds(original, edited), expected);
}

void tst_pagemerge::movedAddresses_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    const auto keep = [](const char *szHtml) {
        QTest::newRow(szHtml) << QString::fromUtf8(szHtml) << QString::fromUtf8(szHtml);
    };
    const auto move = [](const char *szHtml, const char *szExpected) {
        QTest::newRow(szHtml) << QString::fromUtf8(szHtml) << QString::fromUtf8(szExpected);
    };
    keep("<a href='#x'>");
    keep("<a href=\"/x\">");
    keep("<a href=\"http://x/\">");
    keep("<a href=\"mailto:x\">");
    keep("<a href=\"\">");
    keep("<a href=\"?x\">");
    keep("<img src=\"data:,x\">");
    keep("<a name=\"x\" title=\"y\">");
    keep("<base href=\"http://x/\"><a href=\"b.html\">");
    move("<a href=\"b.html#c?d\">", "<a href=\"../my%20pages/b.html#c?d\">");
    move("<IMG SRC=a.png>", "<IMG SRC=../my%20pages/a.png>");
    move("<img src='../a.png'>", "<img src='../a.png'>");
    move("<img src='../new/a.png'>", "<img src='../new/a.png'>");
    move("<link href=\"./s.css?a=1&amp;b=2\">", "<link href=\"../my%20pages/s.css?a=1&amp;b=2\">");
    move("<p style=\"background: url(a.png)\">",
         "<p style=\"background: url(../my%20pages/a.png)\">");
    move("<style>@import \"s.css\"; p { background: url('a.png') }</style>",
         "<style>@import \"../my%20pages/s.css\"; p { background: url('../my%20pages/a.png') }"
         "</style>");
    keep("<!-- <a href=\"b.html\"> --><script>'<a href=\"b.html\">'</script>");
    move("<video poster=a.png>", "<video poster=../my%20pages/a.png>");
    move("<body background='a.png'>", "<body background='../my%20pages/a.png'>");
    move("<object data=\"a.svg\">", "<object data=\"../my%20pages/a.svg\">");
    move("<object codebase=\"b/\" data=\"a.svg\">",
         "<object codebase=\"../my%20pages/b/\" data=\"a.svg\">");
    move("<img srcset=\"a.png 1x, b.png 2x\">",
         "<img srcset=\"../my%20pages/a.png 1x, ../my%20pages/b.png 2x\">");
    move("<source srcset='a.png, /b.png 2x,c.png 3x,'>",
         "<source srcset='../my%20pages/a.png, /b.png 2x,../my%20pages/c.png 3x,'>");
    move("<img srcset=\"data:image/png;base64,QUJD,RA 1x, a,b.png calc(1,2), c.png\">",
         "<img srcset=\"data:image/png;base64,QUJD,RA 1x, ../my%20pages/a,b.png calc(1,2), "
         "../my%20pages/c.png\">");
    keep("<img srcset=\"\"><img srcset=\" , ,\"><img srcset>");
    move("<p style=\"background:url(&quot;a.png&quot;),url('b.png')\">",
         "<p style=\"background:url(&quot;../my%20pages/a.png&quot;),"
         "url('../my%20pages/b.png')\">");
    keep("<p style=\"background:url(&quot;http://x/a.png&quot;)\">");
    move("<meta http-equiv=Refresh content=\"3; URL=b.html\">",
         "<meta http-equiv=Refresh content=\"3; URL=../my%20pages/b.html\">");
    move("<meta content=\"0;url='b.html'\" http-equiv=refresh>",
         "<meta content=\"0;url='../my%20pages/b.html'\" http-equiv=refresh>");
    keep("<meta name=refresh content=\"3; url=b.html\"><meta http-equiv=refresh content=3>");
}

void tst_pagemerge::movedAddresses()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    const QUrl urlFrom = QUrl::fromLocalFile(QStringLiteral("/site/my pages/a.html"));
    const QUrl urlTo = QUrl::fromLocalFile(QStringLiteral("/site/new/a.html"));
    QCOMPARE(withMovedAddresses(html, urlFrom, urlTo), expected);
    QCOMPARE(withMovedAddresses(html, urlFrom, urlFrom), html);
    QCOMPARE(withMovedAddresses(html, QUrl(), urlTo), html);
}

QTEST_MAIN(tst_pagemerge)
#include "tst_pagemerge.moc"
