#include "webtest.h"

#include "web/cpreviewwidget.h"

#include <QDropEvent>
#include <QMimeData>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebSettings>
#include <QWebView>

// Nothing of a page runs, reaches the network or reads files from elsewhere.
class tst_pagesafety : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void trap_openedInTheEditor_hasNoEffect();
    void trap_swappedThroughTheSource_hasNoEffect();
    void trap_previewedAsFile_asksNobody();
    void trap_previewedAsText_asksNobody();
    void scriptsOfThePage_sleepDuringOurOwn();
    void metaRefresh_goesNowhere_data();
    void metaRefresh_goesNowhere();
    void frameElsewhere_isNotRead_data();
    void frameElsewhere_isNotRead();
    void formIsNotSent();
    void localImageAndStyle_areShown();
    void followedWebPage_mayAskTheWeb();
    void closedPage_takesItsNetworkWithIt();
    void linkWithTarget_opensHere();
    void linkToAnotherScheme_isNotFollowed_data();
    void linkToAnotherScheme_isNotFollowed();
    void clickInThePreview_goesNowhere();
    void droppedFile_isLeftToTheWindow();
    void failedLoad_isNotSaved();
    void typingInAFrame_isImpossible();
    void findInAFrame_leavesItAsItIs();
    void replaceInAFrame_goesOnBehindIt();

private:
    QString server(const QString &strName) const
    {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(m_pServer->serverPort()).arg(strName);
    }
    // True if a question of the test's own is the only one that the server gets, put behind all
    // that wait.
    bool nobodyElseAsked()
    {
        const QString strMine = QStringLiteral("GET /sentinel HTTP/1.1");
        QNetworkAccessManager network;
        network.get(QNetworkRequest(QUrl(server(QStringLiteral("sentinel")))));
        return QTest::qWaitFor([&] { return m_lstAsked.contains(strMine); })
            && m_lstAsked == QStringList(strMine);
    }
    QByteArray trap() const;
    void ctrlClick(CEditWebView *pView, const QString &strSelector);
    void showWithFrame(CEditWebView *pView, const QByteArray &page, const QByteArray &frame);

    CWebCase *m_pCase = nullptr;
    QTcpServer *m_pServer = nullptr;
    QStringList m_lstAsked; // Request lines.
};

namespace {

bool showLoaded(QWebView *pView)
{
    pView->resize(400, 300);
    pView->show();
    return QTest::qWaitForWindowExposed(pView);
}

} // namespace

void tst_pagesafety::init()
{
    m_pCase = new CWebCase;
    m_pServer = new QTcpServer;
    m_lstAsked.clear();
    QVERIFY(m_pServer->listen(QHostAddress::LocalHost));
    connect(m_pServer, &QTcpServer::newConnection, this, [this] {
        QTcpSocket *pSocket = m_pServer->nextPendingConnection();
        connect(pSocket, &QTcpSocket::readyRead, this, [this, pSocket] {
            m_lstAsked.append(QString::fromLatin1(pSocket->readAll().split('\r').first()));
            const QByteArray body =
                "<p>from the web<img src='/image.png'><img src='file:///etc/x.png'>";
            pSocket->write("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\nContent-Length: "
                           + QByteArray::number(body.size()) + "\r\n\r\n" + body);
            pSocket->disconnectFromHost();
        });
    });
}

void tst_pagesafety::cleanup()
{
    delete m_pServer;
    delete m_pCase;
}

QByteArray tst_pagesafety::trap() const
{
    QByteArray html = R"(<!DOCTYPE html><html><head><title>quiet</title>
<link rel="stylesheet" href="@style.css"><link rel="prefetch" href="@prefetch">
<link rel="dns-prefetch" href="@"><link rel="icon" href="@icon.png">
<style>@import url("@import.css"); @font-face { font-family: F; src: url("@font.ttf"); }
body { background: url("@background.png"); font-family: F; }</style>
<script>document.title = 'ran';</script><script src="@script.js"></script>
</head><body onload="document.title = 'ran'" onclick="document.title = 'ran'"
 oninput="document.title = 'ran'" onfocus="document.title = 'ran'" onselectstart="document.title = 'ran'"
 onkeydown="document.title = 'ran'" onbeforecut="document.title = 'ran'" onpaste="document.title = 'ran'">
<p id="p">text</p>
<script>document.write('<p>written</p>'); setTimeout(function() { document.title = 'ran'; }, 50);
setInterval(function() { new Image().src = '@timer.png'; }, 50);</script>
<img src="@image.png"><img src="missing.png" onerror="document.title = 'ran'">
<img srcset="@srcset.png 1x"><picture><source srcset="@source.png"><img src="@picture.png"></picture>
<iframe src="@frame.html"></iframe><iframe srcdoc="<script>parent.document.title = 'ran'</script><img src='@srcdoc.png'>"></iframe>
<iframe src="javascript:parent.document.title = 'ran'"></iframe>
<iframe src="data:text/html,<script>parent.document.title='ran'</script><img src='@inner.png'>"></iframe>
<object data="@object.swf"></object><object type="text/html" data="@object.html"></object>
<embed src="@embed.swf"><applet code="X" codebase="@"></applet>
<video src="@video.mp4" poster="@poster.png" autoplay></video><audio src="@audio.mp3" autoplay></audio>
<svg width="10" height="10" onload="document.title = 'ran'"><image xlink:href="@svg.png" width="10" height="10"/>
<script>document.title = 'ran'</script><use xlink:href="@use.svg#x"/></svg>
<table background="@table.png"><tr><td>1</td></tr></table>
<input type="image" src="@input.png"><form action="@form"><input autofocus onfocus="document.title = 'ran'"></form>
<details open ontoggle="document.title = 'ran'"></details><marquee onstart="document.title = 'ran'">m</marquee>
<a id="a" href="javascript:document.title = 'ran'">link</a></body></html>)";
    return html.replace("@import url", "%import url")
        .replace("@font-face", "%font-face")
        .replace('@', server(QString()).toLatin1())
        .replace('%', '@');
}

void tst_pagesafety::trap_openedInTheEditor_hasNoEffect()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view, m_pCase->write(QStringLiteral("a.html"), trap())));
    const QString strBefore = view.toHtml();
    QVERIFY(showLoaded(&view));
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTest::keyClick(&view, Qt::Key_X);
    QTest::keyClick(&view, Qt::Key_Backspace);
    ctrlClick(&view, QStringLiteral("#a"));
    QVERIFY(awaitPageTimers());
    QCOMPARE(view.title(), QStringLiteral("quiet"));
    QCOMPARE(view.page()->mainFrame()->findAllElements(QStringLiteral("p")).count(), 1);
    QVERIFY(view.htmlForSaving().contains("document.write('<p>written</p>')"));
    QCOMPARE(view.toHtml().remove(QLatin1Char('\n')), QString(strBefore).remove(QLatin1Char('\n')));
    QVERIFY(!view.settings()->testAttribute(QWebSettings::JavascriptEnabled));
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::trap_swappedThroughTheSource_hasNoEffect()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view, m_pCase->write(QStringLiteral("a.html"), trap())));
    view.showSource(true);
    view.sourceEdit()->appendPlainText(QStringLiteral("<p>more</p>"));
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QVERIFY(showLoaded(&view));
    QVERIFY(awaitPageTimers());
    QCOMPARE(view.title(), QStringLiteral("quiet"));
    QVERIFY(textOf(&view).contains(QLatin1String("more")));
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::trap_previewedAsFile_asksNobody()
{
    CPreviewWidget preview;
    preview.resize(400, 300);
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), trap()));
    auto *pWeb = preview.findChild<QWebView *>();
    QVERIFY(pWeb);
    QTRY_VERIFY(pWeb->page()->mainFrame()->toPlainText().contains(QLatin1String("text")));
    QVERIFY(awaitPageTimers());
    QCOMPARE(pWeb->title(), QStringLiteral("quiet"));
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::trap_previewedAsText_asksNobody()
{
    CPreviewWidget preview;
    preview.resize(400, 300);
    preview.show();
    preview.previewHtml(QString::fromLatin1(trap()), QUrl());
    auto *pWeb = preview.findChild<QWebView *>();
    QVERIFY(pWeb);
    QVERIFY(awaitPageTimers());
    QCOMPARE(pWeb->title(), QStringLiteral("quiet"));
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::scriptsOfThePage_sleepDuringOurOwn()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view, m_pCase->write(QStringLiteral("a.html"), trap())));
    QVERIFY(showLoaded(&view));
    selectElement(&view, QStringLiteral("#p"));
    view.setForeColor(QStringLiteral("blue"));
    view.setFontSize(QStringLiteral("20"));
    view.insertHtml(QStringLiteral("<img src='none.png' onerror=\"document.title = 'ran'\">"
                                   "<script>document.title = 'ran'</script>"
                                   "<svg onload=\"document.title = 'ran'\"></svg>"));
    view.isBold();
    QVERIFY(awaitPageTimers());
    QCOMPARE(view.title(), QStringLiteral("quiet"));
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::metaRefresh_goesNowhere_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("to the network") << "@x";
    QTest::newRow("to a file") << "b.html";
    QTest::newRow("to itself") << "";
}

void tst_pagesafety::metaRefresh_goesNowhere()
{
    QFETCH(QString, target);
    m_pCase->write(QStringLiteral("b.html"), "other");
    const QString strUrl = target.startsWith(QLatin1Char('@')) ? server(target.mid(1)) : target;
    const QString strRefresh =
        strUrl.isEmpty() ? QStringLiteral("0") : QStringLiteral("0;url=") + strUrl;
    CEditWebView view;
    QVERIFY(
        loadAndWait(&view,
                    m_pCase->write(QStringLiteral("a.html"),
                                   QStringLiteral("<meta http-equiv=refresh content='%1'><p>own")
                                       .arg(strRefresh)
                                       .toUtf8())));
    QSignalSpy spy(&view, &QWebView::loadStarted);
    QVERIFY(awaitPageTimers());
    QVERIFY(spy.isEmpty());
    QCOMPARE(textOf(&view), QStringLiteral("own"));
    QVERIFY(view.showsOwnFile());
    QVERIFY(nobodyElseAsked());
}

void tst_pagesafety::frameElsewhere_isNotRead_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("read");
    QTest::newRow("system file") << "file:///etc/passwd" << false;
    QTest::newRow("system folder") << "file:///etc/" << false;
    QTest::newRow("climbing") << "../../../../../../../../etc/passwd" << false;
    QTest::newRow("device") << "file:///dev/zero" << false;
    QTest::newRow("own site") << "b.html" << true;
}

void tst_pagesafety::frameElsewhere_isNotRead()
{
    QFETCH(QString, source);
    QFETCH(bool, read);
    m_pCase->write(QStringLiteral("b.html"), "<p>own frame");
    CEditWebView view;
    QVERIFY(loadAndWait(&view,
                        m_pCase->write(QStringLiteral("a.html"),
                                       "<iframe src='" + source.toUtf8() + "'></iframe>")));
    QVERIFY(awaitPageTimers());
    const QList<QWebFrame *> lstFrames = view.page()->mainFrame()->childFrames();
    const QString strText = lstFrames.isEmpty() ? QString() : lstFrames.first()->toPlainText();
    QCOMPARE(strText, read ? QStringLiteral("own frame") : QString());
}

void tst_pagesafety::formIsNotSent()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view,
                        m_pCase->write(QStringLiteral("a.html"),
                                       "<form action='" + server(QStringLiteral("form")).toUtf8()
                                           + "'><input type=submit></form>")));
    QVERIFY(showLoaded(&view));
    ctrlClick(&view, QStringLiteral("input"));
    QVERIFY(awaitPageTimers());
    QVERIFY(nobodyElseAsked());
    QVERIFY(view.showsOwnFile());
}

void tst_pagesafety::localImageAndStyle_areShown()
{
    QDir(m_pCase->m_folder.path()).mkpath(QStringLiteral("site/pages"));
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_pCase->path(QStringLiteral("site/a.png"))));
    m_pCase->write(QStringLiteral("site/a.css"), "p { font-size: 50px; }");
    CEditWebView view;
    QVERIFY(loadAndWait(
        &view,
        m_pCase->write(QStringLiteral("site/pages/a.html"),
                       "<link rel=stylesheet href='../a.css'><p>x<img src='../a.png'>")));
    QTRY_COMPARE(run(&view, QStringLiteral("document.querySelector('img').naturalWidth")).toInt(),
                 10);
    QCOMPARE(run(&view, QStringLiteral("getComputedStyle(document.querySelector('p')).fontSize"))
                 .toString(),
             QStringLiteral("50px"));
}

void tst_pagesafety::ctrlClick(CEditWebView *pView, const QString &strSelector)
{
    const QPoint pos =
        pView->page()->mainFrame()->findFirstElement(strSelector).geometry().center();
    QTest::keyPress(pView, Qt::Key_Control);
    QTest::mouseClick(pView, Qt::LeftButton, Qt::ControlModifier, pos);
    QTest::keyRelease(pView, Qt::Key_Control);
}

void tst_pagesafety::followedWebPage_mayAskTheWeb()
{
    CEditWebView view;
    QVERIFY(loadAndWait(
        &view,
        m_pCase->write(QStringLiteral("a.html"),
                       "<a href='" + server(QStringLiteral("page")).toUtf8() + "'>link</a>")));
    QVERIFY(showLoaded(&view));
    ctrlClick(&view, QStringLiteral("a"));
    QTRY_VERIFY(m_lstAsked.contains(QStringLiteral("GET /image.png HTTP/1.1")));
    QCOMPARE(m_lstAsked.size(), 2);
    QTRY_VERIFY(textOf(&view).contains(QLatin1String("from the web")));
    QVERIFY(!view.showsOwnFile());
    QVERIFY(view.canGoBack());
    view.back();
    QTRY_VERIFY(view.showsOwnFile());
}

void tst_pagesafety::closedPage_takesItsNetworkWithIt()
{
    QByteArray page = "<p>";
    for (int n = 0; n < 200; ++n)
        page += "<img src=\"missing" + QByteArray::number(n) + ".png\">";
    auto pView = std::make_unique<CEditWebView>();
    pView->resize(400, 300);
    pView->show();
    const QPointer<QNetworkAccessManager> pNetwork = pView->page()->networkAccessManager();
    QVERIFY(pView->loadFile(m_pCase->write("page.html", page)));
    QTRY_VERIFY(!pNetwork->findChildren<QNetworkReply *>().isEmpty());
    pView.reset();
    QTRY_VERIFY(!pNetwork);
}

void tst_pagesafety::linkWithTarget_opensHere()
{
    m_pCase->write(QStringLiteral("b.html"), "<p>other");
    CEditWebView view;
    QVERIFY(loadAndWait(
        &view,
        m_pCase->write(QStringLiteral("a.html"), "<a href='b.html' target=_blank>link</a>")));
    QVERIFY(showLoaded(&view));
    ctrlClick(&view, QStringLiteral("a"));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
}

void tst_pagesafety::linkToAnotherScheme_isNotFollowed_data()
{
    QTest::addColumn<QString>("href");
    for (const char *szHref : {"mailto:a@b.c", "ftp://127.0.0.1/", "javascript:alert(1)",
                               "data:text/html,x", "missing.html", "/", "/dev/zero", "about:blank"})
        QTest::newRow(szHref) << QString::fromLatin1(szHref);
}

void tst_pagesafety::linkToAnotherScheme_isNotFollowed()
{
    QFETCH(QString, href);
    CEditWebView view;
    QVERIFY(loadAndWait(
        &view,
        m_pCase->write(QStringLiteral("a.html"), "<a href='" + href.toUtf8() + "'>link</a>")));
    QVERIFY(showLoaded(&view));
    QSignalSpy spy(&view, &QWebView::loadStarted);
    ctrlClick(&view, QStringLiteral("a"));
    QVERIFY(awaitPageTimers());
    QVERIFY(spy.isEmpty());
    QVERIFY(view.showsOwnFile());
}

void tst_pagesafety::clickInThePreview_goesNowhere()
{
    m_pCase->write(QStringLiteral("b.html"), "<p>other");
    CPreviewWidget preview;
    preview.resize(400, 300);
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), "<a href='b.html'>link</a>"));
    auto *pWeb = preview.findChild<QWebView *>();
    QTRY_COMPARE(pWeb->page()->mainFrame()->toPlainText(), QStringLiteral("link"));
    const QPoint pos =
        pWeb->page()->mainFrame()->findFirstElement(QStringLiteral("a")).geometry().center();
    QTest::mouseClick(pWeb, Qt::LeftButton, Qt::NoModifier, pos);
    QVERIFY(awaitPageTimers());
    QCOMPARE(pWeb->page()->mainFrame()->toPlainText(), QStringLiteral("link"));
}

void tst_pagesafety::droppedFile_isLeftToTheWindow()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view, m_pCase->write(QStringLiteral("a.html"), "<p>own")));
    QVERIFY(showLoaded(&view));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_pCase->write(QStringLiteral("b.html"), "other"))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &enter);
    QVERIFY(!enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &drop);
    QVERIFY(!drop.isAccepted());
    QVERIFY(awaitPageTimers());
    QCOMPARE(textOf(&view), QStringLiteral("own"));

    CPreviewWidget preview;
    preview.previewFile(m_pCase->path(QStringLiteral("a.html")));
    QVERIFY(!preview.findChild<QWebView *>()->acceptDrops());
}

void tst_pagesafety::failedLoad_isNotSaved()
{
    CEditWebView view;
    QVERIFY(loadAndWait(&view, m_pCase->write(QStringLiteral("a.html"), "<p>own")));
    QVERIFY(view.showsOwnFile());
    // The file goes between the look at it and the load.
    QSignalSpy spy(&view, &QWebView::loadFinished);
    QVERIFY(view.reload());
    QVERIFY(QFile::remove(view.filePath()));
    QVERIFY(spy.wait());
    if (!spy.at(0).at(0).toBool()) {
        QVERIFY(!view.showsOwnFile());
        QVERIFY(!view.toHtml().contains(QLatin1String("Error")));
    }
    view.setUrl(QUrl::fromLocalFile(view.filePath())); // Without the look.
    QVERIFY(spy.wait());
    QVERIFY(!view.showsOwnFile());
    QVERIFY(!view.toHtml().contains(QLatin1String("Error"), Qt::CaseInsensitive));
}

void tst_pagesafety::showWithFrame(CEditWebView *pView, const QByteArray &page,
                                   const QByteArray &frame)
{
    m_pCase->write(QStringLiteral("b.html"), frame);
    QVERIFY(loadAndWait(pView, m_pCase->write(QStringLiteral("a.html"), page)));
    showLoaded(pView);
    followChanges(pView);
    pView->setFocus();
}

void tst_pagesafety::typingInAFrame_isImpossible()
{
    CEditWebView view;
    showWithFrame(&view, "<p id=p>own text</p><iframe src='b.html'></iframe>", "<p>frame text");
    const QPoint pos =
        view.page()->mainFrame()->findFirstElement(QStringLiteral("iframe")).geometry().topLeft()
        + QPoint(20, 20);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, pos);
    QTest::keyClick(&view, Qt::Key_X);
    QCOMPARE(view.page()->mainFrame()->childFrames().first()->toPlainText(),
             QStringLiteral("frame text"));
    QVERIFY(!view.isModified());
    // Back in the page itself, typing works.
    QTest::mouseClick(
        &view, Qt::LeftButton, Qt::NoModifier,
        view.page()->mainFrame()->findFirstElement(QStringLiteral("#p")).geometry().topLeft()
            + QPoint(2, 5));
    QTest::keyClick(&view, Qt::Key_X);
    QVERIFY(textOf(&view).contains(QLatin1Char('x')) && view.isModified());
}

void tst_pagesafety::findInAFrame_leavesItAsItIs()
{
    CEditWebView view;
    showWithFrame(&view, "<p>own text</p><iframe src='b.html'></iframe>", "<p>frame zebra");
    QVERIFY(view.findPageTextReverse(QStringLiteral("zebra"), true));
    QTest::keyClick(&view, Qt::Key_X);
    QTest::keyClick(&view, Qt::Key_Backspace);
    QCOMPARE(view.page()->mainFrame()->childFrames().first()->toPlainText(),
             QStringLiteral("frame zebra"));
    QVERIFY(!view.isModified());
    // A match in the page itself can be typed over.
    QVERIFY(view.findPageTextReverse(QStringLiteral("own"), true));
    QTest::keyClick(&view, Qt::Key_X);
    QVERIFY(textOf(&view).startsWith(QLatin1String("x text")) && view.isModified());
}

void tst_pagesafety::replaceInAFrame_goesOnBehindIt()
{
    CEditWebView view;
    showWithFrame(&view, "<p>one zebra</p><iframe src='b.html'></iframe><p>two zebra</p>",
                  "<p>frame zebra");
    QVERIFY(view.replaceAllPageText(QStringLiteral("zebra"), QStringLiteral("lion")));
    QVERIFY(textOf(&view).contains(QLatin1String("one lion")));
    QVERIFY(textOf(&view).contains(QLatin1String("two lion")));
    QCOMPARE(view.page()->mainFrame()->childFrames().first()->toPlainText(),
             QStringLiteral("frame zebra"));
    QVERIFY(!view.replacePageText(QStringLiteral("zebra"), QStringLiteral("lion")));
}

QTEST_MAIN(tst_pagesafety)
#include "tst_pagesafety.moc"
