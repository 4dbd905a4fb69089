#include "webtest.h"

#include "editor/chighlightedit.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTextCodec>
#include <QWebElement>
#include <QWebHistory>

// The page as a document: loading, saving, title, modified flag, its source.
class tst_PageDocument : public QObject
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

    void sourceIsHidden_untilShown();
    void hiddenSource_isNotTouchedByEdits();
    void shownSource_followsThePage();
    void pushingIntoTheSource_signalsNoModification_data();
    void pushingIntoTheSource_signalsNoModification();
    void sourceHasAlwaysUtf8();
    void keyRightAfterShowingTheSource_staysAnEdit();
    void swapWithoutTyping_changesNothing();
    void swapWithTyping_takesTheTextOver();
    void swapBackOfAForeignEncoding_keepsTheText();
    void sourceInAnotherTab_isFilledWhenTheLoadEnds();
    void deletingThePage_deletesASourceThatMovedAway();
    void deletingTheSource_deletesThePage();
    void deletingTheCommonParent_isClean();

    void refresh_readsTheFileAgain();
    void refreshOfAVanishedFile_keepsThePage();
    void refreshAfterSaveAs_readsTheNewFile();
    void refreshOfANewPage_doesNothing();
    void backToASavedFile_showsWhatWasSaved_data();
    void backToASavedFile_showsWhatWasSaved();
    void foreignAddress_isNotTheDocument();
    void saveAsOfAForeignAddress_makesItTheDocument();
    void followedLink_asksWhenModified_data();
    void followedLink_asksWhenModified();
    void linkToAnAnchor_staysTheDocument();
    void back_asksWhenModified();
    void icon_isThePagesOwn();
    void openingAgain_showsWhatWasSaved();
    void deepNestingAndLongLines_areTaken_data();
    void deepNestingAndLongLines_areTaken();
    void pageThatNeverEndsLoading_closesCleanly();
};

namespace {

QByteArray page(const QByteArray &body, const QByteArray &head = QByteArray())
{
    return "<!DOCTYPE html><html><head>" + head + "</head><body>" + body + "</body></html>";
}

void typeText(CEditWebView *pPage, const QString &strText)
{
    run(pPage, QStringLiteral("getSelection().collapse(document.body, 0)"));
    pPage->insertHtml(strText);
}

} // namespace

void tst_PageDocument::newPage_isEmptyUntitledAndClean()
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

void tst_PageDocument::title_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    QTest::newRow("title element") << page("x", "<title>A &amp; B</title>") << "A & B";
    QTest::newRow("empty title") << page("x", "<title></title>") << "page.html";
    QTest::newRow("none") << page("x") << "page.html";
    QTest::newRow("markup in the title") << page("x", "<title><b>x</b></title>") << "<b>x</b>";
}

void tst_PageDocument::title()
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

void tst_PageDocument::missingFile_loadsNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "none.html";
    QTest::newRow("folder") << ".";
    QTest::newRow("empty path") << "";
}

void tst_PageDocument::missingFile_loadsNothing()
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

void tst_PageDocument::load_leavesThePageClean()
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

void tst_PageDocument::loadThatRaisesChanges_keepsTheFlag_data()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("clean") << false;
    QTest::newRow("modified") << true;
}

void tst_PageDocument::loadThatRaisesChanges_keepsTheFlag()
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

void tst_PageDocument::savedPage_keepsItsText_data()
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

void tst_PageDocument::savedPage_keepsItsText()
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

void tst_PageDocument::savedPage_isStable_data()
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

void tst_PageDocument::savedPage_isStable()
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

void tst_PageDocument::doctypeAndCommentsSurvive()
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

void tst_PageDocument::controlKey_leavesNoTraceInThePage()
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

void tst_PageDocument::largePage_isWhole()
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

void tst_PageDocument::sourceIsHidden_untilShown()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    QCOMPARE(view.sourceEdit()->pageEditor(), &view);
    QCOMPARE(view.sourceEdit()->parentWidget(), &view);
    QVERIFY(view.sourceEdit()->isHidden());
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.showSource(true);
    QVERIFY(view.sourceEdit()->isVisible());
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
    view.showSource(false);
    QVERIFY(view.sourceEdit()->isHidden());
}

void tst_PageDocument::hiddenSource_isNotTouchedByEdits()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    view.setHtml(QStringLiteral("<p>x</p>"));
    const int nRevision = view.sourceEdit()->document()->revision();
    typeText(&view, QStringLiteral("typed"));
    QCOMPARE(view.sourceEdit()->document()->revision(), nRevision);
    QVERIFY(view.sourceEdit()->getText().isEmpty());
    view.showSource(true);
    QVERIFY(view.sourceEdit()->getText().contains(QLatin1String("typed")));
}

void tst_PageDocument::shownSource_followsThePage()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    view.showSource(true);
    typeText(&view, QStringLiteral("typed"));
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
    view.setHtml(QStringLiteral("<p>loaded</p>"));
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
}

void tst_PageDocument::pushingIntoTheSource_signalsNoModification_data()
{
    loadThatRaisesChanges_keepsTheFlag_data();
}

void tst_PageDocument::pushingIntoTheSource_signalsNoModification()
{
    QFETCH(bool, modified);
    const CWebCase c;
    CEditWebView view;
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.setModified(modified);
    QSignalSpy spyModified(view.sourceEdit(), &QPlainTextEdit::modificationChanged);
    QSignalSpy spyText(view.sourceEdit(), &QPlainTextEdit::textChanged);
    view.showSource(true);
    emit view.page()->contentsChanged();
    QTest::qWait(30); // Longer than the loader's timer.
    QCOMPARE(spyModified.count(), 0);
    QCOMPARE(spyText.count(), 0);
    QCOMPARE(view.sourceEdit()->isModified(), modified);
    QCOMPARE(view.isModified(), modified);
}

void tst_PageDocument::sourceHasAlwaysUtf8()
{
    const CWebCase c;
    CEditWebView view;
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), "<p>plain ASCII")));
    view.showSource(true);
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    view.setHtml(QStringLiteral("<p>中文"));
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    QVERIFY(view.sourceEdit()->getText().contains(QStringLiteral("中文")));
}

void tst_PageDocument::keyRightAfterShowingTheSource_staysAnEdit()
{
    const CWebCase c;
    CEditWebView view;
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.showSource(true);
    QTest::keyClick(view.sourceEdit(), Qt::Key_A);
    QVERIFY(view.sourceEdit()->isModified());
    QTest::qWait(30); // Longer than the loader's timer.
    QVERIFY(view.sourceEdit()->isModified());
}

void tst_PageDocument::swapWithoutTyping_changesNothing()
{
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"),
                                page("<p>a&nbsp;b \xE2\x80\xA8 <b>c</b></p><pre>\n\nx</pre>"))));
    const QString strBefore = view.toHtml();
    QSignalSpy spy(&view, &QWebView::loadStarted);
    for (int i = 0; i < 3; ++i) {
        view.showSource(true);
        QVERIFY(!view.sourceEdit()->isModified());
        view.applySource(view.sourceEdit()->getText());
        view.showSource(false);
        QVERIFY(!view.isModified());
    }
    QCOMPARE(view.toHtml(), strBefore);
    QVERIFY(spy.isEmpty());

    // An edit of the page survives, and stays to be undone.
    typeText(&view, QStringLiteral("typed"));
    view.showSource(true);
    QVERIFY(view.sourceEdit()->isModified());
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QVERIFY(view.isModified());
    QVERIFY(view.toHtml().contains(QLatin1String("typed")));
    view.triggerEdit(QWebPage::Undo);
    QCOMPARE(view.toHtml(), strBefore);
}

void tst_PageDocument::swapWithTyping_takesTheTextOver()
{
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    const QString strPath = c.write(QStringLiteral("a.html"), page("<p>x</p><img src=a.png>"));
    QVERIFY(loadAndWait(&view, strPath));
    view.showSource(true);
    QTextCursor cursor = view.sourceEdit()->document()->find(QStringLiteral("x</p>"));
    cursor.insertText(QStringLiteral("xy&nbsp;</p>"));
    QVERIFY(view.sourceEdit()->isModified());
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QVERIFY(view.isModified());
    QVERIFY(view.sourceEdit()->isModified());
    QVERIFY(view.toHtml().contains(QLatin1String("<p>xy&nbsp;</p>")));
    QCOMPARE(view.url(), QUrl::fromLocalFile(strPath));
    QVERIFY(view.showsOwnFile());
    view.showSource(true);
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
}

void tst_PageDocument::swapBackOfAForeignEncoding_keepsTheText()
{
    const CWebCase c;
    CEditWebView view;
    const QString strHtml = QStringLiteral("<meta charset=gb2312><p>中文</p>");
    const QString strPath =
        c.write(QStringLiteral("a.html"), QTextCodec::codecForName("GB2312")->fromUnicode(strHtml));
    QVERIFY(loadAndWait(&view, strPath));
    view.showSource(true);
    view.sourceEdit()->appendPlainText(QStringLiteral("<p>é</p>"));
    view.applySource(view.sourceEdit()->getText());
    QVERIFY(textOf(&view).contains(QStringLiteral("中文")));
    QVERIFY(textOf(&view).contains(QStringLiteral("é")));
    // The file itself is still the old one.
    QSignalSpy spy(&view, &QWebView::loadFinished);
    QVERIFY(view.reload());
    QVERIFY(spy.wait());
    QCOMPARE(textOf(&view).trimmed(), QStringLiteral("中文"));
}

void tst_PageDocument::sourceInAnotherTab_isFilledWhenTheLoadEnds()
{
    const CWebCase c;
    QWidget tab;
    CEditWebView view;
    view.showSource(true);
    view.sourceEdit()->setParent(&tab); // Not the current tab: not visible.
    QVERIFY(!view.sourceEdit()->isVisible());
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<p>x</p>"))));
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
}

void tst_PageDocument::deletingThePage_deletesASourceThatMovedAway()
{
    const CWebCase c;
    QWidget tab;
    auto *pView = new CEditWebView;
    QPointer<CHighlightEdit> pSource = pView->sourceEdit();
    pSource->setParent(&tab);
    delete pView;
    QVERIFY(!pSource);
}

void tst_PageDocument::deletingTheSource_deletesThePage()
{
    const CWebCase c;
    QWidget tab;
    QPointer<CEditWebView> pView = new CEditWebView(&tab);
    pView->sourceEdit()->setParent(&tab);
    delete pView->sourceEdit();
    QTRY_VERIFY(!pView);
}

void tst_PageDocument::deletingTheCommonParent_isClean()
{
    const CWebCase c;
    for (const bool bSourceFirst : {false, true}) {
        auto *pTab = new QWidget;
        QPointer<CEditWebView> pView = new CEditWebView;
        QPointer<CHighlightEdit> pSource = pView->sourceEdit();
        if (bSourceFirst)
            pSource->setParent(pTab);
        pView->setParent(pTab);
        pSource->setParent(pTab);
        delete pTab;
        QVERIFY(!pView);
        QVERIFY(!pSource);
    }
}

void tst_PageDocument::refresh_readsTheFileAgain()
{
    const CWebCase c;
    CEditWebView view;
    const QString strPath = c.write(QStringLiteral("a.html"), page("old"));
    QVERIFY(loadAndWait(&view, strPath));
    c.write(QStringLiteral("a.html"), page("new"));
    QVERIFY(view.reload());
    QTRY_COMPARE(textOf(&view), QStringLiteral("new"));
}

void tst_PageDocument::refreshOfAVanishedFile_keepsThePage()
{
    const CWebCase c;
    CEditWebView view;
    const QString strPath = c.write(QStringLiteral("a.html"), page("text"));
    QVERIFY(loadAndWait(&view, strPath));
    QVERIFY(QFile::remove(strPath));
    QSignalSpy spyLoad(&view, &QWebView::loadStarted);
    QSignalSpy spyMessage(&view, &CEditWebView::statusMessage);
    QVERIFY(!view.reload());
    view.onRefresh();
    QVERIFY(spyLoad.isEmpty());
    QCOMPARE(spyMessage.count(), 2);
    QVERIFY(spyMessage.at(0).at(0).toString().contains(strPath));
    QCOMPARE(textOf(&view), QStringLiteral("text"));
    QVERIFY(view.showsOwnFile());
}

void tst_PageDocument::refreshAfterSaveAs_readsTheNewFile()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("first"))));
    view.setFilePath(c.write(QStringLiteral("b.html"), page("second")));
    QVERIFY(view.showsOwnFile());
    QVERIFY(view.reload());
    QTRY_COMPARE(textOf(&view), QStringLiteral("second"));
    QVERIFY(view.showsOwnFile());
}

void tst_PageDocument::refreshOfANewPage_doesNothing()
{
    const CWebCase c;
    CEditWebView view;
    typeText(&view, QStringLiteral("typed"));
    QVERIFY(view.reload());
    QTest::qWait(50);
    QCOMPARE(textOf(&view), QStringLiteral("typed"));
}

void tst_PageDocument::backToASavedFile_showsWhatWasSaved_data()
{
    QTest::addColumn<bool>("twice");
    QTest::newRow("shown once") << false;
    QTest::newRow("another view shows the old one") << true;
}

void tst_PageDocument::backToASavedFile_showsWhatWasSaved()
{
    QFETCH(bool, twice);
    const CWebCase c;
    CEditWebView view;
    CEditWebView viewOther;
    const QString strPath = c.write(QStringLiteral("a.html"), page("old"));
    const QString strOther = c.write(QStringLiteral("b.html"), page("other"));
    if (twice)
        QVERIFY(loadAndWait(&viewOther, strPath));
    QVERIFY(loadAndWait(&view, strPath));
    view.setUrl(QUrl::fromLocalFile(strOther));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
    QVERIFY(!view.showsOwnFile());
    c.write(QStringLiteral("a.html"), page("saved"));
    QVERIFY(view.canGoBack());
    view.back();
    QTRY_COMPARE(textOf(&view), QStringLiteral("saved"));
    QVERIFY(view.showsOwnFile());
    QVERIFY(view.canGoForward());
    view.forward();
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
}

void tst_PageDocument::foreignAddress_isNotTheDocument()
{
    const CWebCase c;
    CEditWebView view;
    // A typed page that was saved has no entry in the history, yet there is a way back.
    view.setHtml(QStringLiteral("<p>typed</p>"));
    view.setFilePath(c.write(QStringLiteral("a.html"), page("typed")));
    QVERIFY(view.showsOwnFile());
    QVERIFY(!view.canGoBack());
    view.setUrl(QUrl::fromLocalFile(c.write(QStringLiteral("b.html"), page("other"))));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
    QVERIFY(!view.showsOwnFile());
    QVERIFY(view.canGoBack());
    view.back();
    QTRY_COMPARE(textOf(&view), QStringLiteral("typed"));
    QVERIFY(view.showsOwnFile());
}

void tst_PageDocument::saveAsOfAForeignAddress_makesItTheDocument()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("first"))));
    view.setUrl(QUrl::fromLocalFile(c.write(QStringLiteral("b.html"), page("other"))));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
    view.setFilePath(c.path(QStringLiteral("c.html")));
    QVERIFY(view.showsOwnFile());
    view.back();
    QTRY_COMPARE(textOf(&view), QStringLiteral("first"));
    QVERIFY(!view.showsOwnFile());
}

void tst_PageDocument::followedLink_asksWhenModified_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<int>("asked");
    QTest::addColumn<QString>("shown");
    QTest::newRow("clean") << false << false << 0 << "other";
    QTest::newRow("modified, may be left") << true << true << 1 << "other";
    QTest::newRow("modified, is kept") << true << false << 1 << "link";
}

void tst_PageDocument::followedLink_asksWhenModified()
{
    QFETCH(bool, modified);
    QFETCH(bool, answer);
    QFETCH(int, asked);
    QFETCH(QString, shown);

    const CWebCase c;
    CEditWebView view;
    view.resize(400, 300);
    view.show();
    c.write(QStringLiteral("b.html"), page("other"));
    QVERIFY(
        loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<a href='b.html'>link</a>"))));
    view.setModified(modified);
    int nAsked = 0;
    view.setLeaveQuestion([&] {
        ++nAsked;
        return answer;
    });
    const QPoint pos =
        view.page()->mainFrame()->findFirstElement(QStringLiteral("a")).geometry().center();

    // A plain click sets the caret.
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, pos);
    QTest::qWait(50);
    QCOMPARE(textOf(&view), QStringLiteral("link"));
    QCOMPARE(nAsked, 0);

    QTest::keyPress(&view, Qt::Key_Control);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, pos);
    QTest::keyRelease(&view, Qt::Key_Control);
    QTRY_COMPARE(nAsked, asked);
    QTRY_COMPARE(textOf(&view), shown);
    QCOMPARE(view.isModified(), modified && !answer);
    QCOMPARE(view.showsOwnFile(), shown == QLatin1String("link"));
}

void tst_PageDocument::linkToAnAnchor_staysTheDocument()
{
    const CWebCase c;
    CEditWebView view;
    view.resize(400, 300);
    view.show();
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"),
                                page("<a href='#end'>link</a><p style='height:2000px'>"
                                     "<p id=end>end"))));
    view.setModified(true);
    const QPoint pos =
        view.page()->mainFrame()->findFirstElement(QStringLiteral("a")).geometry().center();
    QTest::keyPress(&view, Qt::Key_Control);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, pos);
    QTest::keyRelease(&view, Qt::Key_Control);
    QTRY_COMPARE(view.url().fragment(), QStringLiteral("end"));
    QVERIFY(view.showsOwnFile());
    QVERIFY(view.isModified());
}

void tst_PageDocument::back_asksWhenModified()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("first"))));
    view.setUrl(QUrl::fromLocalFile(c.write(QStringLiteral("b.html"), page("other"))));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
    view.setModified(true);
    view.back(); // Nobody to ask.
    QTest::qWait(50);
    QCOMPARE(textOf(&view), QStringLiteral("other"));
    view.setLeaveQuestion([] { return true; });
    view.back();
    QTRY_COMPARE(textOf(&view), QStringLiteral("first"));
    QVERIFY(!view.isModified());
}

void tst_PageDocument::icon_isThePagesOwn()
{
    const CWebCase c;
    CEditWebView view;
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(c.path(QStringLiteral("i.png"))));
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("x"))));
    QVERIFY(view.icon().isNull());
    QVERIFY(loadAndWait(
        &view,
        c.write(QStringLiteral("b.html"), page("x", "<link rel='shortcut icon' href=i.png>"))));
    QVERIFY(!view.icon().isNull());
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("c.html"),
                                page("x", "<link rel=icon href='/usr/share/pixmaps/x.png'>"))));
    QVERIFY(view.icon().isNull());
}

void tst_PageDocument::openingAgain_showsWhatWasSaved()
{
    const CWebCase c;
    CEditWebView view;
    CEditWebView viewOther;
    const QString strPath = c.write(QStringLiteral("a.html"), page("old"));
    QVERIFY(loadAndWait(&viewOther, strPath));
    c.write(QStringLiteral("a.html"), page("saved"));
    QVERIFY(loadAndWait(&view, strPath));
    QCOMPARE(textOf(&view), QStringLiteral("saved"));
    QVERIFY(viewOther.reload());
    QTRY_COMPARE(textOf(&viewOther), QStringLiteral("saved"));
}

void tst_PageDocument::deepNestingAndLongLines_areTaken_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nested blocks") << QByteArray("<div>").repeated(3000);
    QTest::newRow("nested spans") << QByteArray("<span>").repeated(3000) + "x";
    QTest::newRow("nested tables") << QByteArray("<table><tr><td>").repeated(1000);
    QTest::newRow("open comment") << "<!--" + QByteArray("<meta charset=x>").repeated(100000);
    QTest::newRow("open tags") << QByteArray("<a b=\"").repeated(100000);
    QTest::newRow("many declarations") << QByteArray("<meta charset=gbk>").repeated(20000);
}

void tst_PageDocument::deepNestingAndLongLines_areTaken()
{
    QFETCH(QByteArray, content);
    const CWebCase c;
    QElapsedTimer timer;
    timer.start();
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), content)));
    view.resize(400, 300);
    view.show();
    view.grab();
    QVERIFY(!view.htmlForSaving().isEmpty());
    view.showSource(true);
    view.applySource(content);
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
}

void tst_PageDocument::pageThatNeverEndsLoading_closesCleanly()
{
    const CWebCase c;
    QTcpServer server; // Accepts and never answers.
    QVERIFY(server.listen(QHostAddress::LocalHost));
    auto *pView = new CEditWebView;
    QSignalSpy spyConnection(&server, &QTcpServer::newConnection);
    pView->setUrl(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort())));
    QVERIFY(spyConnection.wait());
    delete pView;
}

QTEST_MAIN(tst_PageDocument)
#include "tst_pagedocument.moc"
