#include "web/charset.h"

#include <QTest>

class tst_charset : public QObject
{
    Q_OBJECT

private slots:
    void declareUtf8_data();
    void declareUtf8();
    void declareUtf8_twice_changesNothingMore_data() { declareUtf8_data(); }
    void declareUtf8_twice_changesNothingMore();
};

void tst_charset::declareUtf8_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");

    const auto change = [](const char *szRow, const char *szHtml, const char *szExpected) {
        QTest::newRow(szRow) << QString::fromUtf8(szHtml) << QString::fromUtf8(szExpected);
    };
    const auto keep = [&](const char *szRow, const char *szHtml) { change(szRow, szHtml, szHtml); };

    keep("empty", "");
    keep("none declared", "<html><head></head><body>é</body></html>");
    keep("utf-8 already", "<meta charset=\"utf-8\">");
    keep("UTF-8 as spelled", "<meta charset='UTF-8'>");
    keep("utf8 without a hyphen", "<meta charset=utf8>");
    keep("content-type without charset", "<meta http-equiv=Content-Type content=\"text/html\">");
    keep("content without http-equiv", "<meta name=x content=\"text/html; charset=gb2312\">");
    keep("another http-equiv", "<meta http-equiv=refresh content=\"1; charset=gb2312\">");
    keep("in a comment", "<!-- <meta charset=gb2312> -->");
    keep("in a script", "<script>'<meta charset=gb2312>'</script>");
    keep("in a style", "<style>/* <meta charset=gb2312> */</style>");
    keep("in a text area", "<textarea><meta charset=gb2312></textarea>");
    keep("in a title", "<title><meta charset=gb2312></title>");
    keep("in an attribute", "<p title=\"<meta charset=gb2312>\">x</p>");
    keep("not a tag", "a < meta charset=gb2312>");
    keep("empty value", "<meta charset=\"\">");
    keep("longer name", "<metal charset=gb2312>");
    keep("xml declares utf-8", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><html>");
    keep("xml declares nothing", "<?xml version=\"1.0\"?><html>");
    keep("unfinished tag", "<meta charset");

    change("double quotes", "<meta charset=\"gb2312\">", "<meta charset=\"utf-8\">");
    change("single quotes", "<meta charset='latin1'>", "<meta charset='utf-8'>");
    change("no quotes", "<meta charset=Shift_JIS>", "<meta charset=utf-8>");
    change("no quotes, self-closing", "<meta charset=Shift_JIS />", "<meta charset=utf-8 />");
    change("upper case", "<META CHARSET=\"GBK\">", "<META CHARSET=\"utf-8\">");
    change("blanks around", "<meta  charset = \"gbk\" >", "<meta  charset = \"utf-8\" >");
    change("other attributes", "<meta id=a charset=gbk class=b>",
           "<meta id=a charset=utf-8 class=b>");
    change("http-equiv", "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=gb2312\">",
           "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">");
    change("http-equiv behind content",
           "<meta content='text/html;charset=big5' http-equiv=content-type>",
           "<meta content='text/html;charset=utf-8' http-equiv=content-type>");
    change("quotes within content",
           "<meta http-equiv=\"content-type\" content=\"text/html; charset='euc-jp'\">",
           "<meta http-equiv=\"content-type\" content=\"text/html; charset='utf-8'\">");
    change("more behind the charset",
           "<meta http-equiv=\"content-type\" content=\"text/html; charset=euc-jp; x=y\">",
           "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8; x=y\">");
    change("two declarations", "<meta charset=gbk><meta charset=big5>",
           "<meta charset=utf-8><meta charset=utf-8>");
    change("behind a comment with a quote", "<!-- don't --><meta charset=gbk>",
           "<!-- don't --><meta charset=utf-8>");
    change("behind a script", "<script>if (a<b) '</p>'</script><meta charset=gbk>",
           "<script>if (a<b) '</p>'</script><meta charset=utf-8>");
    change("behind the shortest comment", "<!--><meta charset=gbk>", "<!--><meta charset=utf-8>");
    change("xml declaration", "<?xml version=\"1.0\" encoding=\"gb2312\"?><html>",
           "<?xml version=\"1.0\" encoding=\"utf-8\"?><html>");
    change("text around is kept", "<p>é</p><meta charset=gbk>\n<p>中</p>",
           "<p>é</p><meta charset=utf-8>\n<p>中</p>");
}

void tst_charset::declareUtf8()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    QCOMPARE(::declareUtf8(html), expected);
}

void tst_charset::declareUtf8_twice_changesNothingMore()
{
    QFETCH(QString, html);
    const QString strOnce = ::declareUtf8(html);
    QCOMPARE(::declareUtf8(strOnce), strOnce);
}

QTEST_GUILESS_MAIN(tst_charset)
#include "tst_charset.moc"
