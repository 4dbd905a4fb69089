// The encoding of pages: what is declared, what is detected, what cannot be decoded.

#include "web/pagecodec.h"

#include "app/textcodecs.h"
#include "web/ceditwebview.h"
#include "web/charset.h"
#include "web/cpreviewwidget.h"
#include "webtest.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCodec>
#include <QWebView>

namespace {

// As a document asks about its page.
bool isPageWhole(const QByteArray &page)
{
    return isWholeText(codecForName(pageCodecName(page)), page);
}

QByteArray undeclaredPage(const char *szCodec, const QString &strText)
{
    const QString strHtml = QStringLiteral("<!DOCTYPE html>\n<html><head><title>x</title></head>"
                                           "<body><p>%1</p></body></html>\n");
    return QTextCodec::codecForName(szCodec)->fromUnicode(strHtml.arg(strText));
}

void undeclaredPages()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *szCodec, const char *szText) {
        QTest::newRow(szCodec) << QByteArray(szCodec) << QString::fromUtf8(szText);
    };
    row("UTF-8", "Grüße, 中文");
    row("windows-1252", "Die Bäume blühen schön – für „alle“.");
    row("windows-1250", "Příliš žluťoučký kůň pěl ďábelské ódy.");
    row("windows-1255", "שלום לכולם, זה דף קטן בעברית.");
    row("KOI8-R", "Страница без объявления кодировки.");
    row("windows-1251", "Страница без объявления кодировки.");
    row("Shift_JIS", "文字コードの宣言がないページです。");
    row("EUC-JP", "文字コードの宣言がないページです。");
    row("GB2312", "这个网页没有说明它的编码。");
    row("Big5", "這個網頁沒有說明它的編碼，我們來看看。");
    row("EUC-KR", "이 문서는 문자 집합을 밝히지 않습니다.");
    row("UTF-16", "中文 Grüße");
}

} // namespace

class tst_pagecodec : public QObject
{
    Q_OBJECT

private slots:
    void undeclaredPage_opensRight_data() { undeclaredPages(); }
    void undeclaredPage_opensRight();
    void undeclaredPage_writtenAnewInAnotherEncoding_isReadAgainRight();
    void undeclaredPage_isPreviewedRight_data() { undeclaredPages(); }
    void undeclaredPage_isPreviewedRight();
    void declaration_isBelievedBeforeTheDetection();
    void textAndUndeclaredPage_areIndependentOfWhatWasShownBefore();

    void declaredName_data();
    void declaredName();
    void codecName_data();
    void codecName();
    void pageWhole_data();
    void pageWhole();
};

void tst_pagecodec::undeclaredPage_opensRight()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, text);
    const CWebCase c;
    const QByteArray page = undeclaredPage(codec, text);
    QVERIFY(isPageWhole(page));
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page)));
    QCOMPARE(textOf(&view).trimmed(), text);
    QVERIFY(view.htmlForSaving().contains(text.toUtf8()));
}

void tst_pagecodec::undeclaredPage_writtenAnewInAnotherEncoding_isReadAgainRight()
{
    const CWebCase c;
    const QString strText = QString::fromUtf8("Страница без объявления кодировки.");
    CEditWebView view;
    QVERIFY(
        loadAndWait(&view, c.write(QStringLiteral("a.html"), undeclaredPage("KOI8-R", strText))));
    QCOMPARE(textOf(&view).trimmed(), strText);
    for (const char *szCodec : {"IBM866", "UTF-8", "windows-1251"}) {
        c.write(QStringLiteral("a.html"), undeclaredPage(szCodec, strText));
        QSignalSpy spy(&view, &QWebView::loadFinished);
        QVERIFY(view.reload());
        QVERIFY(spy.wait());
        QCOMPARE(textOf(&view).trimmed(), strText);
    }
}

void tst_pagecodec::undeclaredPage_isPreviewedRight()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, text);
    const CWebCase c;
    CPreviewWidget preview;
    preview.show();
    preview.previewFile(c.write(QStringLiteral("a.html"), undeclaredPage(codec, text)));
    const auto *pView = preview.findChild<QWebView *>();
    QVERIFY(pView);
    QTRY_COMPARE(pView->page()->mainFrame()->toPlainText().trimmed(), text);
}

void tst_pagecodec::declaration_isBelievedBeforeTheDetection()
{
    const CWebCase c;
    const QByteArray page = "<html><head><meta charset=iso-8859-5></head><body>"
        + QByteArray("\xC0\xC1\xC2\xD0\xD1\xD2") + "</body></html>";
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page)));
    QCOMPARE(textOf(&view).trimmed(), QString::fromUtf8("РСТабв"));
}

void tst_pagecodec::textAndUndeclaredPage_areIndependentOfWhatWasShownBefore()
{
    const CWebCase c;
    CEditWebView view;
    const QString strRussian = QString::fromUtf8("Страница без объявления кодировки.");
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"), undeclaredPage("KOI8-R", strRussian))));
    QSignalSpy spy(&view, &QWebView::loadFinished);
    view.setHtml(QString::fromUtf8("<p>Grüße</p>"));
    QTRY_VERIFY(!spy.isEmpty());
    QCOMPARE(textOf(&view).trimmed(), QString::fromUtf8("Grüße"));
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("b.html"),
                                "<p>Gr\xC3\xBC\xC3\x9F"
                                "e</p>")));
    QCOMPARE(textOf(&view).trimmed(), QString::fromUtf8("Grüße"));
}

void tst_pagecodec::declaredName_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *szHtml, const char *szName) {
        QTest::newRow(szHtml) << QString::fromUtf8(szHtml) << QString::fromUtf8(szName);
    };
    row("", "");
    row("<html><body>x", "");
    row("<meta charset=\"koi8-r\">", "koi8-r");
    row("<META CHARSET=' gbk '>", "gbk");
    row("<meta http-equiv=content-type content='text/html; charset=big5'>", "big5");
    row("<?xml version='1.0' encoding='euc-jp'?><html>", "euc-jp");
    row("<?xml version='1.0' encoding='euc-jp'?><meta charset=gbk>", "euc-jp");
    row("<meta charset=''><meta charset=gbk>", "gbk");
    row("<!-- <meta charset=gbk> -->", "");
    row("<script>'<meta charset=gbk>'</script>", "");
    row("<title><meta charset=gbk></title>", "");
    row("<meta charset", "");
}

void tst_pagecodec::declaredName()
{
    QFETCH(QString, html);
    QTEST(declaredCharset(html), "name");
}

void tst_pagecodec::codecName_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *szRow, const QByteArray &page, const char *szName) {
        QTest::newRow(szRow) << page << QString::fromUtf8(szName);
    };
    row("empty", "", "UTF-8");
    row("ASCII", "<p>x", "UTF-8");
    row("UTF-8", "<p>\xC3\xA9", "UTF-8");
    row("Latin 1 declared", "<meta charset=iso-8859-1>\xE9", "windows-1252");
    row("ASCII declared", "<meta charset=us-ascii>\xE9", "windows-1252");
    row("gb2312 declared", "<meta charset=gb2312>\xD6\xD0", "GBK");
    row("declared beside UTF-8 bytes", "<meta charset=koi8-r>\xC3\xA9", "KOI8-R");
    row("UTF-16 declared in ASCII", "<meta charset=utf-16>\xC3\xA9", "UTF-8");
    row("unknown name declared", "<meta charset=nonsense>\xC3\xA9", "UTF-8");
    row("mark before a declaration", "\xEF\xBB\xBF<meta charset=gbk>", "UTF-8");
    row("mark of UTF-16", QByteArray("\xFF\xFE<\0p\0", 6), "UTF-16LE");
    row("the other mark", QByteArray("\xFE\xFF\0<\0p", 6), "UTF-16BE");
    row("German",
        "<p>Gr\xFC\xDF"
        "e, V\xF6gel",
        "windows-1252");
}

void tst_pagecodec::codecName()
{
    QFETCH(QByteArray, page);
    QTEST(pageCodecName(page), "name");
}

void tst_pagecodec::pageWhole_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<bool>("whole");
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("UTF-8") << QByteArray("<p>\xC3\xA9") << true;
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF<p>\xC3\xA9") << true;
    QTest::newRow("Latin 1") << QByteArray("<p>Gr\xFC\xDF"
                                           "e, V\xF6gel")
                             << true;
    QTest::newRow("declared as something else")
        << QByteArray("<meta charset=utf-8><p>caf\xE9") << false;
    QTest::newRow("UTF-16, odd byte") << QByteArray("\xFF\xFE<\0p", 5) << false;
    QTest::newRow("cut off") << QByteArray("<meta charset=shift_jis>\x83J\x83") << false;
}

void tst_pagecodec::pageWhole()
{
    QFETCH(QByteArray, page);
    QTEST(isPageWhole(page), "whole");
}

QTEST_MAIN(tst_pagecodec)
#include "tst_pagecodec.moc"
