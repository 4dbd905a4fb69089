// Several carets and the commands of keys, in an editor.
#include "editor/ccarets.h"
#include "editorcase.h"
#include "literaltext.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTextBlock>
#include <QtTest>

class tst_carets : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void key_runsItsCommand_data();
    void key_runsItsCommand();
    void key_withNothingToDo_saysSo_data();
    void key_withNothingToDo_saysSo();
    void message_goesWithTheNextKey();
    void anyCommands_areUndoneAndRedoneWithTheirCarets();
    void characterOfAltGr_isNoCommand();
    void typingBehindACommand_isAStepOfItsOwn();
    void typingAtSeveralCarets_isOneStep();
    void undoAfterForeignSteps_bringsBackTheRightCarets();
    void specialCharacters_surviveEveryCommand();

    void typing_happensAtEveryCaret();
    void opener_getsItsCloserAtEveryCaret();
    void enter_indentsAtEveryCaret();
    void erasing_happensAtEveryCaret_data();
    void erasing_happensAtEveryCaret();
    void tab_indentsAtEveryCaret();
    void moving_movesEveryCaret();
    void escape_leavesTheMainCaret();
    void otherChanges_leaveTheMainCaret();
    void copyAndPaste_goLineByLine();
    void cut_takesEverySelection();
    void inputMethod_composesAtTheMainCaret();
    void everyCaretAndSelection_isPainted();
    void selectionInAWrappedLine_isPaintedInItsRowOnly();
    void inputMethod_hearsWhereTheMainCaretIs();
    void altShiftArrows_selectABlock();
    void altDrag_selectsABlock();
    void readOnlyEditor_hasOneCaret();

private:
    void show(const QString &strMarked)
    {
        const SMarkedText text = marked(strMarked);
        m_pEdit->setPlainText(text.strText);
        m_pEdit->setCarets(text.carets);
    }
    QString raw() const
    {
        return m_pEdit->document()->toRawText().replace(QChar::ParagraphSeparator, '\n');
    }
    QString state() const { return withMarks(raw(), m_pEdit->carets()); }
    void press(const char *szKey)
    {
        const int nKey = QKeySequence(szKey)[0];
        const auto key = Qt::Key(nKey & ~int(Qt::KeyboardModifierMask));
        const auto modifiers = Qt::KeyboardModifiers(nKey & int(Qt::KeyboardModifierMask));
        // A keyboard gives no letter with Control.
        if (modifiers & Qt::ControlModifier)
            QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), key, QString(), modifiers);
        else
            QTest::keyClick(m_pEdit.get(), key, modifiers);
    }
};

void tst_carets::init()
{
    makeEditor();
}

void tst_carets::cleanup()
{
    removeEditor();
}

void tst_carets::key_runsItsCommand_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("Alt+Up") << "Alt+Up"
                            << "a\nb|"
                            << "b|\na";
    QTest::newRow("Alt+Down") << "Alt+Down"
                              << "^a|\nb"
                              << "b\n^a|";
    QTest::newRow("Ctrl+D") << "Ctrl+D"
                            << "a|b"
                            << "ab\na|b";
    QTest::newRow("Ctrl+Shift+K") << "Ctrl+Shift+K"
                                  << "a\nb|\nc"
                                  << "a\nc|";
    QTest::newRow("Ctrl+J") << "Ctrl+J"
                            << "a|\n  b"
                            << "a| b";
    QTest::newRow("Ctrl+Return") << "Ctrl+Return"
                                 << " a|b"
                                 << " ab\n |";
    QTest::newRow("Ctrl+Shift+Return") << "Ctrl+Shift+Return"
                                       << " a|b"
                                       << " |\n ab";
    QTest::newRow("Ctrl+Shift+U") << "Ctrl+Shift+U"
                                  << "a|b c"
                                  << "A|B c";
    QTest::newRow("Ctrl+Alt+U") << "Ctrl+Alt+U"
                                << "^A|B"
                                << "^a|B";
    QTest::newRow("Ctrl+Shift+F9") << "Ctrl+Shift+F9"
                                   << "^b\na|"
                                   << "^a\nb|";
    QTest::newRow("Ctrl+Alt+Up") << "Ctrl+Alt+Up"
                                 << "ab\nc|d"
                                 << "a|b\nc|d";
    QTest::newRow("Ctrl+Alt+Down") << "Ctrl+Alt+Down"
                                   << "a|b\ncd"
                                   << "a|b\nc|d";
    QTest::newRow("Alt+F3") << "Alt+F3"
                            << "a|b ab abc"
                            << "^ab| ^ab| abc";
    QTest::newRow("Alt+Shift+Right") << "Alt+Shift+Right"
                                     << "a|b"
                                     << "a^b|";
    QTest::newRow("Alt+Shift+Down") << "Alt+Shift+Down"
                                    << "a|b\ncd"
                                    << "a|b\nc|d";
}

void tst_carets::key_runsItsCommand()
{
    QFETCH(QString, key);
    QFETCH(QString, before);
    QFETCH(QString, after);
    show(before);
    press(qPrintable(key));
    QCOMPARE(state(), after);
}

void tst_carets::key_withNothingToDo_saysSo_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("Alt+Up") << "Alt+Up"
                            << "|a";
    QTest::newRow("Alt+Down") << "Alt+Down"
                              << "a|";
    QTest::newRow("Ctrl+Shift+K") << "Ctrl+Shift+K"
                                  << "|";
    QTest::newRow("Ctrl+J") << "Ctrl+J"
                            << "a\nb|";
    QTest::newRow("Ctrl+Shift+U") << "Ctrl+Shift+U"
                                  << "A|1";
    QTest::newRow("Ctrl+Alt+U") << "Ctrl+Alt+U"
                                << "a|1";
    QTest::newRow("Ctrl+Shift+F9") << "Ctrl+Shift+F9"
                                   << "a\n|b";
    QTest::newRow("Ctrl+Alt+Up") << "Ctrl+Alt+Up"
                                 << "a|";
    QTest::newRow("Ctrl+Alt+Down") << "Ctrl+Alt+Down"
                                   << "a|";
    QTest::newRow("Alt+F3") << "Alt+F3"
                            << "a | b";
    QTest::newRow("Alt+Shift+Left") << "Alt+Shift+Left"
                                    << "|a";
}

void tst_carets::key_withNothingToDo_saysSo()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    show(text);
    m_pEdit->setModified(false);
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    press(qPrintable(key));
    QCOMPARE(told.count(), 1);
    QVERIFY(!told.at(0).at(0).toString().isEmpty());
    QCOMPARE(state(), text);
    QVERIFY(!m_pEdit->isModified());
}

void tst_carets::message_goesWithTheNextKey()
{
    show("a|");
    press("Alt+Up");
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    QTest::keyClicks(m_pEdit.get(), "bc");
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toString(), QString());
}

void tst_carets::anyCommands_areUndoneAndRedoneWithTheirCarets()
{
    const char *const arrKeys[] = {
        "Alt+Up",      "Alt+Down",          "Ctrl+D",       "Ctrl+Shift+K", "Ctrl+J",
        "Ctrl+Return", "Ctrl+Shift+Return", "Ctrl+Shift+U", "Ctrl+Alt+U",   "Ctrl+Shift+F9",
        "Tab",         "Backspace",         "Return",       "Delete"};
    CDice dice(23);
    for (int nRound = 0; nRound < 300; ++nRound) {
        const QString strText = dice.text("aB \t\n", dice.upTo(20));
        m_pEdit->setPlainText(strText);
        QStringList lstBefore;
        QStringList lstAfter;
        for (int n = 0; n < 6; ++n) {
            // Several, so that all keys are commands.
            m_pEdit->setCarets(dice.carets(raw().length(), 2 + dice.upTo(2)));
            if (!m_pEdit->hasSeveralCarets())
                continue;
            const QString strState = state();
            const int nSteps = m_pEdit->document()->availableUndoSteps();
            press(arrKeys[dice.upTo(int(std::size(arrKeys)) - 1)]);
            if (m_pEdit->document()->availableUndoSteps() == nSteps)
                continue;
            lstBefore.append(strState);
            lstAfter.append(state());
        }
        for (int n = lstBefore.size() - 1; n >= 0; --n) {
            m_pEdit->undo();
            QCOMPARE(state(), lstBefore.at(n));
        }
        QCOMPARE(raw(), strText);
        for (const QString &strState : qAsConst(lstAfter)) {
            m_pEdit->redo();
            QCOMPARE(state(), strState);
        }
    }
}

void tst_carets::characterOfAltGr_isNoCommand()
{
    show("A|");
    QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_U, QString("\u00FA"),
                        Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(state(), QString("A\u00FA|"));
}

void tst_carets::typingBehindACommand_isAStepOfItsOwn()
{
    show("ab|");
    press("Ctrl+D");
    QTest::keyClicks(m_pEdit.get(), "c");
    QCOMPARE(state(), QString("ab\nabc|"));
    m_pEdit->undo();
    QCOMPARE(raw(), QString("ab\nab"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("ab|"));
}

void tst_carets::typingAtSeveralCarets_isOneStep()
{
    show("a|\nb|");
    QTest::keyClicks(m_pEdit.get(), "xyz");
    QCOMPARE(state(), QString("axyz|\nbxyz|"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("a|\nb|"));
    m_pEdit->redo();
    QCOMPARE(state(), QString("axyz|\nbxyz|"));
    press("Backspace");
    QTest::keyClicks(m_pEdit.get(), "u");
    m_pEdit->undo();
    QCOMPARE(state(), QString("axy|\nbxy|"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("axyz|\nbxyz|"));
}

void tst_carets::undoAfterForeignSteps_bringsBackTheRightCarets()
{
    show("b|\na");
    press("Alt+Down");
    QTest::keyClicks(m_pEdit.get(), "x");
    press("Ctrl+D");
    m_pEdit->undo();
    m_pEdit->undo();
    QCOMPARE(raw(), QString("a\nb"));
    QTest::keyClicks(m_pEdit.get(), "y"); // It replaces the steps that could be redone.
    m_pEdit->redo();
    QCOMPARE(state(), QString("a\nby|"));
    m_pEdit->undo();
    m_pEdit->undo();
    QCOMPARE(state(), QString("b|\na"));
}

void tst_carets::specialCharacters_surviveEveryCommand()
{
    const QByteArray data("cX\xC2\xA0x\r\n\xE2\x80\xA9z\xE2\x80\xA8\r\na\xEF\xB7\x90\r\n");
    m_pEdit->setTextData(data, false);
    const QString strBefore = m_pEdit->getText();
    QCOMPARE(strBefore.toUtf8(), data);
    for (const char *szKey : {"Alt+Down", "Ctrl+D", "Ctrl+J", "Ctrl+Return", "Ctrl+Shift+U",
                              "Ctrl+Alt+U", "Ctrl+Shift+F9"}) {
        m_pEdit->moveCursor(QTextCursor::Start);
        press(szKey);
        QVERIFY2(m_pEdit->document()->isUndoAvailable(), szKey);
        const QString strText = m_pEdit->getText();
        for (const ushort u : {0xA0, 0x2028, 0x2029, 0xFDD0})
            QVERIFY2(strText.contains(QChar(u)), szKey);
        QVERIFY2(!QString(strText).remove("\r\n").contains('\n'), szKey);
        m_pEdit->undo();
        QCOMPARE(m_pEdit->getText(), strBefore);
    }
}

void tst_carets::typing_happensAtEveryCaret()
{
    show("a|\n^b|\nc");
    QTest::keyClicks(m_pEdit.get(), "x");
    QCOMPARE(state(), QString("ax|\nx|\nc"));
}

void tst_carets::opener_getsItsCloserAtEveryCaret()
{
    show("a|\nb|");
    QTest::keyClicks(m_pEdit.get(), "(");
    QCOMPARE(state(), QString("a(|)\nb(|)"));
}

void tst_carets::enter_indentsAtEveryCaret()
{
    show("  a|\n\tb {|");
    press("Return");
    QCOMPARE(state(), QString("  a\n  |\n\tb {\n\t\t|\n\t"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("  a|\n\tb {|"));
}

void tst_carets::erasing_happensAtEveryCaret_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("Backspace") << "Backspace"
                               << "ab|c\nd|"
                               << "a|c\n|";
    QTest::newRow("Backspace, line ends") << "Backspace"
                                          << "a\n|b\n|c"
                                          << "a|b|c";
    QTest::newRow("Delete") << "Delete"
                            << "a|bc\n^d|e"
                            << "a|c\n|e";
    QTest::newRow("Ctrl+Backspace") << "Ctrl+Backspace"
                                    << "ab cd|\nef|"
                                    << "ab |\n|";
    QTest::newRow("one word") << "Ctrl+Backspace"
                              << "abc|d|"
                              << "|";
}

void tst_carets::erasing_happensAtEveryCaret()
{
    QFETCH(QString, key);
    QFETCH(QString, before);
    QFETCH(QString, after);
    show(before);
    press(qPrintable(key));
    QCOMPARE(state(), after);
}

void tst_carets::tab_indentsAtEveryCaret()
{
    show("a|b\nc|d");
    press("Tab");
    QCOMPARE(state(), QString("a\t|b\nc\t|d"));
    show("^a\nb|\nc\nd|");
    press("Tab");
    QCOMPARE(raw(), QString("\ta\n\tb\nc\n\td"));
    press("Shift+Tab");
    QCOMPARE(raw(), QString("a\nb\nc\nd"));
}

void tst_carets::moving_movesEveryCaret()
{
    show("abc|\nde|f");
    press("Left");
    QCOMPARE(state(), QString("ab|c\nd|ef"));
    press("Shift+Home");
    QCOMPARE(state(), QString("|ab^c\n|d^ef"));
    press("End");
    QCOMPARE(state(), QString("abc|\ndef|"));
    press("Right"); // The first goes on to the next line, the last stays.
    QCOMPARE(state(), QString("abc\n|def|"));
}

void tst_carets::escape_leavesTheMainCaret()
{
    show("a|\nb|");
    press("Escape");
    QCOMPARE(state(), QString("a\nb|"));
}

void tst_carets::otherChanges_leaveTheMainCaret()
{
    show("a|\nb|");
    QTextCursor(m_pEdit->document()).insertText("x");
    QCOMPARE(state(), QString("xa\nb|"));
    show("a|\nb|");
    m_pEdit->selectAll();
    QCOMPARE(state(), QString("^a\nb|"));
    show("a|\nb|");
    m_pEdit->goToLine(1);
    QCOMPARE(state(), QString("|a\nb"));
    show("a|\nb|");
    m_pEdit->setTextData("c", false);
    QCOMPARE(state(), QString("|c"));
}

void tst_carets::copyAndPaste_goLineByLine()
{
    show("^a|b\n^c|d");
    press("Ctrl+C");
    QCOMPARE(QApplication::clipboard()->text(), QString("a\nc"));
    press("End");
    press("Ctrl+V");
    QCOMPARE(state(), QString("aba|\ncdc|"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("ab|\ncd|"));
    QApplication::clipboard()->setText("1\n2\n3");
    m_pEdit->paste();
    QCOMPARE(state(), QString("ab1\n2\n3|\ncd1\n2\n3|"));
}

void tst_carets::cut_takesEverySelection()
{
    show("^a|b\n|c^d");
    m_pEdit->cut();
    QCOMPARE(QApplication::clipboard()->text(), QString("a\nc"));
    QCOMPARE(state(), QString("|b\n|d"));
}

void tst_carets::inputMethod_composesAtTheMainCaret()
{
    show("a|\n^b|c\nd");
    QInputMethodEvent composing("ni", {});
    QApplication::sendEvent(m_pEdit.get(), &composing);
    QCOMPARE(state(), QString("a|\n|c\nd")); // A selection is replaced.
    const QTextBlock block = m_pEdit->textCursor().block();
    QCOMPARE(block.blockNumber(), 1);
    QCOMPARE(block.layout()->preeditAreaText(), QString("ni"));
    QCOMPARE(block.previous().layout()->preeditAreaText(), QString());
    QInputMethodEvent committed;
    committed.setCommitString("\u4F60");
    QApplication::sendEvent(m_pEdit.get(), &committed);
    QCOMPARE(state(), QString("a\u4F60|\n\u4F60|c\nd"));
    QCOMPARE(m_pEdit->textCursor().block().layout()->preeditAreaText(), QString());
}

namespace {

// Compares two pictures by rows of text: the first and the last column that differ, -1 for equal
// rows.
QVector<QPair<int, int>> differences(const QImage &a, const QImage &b,
                                     const QVector<QRect> &lstRows)
{
    QVector<QPair<int, int>> lst;
    for (const QRect &row : lstRows) {
        QPair<int, int> columns(-1, -1);
        for (int x = row.left(); x <= row.right(); ++x) {
            for (int y = row.top(); y <= row.bottom(); ++y)
                if (a.pixel(x, y) != b.pixel(x, y))
                    columns = {columns.first < 0 ? x : columns.first, x};
        }
        lst.append(columns);
    }
    return lst;
}

} // namespace

// Without the band behind the current line and the bold numbers, which move with the main caret:
// only rows that it does not stand in are compared.
void tst_carets::everyCaretAndSelection_isPainted()
{
    m_pEdit->resize(400, 300);
    m_pEdit->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pEdit.get()));
    m_pEdit->setPlainText("main\nsecond line\nthird line\nfourth line");
    const auto picture = [this] { return m_pEdit->viewport()->grab().toImage(); };
    const auto cursorAt = [this](int nLine, int nColumn) {
        QTextCursor cursor(m_pEdit->document()->findBlockByNumber(nLine));
        cursor.setPosition(cursor.position() + nColumn);
        return cursor;
    };
    QVector<QRect> lstRows;
    for (int nLine = 1; nLine < 4; ++nLine) {
        const QRect start = m_pEdit->cursorRect(cursorAt(nLine, 0));
        lstRows.append(QRect(0, start.top(), m_pEdit->viewport()->width(), start.height()));
    }
    m_pEdit->setCarets(CCarets(SCaret {0, 0}));
    const QImage one = picture();
    const int nSecond = cursorAt(1, 3).position();
    const int nThird = cursorAt(2, 2).position();
    m_pEdit->setCarets(
        CCarets({SCaret {0, 0}, SCaret {nSecond, nSecond}, SCaret {nThird, nThird + 4}}, 0));
    const QImage three = picture();
    const QVector<QPair<int, int>> lst = differences(one, three, lstRows);
    const int nCaret = m_pEdit->cursorRect(cursorAt(1, 3)).center().x();
    QVERIFY(lst.at(0).first >= 0);
    QVERIFY(qAbs(lst.at(0).first - nCaret) <= 1); // The caret, and nothing else in its row.
    QVERIFY(lst.at(0).second - lst.at(0).first < 1 + m_pEdit->cursorWidth());
    const int nStart = m_pEdit->cursorRect(cursorAt(2, 2)).center().x();
    const int nEnd = m_pEdit->cursorRect(cursorAt(2, 6)).center().x();
    QVERIFY(qAbs(lst.at(1).first - nStart) <= 1);
    QVERIFY(qAbs(lst.at(1).second - nEnd) <= 1);
    QCOMPARE(lst.at(2), qMakePair(-1, -1));
}

void tst_carets::selectionInAWrappedLine_isPaintedInItsRowOnly()
{
    m_pEdit->setLineWrap(true);
    m_pEdit->resize(200, 300);
    m_pEdit->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pEdit.get()));
    m_pEdit->setPlainText("main\n" + QString("word ").repeated(30));
    const auto picture = [this] { return m_pEdit->viewport()->grab().toImage(); };
    m_pEdit->setCarets(CCarets(SCaret {0, 0}));
    const QImage one = picture();
    const QTextBlock block = m_pEdit->document()->findBlockByNumber(1);
    QVERIFY(block.layout()->lineCount() >= 3);
    QVector<QRect> lstRows;
    for (int n = 0; n < 3; ++n) {
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + block.layout()->lineAt(n).textStart());
        const QRect start = m_pEdit->cursorRect(cursor);
        // Without the pixels that it shares with its neighbours.
        lstRows.append(QRect(0, start.top() + 2, m_pEdit->viewport()->width(), start.height() - 4));
    }
    const int nStart = block.position() + block.layout()->lineAt(1).textStart() + 2;
    m_pEdit->setCarets(CCarets({SCaret {0, 0}, SCaret {nStart, nStart + 4}}, 0));
    const QVector<QPair<int, int>> lst = differences(one, picture(), lstRows);
    QCOMPARE(lst.at(0), qMakePair(-1, -1));
    QVERIFY(lst.at(1).first > 0);
    QCOMPARE(lst.at(2), qMakePair(-1, -1));
}

void tst_carets::inputMethod_hearsWhereTheMainCaretIs()
{
    m_pEdit->resize(400, 300);
    m_pEdit->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pEdit.get()));
    m_pEdit->setPlainText("one\ntwo\nthree");
    m_pEdit->setCarets(CCarets({SCaret {1, 1}, SCaret {5, 5}}, 1)); // The second is the main one.
    const auto rectAsked = [this] {
        return m_pEdit->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    };
    QTextCursor main(m_pEdit->document());
    main.setPosition(5);
    // Where the input method puts its list of candidates.
    QCOMPARE(rectAsked().top(), m_pEdit->cursorRect(main).top());
    QInputMethodEvent composing("ni", {});
    QApplication::sendEvent(m_pEdit.get(), &composing);
    QCOMPARE(rectAsked().top(), m_pEdit->cursorRect(main).top());
}

void tst_carets::altShiftArrows_selectABlock()
{
    show("abcd\ne|f\nghij");
    press("Alt+Shift+Right");
    press("Alt+Shift+Down");
    QCOMPARE(state(), QString("abcd\ne^f|\ng^h|ij"));
    press("Alt+Shift+Right");
    QCOMPARE(state(), QString("abcd\ne^f|\ng^hi|j"));
    press("Alt+Shift+Up");
    press("Alt+Shift+Up");
    QCOMPARE(state(), QString("a^b|cd\ne^f|\nghij"));
    press("Alt+Shift+Left");
    press("Alt+Shift+Left");
    QCOMPARE(state(), QString("|a^bcd\n|e^f\nghij"));
    QTest::keyClicks(m_pEdit.get(), "x");
    QCOMPARE(state(), QString("x|bcd\nx|f\nghij"));
    press("Alt+Shift+Right"); // Begins anew at the main caret.
    QCOMPARE(m_pEdit->carets().count(), 1);
}

void tst_carets::altDrag_selectsABlock()
{
    show("|abcd\nef\nghij");
    m_pEdit->resize(400, 300);
    m_pEdit->show();
    const auto spot = [this](int nPosition) {
        QTextCursor cursor(m_pEdit->document());
        cursor.setPosition(nPosition);
        return m_pEdit->cursorRect(cursor).center();
    };
    QTest::mousePress(m_pEdit->viewport(), Qt::LeftButton, Qt::AltModifier, spot(1));
    QMouseEvent move(QEvent::MouseMove, spot(11), Qt::NoButton, Qt::LeftButton, Qt::AltModifier);
    QApplication::sendEvent(m_pEdit->viewport(), &move);
    QTest::mouseRelease(m_pEdit->viewport(), Qt::LeftButton, Qt::AltModifier, spot(11));
    QCOMPARE(state(), QString("a^bc|d\ne^f|\ng^hi|j"));
    QTest::mouseClick(m_pEdit->viewport(), Qt::LeftButton, Qt::NoModifier, spot(11));
    QCOMPARE(state(), QString("abcd\nef\nghi|j"));
}

void tst_carets::readOnlyEditor_hasOneCaret()
{
    show("a b|\na b");
    m_pEdit->setReadOnly(true);
    for (const char *szKey : {"Alt+Up", "Ctrl+D", "Ctrl+Shift+K", "Ctrl+Alt+Up", "Alt+F3",
                              "Alt+Shift+Down", "Ctrl+Shift+U", "Ctrl+Return"})
        press(szKey);
    QCOMPARE(raw(), QString("a b\na b"));
    QVERIFY(!m_pEdit->hasSeveralCarets());
}

QTEST_MAIN(tst_carets)
#include "tst_carets.moc"
