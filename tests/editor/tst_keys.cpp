#include "editorcase.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QtTest>

class tst_keys : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tab_indentsEverySelectedLine();
    void tab_swapsTheSelectionsEnds_data();
    void tab_swapsTheSelectionsEnds();
    void tab_isOneUndoStep();
    void tab_isUndoneWithItsSelection();
    void undoKey_undoesOneStep();
    void backtab_removesOneStepFromEachLine();
    void backtab_withoutShift_indents();
    void tab_inOneLine_replacesTheSelection();
    void tab_overALineWithItsEnd_isNoBlock();
    void tab_leavesTheLineBehindTheSelectionAlone();
    void tab_withControl_isNoIndentation();
    void opener_getsItsCloser_data();
    void opener_getsItsCloser();
    void closer_isTypedOnceMore();
    void opener_overASelection_replacesIt();
    void pair_isUndoneAtOnce();
    void opener_withControl_isNotPaired();
    void inputMethod_isNotPaired();
    void deadKey_isNotPaired();
    void enter_copiesTheIndentation_data();
    void enter_copiesTheIndentation();
    void enter_behindABrace_opensABlock();
    void enter_behindABraceAndBlanks_opensABlock();
    void enter_beforeAClosingBrace_opensABlockAllTheSame();
    void enter_inTheMiddle_looksAtTheLineEnded();
    void enter_isUndoneWithItsIndentation();
    void shiftEnter_beginsALine();
    void shiftTab_withoutLines_staysInTheEditor();
    void shiftTab_inAReadOnlyEditor_goesOn();
    void altLetter_typesNothing();
    void altLetter_opensTheMenuThatBeginsWithIt_data();
    void altLetter_opensTheMenuThatBeginsWithIt();
    void controlEnter_beginsALineBelow();
    void readOnlyEditor_isNotChanged();

private:
    void show(const QString &strText)
    {
        m_pEdit->setPlainText(strText);
        m_pEdit->moveCursor(QTextCursor::End);
    }
    // The text with "|" at the cursor and "^" at the other end of a selection.
    QString state() const
    {
        const QTextCursor cursor = m_pEdit->textCursor();
        QString strText = m_pEdit->toPlainText();
        if (cursor.position() >= cursor.anchor())
            strText.insert(cursor.position(), '|');
        if (cursor.hasSelection())
            strText.insert(cursor.anchor(), '^');
        if (cursor.position() < cursor.anchor())
            strText.insert(cursor.position(), '|');
        return strText;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_pEdit.get(), key, modifiers);
    }
};

void tst_keys::init()
{
    makeEditor();
}

void tst_keys::cleanup()
{
    removeEditor();
}

void tst_keys::tab_indentsEverySelectedLine()
{
    show("a\n\n  b\nc");
    place(0, 5);
    press(Qt::Key_Tab);
    QCOMPARE(m_pEdit->toPlainText(), QString("\ta\n\t\n\t  b\nc"));
}

void tst_keys::tab_swapsTheSelectionsEnds_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("after");
    QTest::newRow("cursor in the last line") << 1 << 4 << "|\tab\n\tcd^\nef";
    QTest::newRow("cursor in the first line") << 4 << 1 << "^\tab\n\tcd|\nef";
    QTest::newRow("cursor behind the last line") << 0 << 6 << "^\tab\n\tcd|\nef";
}

void tst_keys::tab_swapsTheSelectionsEnds()
{
    QFETCH(int, anchor);
    QFETCH(int, position);
    QFETCH(QString, after);
    show("ab\ncd\nef");
    place(anchor, position);
    press(Qt::Key_Tab);
    QCOMPARE(state(), after);
}

void tst_keys::tab_isOneUndoStep()
{
    show("a\nb\nc");
    m_pEdit->selectAll();
    press(Qt::Key_Tab);
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("a\nb\nc"));
}

void tst_keys::tab_isUndoneWithItsSelection()
{
    show("a\nbc\nd");
    place(4, 1); // From the right.
    press(Qt::Key_Tab);
    m_pEdit->undo();
    QCOMPARE(state(), QString("a|\nbc^\nd"));
    m_pEdit->redo();
    QCOMPARE(selection(), Ends(0, 6));
}

void tst_keys::backtab_removesOneStepFromEachLine()
{
    show("  a\n\tb\n      c\nd");
    m_pEdit->selectAll();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(m_pEdit->toPlainText(), QString("a\nb\n  c\nd"));
    show("  a\n\tb");
    m_pEdit->selectAll();
    press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(m_pEdit->toPlainText(), QString("a\nb"));
}

void tst_keys::backtab_withoutShift_indents()
{
    show("a\nb");
    m_pEdit->selectAll();
    press(Qt::Key_Backtab);
    QCOMPARE(m_pEdit->toPlainText(), QString("\ta\n\tb"));
}

void tst_keys::tab_inOneLine_replacesTheSelection()
{
    show("abc");
    place(1, 2);
    press(Qt::Key_Tab);
    QCOMPARE(state(), QString("a\t|c"));
}

void tst_keys::tab_overALineWithItsEnd_isNoBlock()
{
    show("abc\nd");
    place(0, 4); // The last selected character is the first line's end.
    press(Qt::Key_Tab);
    QCOMPARE(state(), QString("\t|d"));
}

void tst_keys::tab_leavesTheLineBehindTheSelectionAlone()
{
    show("a\nb\nc");
    place(0, 4);
    press(Qt::Key_Tab);
    QCOMPARE(m_pEdit->toPlainText(), QString("\ta\n\tb\nc"));
}

void tst_keys::tab_withControl_isNoIndentation()
{
    show("a\nb");
    m_pEdit->selectAll();
    press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(!m_pEdit->toPlainText().contains("\ta"));
}

void tst_keys::opener_getsItsCloser_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("after");
    QTest::newRow("parenthesis") << "(" << int(Qt::ShiftModifier) << "x(|)";
    QTest::newRow("brace") << "{" << int(Qt::ShiftModifier) << "x{|}";
    QTest::newRow("square bracket") << "[" << int(Qt::NoModifier) << "x[|]";
    QTest::newRow("double quote") << "\"" << int(Qt::ShiftModifier) << "x\"|\"";
    QTest::newRow("single quote") << "'" << int(Qt::NoModifier) << "x'|'";
    QTest::newRow("letter") << "a" << int(Qt::NoModifier) << "xa|";
    QTest::newRow("closing parenthesis") << ")" << int(Qt::ShiftModifier) << "x)|";
}

void tst_keys::opener_getsItsCloser()
{
    QFETCH(QString, typed);
    QFETCH(int, modifiers);
    QFETCH(QString, after);
    show("x");
    QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_unknown, typed,
                        Qt::KeyboardModifiers(modifiers));
    QCOMPARE(state(), after);
}

void tst_keys::closer_isTypedOnceMore()
{
    show("");
    QTest::keyClicks(m_pEdit.get(), "()");
    QCOMPARE(state(), QString("()|)"));
}

void tst_keys::opener_overASelection_replacesIt()
{
    show("abc");
    place(1, 2);
    QTest::keyClicks(m_pEdit.get(), "(");
    QCOMPARE(state(), QString("a(|)c"));
}

void tst_keys::pair_isUndoneAtOnce()
{
    show("x ");
    QTest::keyClicks(m_pEdit.get(), "(");
    QCOMPARE(state(), QString("x (|)"));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("x "));
}

void tst_keys::opener_withControl_isNotPaired()
{
    show("x");
    QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_BracketLeft, QString("["),
                        Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(!m_pEdit->toPlainText().contains(']'));
}

void tst_keys::inputMethod_isNotPaired()
{
    show("x");
    QInputMethodEvent event;
    event.setCommitString("(");
    QApplication::sendEvent(m_pEdit.get(), &event);
    QCOMPARE(state(), QString("x(|"));
}

void tst_keys::deadKey_isNotPaired()
{
    show("x");
    QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_Dead_Acute, QString("'"),
                        Qt::NoModifier);
    QVERIFY(!m_pEdit->toPlainText().contains("''"));
}

void tst_keys::enter_copiesTheIndentation_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("keypad") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
    QTest::newRow("keypad with shift")
        << int(Qt::Key_Enter) << int(Qt::KeypadModifier | Qt::ShiftModifier);
}

void tst_keys::enter_copiesTheIndentation()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    show(" \t x");
    press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(state(), QString(" \t x\n \t |"));
    show("x");
    press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(state(), QString("x\n|"));
}

void tst_keys::enter_behindABrace_opensABlock()
{
    show("    if {");
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("    if {\n    \t|\n    "));
}

void tst_keys::enter_behindABraceAndBlanks_opensABlock()
{
    show("{ \t");
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("{ \t\n\t|\n"));
}

void tst_keys::enter_beforeAClosingBrace_opensABlockAllTheSame()
{
    show("  {}");
    place(3, 3);
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("  {\n  \t|\n  }"));
}

void tst_keys::enter_inTheMiddle_looksAtTheLineEnded()
{
    show("  ab{");
    place(3, 3);
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("  a\n  |b{"));
}

void tst_keys::enter_isUndoneWithItsIndentation()
{
    show("    if {");
    press(Qt::Key_Return);
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("    if {"));
    m_pEdit->redo();
    QCOMPARE(m_pEdit->toPlainText(), QString("    if {\n    \t\n    "));
}

void tst_keys::shiftEnter_beginsALine()
{
    show("  x");
    press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(state(), QString("  x\n  |"));
    QCOMPARE(m_pEdit->blockCount(), 2);
}

void tst_keys::shiftTab_withoutLines_staysInTheEditor()
{
    QWidget window;
    auto *pBefore = new QLineEdit(&window);
    auto *pEdit = new CHighlightEdit(&window);
    pEdit->setPlainText("ab");
    window.show();
    pEdit->setFocus();
    QTest::keyClick(pEdit, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!pBefore->hasFocus());
    QCOMPARE(window.focusWidget(), pEdit);
}

void tst_keys::shiftTab_inAReadOnlyEditor_goesOn()
{
    QWidget window;
    auto *pBefore = new QLineEdit(&window);
    auto *pEdit = new CHighlightEdit(&window);
    pEdit->setReadOnly(true);
    window.show();
    pEdit->setFocus();
    QTest::keyClick(pEdit, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(window.focusWidget(), pBefore);
}

void tst_keys::altLetter_typesNothing()
{
    show("a");
    QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_X, QString("x"), Qt::AltModifier);
    QCOMPARE(state(), QString("a|"));
}

void tst_keys::altLetter_opensTheMenuThatBeginsWithIt_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("by its title") << "Edit";
    QTest::newRow("in another script") << "\u7F16\u8F91";
}

void tst_keys::altLetter_opensTheMenuThatBeginsWithIt()
{
    QFETCH(QString, title);
    QMainWindow window;
    window.menuBar()->addMenu("File")->addAction("Open");
    QMenu *pMenu = window.menuBar()->addMenu(title);
    pMenu->setObjectName("menuEdit");
    pMenu->addAction("Undo");
    auto *pEdit = new CHighlightEdit;
    window.setCentralWidget(pEdit);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::sendKeyEvent(QTest::Click, pEdit, Qt::Key_E, QString("e"), Qt::AltModifier);
    QTRY_VERIFY(pMenu->isVisible());
    QCOMPARE(pEdit->toPlainText(), QString());
    pMenu->close();
    QTest::sendKeyEvent(QTest::Click, pEdit, Qt::Key_Q, QString("q"), Qt::AltModifier);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_keys::controlEnter_beginsALineBelow()
{
    show("  x");
    place(1, 1);
    press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(state(), QString("  x\n  |"));
}

void tst_keys::readOnlyEditor_isNotChanged()
{
    show("  a\nb{");
    m_pEdit->setReadOnly(true);
    press(Qt::Key_Return);
    QTest::keyClicks(m_pEdit.get(), "(");
    m_pEdit->selectAll();
    press(Qt::Key_Tab);
    QCOMPARE(m_pEdit->toPlainText(), QString("  a\nb{"));
}

void tst_keys::undoKey_undoesOneStep()
{
    show("a");
    QTextCursor(m_pEdit->document()).insertText("1");
    QTextCursor(m_pEdit->document()->lastBlock()).insertBlock();
    QCOMPARE(m_pEdit->document()->availableUndoSteps(), 2);
    QTest::keyClick(m_pEdit.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_pEdit->document()->availableUndoSteps(), 1);
    QTest::keyClick(m_pEdit.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_pEdit->toPlainText(), QString("a"));
    QTest::keyClick(m_pEdit.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_pEdit->document()->availableUndoSteps(), 1);
}

QTEST_MAIN(tst_keys)
#include "tst_keys.moc"
