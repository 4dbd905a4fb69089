#include "webtest.h"

#include <QTcpServer>
#include <QWebElement>
#include <QWebView>

// Refresh, links, the history: which address is the document.
class tst_pageaddress : public QObject
{
    Q_OBJECT

private slots:
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
    void pageThatNeverEndsLoading_closesCleanly();
};

void tst_pageaddress::refresh_readsTheFileAgain()
{
    const CWebCase c;
    CEditWebView view;
    const QString strPath = c.write(QStringLiteral("a.html"), page("old"));
    QVERIFY(loadAndWait(&view, strPath));
    c.write(QStringLiteral("a.html"), page("new"));
    QVERIFY(view.reload());
    QTRY_COMPARE(textOf(&view), QStringLiteral("new"));
}

void tst_pageaddress::refreshOfAVanishedFile_keepsThePage()
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

void tst_pageaddress::refreshAfterSaveAs_readsTheNewFile()
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

void tst_pageaddress::refreshOfANewPage_doesNothing()
{
    const CWebCase c;
    CEditWebView view;
    typeText(&view, QStringLiteral("typed"));
    QVERIFY(view.reload());
    QVERIFY(awaitPageTimers());
    QCOMPARE(textOf(&view), QStringLiteral("typed"));
}

void tst_pageaddress::backToASavedFile_showsWhatWasSaved_data()
{
    QTest::addColumn<bool>("twice");
    QTest::newRow("shown once") << false;
    QTest::newRow("another view shows the old one") << true;
}

void tst_pageaddress::backToASavedFile_showsWhatWasSaved()
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

void tst_pageaddress::foreignAddress_isNotTheDocument()
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

void tst_pageaddress::saveAsOfAForeignAddress_makesItTheDocument()
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

void tst_pageaddress::followedLink_asksWhenModified_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<int>("asked");
    QTest::addColumn<QString>("shown");
    QTest::newRow("clean") << false << false << 0 << "other";
    QTest::newRow("modified, may be left") << true << true << 1 << "other";
    QTest::newRow("modified, is kept") << true << false << 1 << "link";
}

void tst_pageaddress::followedLink_asksWhenModified()
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
    QVERIFY(awaitPageTimers());
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

void tst_pageaddress::linkToAnAnchor_staysTheDocument()
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

void tst_pageaddress::back_asksWhenModified()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("first"))));
    view.setUrl(QUrl::fromLocalFile(c.write(QStringLiteral("b.html"), page("other"))));
    QTRY_COMPARE(textOf(&view), QStringLiteral("other"));
    view.setModified(true);
    view.back(); // Nobody to ask.
    QVERIFY(awaitPageTimers());
    QCOMPARE(textOf(&view), QStringLiteral("other"));
    view.setLeaveQuestion([] { return true; });
    view.back();
    QTRY_COMPARE(textOf(&view), QStringLiteral("first"));
    QVERIFY(!view.isModified());
}

void tst_pageaddress::icon_isThePagesOwn()
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

void tst_pageaddress::openingAgain_showsWhatWasSaved()
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

void tst_pageaddress::pageThatNeverEndsLoading_closesCleanly()
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

QTEST_MAIN(tst_pageaddress)
#include "tst_pageaddress.moc"
