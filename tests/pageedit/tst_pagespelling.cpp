#include "cmarkedpagetest.h"
#include "spelling/smalldictionary.h"
#include "tests/support/files.h"

#include "pageedit/cpagespelling.h"
#include "spelling/cspelling.h"

#include <QMenu>
#include <QUndoStack>

// Misspelt words of a page, with a dictionary of a few English and German words.
class tst_pagespelling : public CMarkedPageTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void misspeltWords_areMarked_data();
    void misspeltWords_areMarked();
    void wordThatIsTyped_isMarkedOnceTheCaretLeaves();
    void marks_followTheText();
    void marks_areNoPartOfThePage();
    void shiftF4_turnsMarksOff();
    void pageOutOfView_isNotAsked();

    void f4_offersWordsForTheOneAtTheCaret_data();
    void f4_offersWordsForTheOneAtTheCaret();
    void f4Again_goesToTheNextWord();
    void f4WithoutMisspeltWord_saysSo();
    void chosenWord_isOneStepAndKeepsItsLetters_data();
    void chosenWord_isOneStepAndKeepsItsLetters();
    void addedWord_isMarkedNoMore();
    void checkWhileTheListIsShown_changesNothing();

private:
    QMenu *menu() const { return m_pView->findChild<QMenu *>(QStringLiteral("suggestionMenu")); }
    // How many columns of pixels have the ink of a mark.
    int marks() const
    {
        const QImage image = m_pView->grab().toImage();
        int nColumns = 0;
        for (int x = 0; x < image.width(); ++x) {
            bool bInk = false;
            for (int y = 0; y < image.height() && !bInk; ++y) {
                const QColor clr = image.pixelColor(x, y);
                bInk = clr.red() > 180 && clr.green() < 110 && clr.blue() < 110;
            }
            nColumns += bInk ? 1 : 0;
        }
        return nColumns;
    }
    // Without waiting for a pause of typing.
    void check() { emit g_pSpelling->changed(); }

    QTemporaryDir m_folder;
    std::unique_ptr<CSpelling> m_pSpelling;
};

void tst_pagespelling::initTestCase()
{
    putDictionary(m_folder.path(), "en_US", "hello world three");
    putDictionary(m_folder.path(), "de_DE", "hallo Welt");
}

void tst_pagespelling::init()
{
    CPageTest::init();
    QFile::remove(m_folder.filePath("own.txt"));
    m_pSpelling = std::make_unique<CSpelling>(QStringList {m_folder.path()},
                                              m_folder.filePath("own.txt"), "en_US");
    g_pSpelling = m_pSpelling.get();
    QVERIFY(g_pSpelling->prepare("en") && g_pSpelling->prepare("de"));
    new CPageSpelling(m_pView);
}

void tst_pagespelling::cleanup()
{
    CPageTest::cleanup();
    g_pSpelling = nullptr;
    m_pSpelling.reset();
}

void tst_pagespelling::misspeltWords_areMarked_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<bool>("marked");
    const auto row = [](const char *szName, const char *szBody, bool bMarked) {
        QTest::newRow(szName) << QString::fromUtf8(szBody) << bMarked;
    };
    row("right", "<p>hello world</p>", false);
    row("wrong", "<p>hello wrld</p>", true);
    row("right with a letter in bold", "<p>he<b>l</b>lo</p>", false);
    row("wrong with a letter in bold", "<p>he<b>x</b>lo</p>", true);
    row("two lines are no word", "<p>he<br>llo</p>", true);
    row("another language", "<p lang=\"de\">hallo Welt</p>", false);
    row("another language, wrong", "<p lang=\"de\">hello</p>", true);
    row("a foreign word", "<p>hello <i lang=\"de\">Welt</i> world</p>", false);
    row("a language without dictionary", "<p lang=\"it\">ciao mondo</p>", false);
    row("code", "<p>hello <code>wrld</code></p>", false);
    row("as the author wishes", "<p spellcheck=\"false\">wrld</p>", false);
    row("a cell", "<table><tr><td>wrld</td></tr></table>", true);
    row("hidden", "<p style=\"display: none\">wrld</p>", false);
}

void tst_pagespelling::misspeltWords_areMarked()
{
    QFETCH(QString, body);
    QFETCH(bool, marked);
    show(QStringLiteral("|<br>") + body);
    check();
    QCOMPARE(marks() > 0, marked);
}

void tst_pagespelling::wordThatIsTyped_isMarkedOnceTheCaretLeaves()
{
    show("<p>hello |<br></p>");
    QTest::keyClicks(m_pView, "wrld");
    check();
    QCOMPARE(marks(), 0);
    QTest::keyClick(m_pView, Qt::Key_Space);
    QTRY_VERIFY(marks() > 0);
}

void tst_pagespelling::marks_followTheText()
{
    show("<p>|hello wrld</p>");
    check();
    const int nMarks = marks();
    QVERIFY2(nMarks > 5, qPrintable(QString::number(nMarks)));
    QTest::keyClicks(m_pView, "o o ");
    QCoreApplication::processEvents(); // Not yet the next check.
    QVERIFY(qAbs(marks() - nMarks) <= 2);
    run(m_pView, "document.querySelector('p').style.marginTop = '120px'");
    m_pView->page()->triggerAction(QWebPage::SelectAll);
    QTRY_VERIFY(qAbs(marks() - nMarks) <= 2);
}

void tst_pagespelling::marks_areNoPartOfThePage()
{
    show("<p>|hello wrld</p>");
    const QString strHtml = m_pView->toHtml();
    check();
    QVERIFY(marks() > 0);
    QCOMPARE(m_pView->toHtml(), strHtml);
    QVERIFY(!m_pView->isModified());
    QCOMPARE(m_pView->page()->undoStack()->count(), 0);
}

void tst_pagespelling::shiftF4_turnsMarksOff()
{
    show("<p>|hello wrld</p>");
    check();
    QVERIFY(marks() > 0);
    QTest::keyClick(m_pView, Qt::Key_F4, Qt::ShiftModifier);
    QCOMPARE(marks(), 0);
    QVERIFY(!m_pCase->m_settings.m_bPageSpelling);
    QTest::keyClick(m_pView, Qt::Key_F4, Qt::ShiftModifier);
    QVERIFY(marks() > 0);
}

void tst_pagespelling::pageOutOfView_isNotAsked()
{
    show("<p>|hello</p><div style=\"height: 3000px\"></div><p>wrld</p>");
    check();
    QCOMPARE(marks(), 0);
    m_pView->page()->mainFrame()->setScrollPosition(QPoint(0, 5000));
    QTRY_VERIFY(marks() > 0);
}

void tst_pagespelling::f4_offersWordsForTheOneAtTheCaret_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("first");
    const auto row = [](const char *szName, const char *szBody, const char *szSelected,
                        const char *szFirst) {
        QTest::newRow(szName) << szBody << szSelected << szFirst;
    };
    row("within it", "<p>thre hello wr|ld</p>", "wrld", "world");
    row("at its end", "<p>thre hello wrld|</p>", "wrld", "world");
    row("before it", "<p>thre hel|lo wrld</p>", "wrld", "world");
    row("in a later paragraph", "<p>thre |hello</p><ul><li>wrld</li></ul>", "wrld", "world");
    row("with a letter in bold", "<p>|hello wr<b>l</b>d</p>", "wrld", "world");
    row("in its language", "<p>|hello</p><p lang=\"de\">halo</p>", "halo", "hallo");
    row("from an empty paragraph", "<p>thre</p><p>|<br></p><p>wrld</p>", "wrld", "world");
}

void tst_pagespelling::f4_offersWordsForTheOneAtTheCaret()
{
    QFETCH(QString, body);
    QFETCH(QString, first);
    show(body);
    QTest::keyClick(m_pView, Qt::Key_F4);
    QTEST(m_pView->selectedText(), "selected");
    QVERIFY(menu() && menu()->isVisible());
    QCOMPARE(menu()->activeAction()->text(), first);
    menu()->hide();
}

void tst_pagespelling::f4Again_goesToTheNextWord()
{
    show("<p>|wrld wrld</p><p>thre</p>");
    QTest::keyClick(m_pView, Qt::Key_F4);
    menu()->hide();
    QTest::keyClick(m_pView, Qt::Key_F4);
    QCOMPARE(run(m_pView, "getSelection().anchorOffset").toInt(), 5);
    menu()->hide();
    QTest::keyClick(m_pView, Qt::Key_F4);
    QCOMPARE(m_pView->selectedText(), QStringLiteral("thre"));
    menu()->hide();
}

void tst_pagespelling::f4WithoutMisspeltWord_saysSo()
{
    QSignalSpy spy(m_pView, &CEditWebView::statusMessage);
    show("<p>wrld hello|</p>");
    QTest::keyClick(m_pView, Qt::Key_F4);
    QCOMPARE(spy.last().value(0).toString(), QStringLiteral("No misspelt word follows."));
    show("<p lang=\"it\">cia|o</p>");
    QTest::keyClick(m_pView, Qt::Key_F4);
    QCOMPARE(spy.last().value(0).toString(),
             QStringLiteral("There is no dictionary for this language."));
}

void tst_pagespelling::chosenWord_isOneStepAndKeepsItsLetters_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("plain") << "<p>a wr|ld b</p>"
                           << "<p>a world b</p>";
    QTest::newRow("in a link") << "<p><a href=\"x\">|wrld</a></p>"
                               << "<p><a href=\"x\">world</a></p>";
    QTest::newRow("beginning in bold") << "<p>|<b>wr</b>ld.</p>"
                                       << "<p><b>world</b>.</p>";
}

void tst_pagespelling::chosenWord_isOneStepAndKeepsItsLetters()
{
    QFETCH(QString, before);
    show(before);
    QTest::keyClick(m_pView, Qt::Key_F4);
    QTest::keyClick(menu(), Qt::Key_Return);
    QTEST(body(), "after");
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), withoutMarks(before));
}

void tst_pagespelling::addedWord_isMarkedNoMore()
{
    show("<p>hello wrld|</p>");
    QTest::keyClick(m_pView, Qt::Key_F4);
    menu()->actions().last()->trigger();
    menu()->hide();
    QCOMPARE(marks(), 0);
    QCOMPARE(contents(m_folder.filePath("own.txt")), QByteArray("wrld\n"));
}

void tst_pagespelling::checkWhileTheListIsShown_changesNothing()
{
    show("<div style=\"height: 3000px\">wrld</div><p>|thre</p>");
    QTest::keyClick(m_pView, Qt::Key_F4);
    check();
    QTest::keyClick(menu(), Qt::Key_Return);
    QCOMPARE(body(), QStringLiteral("<div style=\"height: 3000px\">wrld</div><p>three</p>"));
}

QTEST_MAIN(tst_pagespelling)
#include "tst_pagespelling.moc"
