#include "cmarkedpagetest.h"

#include <QUndoStack>

// When Backspace, Delete or Cut join paragraphs of different styles, the text and its own elements
// remain, without styles that nobody wrote.
class tst_joins : public CMarkedPageTest
{
    Q_OBJECT

private slots:
    void deletion_writesNoStyles_data();
    void deletion_writesNoStyles();
    void deletionWithinAParagraph_isLeftToTheWebView();
};

static const QString g_strStyle =
    QStringLiteral("<style>h2 { color: red } li { font-style: italic }</style>");

void tst_joins::deletion_writesNoStyles_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *szName, int nKey, const char *szBefore, const char *szAfter) {
        QTest::newRow(szName) << szBefore << nKey << szAfter;
    };
    row("a heading to the paragraph before", Qt::Key_Backspace,
        "<p>one</p><h2>|Ti<em>t</em>le</h2>", "<p>oneTi<em>t</em>le</p>");
    row("the heading behind", Qt::Key_Delete, "<p>one|</p><h2>Ti<em>t</em>le</h2>",
        "<p>oneTi<em>t</em>le</p>");
    row("its own styles stay", Qt::Key_Delete,
        "<p>one|</p><h2>Ti<em style=\"color: blue\">t</em><span style=\"top: 0\">l</span>e</h2>",
        "<p>oneTi<em style=\"color: blue\">t</em><span style=\"top: 0\">l</span>e</p>");
    row("an item", Qt::Key_Backspace, "<p>one</p><ul><li>|two</li></ul>", "<p>onetwo</p>");
    row("a selection", Qt::Key_Delete, "<p>o[ne</p><h2>Ti]t<b>l</b>e</h2>", "<p>ot<b>l</b>e</p>");
    row("cut", Qt::Key_X, "<p>o[ne</p><h2>Ti]t<b>l</b>e</h2>", "<p>ot<b>l</b>e</p>");
}

void tst_joins::deletion_writesNoStyles()
{
    QFETCH(QString, before);
    QFETCH(int, key);
    open(before, g_strStyle);
    if (key == Qt::Key_X)
        m_pView->triggerEdit(QWebPage::Cut);
    else
        QTest::keyClick(m_pView, Qt::Key(key));
    QTEST(body(), "after");
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), withoutMarks(before));
    m_pView->triggerEdit(QWebPage::Redo);
    QTEST(body(), "after");
}

// All of it is one step, as before.
void tst_joins::deletionWithinAParagraph_isLeftToTheWebView()
{
    open("<p>one two|</p><h2>x</h2>", g_strStyle);
    for (int n = 0; n < 3; ++n)
        QTest::keyClick(m_pView, Qt::Key_Backspace);
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), QStringLiteral("<p>one two</p><h2>x</h2>"));
}

QTEST_MAIN(tst_joins)
#include "tst_joins.moc"
