#include "web/webtest.h"

#include "app/platform.h"
#include "pageedit/cdlgcharacters.h"
#include "pageedit/cdlglink.h"
#include "pageedit/cdlgpageproperties.h"
#include "pageedit/fileaddress.h"
#include "pageedit/specialcharacters.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

// The dialogs of a page, and their parts.
class tst_pagedialogs : public QObject
{
    Q_OBJECT

private slots:
    void fileAddress_isWhatAPageNames_data();
    void fileAddress_isWhatAPageNames();
    void characters_areFoundByNameNumberAndThemselves();
    void characters_haveNames();
    void link_offersPlacesOfThePage();
    void link_needsAnAddress();
    void palette_insertsByKeyboard();
    void properties_comeOutAsTheyWentIn();
    void colorThatIsNone_isRefused();
};

void tst_pagedialogs::fileAddress_isWhatAPageNames_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("address");
    const auto row = [](const char *szFile, const char *szPage, const char *szAddress) {
        QTest::newRow(szAddress) << QString::fromUtf8(szFile) << QString::fromUtf8(szPage)
                                 << QString::fromUtf8(szAddress);
    };
    row("/a/b.html", "/a/c.html", "b.html");
    row("/a/d/b.html", "/a/c.html", "d/b.html");
    row("/b.html", "/a/c.html", "../b.html");
    row("/a/b c#d?e%f.html", "/a/c.html", "b%20c%23d%3Fe%25f.html");
    row("/a/größe 漢.html", "/a/c.html", "größe%20漢.html");
    if (Platform::isFileName(QStringLiteral("x:y.html")))
        row("/a/x:y.html", "/a/c.html", "./x:y.html");
    row("/a/b \"c\".html", "", "file:///a/b%20%22c%22.html");
}

void tst_pagedialogs::fileAddress_isWhatAPageNames()
{
    QFETCH(QString, file);
    QFETCH(QString, page);
    QTEST(fileAddress(file, page), "address");
}

void tst_pagedialogs::characters_areFoundByNameNumberAndThemselves()
{
    const auto codes = [](const char *szText) {
        QList<uint> lstCodes;
        for (const SSpecialCharacter &character : findCharacters(QString::fromUtf8(szText)))
            lstCodes.append(character.nCode);
        return lstCodes;
    };
    QCOMPARE(codes("em dash"), QList<uint> {0x2014});
    QCOMPARE(codes("DASH em"), QList<uint> {0x2014});
    QCOMPARE(codes("U+2014"), QList<uint> {0x2014});
    QCOMPARE(codes("2014"), QList<uint> {0x2014});
    QCOMPARE(codes("—"), QList<uint> {0x2014});
    QVERIFY(codes("arrow").size() >= 10);
    QVERIFY(codes("no such character").isEmpty());
    QCOMPARE(codes("").size(), specialCharacters().size());
}

void tst_pagedialogs::characters_haveNames()
{
    QSet<uint> codes;
    for (const SSpecialCharacter &character : specialCharacters()) {
        QVERIFY(character.nCode >= 0xA0 && !character.strName.isEmpty());
        QVERIFY(!character.shown().trimmed().isEmpty());
        QVERIFY2(!codes.contains(character.nCode), qPrintable(character.strName));
        codes.insert(character.nCode);
    }
    QVERIFY(codes.size() >= 300);
}

void tst_pagedialogs::link_offersPlacesOfThePage()
{
    SPageLink link;
    link.lstNames = QStringList {QStringLiteral("a"), QStringLiteral("b")};
    link.strAddress = QStringLiteral("x.html");
    link.strText = QStringLiteral("X");
    const CDlgLink dialog(link, QString(), nullptr);
    const auto *pAddress = dialog.findChild<QComboBox *>();
    QCOMPARE(pAddress->count(), 2);
    QCOMPARE(pAddress->itemText(1), QStringLiteral("#b"));
    QCOMPARE(dialog.address(), QStringLiteral("x.html"));
    QCOMPARE(dialog.text(), QStringLiteral("X"));
}

void tst_pagedialogs::link_needsAnAddress()
{
    const CDlgLink dialog(SPageLink(), QString(), nullptr);
    auto *pButtons = dialog.findChild<QDialogButtonBox *>();
    QVERIFY(!pButtons->button(QDialogButtonBox::Ok)->isEnabled());
    dialog.findChild<QComboBox *>()->setEditText(QStringLiteral("b.html"));
    QVERIFY(pButtons->button(QDialogButtonBox::Ok)->isEnabled());
}

void tst_pagedialogs::palette_insertsByKeyboard()
{
    CDlgCharacters dialog(nullptr);
    QSignalSpy spy(&dialog, &CDlgCharacters::characterChosen);
    dialog.show();
    auto *pSearch = dialog.findChild<QLineEdit *>();
    QTest::keyClicks(pSearch, QStringLiteral("dash"));
    auto *pList = dialog.findChild<QListWidget *>();
    QVERIFY(pList->count() >= 3);
    const QString strFirst = pList->item(0)->data(Qt::UserRole).toString();
    QTest::keyClick(pSearch, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), strFirst);
    QVERIFY(dialog.isVisible());
}

void tst_pagedialogs::properties_comeOutAsTheyWentIn()
{
    const QVariantMap properties {
        {QStringLiteral("title"), QStringLiteral("T")},
        {QStringLiteral("language"), QStringLiteral("x-own")},
        {QStringLiteral("description"), QStringLiteral("D")},
        {QStringLiteral("color"), QStringLiteral("rgb(1, 2, 3)")},
        {QStringLiteral("background"), QString()},
        {QStringLiteral("sheets"), QStringList {QStringLiteral("a.css"), QStringLiteral("b.css")}}};
    const CDlgPageProperties dialog(properties, QString(), nullptr);
    QCOMPARE(dialog.properties(), properties);
}

void tst_pagedialogs::colorThatIsNone_isRefused()
{
    const CDlgPageProperties dialog({{QStringLiteral("color"), QStringLiteral("nocolor")}},
                                    QString(), nullptr);
    const auto *pButtons = dialog.findChild<QDialogButtonBox *>();
    QVERIFY(!pButtons->button(QDialogButtonBox::Ok)->isEnabled());
}

QTEST_MAIN(tst_pagedialogs)
#include "tst_pagedialogs.moc"
