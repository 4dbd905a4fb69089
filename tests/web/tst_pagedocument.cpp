#include "webtest.h"

#include "editor/chighlightedit.h"
#include "support/processortime.h"

#include <QTextCodec>
#include <QWebView>

// The page as a document: loading, saving, title, modified flag.
class tst_pagedocument : public QObject
{
    Q_OBJECT

private slots:
    void newPage_isEmptyUntitledAndClean();
    void title_data();
    void title();
    void missingFile_loadsNothing_data();
    void missingFile_loadsNothing();
    void load_leavesThePageClean();
    void loadThatRaisesChanges_keepsTheFlag_data();
    void loadThatRaisesChanges_keepsTheFlag();
    void savedPage_keepsItsText_data();
    void savedPage_keepsItsText();
    void savedPage_isStable_data();
    void savedPage_isStable();
    void doctypeAndCommentsSurvive();
    void controlKey_leavesNoTraceInThePage();
    void largePage_isWhole();
    void deepNestingAndLongLines_areTaken_data();
    void deepNestingAndLongLines_areTaken();
};

void tst_pagedocument::newPage_isEmptyUntitledAndClean()
{
    const CWebCase c;
    CEditWebView view;
    QCOMPARE(view.toHtml(), QStringLiteral("<html><head></head><body></body></html>"));
    QVERIFY(!view.isModified());
    QVERIFY(view.filePath().isEmpty());
    QVERIFY(view.showsOwnFile());
    QVERIFY(view.page()->isContentEditable());
    QCOMPARE(view.getTitle(), QStringLiteral("Untitled"));
    view.setModified(true);
    QCOMPARE(view.getTitle(), QStringLiteral("Untitled*"));
    QVERIFY(view.sourceEdit()->isModified());
}

void tst_pagedocument::title_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    QTest::newRow("title element") << page("x", "<title>A &amp; B</title>") << "A & B";
    QTest::newRow("empty title") << page("x", "<title></title>") << "page.html";
    QTest::newRow("none") << page("x") << "page.html";
    QTest::newRow("markup in the title") << page("x", "<title><b>x</b></title>") << "<b>x</b>";
}

void tst_pagedocument::title()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("page.html"), content)));
    QCOMPARE(view.getTitle(), expected);
    view.setModified(true);
    QCOMPARE(view.getTitle(), QString(expected + QLatin1Char('*')));
}

void tst_pagedocument::missingFile_loadsNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "none.html";
    QTest::newRow("folder") << ".";
    QTest::newRow("empty path") << "";
}

void tst_pagedocument::missingFile_loadsNothing()
{
    QFETCH(QString, name);
    const CWebCase c;
    CEditWebView view;
    view.setHtml(QStringLiteral("<p>before</p>"));
    QSignalSpy spy(&view, &QWebView::loadStarted);
    QVERIFY(!view.loadFile(name.isEmpty() ? name : c.path(name)));
    QVERIFY(spy.isEmpty());
    QVERIFY(view.filePath().isEmpty());
    QCOMPARE(textOf(&view), QStringLiteral("before"));
}

void tst_pagedocument::load_leavesThePageClean()
{
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<p>x</p>"))));
    QVERIFY(!view.isModified());
    QVERIFY(!view.sourceEdit()->isModified());
    QVERIFY(view.showsOwnFile());
    QCOMPARE(view.sourceEdit()->pathFileName(), c.path(QStringLiteral("a.html")));
}

void tst_pagedocument::loadThatRaisesChanges_keepsTheFlag_data()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("clean") << false;
    QTest::newRow("modified") << true;
}

void tst_pagedocument::loadThatRaisesChanges_keepsTheFlag()
{
    QFETCH(bool, modified);
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<p>x</p>"))));
    view.setModified(modified);
    QSignalSpy spy(&view, &QWebView::loadFinished);
    QVERIFY(view.reload());
    emit view.page()->contentsChanged(); // As a load may do.
    QVERIFY(view.isModified());
    QVERIFY(spy.wait());
    QCOMPARE(view.isModified(), modified);
    QCOMPARE(view.sourceEdit()->isModified(), modified);
}

void tst_pagedocument::savedPage_keepsItsText_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("savedHead");

    const QString strChinese = QStringLiteral("中文页面");
    const QByteArray utf8 = "<meta charset=\"utf-8\">";
    QTest::newRow("utf-8 declared") << QByteArray("UTF-8") << utf8 << strChinese << utf8;
    QTest::newRow("nothing declared")
        << QByteArray("UTF-8") << QByteArray() << QStringLiteral("é中") << QByteArray();
    QTest::newRow("gb2312 by charset")
        << QByteArray("GB2312") << QByteArray("<meta charset=\"gb2312\">") << strChinese << utf8;
    QTest::newRow("gb2312 by http-equiv")
        << QByteArray("GB2312")
        << QByteArray("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=gb2312\">")
        << strChinese
        << QByteArray("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">");
    QTest::newRow("latin1") << QByteArray("ISO-8859-1")
                            << QByteArray("<meta charset=\"iso-8859-1\">")
                            << QStringLiteral("café £") << utf8;
    QTest::newRow("shift_jis") << QByteArray("Shift_JIS")
                               << QByteArray("<meta charset=\"shift_jis\">")
                               << QStringLiteral("日本語のページ") << utf8;
    QTest::newRow("utf-16 with mark")
        << QByteArray("UTF-16") << QByteArray() << strChinese << QByteArray();
}

void tst_pagedocument::savedPage_keepsItsText()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, head);
    QFETCH(QString, text);
    QFETCH(QByteArray, savedHead);

    const CWebCase c;
    const QString strHtml =
        QString::fromLatin1(page("<p>@</p>", head)).replace(QLatin1Char('@'), text);
    const QString strPath =
        c.write(QStringLiteral("a.html"), QTextCodec::codecForName(codec)->fromUnicode(strHtml));
    CEditWebView view;
    QVERIFY(loadAndWait(&view, strPath));
    QCOMPARE(textOf(&view).trimmed(), text);

    typeText(&view, QStringLiteral("é"));
    const QByteArray saved = view.htmlForSaving();
    QVERIFY(saved.contains("<head>" + savedHead + "</head>"));
    QVERIFY(saved.contains(text.toUtf8()));
    c.write(QStringLiteral("a.html"), saved);

    CEditWebView viewAgain;
    QVERIFY(loadAndWait(&viewAgain, strPath));
    QCOMPARE(textOf(&viewAgain).simplified().remove(QLatin1Char(' ')),
             QString(QStringLiteral("é") + text).remove(QLatin1Char(' ')));
    // And the page itself reads its file again with the encoding that it has now.
    QSignalSpy spy(&view, &QWebView::loadFinished);
    QVERIFY(view.reload());
    QVERIFY(spy.wait());
    QCOMPARE(textOf(&view), textOf(&viewAgain));
}

void tst_pagedocument::savedPage_isStable_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("text only") << QByteArray("just text");
    QTest::newRow("fragment") << QByteArray("<p>one<p>two<br>three");
    QTest::newRow("html5") << page("<p>x</p>");
    QTest::newRow("html 4.01") << QByteArray(
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\" "
        "\"http://www.w3.org/TR/html4/strict.dtd\">\n<html><body>x</body></html>\n");
    QTest::newRow("xhtml") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE html PUBLIC "
        "\"-//W3C//DTD XHTML 1.0 Strict//EN\" "
        "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n<html "
        "xmlns=\"http://www.w3.org/1999/xhtml\" xml:lang=\"en\"><body><br /><p/></body></html>");
    QTest::newRow("no doctype") << QByteArray("<html><body><p>x</body></html>");
    QTest::newRow("comments") << QByteArray(
        "<!-- a --><!DOCTYPE html><!-- b -->\n<html><!-- c --><head>"
        "</head><body>x</body><!-- d --></html>\n<!-- e -->\n");
    QTest::newRow("entities") << page(
        "&amp;&lt;&gt;&quot;&nbsp;&copy;&eacute;&#8212;&#x1F600; &amp;amp; &unknown;");
    QTest::newRow("attributes") << page(
        "<p title=\"a &quot;b&quot; &amp; <c> &nbsp;\" data-x='\"'>x</p>");
    QTest::newRow("table") << page("<table><tr><td>1<td>2<tr><th colspan=2>3</table>");
    QTest::newRow("text in a table") << page("<table>lost<tr><td>1</td></tr></table>");
    QTest::newRow("lists") << page(
        "<ul><li>a<ul><li>b</ul><li>c</ul><ol start=3><li>d</ol><dl><dt>e<dd>f</dl>");
    QTest::newRow("rtl") << QByteArray(
        "<html dir=rtl lang=ar><body><p>مرحبا <span dir=ltr>abc</span></p></body></html>");
    QTest::newRow("pre") << page(
        "<pre>\nfirst\n  second\t</pre><pre>\n\nafter an empty line</pre>");
    QTest::newRow("text area") << page("<textarea>\n\n<b>&amp;</textarea>");
    QTest::newRow("carriage return") << page("a&#13;b<p title='&#13;'>");
    QTest::newRow("windows line ends")
        << QByteArray("<html>\r\n<body>\r\n<p>x</p>\r\n</body>\r\n</html>\r\n");
    QTest::newRow("script and style")
        << page("<script>if (a < b && c > d) '</p>'; '&amp;'</script>",
                "<style>a > b { content: '<' }</style>");
    QTest::newRow("noscript") << page("<noscript><p>no &amp; script</p></noscript>");
    QTest::newRow("frame") << page("<iframe src=\"b.html\">instead &amp; <b>x</b></iframe>");
    QTest::newRow("noframes") << page(
        "<noframes><b>x &amp; y</b></noframes><noembed>a < b & c</noembed>");
    QTest::newRow("xmp") << page("<xmp><b>&amp;</xmp>");
    QTest::newRow("plaintext") << page("<p>x</p><plaintext>a < b & <i>c</i>");
    QTest::newRow("frameset") << QByteArray(
        "<html><frameset cols='50%,*'><frame src=a><frame src=b></frameset></html>");
    QTest::newRow("svg and mathml") << page(
        "<svg viewBox='0 0 1 1'><path d='M0 0'/><title>t</title></svg><math><mi>x</mi></math>");
    QTest::newRow("form") << page(
        "<form><input value='a&amp;b' disabled><select><option selected>1</select></form>");
    QTest::newRow("misnested") << page("<b>1<i>2</b>3</i><p>4<div>5</p>");
    QTest::newRow("leading blanks") << QByteArray("\n\n  <!DOCTYPE html>\n\n<html>\n  <head>\n  "
                                                  "</head>\n\n<body>\n x\n</body>\n\n</html>\n\n");
    QTest::newRow("byte-order mark")
        << QByteArray("\xEF\xBB\xBF<html><body>\xC3\xA9</body></html>");
    QTest::newRow("zero byte") << QByteArray("<html><body>a\0b</body></html>", 30);
    QTest::newRow("charset of another") << page("x", "<meta charset='windows-1252'>");
    QTest::newRow("deep nesting") << page(QByteArray("<div>").repeated(300) + "x");
}

void tst_pagedocument::savedPage_isStable()
{
    QFETCH(QByteArray, content);
    const CWebCase c;
    const QString strPath = c.write(QStringLiteral("a.html"), content);
    CEditWebView view;
    QVERIFY(loadAndWait(&view, strPath));
    const QString strText = textOf(&view);
    const QByteArray first = view.htmlForSaving();
    QCOMPARE(view.htmlForSaving(), first);
    c.write(QStringLiteral("a.html"), first);

    CEditWebView viewAgain;
    QVERIFY(loadAndWait(&viewAgain, strPath));
    QCOMPARE(viewAgain.htmlForSaving(), first);
    QCOMPARE(textOf(&viewAgain), strText);
}

void tst_pagedocument::doctypeAndCommentsSurvive()
{
    const CWebCase c;
    CEditWebView view;
    const QByteArray doctype = "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" "
                               "\"http://www.w3.org/TR/html4/strict.dtd\">";
    QVERIFY(loadAndWait(
        &view,
        c.write(QStringLiteral("a.html"),
                "<!-- saved by hand -->\n" + doctype + "\n<html><body><p>x</p></body></html>")));
    QVERIFY(view.toHtml().startsWith(QStringLiteral("<!-- saved by hand -->") + doctype));
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("b.html"),
                                "<?xml version=\"1.0\" encoding=\"gb2312\"?>\n<html></html>")));
    QVERIFY(view.htmlForSaving().startsWith("<?xml version=\"1.0\" encoding=\"utf-8\"?>"));
}

void tst_pagedocument::controlKey_leavesNoTraceInThePage()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<p>x</p>"))));
    const QString strBefore = view.toHtml();
    QTest::keyPress(&view, Qt::Key_Control);
    QTest::keyRelease(&view, Qt::Key_Control);
    QCOMPARE(view.toHtml(), strBefore);
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("b.html"), "<body style='color:RED; x'>y")));
    const QString strStyled = view.toHtml();
    QVERIFY(strStyled.contains(QLatin1String("style=\"color:RED; x\"")));
    QTest::keyPress(&view, Qt::Key_Control);
    QTest::keyRelease(&view, Qt::Key_Control);
    QCOMPARE(view.toHtml(), strStyled);
}

void tst_pagedocument::largePage_isWhole()
{
    const CWebCase c;
    const QByteArray body =
        QByteArray("<p>some words of an ordinary paragraph</p>\n").repeated(25000);
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page(body))));
    QVERIFY(view.htmlForSaving().contains(body.trimmed()));
    view.showSource(true);
    QVERIFY(view.sourceEdit()->getText().toUtf8().contains(body.trimmed()));
}

void tst_pagedocument::deepNestingAndLongLines_areTaken_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nested blocks") << QByteArray("<div>").repeated(3000);
    QTest::newRow("nested spans") << QByteArray("<span>").repeated(3000) + "x";
    QTest::newRow("nested tables") << QByteArray("<table><tr><td>").repeated(1000);
    QTest::newRow("open comment") << "<!--" + QByteArray("<meta charset=x>").repeated(100000);
    QTest::newRow("open tags") << QByteArray("<a b=\"").repeated(100000);
    QTest::newRow("many declarations") << QByteArray("<meta charset=gbk>").repeated(20000);
}

void tst_pagedocument::deepNestingAndLongLines_areTaken()
{
    QFETCH(QByteArray, content);
    const CWebCase c;
    const CProcessorTime time;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), content)));
    view.resize(400, 300);
    view.show();
    view.grab();
    QVERIFY(!view.htmlForSaving().isEmpty());
    view.showSource(true);
    view.applySource(content);
    QVERIFY2(time.elapsed() < 10000, qPrintable(QString::number(time.elapsed())));
}

QTEST_MAIN(tst_pagedocument)
#include "tst_pagedocument.moc"
