#include "editor/chighlightedit.h"
#include "highlight/cplaintextlayout.h"
#include "highlight/cthreadhighlighter.h"
#include "tests/editor/withsettings.h"

#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

// A line that is longer than what Qt can show in one row.
class tst_longline : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void lineUpToTheLimit_isOneRow();
    void longerLine_isShownInRows();
    void wrappedLines_areLaidOutAsAlways();
    void end_showsTheCaretAtTheEndOfTheLine();
    void home_showsTheCaretAtItsBeginning();
    void scrollBar_reachesTheLastRow();
    void lineShortened_isOneRowAgain();
    void key_keepsTheRowsAndTheText();
    void otherText_leavesNothingOfTheRowsWidth();

private:
    void show(const QString &strText);
    QTextBlock line() const { return m_pEdit->document()->firstBlock(); }
    bool isCaretSeen() const { return m_pEdit->viewport()->rect().contains(m_pEdit->cursorRect()); }

    std::unique_ptr<WithSettings> m_pSettings;
    std::unique_ptr<CHighlightEdit> m_pEdit;
};

static QString longText(int nBeyond)
{
    return QStringLiteral("abcdefghi ").repeated((CPlainTextLayout::longestLine() + nBeyond) / 10);
}

void tst_longline::init()
{
    m_pSettings = std::make_unique<WithSettings>();
    m_pEdit = std::make_unique<CHighlightEdit>();
    m_pEdit->resize(500, 400);
}

void tst_longline::cleanup()
{
    m_pEdit.reset();
    m_pSettings.reset();
}

void tst_longline::show(const QString &strText)
{
    m_pEdit->setPlainText(strText);
    m_pEdit->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pEdit.get()));
    QCoreApplication::processEvents();
}

void tst_longline::lineUpToTheLimit_isOneRow()
{
    show(longText(-10));
    QCOMPARE(line().layout()->lineCount(), 1);
}

void tst_longline::longerLine_isShownInRows()
{
    const QString strText = longText(50000);
    show(strText);
    const int nRows = strText.size() / CPlainTextLayout::rowLength();
    QCOMPARE(line().layout()->lineCount(), nRows);
    QCOMPARE(line().lineCount(), nRows);
    for (int n = 0; n < nRows; ++n)
        QCOMPARE(line().layout()->lineAt(n).textStart(), n * CPlainTextLayout::rowLength());
    QCOMPARE(m_pEdit->toPlainText(), strText);
}

void tst_longline::wrappedLines_areLaidOutAsAlways()
{
    m_pEdit->setLineWrap(true);
    show(longText(50000));
    QVERIFY(line().layout()->lineAt(0).textLength() < 100);
    m_pEdit->setLineWrap(false);
    QCoreApplication::processEvents();
    m_pEdit->viewport()->repaint();
    QCOMPARE(line().layout()->lineAt(0).textLength(), CPlainTextLayout::rowLength());
}

void tst_longline::end_showsTheCaretAtTheEndOfTheLine()
{
    show(longText(50000) + QStringLiteral("\nnext"));
    QTest::keyClick(m_pEdit.get(), Qt::Key_End);
    QCOMPARE(m_pEdit->textCursor().positionInBlock(), line().length() - 1);
    QVERIFY(isCaretSeen());
    QTest::keyClick(m_pEdit.get(), Qt::Key_Left);
    QCOMPARE(m_pEdit->textCursor().positionInBlock(), line().length() - 2);
    QVERIFY(isCaretSeen());
    QTest::keyClick(m_pEdit.get(), Qt::Key_Down);
    QCOMPARE(m_pEdit->textCursor().blockNumber(), 1);
    QVERIFY(isCaretSeen());
}

void tst_longline::home_showsTheCaretAtItsBeginning()
{
    show(longText(50000));
    m_pEdit->moveCursor(QTextCursor::End);
    QVERIFY(isCaretSeen());
    QTest::keyClick(m_pEdit.get(), Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(m_pEdit->textCursor().position(), 0);
    QCOMPARE(m_pEdit->textCursor().anchor(), line().length() - 1);
    QVERIFY(isCaretSeen());
}

void tst_longline::scrollBar_reachesTheLastRow()
{
    show(longText(50000));
    QScrollBar *pBar = m_pEdit->verticalScrollBar();
    QVERIFY(pBar->maximum() > 100);
    pBar->setValue(pBar->maximum());
    QCoreApplication::processEvents();
    const QTextCursor cursor =
        m_pEdit->cursorForPosition(QPoint(5, m_pEdit->viewport()->height() - 5));
    QVERIFY(cursor.position() >= line().length() - 1 - CPlainTextLayout::rowLength());
}

void tst_longline::lineShortened_isOneRowAgain()
{
    show(longText(100));
    QTextCursor cursor(m_pEdit->document());
    cursor.setPosition(5000, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_pEdit->viewport()->repaint();
    QCOMPARE(line().layout()->lineCount(), 1);
    QCOMPARE(line().lineCount(), 1);
}

void tst_longline::key_keepsTheRowsAndTheText()
{
    const QString strText = longText(50000);
    show(strText);
    m_pEdit->moveCursor(QTextCursor::End);
    const int nRows = line().layout()->lineCount();
    QTest::keyClick(m_pEdit.get(), 'x');
    QTest::keyClick(m_pEdit.get(), 'y');
    QCOMPARE(line().layout()->lineCount(), nRows + 1);
    QCOMPARE(line().lineCount(), nRows + 1);
    QVERIFY(isCaretSeen());
    QCOMPARE(m_pEdit->toPlainText(), strText + QLatin1String("xy"));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), strText);
    QCOMPARE(line().layout()->lineCount(), nRows);
}

void tst_longline::otherText_leavesNothingOfTheRowsWidth()
{
    show(longText(50000));
    QVERIFY(m_pEdit->horizontalScrollBar()->maximum() > 0);
    m_pEdit->setPlainText(QStringLiteral("short\ntext"));
    QCoreApplication::processEvents();
    QCOMPARE(m_pEdit->horizontalScrollBar()->maximum(), 0);
}

QTEST_MAIN(tst_longline)
#include "tst_longline.moc"
