#include "pagecases.h"

#include "pageedit/cpageobjects.h"
#include "pageedit/cpagetables.h"
#include "pageedit/cpagetyping.h"
#include "pageedit/ctablechooser.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QUndoStack>

// Tables by keys, the mouse and the tool bar.
class tst_tablekeys : public CPageTest
{
    Q_OBJECT

private slots:
    void tab_goesFromCellToCell();
    void tabInTheLastCell_makesARow();
    void tabInAnItem_isLeftToTheItem();
    void tabOutsideOfTables_isLeftToTheView();
    void typing_goesIntoANewCell();
    void drawnEdge_setsTheColumnsWidth();
    void chooser_followsKeysAndMouse();
    void menu_knowsTheTable();

private:
    void open(const QString &strBody)
    {
        set(QStringLiteral("<!DOCTYPE html><html><body>%1</body></html>").arg(strBody));
        selectPlaces(m_pView, takeMarks(m_pView));
        new CPageTables(m_pView);
        CPageTyping::of(m_pView);
        m_pView->setFocus();
    }
    QString marked()
    {
        markSelected(m_pView);
        return body();
    }
};

static const char g_szTable[] = "<table><tbody><tr><td>1|</td><td>2</td></tr>"
                                "<tr><td></td><td>4</td></tr></tbody></table>";

void tst_tablekeys::tab_goesFromCellToCell()
{
    open(g_szTable);
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QCOMPARE(m_pView->selectedText(), QStringLiteral("2"));
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QCOMPARE(m_pView->selectedText(), QStringLiteral("4"));
    QTest::keyClick(m_pView, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(m_pView, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(m_pView->selectedText(), QStringLiteral("2"));
    QTest::keyClick(m_pView, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(m_pView, Qt::Key_Backtab, Qt::ShiftModifier); // There is none before it.
    QCOMPARE(m_pView->selectedText(), QStringLiteral("1"));
    QCOMPARE(m_pView->page()->undoStack()->count(), 0);
}

void tst_tablekeys::tabInTheLastCell_makesARow()
{
    open("<table>\n<tr><th>1</th><td>2|</td></tr>\n</table>");
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    QCOMPARE(marked(),
             QStringLiteral("<table>\n<tbody><tr><th>1</th><td>2</td></tr>\n"
                            "<tr><th>|</th><td></td></tr>\n</tbody></table>"));
}

void tst_tablekeys::tabInAnItem_isLeftToTheItem()
{
    open("<table><tbody><tr><td><ul><li>1</li><li>2|</li></ul></td><td></td></tr></tbody></table>");
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QVERIFY2(body().contains("<li>1<ul><li>2"), qPrintable(body()));
}

void tst_tablekeys::tabOutsideOfTables_isLeftToTheView()
{
    open(QLatin1String("<p>one</p>") + QString(g_szTable).remove('|') + "<p>two|</p>");
    const QString strBody = body();
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QCOMPARE(body().count("<tr>"), strBody.count("<tr>"));
    QVERIFY2(m_pView->selectedText().isEmpty(), qPrintable(m_pView->selectedText()));
}

void tst_tablekeys::typing_goesIntoANewCell()
{
    open("<table><tbody><tr><td>1|</td></tr></tbody></table>");
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QTest::keyClicks(m_pView, "new");
    QCOMPARE(body(),
             QStringLiteral("<table><tbody><tr><td>1</td></tr><tr><td>new</td></tr>"
                            "</tbody></table>"));
}

void tst_tablekeys::drawnEdge_setsTheColumnsWidth()
{
    open("<table border=\"1\"><tbody><tr><td style=\"padding: 0 40px\">1|</td><td>2</td></tr>"
         "</tbody></table>");
    const QVariantList lstBox = run(m_pView,
                                    "(function(b) { return [b.right, b.top, b.width]; })"
                                    "(document.querySelector('td').getBoundingClientRect())")
                                    .toList();
    const QPoint edge(lstBox.at(0).toInt() - 1, lstBox.at(1).toInt() + 5);
    QTest::mousePress(m_pView, Qt::LeftButton, Qt::NoModifier, edge);
    QTest::mouseRelease(m_pView, Qt::LeftButton, Qt::NoModifier, edge + QPoint(50, 0));
    QVERIFY2(
        body().startsWith(QStringLiteral("<table border=\"1\"><colgroup><col style=\"width: %1px\">"
                                         "</colgroup>")
                              .arg(lstBox.at(2).toInt() + 50)),
        qPrintable(body()));
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    QCOMPARE(run(m_pView, "document.querySelector('td').getBoundingClientRect().width").toInt(),
             lstBox.at(2).toInt() + 50);
    // A click on an edge changes nothing.
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier, edge + QPoint(50, 0));
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
}

void tst_tablekeys::chooser_followsKeysAndMouse()
{
    CTableChooser chooser;
    QSignalSpy spy(&chooser, &CTableChooser::chosen);
    chooser.resize(chooser.sizeHint());
    chooser.show();
    QTest::keyClick(&chooser, Qt::Key_Right);
    QTest::keyClick(&chooser, Qt::Key_Down);
    QTest::keyClick(&chooser, Qt::Key_Down);
    QTest::keyClick(&chooser, Qt::Key_Left);
    QTest::keyClick(&chooser, Qt::Key_Left);
    QTest::keyClick(&chooser, Qt::Key_Return);
    QCOMPARE(spy.takeFirst(), QVariantList({3, 1}));
    QTest::mouseClick(&chooser, Qt::LeftButton, Qt::NoModifier, QPoint(6 + 18 * 3 + 2, 6 + 18 + 2));
    QCOMPARE(spy.takeFirst(), QVariantList({2, 4}));
    chooser.mark(QSize(99, 99));
    QCOMPARE(chooser.marked(), QSize(10, 8));
}

void tst_tablekeys::menu_knowsTheTable()
{
    open("<table><thead><tr><th>1|</th></tr></thead><tbody><tr><td>2</td></tr></tbody></"
         "table><p>3</p>");
    QToolBar toolBar;
    CPageObjects objects(&toolBar);
    objects.follow(m_pView);
    auto *pMenu = toolBar.findChild<QMenu *>("menuTable");
    const auto action = [&](const QString &strText) {
        for (QAction *pAction : pMenu->actions())
            if (pAction->text().remove('&') == strText)
                return pAction;
        return static_cast<QAction *>(nullptr);
    };
    emit pMenu->aboutToShow();
    QVERIFY(action("Header Row")->isChecked() && action("Insert Row Below")->isEnabled());
    action("Insert Row Below")->trigger();
    QCOMPARE(body().count("<tr>"), 3);
    QSignalSpy spy(m_pView, &CEditWebView::statusMessage);
    action("Merge Cells")->trigger();
    QCOMPARE(spy.count(), 1);
    selectElement(m_pView, "p");
    emit pMenu->aboutToShow();
    QVERIFY(!action("Insert Row Below")->isEnabled());
    objects.follow(nullptr);
    QVERIFY(!objects.actions().constFirst()->isEnabled());
}

QTEST_MAIN(tst_tablekeys)
#include "tst_tablekeys.moc"
