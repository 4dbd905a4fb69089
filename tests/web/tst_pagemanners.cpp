#include "app/filereader.h"
#include "webtest.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextBlock>
#include <QWebView>
#include <QXmlStreamReader>

// Things that an author takes for granted in a page editor.
class tst_pagemanners : public CPageTest
{
    Q_OBJECT

private slots:
    void newPage_isAWholePage();
    void newPageInItsSource_hasTheCaretInTheBody();
    void givenBytes_areReadInTheGivenEncoding();
    void pageThatHasTheFocus_takesKeysOnceItIsLoaded();
    void hiddenPictures_areTold();
    void shownPictures_areNotTold();
    void zoomKeys_changeTheSizeOnly();
    void pasteLeavesNoMarks();
    void pastedMarkup_goesThroughWhatALoadedPageGoesThrough();
    void pastedMarkupThatCouldEndTheProgram_isPastedAsText();
    void typedWhileThePageLoads_staysTyped();
    void typedIntoAPageThatIsReplaced_isTold();
    void frames_areToldAndKept();
    void saveElsewhere_leadsWhereThePageLed();
    void xhtml_staysWellFormed();
};

void tst_pagemanners::newPage_isAWholePage()
{
    m_pView->startNewPage();
    QVERIFY(!m_pView->isModified());
    QVERIFY(m_pView->filePath().isEmpty());
    QCOMPARE(m_pView->getTitle(), QStringLiteral("Untitled"));
    QCOMPARE(
        m_pView->htmlForSaving(),
        QByteArray("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title></title>\n"
                   "</head>\n<body>\n\n</body>\n</html>\n"));
    m_pView->activateWindow();
    m_pView->setFocus();
    QTRY_VERIFY(m_pView->hasFocus());
    QTest::keyClicks(m_pView, QStringLiteral("x"));
    const QByteArray saved = m_pView->htmlForSaving();
    QVERIFY2(saved.startsWith("<!DOCTYPE html>\n<html>\n<head>\n") && saved.contains("x")
                 && saved.endsWith("</body>\n</html>\n"),
             saved.constData());
}

void tst_pagemanners::newPageInItsSource_hasTheCaretInTheBody()
{
    m_pView->showSource(true);
    m_pView->startNewPage();
    const QTextBlock block = m_pView->sourceEdit()->textCursor().block();
    QCOMPARE(block.previous().text(), QStringLiteral("<body>"));
    QCOMPARE(block.next().text(), QStringLiteral("</body>"));
}

void tst_pagemanners::givenBytes_areReadInTheGivenEncoding()
{
    QSignalSpy spy(m_pView, &QWebView::loadFinished);
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<p>what lies there now");
    SFileContent content;
    content.bytes = "<meta charset=koi8-r><p>caf\xE9\r\n";
    m_pView->loadSource(strPath, content, QStringLiteral("ISO-8859-1"));
    QVERIFY(spy.wait());
    QCOMPARE(textOf(m_pView).trimmed(), QStringLiteral("café"));
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<meta charset=utf-8><p>caf\xC3\xA9\r\n"));
    content.bytes = "<meta charset=latin1><p>caf\xE9";
    m_pView->loadSource(strPath, content);
    QVERIFY(spy.wait());
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<meta charset=utf-8><p>caf\xC3\xA9"));
}

void tst_pagemanners::pageThatHasTheFocus_takesKeysOnceItIsLoaded()
{
    m_pView->activateWindow();
    m_pView->setFocus();
    QTRY_VERIFY(m_pView->hasFocus());
    QVERIFY(loadAndWait(m_pView, m_pCase->write(QStringLiteral("a.html"), "<p>words</p>\n")));
    QTest::keyClicks(m_pView, QStringLiteral("x"));
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<p>xwords</p>\n"));
}

void tst_pagemanners::hiddenPictures_areTold()
{
    QTemporaryDir elsewhere;
    QFile picture(elsewhere.filePath(QStringLiteral("a.png")));
    QVERIFY(picture.open(QIODevice::WriteOnly));
    picture.write("x");
    picture.close();
    const QByteArray address = QUrl::fromLocalFile(picture.fileName()).toEncoded();
    QSignalSpy spy(m_pView, &CEditWebView::notice);
    QVERIFY(loadAndWait(m_pView,
                        m_pCase->write(QStringLiteral("a.html"),
                                       "<img src=\"" + address + "\"><img src=\"" + address
                                           + "\"><img src=none.png>")));
    QCOMPARE(spy.count(), 1);
    QVERIFY(spy.at(0).at(0).toString().startsWith(QLatin1String("2 pictures")));
    QVERIFY(spy.at(0).at(0).toString().contains(QLatin1String("outside the page's folders")));
    const QSignalSpy spyStatus(m_pView, &CEditWebView::statusMessage);
    QVERIFY(loadAndWait(
        m_pView,
        m_pCase->write(QStringLiteral("b.html"), "<img src=\"http://example.com/a.png\">")));
    QCOMPARE(spyStatus.count(), 1);
    QVERIFY(spyStatus.at(0).at(0).toString().contains(QLatin1String("on the network")));
    QCOMPARE(spy.count(), 2);
    QVERIFY(spy.constLast().at(0).toString().isEmpty());
}

void tst_pagemanners::shownPictures_areNotTold()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_pCase->path(QStringLiteral("a.png"))));
    QSignalSpy spy(m_pView, &CEditWebView::notice);
    QVERIFY(loadAndWait(
        m_pView, m_pCase->write(QStringLiteral("a.html"), "<img src=a.png><img src=\"data:,\">")));
    QCOMPARE(spy.count(), 0);
}

void tst_pagemanners::zoomKeys_changeTheSizeOnly()
{
    set(QStringLiteral("<p>x</p>"));
    const QString strBefore = m_pView->toHtml();
    QTest::keyClick(m_pView, Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(m_pView->zoomFactor() > 1.05);
    QTest::keyClick(m_pView, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(m_pView->zoomFactor(), 1.0);
    QTest::keyClick(m_pView, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(m_pView->zoomFactor() < 0.95);
    QTest::keyClick(m_pView, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(m_pView->zoomFactor(), 1.0);
    m_pView->zoomBy(1000);
    QVERIFY(m_pView->zoomFactor() <= 5);
    m_pView->zoomBy(-1000);
    QVERIFY(m_pView->zoomFactor() >= 0.3);
    QCOMPARE(m_pView->toHtml(), strBefore);
}

void tst_pagemanners::pasteLeavesNoMarks()
{
    set(QStringLiteral("<p>x</p>\n"));
    auto *pData = new QMimeData;
    pData->setHtml(QStringLiteral("<html><body><!--StartFragment--><b>bold</b><!--EndFragment-->"
                                  "</body></html>"));
    QGuiApplication::clipboard()->setMimeData(pData);
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 1)"));
    m_pView->triggerEdit(QWebPage::Paste);
    const QByteArray saved = m_pView->htmlForSaving();
    QVERIFY2(saved.contains("bold"), saved.constData());
    QVERIFY2(!saved.contains("Fragment"), saved.constData());
}

namespace {

const char g_szHarmful[] = "<b onclick='x()'>bold</b><script>x()</script>"
                           "<img id='i' src='data:image/svg+xml;base64,PHN2Zz48L3N2Zz4='>";

void putOnClipboard(const QString &strHtml, const QString &strText)
{
    auto *pData = new QMimeData;
    pData->setHtml(strHtml);
    pData->setText(strText);
    QGuiApplication::clipboard()->setMimeData(pData);
}

QString addressOfPicture(CEditWebView *pView)
{
    return run(pView, QStringLiteral("document.querySelector('img').getAttribute('src')"))
        .toString();
}

// A drawing in the name of a picture.
QString harmfulMarkup()
{
    return QString::fromLatin1(g_szHarmful).replace(QLatin1String("svg+xml"), QLatin1String("png"));
}

} // namespace

void tst_pagemanners::pastedMarkup_goesThroughWhatALoadedPageGoesThrough()
{
    for (const bool bKey : {false, true}) {
        set(QStringLiteral("<p>x</p>\n"));
        m_pView->setFocus();
        putOnClipboard(harmfulMarkup(), QStringLiteral("bold"));
        run(m_pView,
            QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 1)"));
        if (bKey)
            QTest::keyClick(m_pView, Qt::Key_V, Qt::ControlModifier);
        else
            m_pView->onPaste();
        QVERIFY(addressOfPicture(m_pView).startsWith(QLatin1String("quillan-refused:")));
        const QString strHtml = m_pView->toHtml();
        QVERIFY2(strHtml.contains(QLatin1String("<b>bold</b>")), qPrintable(strHtml));
        QVERIFY(strHtml.contains(QLatin1String("data:image/png;base64,PHN2")));
        QVERIFY(!strHtml.contains(QLatin1String("script")));
        QVERIFY(!strHtml.contains(QLatin1String("onclick")));
    }
}

void tst_pagemanners::pastedMarkupThatCouldEndTheProgram_isPastedAsText()
{
    set(QStringLiteral("<p>x</p>\n"));
    const QSignalSpy spy(m_pView, &CEditWebView::statusMessage);
    putOnClipboard(QStringLiteral("<div style='display:flex'>").repeated(20)
                       + QStringLiteral("deep"),
                   QStringLiteral("deep"));
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 1)"));
    m_pView->triggerEdit(QWebPage::Paste);
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<p>xdeep</p>\n"));
    QCOMPARE(spy.size(), 1);
    QVERIFY(spy.at(0).at(0).toString().startsWith(QLatin1String("Pasted as text")));
}

// The end of a load takes the flag back to what it was.
void tst_pagemanners::typedWhileThePageLoads_staysTyped()
{
    followChanges(m_pView);
    const QSignalSpy spyDropped(m_pView, &CEditWebView::textDropped);
    QSignalSpy spy(m_pView, &QWebView::loadFinished);
    // Pictures keep it loading when its text is there.
    QByteArray page = "<p>words</p>\n";
    for (int n = 0; n < 200; ++n)
        page += "<img src=" + QByteArray::number(n) + ".png>\n";
    QVERIFY(m_pView->loadFile(m_pCase->write(QStringLiteral("a.html"), page)));
    QTRY_VERIFY(textOf(m_pView).contains(QLatin1String("words")));
    QVERIFY(spy.isEmpty());
    typeText(m_pView, QStringLiteral("mine "));
    const QByteArray typed = QByteArray(page).replace("words", "mine words");
    QCOMPARE(m_pView->htmlForSaving(), typed);
    QVERIFY(!spy.isEmpty() || spy.wait());
    QVERIFY(m_pView->isModified());
    QCOMPARE(m_pView->htmlForSaving(), typed);
    QVERIFY(spyDropped.isEmpty());
}

void tst_pagemanners::typedIntoAPageThatIsReplaced_isTold()
{
    followChanges(m_pView);
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<p>words</p>\n");
    QVERIFY(loadAndWait(m_pView, strPath));
    QVERIFY(!m_pView->isModified());
    const QSignalSpy spyDropped(m_pView, &CEditWebView::textDropped);
    QSignalSpy spy(m_pView, &QWebView::loadFinished);
    QVERIFY(m_pView->reload());
    typeText(m_pView, QStringLiteral("mine "));
    QVERIFY(!spy.isEmpty() || spy.wait());
    QCOMPARE(textOf(m_pView).trimmed(), QStringLiteral("words"));
    QCOMPARE(spyDropped.size(), 1);
    QVERIFY(spyDropped.at(0).at(0).toString().contains(QLatin1String("mine words")));
    QVERIFY(!m_pView->isModified());
}

void tst_pagemanners::frames_areToldAndKept()
{
    const QByteArray content = "<HTML>\n<FRAMESET COLS=50%,50%>\n<FRAME SRC=a.html>\n<FRAME>\n"
                               "</FRAMESET>\n</HTML>\n";
    QSignalSpy spy(m_pView, &CEditWebView::statusMessage);
    QVERIFY(loadAndWait(m_pView, m_pCase->write(QStringLiteral("f.html"), content)));
    QVERIFY(!spy.isEmpty());
    QTest::keyClicks(m_pView, QStringLiteral("x"));
    QCOMPARE(m_pView->htmlForSaving(), content);
}

void tst_pagemanners::saveElsewhere_leadsWhereThePageLed()
{
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<A HREF=b.html>x</A>\n");
    QVERIFY(QDir(m_pCase->path(QStringLiteral("."))).mkdir(QStringLiteral("sub")));
    const QString strNew = m_pCase->path(QStringLiteral("sub/a.html"));
    QVERIFY(loadAndWait(m_pView, strPath));
    QCOMPARE(m_pView->htmlForSaving(strNew), QByteArray("<A HREF=../b.html>x</A>\n"));
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<A HREF=b.html>x</A>\n"));
    // As a window does it.
    m_pCase->write(QStringLiteral("sub/a.html"), m_pView->htmlForSaving(strNew));
    m_pView->setFilePath(strNew);
    m_pView->markSaved();
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<A HREF=../b.html>x</A>\n"));
    // And in the source, which becomes the page at its new place.
    m_pView->showSource(true);
    QCOMPARE(m_pView->sourceEdit()->toPlainText(), QStringLiteral("<A HREF=../b.html>x</A>\n"));
    m_pView->sourceEdit()->document()->find(QStringLiteral("x<")).insertText(QStringLiteral("y<"));
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<A HREF=../b.html>y</A>\n"));
    m_pView->showSource(false);
    m_pView->applySource(m_pView->sourceEdit()->getText());
    QCOMPARE(m_pView->htmlForSaving(), QByteArray("<A HREF=../b.html>y</A>\n"));
}

void tst_pagemanners::xhtml_staysWellFormed()
{
    const QByteArray content =
        "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n<!DOCTYPE html PUBLIC \"-//W3C//DTD "
        "XHTML "
        "1.0 Strict//EN\" \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n<html "
        "xmlns=\"http://www.w3.org/1999/xhtml\">\n<head><title>t</title></"
        "head>\n<body>\n<p>caf\xE9 "
        "words<br />more</p>\n</body>\n</html>\n";
    QVERIFY(loadAndWait(m_pView, m_pCase->write(QStringLiteral("a.html"), content)));
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 5)"));
    m_pView->insertHtml(QStringLiteral("<br><img src=a.png><input type=checkbox checked>"));
    const QByteArray saved = m_pView->htmlForSaving();
    QXmlStreamReader xml(saved);
    while (!xml.atEnd())
        xml.readNext();
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY2(saved.contains(" />") && saved.contains("checked=\"\""), saved.constData());
    // The line that was edited and the declaration.
    QList<QByteArray> lstBefore = content.split('\n');
    QList<QByteArray> lstAfter = saved.split('\n');
    QCOMPARE(lstAfter.takeAt(5).left(3), QByteArray("<p>"));
    QCOMPARE(lstAfter.takeFirst(), QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\"?>"));
    lstBefore.removeAt(5);
    lstBefore.removeFirst();
    QCOMPARE(lstAfter, lstBefore);
}

QTEST_MAIN(tst_pagemanners)
#include "tst_pagemanners.moc"
