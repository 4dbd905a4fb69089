#include "cmarkedpagetest.h"

#include "pageedit/cpagetyping.h"
#include "pageedit/pagecommands.h"

#include <QInputMethodEvent>

// Keys in an edited page.
class tst_pagetyping : public CMarkedPageTest
{
    Q_OBJECT

private:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_pView, key, modifiers);
    }
    void type(const QString &strText) { QTest::keyClicks(m_pView, strText); }
    void undo() { m_pView->triggerEdit(QWebPage::Undo); }

private slots:
    void firstText_isAParagraph();
    void firstText_isOneStepWithWhatFollows();
    void enterAfterAHeading_beginsAParagraph();
    void enterInAParagraph_beginsAParagraph();
    void enterOnAnEmptyItem_endsTheList();
    void tab_indentsItems();
    void tabOutsideOfLists_isLeftToTheWebView();
    void enterInPreformattedText_isALine();
    void chosenFormat_holdsForWhatIsTyped();
    void chosenFormat_isForgottenWhenTheCaretMoves();
    void chosenFormat_holdsForComposedText();
    void fieldsOfForms_keepTheirKeys();
    void firstLetterByAltGr_isAParagraph();
    void composedText_beginsAParagraph_data();
    void composedText_beginsAParagraph();
    void textBetweenBlocks_isAParagraph_data();
    void textBetweenBlocks_isAParagraph();
    void textBesideATable_isAParagraph_data();
    void textBesideATable_isAParagraph();
};

void tst_pagetyping::firstText_isAParagraph()
{
    open(QStringLiteral("\n|"));
    type(QStringLiteral("one"));
    QCOMPARE(body().simplified(), QStringLiteral("<p>one</p>"));
    press(Qt::Key_Return);
    type(QStringLiteral("two"));
    QCOMPARE(body().simplified().remove(QLatin1Char(' ')), QStringLiteral("<p>one</p><p>two</p>"));
}

void tst_pagetyping::firstText_isOneStepWithWhatFollows()
{
    open(QStringLiteral("|"));
    type(QStringLiteral("one"));
    undo();
    undo();
    QCOMPARE(body(), QString());
}

void tst_pagetyping::enterAfterAHeading_beginsAParagraph()
{
    open(QStringLiteral("<h2>one|</h2>"));
    press(Qt::Key_Return);
    type(QStringLiteral("two"));
    QCOMPARE(body(), QStringLiteral("<h2>one</h2><p>two</p>"));
}

void tst_pagetyping::enterInAParagraph_beginsAParagraph()
{
    open(QStringLiteral("<p>one|two</p>"));
    press(Qt::Key_Return);
    QCOMPARE(body(), QStringLiteral("<p>one</p><p>two</p>"));
}

void tst_pagetyping::enterOnAnEmptyItem_endsTheList()
{
    open(QStringLiteral("<ul><li>one|</li></ul>"));
    press(Qt::Key_Return);
    type(QStringLiteral("two"));
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    type(QStringLiteral("three"));
    QCOMPARE(body(), QStringLiteral("<ul><li>one</li><li>two</li></ul><p>three</p>"));
}

void tst_pagetyping::tab_indentsItems()
{
    open(QStringLiteral("<ul><li>one</li><li>t|wo</li></ul>"));
    press(Qt::Key_Tab);
    QCOMPARE(body(), QStringLiteral("<ul><li>one<ul><li>two</li></ul></li></ul>"));
    press(Qt::Key_Tab); // It cannot be indented further.
    QCOMPARE(body(), QStringLiteral("<ul><li>one<ul><li>two</li></ul></li></ul>"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(body(), QStringLiteral("<ul><li>one</li><li>two</li></ul>"));
}

void tst_pagetyping::tabOutsideOfLists_isLeftToTheWebView()
{
    open(QStringLiteral("<p>o|ne</p>"));
    press(Qt::Key_Tab);
    const QString strWith = body();
    delete CPageTyping::of(m_pView);
    set(QStringLiteral("<p>one</p>"));
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 1)"));
    press(Qt::Key_Tab);
    QCOMPARE(strWith, body());
}

void tst_pagetyping::enterInPreformattedText_isALine()
{
    open(QStringLiteral("<pre>one|</pre>"));
    press(Qt::Key_Return);
    type(QStringLiteral("two"));
    QCOMPARE(body(), QStringLiteral("<pre>one\ntwo</pre>"));
}

void tst_pagetyping::chosenFormat_holdsForWhatIsTyped()
{
    open(QStringLiteral("<p>a|b</p>"));
    CPageTyping *pTyping = CPageTyping::of(m_pView);
    pTyping->choose(QStringLiteral("code"), true);
    type(QStringLiteral("xy"));
    QCOMPARE(body(), QStringLiteral("<p>a<code>xy</code>b</p>"));
    pTyping->choose(QStringLiteral("code"), false);
    type(QStringLiteral("zz"));
    QCOMPARE(body(), QStringLiteral("<p>a<code>xy</code>zzb</p>"));
}

void tst_pagetyping::chosenFormat_isForgottenWhenTheCaretMoves()
{
    open(QStringLiteral("<p>a|b</p>"));
    CPageTyping *pTyping = CPageTyping::of(m_pView);
    QSignalSpy spy(pTyping, &CPageTyping::chosenChanged);
    pTyping->choose(QStringLiteral("s"), true);
    press(Qt::Key_Right);
    QVERIFY(pTyping->chosen().isEmpty());
    QCOMPARE(spy.count(), 2);
    type(QStringLiteral("x"));
    QCOMPARE(body(), QStringLiteral("<p>abx</p>"));
}

void tst_pagetyping::chosenFormat_holdsForComposedText()
{
    open(QStringLiteral("<p>a|b</p>"));
    QInputMethodEvent compose(QStringLiteral("x"), {});
    QCoreApplication::sendEvent(m_pView, &compose);
    CPageTyping::of(m_pView)->choose(QStringLiteral("s"), true);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("漢字"));
    QCoreApplication::sendEvent(m_pView, &commit);
    QCOMPARE(body(), QStringLiteral("<p>a<s>漢字</s>b</p>"));
}

void tst_pagetyping::fieldsOfForms_keepTheirKeys()
{
    open(QStringLiteral("<ul><li>one|</li><li><textarea></textarea></li></ul>"));
    run(m_pView, QStringLiteral("document.querySelector('textarea').focus()"));
    QVERIFY(!runPageCommand(m_pView, QStringLiteral("enter")));
    QVERIFY(
        !askPage(m_pView, QStringLiteral("keys")).toMap().value(QStringLiteral("item")).toBool());
}

// On systems where AltGr comes as Control and Alt.
void tst_pagetyping::firstLetterByAltGr_isAParagraph()
{
    open(QStringLiteral("|"));
    QTest::keyPress(m_pView, Qt::Key_Control, Qt::ControlModifier);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    QCoreApplication::sendEvent(m_pView, &key);
    QTest::keyRelease(m_pView, Qt::Key_Control);
    type(QStringLiteral("x"));
    QCOMPARE(body(), QStringLiteral("<p>@x</p>"));
}

void tst_pagetyping::composedText_beginsAParagraph_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("first text") << "|"
                                << "<p>one</p><p>two</p>";
    QTest::newRow("behind a rule") << "<hr>|"
                                   << "<hr><p>one</p><p>two</p>";
    QTest::newRow("in a paragraph") << "<p>a|</p>"
                                    << "<p>aone</p><p>two</p>";
}

void tst_pagetyping::composedText_beginsAParagraph()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    open(before);
    const auto compose = [this](const QString &strText) {
        QInputMethodEvent composing(strText, {});
        QCoreApplication::sendEvent(m_pView, &composing);
        QInputMethodEvent committed;
        committed.setCommitString(strText);
        QCoreApplication::sendEvent(m_pView, &committed);
    };
    compose(QStringLiteral("on"));
    compose(QStringLiteral("e"));
    press(Qt::Key_Return);
    compose(QStringLiteral("two"));
    QCOMPARE(body(), after);
}

void tst_pagetyping::textBetweenBlocks_isAParagraph_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const QString strTable = QStringLiteral("<table><tbody><tr><td>a</td></tr></tbody></table>");
    QTest::newRow("behind a table") << strTable + "|" << strTable + "<p>xy</p>";
    QTest::newRow("in the line end behind it") << "\n" + strTable + "|\n"
                                               << "\n" + strTable + "\n<p>xy</p>\n";
    QTest::newRow("before a table") << "|" + strTable << "<p>xy</p>" + strTable;
    QTest::newRow("between two") << strTable + "|" + strTable << strTable + "<p>xy</p>" + strTable;
    QTest::newRow("in a section") << "<div>" + strTable + "|</div>"
                                  << "<div>" + strTable + "<p>xy</p></div>";
    QTest::newRow("beside text") << strTable + "one|" << strTable + "onexy";
    QTest::newRow("in an item") << "<ul><li>" + strTable + "|</li></ul>"
                                << "<ul><li>" + strTable + "xy</li></ul>";
}

void tst_pagetyping::textBetweenBlocks_isAParagraph()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    open(before);
    type(QStringLiteral("xy"));
    QCOMPARE(body(), after);
}

void tst_pagetyping::textBesideATable_isAParagraph_data()
{
    QTest::addColumn<bool>("below");
    QTest::newRow("right of it") << false;
    QTest::newRow("below it") << true;
}

void tst_pagetyping::textBesideATable_isAParagraph()
{
    QFETCH(bool, below);
    const QString strTable = QStringLiteral(
        "<p>a|</p>\n<table><tbody><tr><td>b</td></tr><tr><td>c</td></tr></tbody></table>\n");
    open(strTable);
    const QRect table =
        m_pView->page()->mainFrame()->findFirstElement(QStringLiteral("table")).geometry();
    const QPoint place(table.right() + 200, below ? table.bottom() + 150 : table.center().y());
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier, place);
    type(QStringLiteral("xy"));
    QCOMPARE(body(), QString(strTable + "<p>xy</p>\n").remove('|'));
    undo();
    undo();
    QCOMPARE(body(), QString(strTable).remove('|'));
}

QTEST_MAIN(tst_pagetyping)
#include "tst_pagetyping.moc"
