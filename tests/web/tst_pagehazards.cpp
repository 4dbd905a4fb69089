#include "realpages.h"

#include "web/cdrawinguses.h"
#include "web/ceditwebview.h"
#include "web/pagecodec.h"
#include "web/pagehazards.h"

#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>
#include <QWebFrame>

Q_DECLARE_METATYPE(EPageHazard)

// Which sources crash the page engine or keep it busy, and that real pages, and merely large ones,
// have no hazard.
class tst_pagehazards : public QObject
{
    Q_OBJECT

private slots:
    void hazard_data();
    void hazard();
    void hazardOfXml_isTheDepthOfAStack();
    void hazardOfAFile_goesByItsName();
    void everyHazard_hasItsReason();
    void realPage_holdsNone_data();
    void realPage_holdsNone();
    void uses_areCountedAsOftenAsTheyAreDrawn();
    void usesInACircle_end();
    void frameWithAHazard_isNotLoaded();
    void linkToAHazard_isNotFollowed();
};

namespace {

QString times(const char *szPart, int nTimes)
{
    return QString::fromLatin1(szPart).repeated(nTimes);
}

QString svg(const QString &strContent)
{
    return QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg'>") + strContent
        + QStringLiteral("</svg>");
}

// Each part uses the one before ten times.
QString doubling(int nParts)
{
    QString strContent = QStringLiteral("<g id='a0'><rect/></g>");
    for (int n = 1; n < nParts; ++n) {
        strContent += QStringLiteral("<g id='a%1'>").arg(n)
            + QStringLiteral("<use xlink:href='#a%1'/>").arg(n - 1).repeated(10)
            + QStringLiteral("</g>");
    }
    return svg(strContent);
}

const char g_szTall[] = "<tr><td rowspan=65534>x";
const char g_szFlex[] = "<div style='Display: -webkit-Flex'>";
const char g_szColumns[] = "<div style=\"-webkit-columns:3\">";
const char g_szReflection[] = "<p><span style='-webkit-box-reflect:below 0'>";

} // namespace

void tst_pagehazards::hazard_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<EPageHazard>("hazard");
    const auto add = [](const char *szName, const QString &strHtml, EPageHazard hazard) {
        QTest::newRow(szName) << strHtml << hazard;
    };
    using H = EPageHazard;
    add("nothing", QString(), H::None);
    add("divisions", times("<div>", 5000), H::Nesting);
    add("many divisions", times("<div></div>", 50000), H::None);
    add("deep divisions", times("<div>", 3000), H::None);
    add("unclosed paragraphs", times("<p>x<li>y<td>z<br><img>", 20000), H::None);
    add("unclosed fonts that their parent ends", times("<div><font></div>", 20000), H::None);
    add("end tags of nothing", times("</div>", 20000), H::None);
    add("divisions in a comment", "<!--" + times("<div>", 50000) + "-->", H::None);
    add("divisions in a script", "<script>" + times("<div>", 50000) + "</script>", H::None);
    add("flexible boxes", times(g_szFlex, 17), H::FlexBoxes);
    add("few flexible boxes", times(g_szFlex, 16), H::None);
    add("flexible boxes beside each other",
        times(g_szFlex, 10) + times("</div>", 10) + times(g_szFlex, 10), H::None);
    add("columns", times(g_szColumns, 7), H::Columns);
    add("few columns", times(g_szColumns, 6), H::None);
    add("reflections", times(g_szReflection, 13), H::Reflections);
    add("attributes", "<p " + times("a ", 20001) + ">", H::Attributes);
    add("some attributes", "<p " + times("a ", 20000) + ">", H::None);
    add("drawing that grows", doubling(7), H::Uses);
    add("drawing of many uses", svg("<g id='a'><path/></g>" + times("<use href='#a'/>", 20000)),
        H::None);
    add("links outside a drawing", "<p id=a>" + times("<a href='#a'>x</a>", 200000), H::None);
    add("masks in each other",
        svg("<mask id='b'><g mask='url(#a)'><rect mask='url(#a)'/></g></mask>"), H::Uses);
    add("masks of a mask", svg("<mask id='b'><g mask='url(#a)'></g><rect mask='url(#a)'/></mask>"),
        H::None);
    add("shadows", "<p style='text-shadow:" + times("0 0 500px red,", 21) + "red'>", H::Effects);
    add("sharp shadows", "<p style='text-shadow:" + times("1px 1px 0 red,", 200) + "red'>",
        H::None);
    add("noise", svg(times("<feTurbulence numOctaves='9'/>", 7)), H::Effects);
    add("long word", QString(1000001, QLatin1Char('a')), H::LongText);
    add("long words", times("a b ", 1000000), H::None);
    add("marks", QString(40001, QChar(0x301)), H::LongText);
    add("marked letters", QString::fromUtf8("a\xcc\x81").repeated(40001), H::None);
    add("preformatted lines", "<pre>" + times("\n", 100001), H::LongText);
    add("lines", times("\n", 1000000), H::None);
    add("preformatted texts", times("<pre>\n\n</pre>", 60000), H::None);
    add("options", "<select>" + times("<option>x", 20001), H::Fields);
    add("inputs", times("<input>", 10001), H::Fields);
    add("tall cells", "<table>" + times(g_szTall, 6), H::Spans);
    add("one tall cell", QStringLiteral("<table>") + g_szTall, H::None);
    add("low cells", "<table>" + times("<tr><td rowspan=50 colspan=9>x", 5000), H::None);
}

void tst_pagehazards::hazard()
{
    QFETCH(QString, html);
    QTEST(pageHazard(html), "hazard");
}

void tst_pagehazards::hazardOfXml_isTheDepthOfAStack()
{
    QCOMPARE(pageHazard(times("<div>", 501), true), EPageHazard::Nesting);
    QCOMPARE(pageHazard(times("<div>", 500), true), EPageHazard::None);
}

void tst_pagehazards::hazardOfAFile_goesByItsName()
{
    const QString strText = times("<div>", 1000);
    QCOMPARE(pageHazardOfFile(QStringLiteral("/a.html"), strText), EPageHazard::None);
    QCOMPARE(pageHazardOfFile(QStringLiteral("/a.XHTML"), strText), EPageHazard::Nesting);
    QCOMPARE(pageHazardOfFile(QStringLiteral("/a.txt"), strText), EPageHazard::None);
}

void tst_pagehazards::everyHazard_hasItsReason()
{
    QSet<QString> setReasons;
    for (int n = int(EPageHazard::Nesting); n <= int(EPageHazard::Spans); ++n)
        setReasons.insert(pageHazardReason(EPageHazard(n)));
    QCOMPARE(setReasons.size(), int(EPageHazard::Spans));
    QVERIFY(!setReasons.contains(QString()));
    QVERIFY(pageHazardReason(EPageHazard::None).isEmpty());
}

void tst_pagehazards::realPage_holdsNone_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const SRealPage &page : installedPages() + samplePages())
        QTest::newRow(qPrintable(page.strName)) << page.content;
}

void tst_pagehazards::realPage_holdsNone()
{
    QFETCH(QByteArray, content);
    QCOMPARE(pageHazard(decodePage(content)), EPageHazard::None);
}

void tst_pagehazards::uses_areCountedAsOftenAsTheyAreDrawn()
{
    CDrawingUses uses;
    uses.begin(QStringLiteral("a"));
    uses.end();
    uses.begin(QStringLiteral("b"));
    uses.use(QStringLiteral("a"));
    uses.use(QStringLiteral("a"));
    uses.end();
    uses.use(QStringLiteral("b"));
    uses.use(QStringLiteral("none"));
    // The whole, a, b with two a, again b with two a, and what is not there.
    QCOMPARE(uses.count(), 1 + 1 + 3 + 3 + 1);
}

void tst_pagehazards::usesInACircle_end()
{
    CDrawingUses uses;
    uses.begin(QStringLiteral("a"));
    uses.use(QStringLiteral("b"));
    uses.end();
    uses.begin(QStringLiteral("b"));
    uses.use(QStringLiteral("a"));
    uses.end();
    QVERIFY(uses.count() < 10);
    for (int n = 0; n < 1000; ++n) {
        uses.begin(QString::number(n));
        uses.use(QString::number(n + 1));
        uses.end();
    }
    QCOMPARE(uses.count(), g_nMostUses); // A chain that is too long to follow.
}

void tst_pagehazards::frameWithAHazard_isNotLoaded()
{
    const CWebCase c;
    c.write(QStringLiteral("bad.html"), "<p>bad" + times("<div>", 5000).toLatin1());
    c.write(QStringLiteral("good.html"), "<p>good");
    CEditWebView view;
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"),
                                "<iframe src=bad.html></iframe><iframe src=good.html></iframe>")));
    const QList<QWebFrame *> lstFrames = view.page()->mainFrame()->childFrames();
    QCOMPARE(lstFrames.size(), 2);
    QVERIFY(!lstFrames.at(0)->toPlainText().contains(QLatin1String("bad")));
    QCOMPARE(lstFrames.at(1)->toPlainText(), QStringLiteral("good"));
}

void tst_pagehazards::linkToAHazard_isNotFollowed()
{
    const CWebCase c;
    c.write(QStringLiteral("bad.html"), times("<div>", 5000).toLatin1());
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), "<p>here")));
    const QSignalSpy spy(&view, &CEditWebView::statusMessage);
    const auto follow = [&](const QString &strName) {
        QMetaObject::invokeMethod(view.page(), "linkFollowed",
                                  Q_ARG(QUrl, QUrl::fromLocalFile(c.path(strName))));
    };
    follow(QStringLiteral("bad.html"));
    QTRY_COMPARE(spy.size(), 1);
    QVERIFY(spy.at(0).at(0).toString().contains(QLatin1String("too deep")));
    QCOMPARE(textOf(&view), QStringLiteral("here"));
    c.write(QStringLiteral("good.html"), "<p>there");
    follow(QStringLiteral("good.html"));
    QTRY_COMPARE(textOf(&view), QStringLiteral("there"));
}

QTEST_MAIN(tst_pagehazards)
#include "tst_pagehazards.moc"
