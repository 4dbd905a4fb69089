#include "cmarkedpagetest.h"

#include "pageedit/pagecommands.h"

// Which characters the source has where blanks were typed, and that the page's own non-breaking
// spaces stay.
class tst_typedblanks : public CMarkedPageTest
{
    Q_OBJECT

private slots:
    void blank_isSavedAsItWasTyped_data();
    void blank_isSavedAsItWasTyped();
    void blank_isSettledBeforeTheCaretGoesElsewhere();
    void blanksAroundACommand_areTwo();
    void typing_isUndoneAsBefore();

private:
    // "<" is Backspace, ">" Delete, "/" Enter, "}" the right arrow.
    void press(const QString &strKeys)
    {
        const QHash<QChar, Qt::Key> keys {{'<', Qt::Key_Backspace},
                                          {'>', Qt::Key_Delete},
                                          {'/', Qt::Key_Return},
                                          {'}', Qt::Key_Right}};
        for (const QChar c : strKeys)
            if (keys.contains(c))
                QTest::keyClick(m_pView, keys.value(c));
            else
                QTest::keyClick(m_pView, c.toLatin1());
        QCoreApplication::processEvents();
    }
};

void tst_typedblanks::blank_isSavedAsItWasTyped_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *szName, const char *szBefore, const char *szKeys,
                        const char *szAfter) {
        QTest::newRow(szName) << szBefore << szKeys << szAfter;
    };
    row("behind a link", "<p><a href=\"x\">one</a>|</p>", " two th",
        "<p><a href=\"x\">one</a> two th</p>");
    row("behind a picture", "<p><img src=\"a.png\" alt=\"\">|</p>", " two",
        "<p><img src=\"a.png\" alt=\"\"> two</p>");
    row("behind bold text", "<p><b>one|</b></p>", " two", "<p><b>one two</b></p>");
    row("before a word", "<p>one| two</p>", " x", "<p>one x two</p>");
    row("within a word", "<p>one|two</p>", " }", "<p>one two</p>");
    row("at the end of a line", "<p>one|</p>", " /two", "<p>one</p><p>two</p>");
    row("two in a row are meant", "<p>one|</p>", "  two", "<p>one &nbsp;two</p>");
    row("the page's own before", "<p>10&nbsp;|km</p>", "x", "<p>10&nbsp;xkm</p>");
    row("the page's own behind", "<p>10|&nbsp;km</p>", "0", "<p>100&nbsp;km</p>");
    row("the page's own, and a blank", "<p>10|&nbsp;km</p>", " x", "<p>10 x&nbsp;km</p>");
    row("deleted beside it", "<p>10&nbsp;x|km</p>", "<", "<p>10&nbsp;km</p>");
    row("deleted and typed", "<p>10&nbsp;x|km</p>", "<yz", "<p>10&nbsp;yzkm</p>");
    row("deleted before it", "<p>1|0&nbsp;km</p>", ">", "<p>1&nbsp;km</p>");
    row("itself deleted", "<p>10&nbsp;|km</p>", "<", "<p>10km</p>");
}

void tst_typedblanks::blank_isSavedAsItWasTyped()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    open(before);
    press(keys);
    QTEST(body(), "after");
}

void tst_typedblanks::blank_isSettledBeforeTheCaretGoesElsewhere()
{
    open("<p>one|</p><p>two</p>");
    press(" ");
    QCOMPARE(body(), QStringLiteral("<p>one&nbsp;</p><p>two</p>"));
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    QCOMPARE(body(), QStringLiteral("<p>one</p><p>two</p>"));
}

void tst_typedblanks::blanksAroundACommand_areTwo()
{
    open("<p>To|</p>");
    press(" read ");
    QVERIFY(runPageCommand(m_pView, "link", {{"href", "x"}, {"text", "it"}}));
    press(" or");
    QCOMPARE(body(), QStringLiteral("<p>To read <a href=\"x\">it</a> or</p>"));
}

void tst_typedblanks::typing_isUndoneAsBefore()
{
    const QString strBefore = QStringLiteral("<p><a href=\"x\">one</a> 10&nbsp;km</p>");
    open("<p><a href=\"x\">one|</a> 10&nbsp;km</p>");
    press(" a b /c");
    for (int n = 0; n < 20 && body() != strBefore; ++n)
        m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), strBefore);
}

QTEST_MAIN(tst_typedblanks)
#include "tst_typedblanks.moc"
