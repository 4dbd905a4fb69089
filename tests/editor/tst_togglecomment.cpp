#include "definitions.h"
#include "editorcase.h"

#include <QtTest>

class tst_togglecomment : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noSelection_doesNothing();
    void threeWholeLines_toggleThereAndBack();
    void cursorAtTheStart_staysThere();
    void partOfALine_isWrappedAndUnwrapped();
    void wholeLinesWithoutALineMarker_areWrapped();
    void onlyALineMarker_changesNothing();
    void overlappingMarkers_takeNothingElseAway();
    void endOfSelectionInTheFirstColumn_countsThatLine();
    void toggling_isOneUndoStep();
    void markers_goToTheDebugLog();
    void sixtyThousandLines_areToggled();

private:
    void show(const QString &strText, int nAnchor, int nPosition)
    {
        m_pEdit->setPlainText(strText);
        place(nAnchor, nPosition);
    }
};

void tst_togglecomment::init()
{
    makeEditor();
    m_pEdit->setDefinition(languageDefinition("C++", "//", "/*", "*/"));
}

void tst_togglecomment::cleanup()
{
    removeEditor();
}

void tst_togglecomment::noSelection_doesNothing()
{
    show("abc", 1, 1);
    QVERIFY(!m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("abc"));
}

void tst_togglecomment::threeWholeLines_toggleThereAndBack()
{
    show("a\n  b\nc\nd", 0, 7);
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("//a\n//  b\n//c\nd"));
    QCOMPARE(selection(), Ends(0, 13));
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("a\n  b\nc\nd"));
    show("  //a\n\t// b", 0, 11);
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("a\n b"));
    QCOMPARE(selection(), Ends(0, 4));
}

void tst_togglecomment::cursorAtTheStart_staysThere()
{
    show("a\nb", 3, 0);
    m_pEdit->toggleComment();
    QCOMPARE(selection(), Ends(7, 0));
    m_pEdit->toggleComment();
    QCOMPARE(selection(), Ends(3, 0));
}

void tst_togglecomment::partOfALine_isWrappedAndUnwrapped()
{
    show("a bc d", 2, 4);
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("a /*bc*/ d"));
    QCOMPARE(m_pEdit->textCursor().selectedText(), QString("/*bc*/"));
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("a bc d"));
    QCOMPARE(m_pEdit->textCursor().selectedText(), QString("bc"));
    show("a bc d", 4, 2);
    m_pEdit->toggleComment();
    QCOMPARE(selection(), Ends(8, 2));
}

void tst_togglecomment::wholeLinesWithoutALineMarker_areWrapped()
{
    m_pEdit->setDefinition(languageDefinition("XML", "", "<!--", "-->"));
    show("<a/>\n<b/>", 0, 9);
    m_pEdit->toggleComment();
    QCOMPARE(m_pEdit->toPlainText(), QString("<!--<a/>\n<b/>-->"));
    m_pEdit->toggleComment();
    QCOMPARE(m_pEdit->toPlainText(), QString("<a/>\n<b/>"));
}

void tst_togglecomment::onlyALineMarker_changesNothing()
{
    m_pEdit->setDefinition(languageDefinition("Makefile", "#"));
    show("a\n# b", 0, 5);
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("a\n# b"));
    QVERIFY(!m_pEdit->isModified());
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
    QCOMPARE(selection(), Ends(0, 5));
}

void tst_togglecomment::overlappingMarkers_takeNothingElseAway()
{
    show("x/*/yz", 1, 4);
    QVERIFY(m_pEdit->toggleComment());
    QCOMPARE(m_pEdit->toPlainText(), QString("xyz"));
}

void tst_togglecomment::endOfSelectionInTheFirstColumn_countsThatLine()
{
    show("a\nb", 0, 2);
    m_pEdit->toggleComment();
    // The last line is not wholly selected: "b" stands behind the selection.
    QCOMPARE(m_pEdit->toPlainText(), QString("/*a\n*/b"));
}

void tst_togglecomment::toggling_isOneUndoStep()
{
    show("a\nb\nc", 0, 5);
    m_pEdit->toggleComment();
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("a\nb\nc"));
    show("a bc d", 2, 4);
    m_pEdit->toggleComment();
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("a bc d"));
}

void tst_togglecomment::markers_goToTheDebugLog()
{
    show("a", 0, 1);
    QTest::ignoreMessage(QtDebugMsg, "strSingleComment: \"//\"");
    QTest::ignoreMessage(QtDebugMsg, "strMultiCommentStart: \"/*\"");
    m_pEdit->toggleComment();
}

void tst_togglecomment::sixtyThousandLines_areToggled()
{
    const QString strText = QString("x\n").repeated(60000);
    m_pEdit->setPlainText(strText);
    m_pEdit->selectAll();
    m_pEdit->toggleComment();
    QCOMPARE(m_pEdit->toPlainText(), QString("//x\n").repeated(60000) + "//");
    m_pEdit->toggleComment();
    QCOMPARE(m_pEdit->toPlainText(), strText);
}

QTEST_MAIN(tst_togglecomment)
#include "tst_togglecomment.moc"
