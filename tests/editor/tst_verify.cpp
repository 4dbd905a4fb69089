#include "definitions.h"
#include "editorcase.h"
#include "support/boxanswer.h"

#include <QMessageBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QtTest>

class tst_verify : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void languages_canBeVerifiedAndFormatted_data();
    void languages_canBeVerifiedAndFormatted();
    void unclosedTag_showsLineColumnAndMessage_data();
    void unclosedTag_showsLineColumnAndMessage();
    void caret_goesToThePlaceTold_data();
    void caret_goesToThePlaceTold();
    void brokenJson_tellsItsPlaceInTheStatusBar();
    void goodContent_showsNothing();
    void goodJson_failsWithTheWordsForSuccess();
    void otherLanguage_isValidUnseen();
    void deepNesting_showsItsPlace();
    void xml_isLaidOutAndModified();
    void formatting_keepsTheLine();
    void formatting_ofAShorterText_goesToTheLastLine();
    void formatting_startsUndoAgain();
    void formatting_keepsNoBreakSpaces();
    void formatting_keepsTheScrollPosition();
    void brokenContent_isNotFormatted();
    void json_isNeverFormatted();
    void html_isVerifiedButNotFormatted();
    void goToLine_goesToTheStartOfTheLine_data();
    void goToLine_goesToTheStartOfTheLine();
    void goToLine_tellsTheLastLine();
    void goToLine_putsTheLineInTheMiddle();
    void goToLine_countsAWrappedLineOnce();

private:
    void show(const QString &strLanguage, const QString &strText)
    {
        m_pEdit->setDefinition(languageDefinition(strLanguage));
        m_pEdit->setPlainText(strText);
    }
    void goTo(int nBlock, int nColumn)
    {
        QTextCursor cursor(m_pEdit->document()->findBlockByNumber(nBlock));
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, nColumn);
        m_pEdit->setTextCursor(cursor);
    }
};

void tst_verify::init()
{
    makeEditor();
}

void tst_verify::cleanup()
{
    removeEditor();
}

void tst_verify::languages_canBeVerifiedAndFormatted_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("verify");
    QTest::addColumn<bool>("format");
    QTest::newRow("HTML") << "HTML" << true << false;
    QTest::newRow("XML") << "XML" << true << true;
    QTest::newRow("SVG") << "SVG" << true << true;
    QTest::newRow("JSON") << "JSON" << true << true;
    QTest::newRow("lower case") << "xml" << false << false;
    QTest::newRow("another") << "C++" << false << false;
    QTest::newRow("none") << "" << false << false;
}

void tst_verify::languages_canBeVerifiedAndFormatted()
{
    QFETCH(QString, language);
    QFETCH(bool, verify);
    QFETCH(bool, format);
    show(language, "");
    QCOMPARE(m_pEdit->canVerifyValid(), verify);
    QCOMPARE(m_pEdit->canFormatting(), format);
}

void tst_verify::unclosedTag_showsLineColumnAndMessage_data()
{
    QTest::addColumn<QString>("language");
    for (const char *pName : {"XML", "SVG", "HTML"})
        QTest::newRow(pName) << pName;
}

void tst_verify::unclosedTag_showsLineColumnAndMessage()
{
    QFETCH(QString, language);
    show(language, "<a>\n<b>\n</a>");
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->verifyValid());
    QCOMPARE(answer.boxes().size(), 1);
    const SBox box = answer.boxes().first();
    QCOMPARE(box.strTitle, QString("Fail to verify valid"));
    QCOMPARE(box.strText, QString("Line 3, Column 4: tag mismatch"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_verify::caret_goesToThePlaceTold_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("XML") << "XML"
                         << "<a>\n<b>\n</a>" << 11; // Line 3, column 4.
    QTest::newRow("end of the text") << "XML"
                                     << "<a>\n"
                                     << 4;
    QTest::newRow("JSON") << "JSON"
                          << "[\n  1,\n  x]" << 9;
    QTest::newRow("good JSON") << "JSON"
                               << "[1]" << 0;
}

void tst_verify::caret_goesToThePlaceTold()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(int, position);
    show(language, text);
    const CBoxAnswer answer;
    QVERIFY(!m_pEdit->verifyValid());
    QCOMPARE(selection(), Ends(position, position));
}

void tst_verify::brokenJson_tellsItsPlaceInTheStatusBar()
{
    show("JSON", "[\n  1,\n  x]");
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->verifyValid());
    QCOMPARE(answer.boxes().first().strText, QString("illegal number"));
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toString(), QString("Line 3, Column 3"));
}

void tst_verify::goodContent_showsNothing()
{
    show("XML", "<a/>");
    CBoxAnswer answer;
    QVERIFY(m_pEdit->verifyValid());
    QVERIFY(answer.boxes().isEmpty());
    QVERIFY(!m_pEdit->isModified());
}

void tst_verify::goodJson_failsWithTheWordsForSuccess()
{
    show("JSON", "{\"a\": 1}");
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->verifyValid());
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(answer.boxes().first().strTitle, QString("Fail to verify valid"));
    QCOMPARE(answer.boxes().first().strText, QString("no error occurred"));
}

void tst_verify::otherLanguage_isValidUnseen()
{
    show("xml", "<a>");
    QVERIFY(m_pEdit->verifyValid());
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->toPlainText(), QString("<a>"));
}

void tst_verify::deepNesting_showsItsPlace()
{
    show("XML", QString("<a>").repeated(100000) + QString("</a>").repeated(100000));
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->formatting());
    QCOMPARE(answer.boxes().size(), 1);
    QVERIFY2(answer.boxes().first().strText.startsWith("Line 1, Column "),
             qPrintable(answer.boxes().first().strText));
}

void tst_verify::xml_isLaidOutAndModified()
{
    show("XML", "<a><b/></a>");
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->toPlainText(), QString("<a>\n    <b/>\n</a>\n"));
    QVERIFY(m_pEdit->isModified());
}

void tst_verify::formatting_keepsTheLine()
{
    show("XML", QString("<a>\n") + QString("<b/><c/>\n").repeated(20) + "</a>");
    goTo(9, 4);
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->textCursor().blockNumber(), 9);
    QCOMPARE(m_pEdit->textCursor().positionInBlock(), 0);
    QVERIFY(!m_pEdit->textCursor().hasSelection());
}

void tst_verify::formatting_ofAShorterText_goesToTheLastLine()
{
    show("XML", "<a\n\n\n\n\n/>");
    goTo(5, 0);
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->textCursor().blockNumber(), m_pEdit->blockCount() - 1);
}

void tst_verify::formatting_startsUndoAgain()
{
    show("XML", "<a><b/></a>");
    m_pEdit->textCursor().insertText(" ");
    QVERIFY(m_pEdit->formatting());
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
}

void tst_verify::formatting_keepsNoBreakSpaces()
{
    show("XML", QString::fromUtf8("<a>1\u00a0000</a>"));
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->getText().trimmed(), QString::fromUtf8("<a>1\u00a0000</a>"));
}

void tst_verify::formatting_keepsTheScrollPosition()
{
    m_pEdit->resize(300, 200);
    m_pEdit->show();
    show("XML", QString("<a>\n") + QString("<b/>\n").repeated(300) + "</a>");
    goTo(5, 0);
    m_pEdit->verticalScrollBar()->setValue(100);
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->verticalScrollBar()->value(), 100);
}

void tst_verify::brokenContent_isNotFormatted()
{
    show("XML", "<a><b></a>");
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->formatting());
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(m_pEdit->toPlainText(), QString("<a><b></a>"));
    QVERIFY(!m_pEdit->isModified());
}

void tst_verify::json_isNeverFormatted()
{
    show("JSON", "{\"a\":1}");
    CBoxAnswer answer;
    QVERIFY(!m_pEdit->formatting());
    QCOMPARE(m_pEdit->toPlainText(), QString("{\"a\":1}"));
}

void tst_verify::html_isVerifiedButNotFormatted()
{
    show("HTML", "<html><p/></html>");
    QVERIFY(m_pEdit->formatting());
    QCOMPARE(m_pEdit->toPlainText(), QString("<html><p/></html>"));
    QVERIFY(!m_pEdit->isModified());
}

void tst_verify::goToLine_goesToTheStartOfTheLine_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("position");
    QTest::newRow("first") << 1 << 0;
    QTest::newRow("second") << 2 << 3;
    QTest::newRow("last") << 3 << 6;
    QTest::newRow("behind the last") << 4 << -1;
    QTest::newRow("zero") << 0 << -1;
    QTest::newRow("negative") << -5 << -1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << -1;
}

void tst_verify::goToLine_goesToTheStartOfTheLine()
{
    QFETCH(int, line);
    QFETCH(int, position);
    show("", "ab\ncd\nef");
    QTextCursor cursor = m_pEdit->textCursor();
    cursor.setPosition(1);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    m_pEdit->setTextCursor(cursor);
    QCOMPARE(m_pEdit->goToLine(line), position >= 0);
    QCOMPARE(m_pEdit->textCursor().position(), position >= 0 ? position : 4);
    QCOMPARE(m_pEdit->textCursor().hasSelection(), position < 0);
}

void tst_verify::goToLine_tellsTheLastLine()
{
    show("", "a\nb\nc");
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    QVERIFY(m_pEdit->goToLine(3));
    QCOMPARE(told.count(), 0);
    QVERIFY(!m_pEdit->goToLine(4));
    QCOMPARE(told.at(0).at(0).toString(), QString("There is no line 4; the last line is 3."));
}

void tst_verify::goToLine_putsTheLineInTheMiddle()
{
    m_pEdit->resize(300, 300);
    m_pEdit->show();
    show("", QString("x\n").repeated(500));
    QVERIFY(m_pEdit->goToLine(250));
    const int nMiddle = m_pEdit->viewport()->height() / 2;
    const QRect rect = m_pEdit->cursorRect();
    QVERIFY(qAbs(rect.center().y() - nMiddle) <= 2 * rect.height());
    QVERIFY(!m_pEdit->centerOnScroll());
}

void tst_verify::goToLine_countsAWrappedLineOnce()
{
    m_pEdit->resize(200, 300);
    m_pEdit->show();
    m_pEdit->setLineWrap(true);
    show("", QString("word ").repeated(100) + "\nsecond");
    QVERIFY(m_pEdit->goToLine(2));
    QCOMPARE(m_pEdit->textCursor().block().text(), QString("second"));
}

QTEST_MAIN(tst_verify)
#include "tst_verify.moc"
