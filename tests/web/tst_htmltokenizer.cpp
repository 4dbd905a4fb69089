#include "web/chtmltokenizer.h"

#include <QRandomGenerator>
#include <QTest>

// The pieces of an HTML text.
class tst_htmltokenizer : public QObject
{
    Q_OBJECT

private slots:
    void pieces_data();
    void pieces();
    void attributes_data();
    void attributes();
    void piecesPutTogether_areTheText();
    void openMarkup_takesLinearTime_data();
    void openMarkup_takesLinearTime();
};

namespace {

QString letterOf(const SHtmlToken &token)
{
    switch (token.kind) {
    case SHtmlToken::Kind::Text:
        return QStringLiteral("T");
    case SHtmlToken::Kind::EscapableText:
        return QStringLiteral("E");
    case SHtmlToken::Kind::RawText:
        return QStringLiteral("R");
    case SHtmlToken::Kind::CData:
        return QStringLiteral("D");
    case SHtmlToken::Kind::StartTag:
        return token.bSelfClosing ? QStringLiteral("S/") : QStringLiteral("S");
    case SHtmlToken::Kind::EndTag:
        return QStringLiteral("/");
    case SHtmlToken::Kind::Comment:
        return QStringLiteral("C");
    case SHtmlToken::Kind::Doctype:
        return QStringLiteral("!");
    case SHtmlToken::Kind::Dropped:
        return QStringLiteral("0");
    }
    return QString();
}

// "S[<b>] T[x]" and so on.
QString described(const QString &strHtml)
{
    QStringList lstPieces;
    for (const SHtmlToken &token : htmlTokens(strHtml))
        lstPieces += letterOf(token) + QLatin1Char('[')
            + strHtml.mid(token.nStart, token.nEnd - token.nStart) + QLatin1Char(']');
    return lstPieces.join(QLatin1Char(' '));
}

} // namespace

void tst_htmltokenizer::pieces_data()
{
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *szName, const char *szExpected) {
        QTest::newRow(szName) << QString::fromUtf8(szExpected);
    };
    row("nothing", "");
    row("text", "T[a & b]");
    row("tags", "S[<p>] T[x] S[<BR>] T[y] /[</P>]");
    row("self-closing", "S/[<br/>] S/[<br />] S/[<a b=\"c\"/>] S[<a b=c/>] S[<a b=/>]");
    row("quotes", "S[<a b='>' c=\">\">] T[x]");
    row("quotes that open nothing", "S[<a b'>] T['>] S[<a \"b>] T[\">]");
    row("blanks around the equals sign", "S[<a b = '>' c\n=\n\">\">]");
    row("equals sign as a name", "S[<a =\">] T[\">] S[<a b='c'=\">] T[\">]");
    row("lone less-than signs", "T[1 < 2 <3 <] S[<b>] T[<]");
    row("less-than sign before a tag", "T[<] S[<b>]");
    row("nameless end tags", "0[</>] C[</ x>] T[</]");
    row("comments", "C[<!-- <b> -->] C[<!--->] C[<!-->] C[<!--a--!>] C[<!----->] T[x]");
    row("open comment", "T[x] C[<!-- <b>-- >]");
    row("bogus comments", "C[<!x>] C[<?php a ?>] T[ b] C[<![CDATA[x]]>]");
    row("doctype", "![<!doctype HTML PUBLIC \"a\">] T[x]");
    row("open doctype", "![<!DOCTYPE html]");
    row("cut-off tag", "T[x] 0[<b c=\">]");
    row("script", "S[<script>] R[if (a<b) '</p>'; <!-- ] /[</script >] T[x]");
    row("script within a comment of a script",
        "S[<script>] R[<!-- <script> </script> --> ] /[</script>] T[x]");
    row("script after a comment of a script", "S[<script>] R[<!-- --> ] /[</SCRIPT>] T[x]");
    row("script without an end", "S[<script>] R[x </scripty>]");
    row("empty script", "S[<script>] /[</script>]");
    row("style", "S[<STYLE>] R[a > b <c>] /[</style>]");
    row("title and text area",
        "S[<title>] E[<b>&amp;] /[</title>] S[<textarea>] E[</title>] /[</textarea>]");
    row("plain text", "S[<plaintext>] R[<b></plaintext>]");
    row("frame", "S[<iframe>] R[<b>x</b>] /[</iframe>]");
    row("section in a drawing", "S[<svg>] D[<![CDATA[<b>]]>] /[</svg>] C[<![CDATA[<b>]");
    row("title and style of a drawing",
        "S[<svg>] S[<title>] S[<x>] /[</title>] S[<style>] S[<y>] /[</style>] /[</svg>]");
    row("HTML within a drawing",
        "S[<svg>] S[<foreignObject>] S[<style>] R[<y>] /[</style>] /[</foreignObject>] S[<style>] "
        "S[<y>]");
    row("HTML that ends a drawing", "S[<svg>] S[<div>] S[<style>] R[<y>] /[</style>]");
    row("empty drawing", "S/[<svg/>] S[<style>] R[<y>] /[</style>]");
}

void tst_htmltokenizer::pieces()
{
    QFETCH(QString, expected);
    // The pieces between "X[" and "] " of the description are the text.
    QString strHtml;
    for (const QString &strPiece : expected.split(QStringLiteral("] "), Qt::SkipEmptyParts)) {
        const int nStart = strPiece.indexOf(QLatin1Char('[')) + 1;
        strHtml += strPiece.mid(nStart);
    }
    strHtml.chop(1);
    QCOMPARE(described(strHtml), expected);
}

void tst_htmltokenizer::attributes_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << "<br/>"
                          << "";
    QTest::newRow("kinds") << "<a B=1 c='2' d=\"3\" e f=>"
                           << "b=1|c='2'|d=\"3\"|e|f=";
    QTest::newRow("blanks") << "<a b = 1\n\tc\n=\n'2' >"
                            << "b=1|c='2'";
    QTest::newRow("twice") << "<a b=1 b=2>"
                           << "b=1|b=2";
    QTest::newRow("slashes") << "<a/b/c=1/ d/>"
                             << "b|c=1/|d";
    QTest::newRow("without blanks") << "<a b='1'c=\"2\"d>"
                                    << "b='1'|c=\"2\"|d";
    QTest::newRow("equals sign first") << "<a =b =c=d =>"
                                       << "=b=c=d|=";
    QTest::newRow("end tag") << "</a b=1>"
                             << "b=1";
    QTest::newRow("greater-than sign") << "<a b='>' c>"
                                       << "b='>'|c";
}

void tst_htmltokenizer::attributes()
{
    QFETCH(QString, tag);
    QFETCH(QString, expected);
    QStringList lstAttributes;
    for (const SHtmlAttribute &attribute : htmlAttributes(tag, htmlTokens(tag).constFirst())) {
        QString strAttribute = attribute.strName;
        if (attribute.bValue)
            strAttribute += QLatin1Char('=');
        if (!attribute.cQuote.isNull())
            strAttribute += attribute.cQuote;
        strAttribute += tag.midRef(attribute.nValue, attribute.nLength);
        if (!attribute.cQuote.isNull())
            strAttribute += attribute.cQuote;
        QCOMPARE(tag.mid(attribute.nName, attribute.nNameLength).toLower(), attribute.strName);
        lstAttributes += strAttribute;
    }
    QCOMPARE(lstAttributes.join(QLatin1Char('|')), expected);
}

void tst_htmltokenizer::piecesPutTogether_areTheText()
{
    const QStringList lstParts = {QStringLiteral("<"),          QStringLiteral(">"),
                                  QStringLiteral("/"),          QStringLiteral("!"),
                                  QStringLiteral("--"),         QStringLiteral("<!--"),
                                  QStringLiteral("-->"),        QStringLiteral("<script>"),
                                  QStringLiteral("</script>"),  QStringLiteral("<svg>"),
                                  QStringLiteral("</svg>"),     QStringLiteral("<![CDATA["),
                                  QStringLiteral("]]>"),        QStringLiteral("<title"),
                                  QStringLiteral("</title>"),   QStringLiteral("'"),
                                  QStringLiteral("\""),         QStringLiteral("="),
                                  QStringLiteral(" a"),         QStringLiteral("\r\n"),
                                  QStringLiteral("<?"),         QStringLiteral("<!DOCTYPE"),
                                  QStringLiteral("<p"),         QStringLiteral("</p"),
                                  QStringLiteral("<textarea>"), QStringLiteral("<foreignObject>")};
    QRandomGenerator random(17);
    for (int n = 0; n < 20000; ++n) {
        QString strHtml;
        for (int i = random.bounded(12); i >= 0; --i)
            strHtml += lstParts.at(random.bounded(lstParts.size()));
        int nEnd = 0;
        for (const SHtmlToken &token : htmlTokens(strHtml)) {
            QCOMPARE(token.nStart, nEnd);
            QVERIFY2(token.nEnd > token.nStart, qPrintable(strHtml));
            nEnd = token.nEnd;
            for (const SHtmlAttribute &attribute : htmlAttributes(strHtml, token)) {
                QVERIFY(attribute.nName > token.nStart && attribute.nEnd < token.nEnd);
                QVERIFY(attribute.nValue + attribute.nLength <= attribute.nEnd);
            }
        }
        QCOMPARE(nEnd, strHtml.size());
    }
}

void tst_htmltokenizer::openMarkup_takesLinearTime_data()
{
    QTest::addColumn<QString>("part");
    for (const char *szPart :
         {"<", "<!--", "<a b=\"", "<a b=", "</", "<svg>", "<svg></math>", "<![CDATA[",
          "<script><!--", "<title>", "<textarea></text", "<!", "<a =", "--!"})
        QTest::newRow(szPart) << QString::fromLatin1(szPart);
}

// Square time would be hours here; the test's own time limit tells.
void tst_htmltokenizer::openMarkup_takesLinearTime()
{
    QFETCH(QString, part);
    const QString strHtml = part.repeated(2000000 / part.size());
    const QVector<SHtmlToken> lstTokens = htmlTokens(strHtml);
    QCOMPARE(lstTokens.constLast().nEnd, strHtml.size());
}

QTEST_APPLESS_MAIN(tst_htmltokenizer)
#include "tst_htmltokenizer.moc"
