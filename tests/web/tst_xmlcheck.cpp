#include "web/xmlcheck.h"

#include <QTest>

class tst_xmlcheck : public QObject
{
    Q_OBJECT

private slots:
    void text_isWellFormedOrNot_data();
    void text_isWellFormedOrNot();
};

void tst_xmlcheck::text_isWellFormedOrNot_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    QTest::newRow("a page") << "<?xml version='1.0'?><html><body><br /></body></html>" << true;
    QTest::newRow("an entity of a DTD") << "<p>caf&eacute;&nbsp;</p>" << true;
    QTest::newRow("an implied end tag") << "<table><tbody><tr><td/></tr></table>" << false;
    QTest::newRow("an open line break") << "<p>a<br>b</p>" << false;
    QTest::newRow("a bare ampersand") << "<p>a & b</p>" << false;
    QTest::newRow("nothing") << "" << false;
}

void tst_xmlcheck::text_isWellFormedOrNot()
{
    QFETCH(QString, text);
    QTEST(isWellFormedXml(text), "good");
}

QTEST_GUILESS_MAIN(tst_xmlcheck)
#include "tst_xmlcheck.moc"
