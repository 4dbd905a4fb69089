#include "pagecases.h"

#include "pageedit/cpagetyping.h"
#include "pageedit/pagecommands.h"

#include <QInputMethodEvent>

// Keys in an edited page.
class tst_pagetyping : public CPageTest
{
    Q_OBJECT

private:
    void open(const QString &strMarked);
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
};

void tst_pagetyping::open(const QString &strMarked)
{
    set(QStringLiteral("<!DOCTYPE html><html><head></head><body>%1</body></html>").arg(strMarked));
    selectPlaces(m_pView, takeMarks(m_pView));
    m_pView->setFocus();
    CPageTyping::of(m_pView);
    askPage(m_pView, QStringLiteral("state")); // As the tool bar does.
}

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

QTEST_MAIN(tst_pagetyping)
#include "tst_pagetyping.moc"
