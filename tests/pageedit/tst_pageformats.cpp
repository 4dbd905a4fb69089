#include "cmarkedpagetest.h"

#include "pageedit/cpagetyping.h"

#include <QInputMethodEvent>
#include <QUndoStack>

// Bold and italic text in the elements that the page uses for them.
class tst_pageformats : public CMarkedPageTest
{
    Q_OBJECT

private slots:
    void selection_isWrittenAsThePageWrites_data();
    void selection_isWrittenAsThePageWrites();
    void typedText_isWrittenAsThePageWrites();
    void typedText_keepsTheOtherFormats();
    void composedText_isWrittenAsThePageWrites();
    void format_isForgottenWhenTheCaretMoves();
    void key_doesWhatTheButtonDoes();
};

void tst_pageformats::selection_isWrittenAsThePageWrites_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("after");
    const int nBold = QWebPage::ToggleBold;
    const int nItalic = QWebPage::ToggleItalic;
    const auto row = [](const char *szName, int nAction, const char *szBefore,
                        const char *szAfter) {
        QTest::newRow(szName) << szBefore << nAction << szAfter;
    };
    row("neither", nBold, "<p>[a] b</p>", "<p><b>a</b> b</p>");
    row("b", nBold, "<p>[a] <b>b</b></p>", "<p><b>a</b> <b>b</b></p>");
    row("strong", nBold, "<p>[a] <strong>b</strong></p>",
        "<p><strong>a</strong> <strong>b</strong></p>");
    row("more b", nBold, "<p>[a] <strong>b</strong><b>c</b><b>d</b></p>",
        "<p><b>a</b> <strong>b</strong><b>c</b><b>d</b></p>");
    row("em", nItalic, "<p>[a] <em>b</em></p>", "<p><em>a</em> <em>b</em></p>");
    row("strong, so em", nItalic, "<p>[a] <strong>b</strong></p>",
        "<p><em>a</em> <strong>b</strong></p>");
    row("i draws icons", nItalic, "<p>[a] <em>b</em><i class=\"x\"></i><i class=\"y\"></i></p>",
        "<p><em>a</em> <em>b</em><i class=\"x\"></i><i class=\"y\"></i></p>");
    row("beside its own", nBold, "<p>[a]<strong>b</strong></p>", "<p><strong>ab</strong></p>");
    row("several paragraphs", nBold, "<p>[a</p><ul><li>b]</li></ul><p><strong>c</strong></p>",
        "<p><strong>a</strong></p><ul><li><strong>b</strong></li></ul><p><strong>c</strong></p>");
    row("off", nBold, "<p><strong>[a]b</strong></p>", "<p>a<strong>b</strong></p>");
}

void tst_pageformats::selection_isWrittenAsThePageWrites()
{
    QFETCH(QString, before);
    QFETCH(int, action);
    open(before);
    m_pView->triggerEdit(static_cast<QWebPage::WebAction>(action));
    QTEST(body(), "after");
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), withoutMarks(before));
    m_pView->triggerEdit(QWebPage::Redo);
    QTEST(body(), "after");
}

void tst_pageformats::typedText_isWrittenAsThePageWrites()
{
    open("<p>a|</p><p><strong>x</strong></p>");
    m_pView->triggerEdit(QWebPage::ToggleBold);
    QVERIFY(m_pView->isBold());
    QTest::keyClicks(m_pView, "bc");
    QVERIFY(m_pView->isBold());
    m_pView->triggerEdit(QWebPage::ToggleBold);
    QTest::keyClicks(m_pView, "d");
    QCOMPARE(body(), QStringLiteral("<p>a<strong>bc</strong>d</p><p><strong>x</strong></p>"));
}

void tst_pageformats::typedText_keepsTheOtherFormats()
{
    open("<p>a|</p>");
    m_pView->triggerEdit(QWebPage::ToggleUnderline);
    m_pView->triggerEdit(QWebPage::ToggleItalic);
    m_pView->setForeColor("#ff0000");
    CPageTyping::of(m_pView)->choose("s", true);
    QTest::keyClicks(m_pView, "bc");
    QCOMPARE(run(m_pView, "document.querySelector('u').textContent").toString(), "bc");
    QCOMPARE(run(m_pView, "document.querySelector('i').textContent").toString(), "bc");
    QCOMPARE(run(m_pView, "document.querySelector('s').textContent").toString(), "bc");
    QCOMPARE(run(m_pView, "document.querySelector('font[color]').textContent").toString(), "bc");
}

void tst_pageformats::composedText_isWrittenAsThePageWrites()
{
    open("<p>a|</p><p><strong>x</strong></p>");
    m_pView->triggerEdit(QWebPage::ToggleBold);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("漢字"));
    QCoreApplication::sendEvent(m_pView, &commit);
    QCOMPARE(body(), QStringLiteral("<p>a<strong>漢字</strong></p><p><strong>x</strong></p>"));
}

void tst_pageformats::format_isForgottenWhenTheCaretMoves()
{
    open("<p>a|b</p><p><strong>x</strong></p>");
    m_pView->triggerEdit(QWebPage::ToggleBold);
    QTest::keyClick(m_pView, Qt::Key_Right);
    QTest::keyClicks(m_pView, "c");
    QCOMPARE(body(), QStringLiteral("<p>abc</p><p><strong>x</strong></p>"));
}

void tst_pageformats::key_doesWhatTheButtonDoes()
{
    open("<p>[a] <strong>x</strong></p>");
    QTest::keyPress(m_pView, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(m_pView, Qt::Key_B, Qt::ControlModifier);
    QTest::keyRelease(m_pView, Qt::Key_Control);
    QCOMPARE(body(), QStringLiteral("<p><strong>a</strong> <strong>x</strong></p>"));
}

QTEST_MAIN(tst_pageformats)
#include "tst_pageformats.moc"
