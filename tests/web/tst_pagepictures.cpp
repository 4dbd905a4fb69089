// Pictures, icons, frames and style sheets of pages that were made to harm.
#include "support/madepictures.h"
#include "web/ceditwebview.h"
#include "webtest.h"

#include "web/cpagenetwork.h"
#include "web/csafepage.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTest>
#include <QWebFrame>

#endif

class tst_pagepictures : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pCase = new CWebCase; }
    void cleanup() { delete m_pCase; }

    void picture_isShownWhenItIsOne_data();
    void picture_isShownWhenItIsOne();
    void refusedPicture_isSavedAsItWas();
    void refusedPicture_swappedThroughTheSource_staysRefused();
    void drawingUnderAPicturesName_opensNothing();
    void drawingInThePage_isShown();
    void icon_isAPictureOfReasonableSize_data();
    void icon_isAPictureOfReasonableSize();
    void frameOfThePageItself_staysEmpty_data();
    void frameOfThePageItself_staysEmpty();
    void framesInEachOther_endAtSomeDepth();
    void framesOfManyFrames_endAtSomeNumber();
    void sheetThatImportsItself_isLoadedAFewTimes();

private:
    void load(CEditWebView *pView, const QByteArray &html)
    {
        pView->resize(400, 300);
        pView->show();
        QVERIFY(loadAndWait(pView, m_pCase->write(QStringLiteral("a.html"), html)));
    }

    CWebCase *m_pCase = nullptr;
};

namespace {

QByteArray dataAddress(const QByteArray &data, const QByteArray &type = "image/png")
{
    return "data:" + type + ";base64," + data.toBase64();
}

int widthOfPicture(const CEditWebView *pView)
{
    return run(pView, QStringLiteral("document.querySelector('img').naturalWidth")).toInt();
}

int countFrames(const QWebFrame *pFrame)
{
    int nFrames = 0;
    const QList<QWebFrame *> lstChildren = pFrame->childFrames();
    for (const QWebFrame *pChild : lstChildren)
        nFrames += 1 + countFrames(pChild);
    return nFrames;
}

} // namespace

void tst_pagepictures::picture_isShownWhenItIsOne_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("width");
    QTest::newRow("png") << savedPicture("PNG") << "a.png" << 5;
    QTest::newRow("jpeg") << savedPicture("JPG") << "a.jpg" << 5;
    QTest::newRow("gif") << gifOf(5, 4, 2) << "a.gif" << 5;
    QTest::newRow("bmp") << savedPicture("BMP") << "a.bmp" << 5;
    QTest::newRow("large") << pngClaiming(20000, 20000, 1) << "a.png" << 0;
    QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9'/>")
                             << "a.png" << 0;
    QTest::newRow("drawing as a page")
        << QByteArray("<!DOC><svg xmlns='http://www.w3.org/2000/svg' width='9'/>") << "b.html" << 0;
    QTest::newRow("png under another name") << savedPicture("PNG") << "a.jpg" << 5;
    QTest::newRow("unknown") << mng() << "a.png" << 0;
}

void tst_pagepictures::picture_isShownWhenItIsOne()
{
    QFETCH(QByteArray, picture);
    QFETCH(QString, name);
    QFETCH(int, width);
    CEditWebView viewFile;
    m_pCase->write(name, picture);
    load(&viewFile, "<img src=\"" + name.toLatin1() + "\">");
    QCOMPARE(widthOfPicture(&viewFile), width);
    CEditWebView viewData;
    load(&viewData, "<img src=\"" + dataAddress(picture) + "\">");
    QCOMPARE(widthOfPicture(&viewData), width);
    CEditWebView viewText;
    viewText.setHtml(QString::fromLatin1("<img src=\"" + dataAddress(picture) + "\">"));
    QTRY_COMPARE(widthOfPicture(&viewText), width);
}

void tst_pagepictures::refusedPicture_isSavedAsItWas()
{
    CEditWebView view;
    const QByteArray address = dataAddress(pngClaiming(60000, 60000));
    load(&view, "<img src=\"" + address + "\">");
    QVERIFY(view.htmlForSaving().contains("\"" + address + "\""));
    QVERIFY(!view.htmlForSaving().contains("refused"));
}

void tst_pagepictures::refusedPicture_swappedThroughTheSource_staysRefused()
{
    CEditWebView view;
    const QByteArray address = dataAddress(pngClaiming(20000, 20000, 1));
    load(&view, "<img src=\"" + address + "\">");
    view.showSource(true);
    QVERIFY(view.sourceEdit()->getText().contains(QString::fromLatin1(address)));
    view.sourceEdit()->appendPlainText(QStringLiteral("<p>more</p>"));
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QTRY_VERIFY(textOf(&view).contains(QLatin1String("more")));
    QCOMPARE(widthOfPicture(&view), 0);
    QVERIFY(view.htmlForSaving().contains(address));
}

void tst_pagepictures::drawingUnderAPicturesName_opensNothing()
{
#ifdef Q_OS_UNIX
    // Who opens the pipe waits for ever.
    const QString strPipe = m_pCase->path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(strPipe).constData(), 0600), 0);
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' "
                           "xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='9'>"
                           "<image xlink:href='"
        + QFile::encodeName(strPipe) + "' width='9' height='9'/></svg>";
    m_pCase->write(QStringLiteral("a.png"), svg);
    m_pCase->write(QStringLiteral("b.html"), "<!DOCTYPE html>" + svg);
    CEditWebView view;
    load(&view,
         "<body background=a.png><img src=a.png><img src=b.html><object data=a.png></object>"
         "<iframe src=b.html></iframe><input type=image src=\""
             + dataAddress(svg) + "\"><p style=\"background: url(" + dataAddress(svg)
             + ")\">x<link rel=icon href=a.png>");
    view.icon();
    QCOMPARE(view.page()->mainFrame()->childFrames().size(), 1); // It is a page, too.
#else
    QSKIP("no pipes among the files here");
#endif
}

void tst_pagepictures::drawingInThePage_isShown()
{
    const QByteArray svg =
        "<svg xmlns='http://www.w3.org/2000/svg' width='90' height='80'><g/></svg>";
    m_pCase->write(QStringLiteral("a.svg"), svg);
    CEditWebView view;
    load(&view, "<img src=a.svg>");
    QCOMPARE(widthOfPicture(&view), 90);
    load(&view, "<img src=\"" + dataAddress(svg, "image/svg+xml") + "\">");
    QCOMPARE(widthOfPicture(&view), 90);
}

void tst_pagepictures::icon_isAPictureOfReasonableSize_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("shown");
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    QTest::newRow("png") << savedPicture("PNG") << "a.png" << true;
    QTest::newRow("png as an icon") << savedPicture("PNG") << "favicon.ico" << true;
    QTest::newRow("drawing") << svg << "a.svg" << true;
    QTest::newRow("drawing under another name") << svg << "a.png" << false;
    QTest::newRow("large") << pngClaiming(60000, 60000) << "a.png" << false;
    QTest::newRow("large file") << savedPicture("PNG") + QByteArray(2000000, 'x') << "a.png"
                                << false;
}

void tst_pagepictures::icon_isAPictureOfReasonableSize()
{
    QFETCH(QByteArray, picture);
    QFETCH(QString, name);
    QFETCH(bool, shown);
    m_pCase->write(name, picture);
    CEditWebView view;
    load(&view, "<link rel=icon href=" + name.toLatin1() + "><p>x");
    QCOMPARE(!view.icon().isNull(), shown);
}

void tst_pagepictures::frameOfThePageItself_staysEmpty_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("by its name") << "a.html";
    QTest::newRow("with a query") << "a.html?1";
    QTest::newRow("with a place in it") << "a.html#x";
    QTest::newRow("around another") << "b.html";
}

void tst_pagepictures::frameOfThePageItself_staysEmpty()
{
    QFETCH(QString, source);
    m_pCase->write(QStringLiteral("b.html"), "<iframe src=a.html></iframe>");
    CEditWebView view;
    load(&view, "<p>own<iframe src=\"" + source.toLatin1() + "\"></iframe>");
    QVERIFY(countFrames(view.page()->mainFrame()) <= 2);
    const QList<QWebFrame *> lstFrames = view.page()->mainFrame()->childFrames();
    for (const QWebFrame *pFrame : lstFrames)
        QVERIFY(!pFrame->toPlainText().contains(QLatin1String("own")));
}

void tst_pagepictures::framesInEachOther_endAtSomeDepth()
{
    for (int n = 0; n < 30; ++n) {
        m_pCase->write(QStringLiteral("%1.html").arg(n),
                       "<p>" + QByteArray::number(n) + "<iframe src=" + QByteArray::number(n + 1)
                           + ".html></iframe>");
    }
    CEditWebView view;
    load(&view, "<iframe src=0.html></iframe>");
    QCOMPARE(countFrames(view.page()->mainFrame()), 4); // The last of them refused.
}

void tst_pagepictures::framesOfManyFrames_endAtSomeNumber()
{
    QByteArray html;
    for (int n = 0; n < 30; ++n)
        html += "<iframe src=b.html?" + QByteArray::number(n) + "></iframe>";
    m_pCase->write(QStringLiteral("c.html"), "<p>shown");
    m_pCase->write(QStringLiteral("b.html"), QByteArray(html).replace("b.html", "c.html"));
    CEditWebView view;
    load(&view, html);
    int nShown = 0;
    const QList<QWebFrame *> lstFrames = view.page()->mainFrame()->childFrames();
    for (const QWebFrame *pFrame : lstFrames) {
        const QList<QWebFrame *> lstInner = pFrame->childFrames();
        for (const QWebFrame *pInner : lstInner)
            nShown += pInner->toPlainText() == QLatin1String("shown");
    }
    QVERIFY(nShown > 0 && nShown <= 100);
}

void tst_pagepictures::sheetThatImportsItself_isLoadedAFewTimes()
{
    QByteArray css;
    for (int n = 0; n < 12; ++n)
        css += "@import \"a.css?" + QByteArray::number(n) + "\";\n";
    m_pCase->write(QStringLiteral("a.css"), css + "p { color: red }");
    CEditWebView view;
    auto *pNetwork = static_cast<CSafePage *>(view.page())->network();
    int nFetched = 0;
    connect(pNetwork, &QNetworkAccessManager::finished, this, [&](const QNetworkReply *pReply) {
        nFetched += pReply->error() == QNetworkReply::NoError;
    });
    load(&view, "<link rel=stylesheet href=a.css><p>x");
    QVERIFY2(nFetched < 10, qPrintable(QString::number(nFetched)));
}

QTEST_MAIN(tst_pagepictures)
#include "tst_pagepictures.moc"
