#include "editorcase.h"
#include "literalsearch.h"
#include "support/processortime.h"

#include <QPlainTextEdit>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

class tst_replace : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyText_doesNothing();
    void nothingSelected_onlySelectsTheNextMatch();
    void secondPress_replacesAndSelectsTheNext();
    void selectionThatIsNoMatch_isLeftAlone();
    void replacement_isLiteral();
    void searchingUp_goesOnBeforeTheReplacement();
    void givenCursor_leavesTheEditorsAlone();
    void wholeWord_isTestedAroundTheSelection();
    void allOfThree_isOneUndoStep();
    void allOfOne_countsOne();
    void allOfNone_leavesTheDocumentAlone();
    void allOfEmptyText_onlyCounts();
    void all_neverWrapsAndRestoresTheOption();
    void all_doesNotMoveTheEditorsSelection();
    void all_signalsTheMissBeforeTheNumber();
    void all_keepsBlockStatesOfOtherLines();
    void all_withLineBreaksInTheReplacement();
    void all_sameText_stillModifies();
    void randomReplacements_equalTheLiteralOnes_data();
    void randomReplacements_equalTheLiteralOnes();
    void sixtyThousandLines_end_data();
    void sixtyThousandLines_end();

private:
    std::unique_ptr<CSearchLog> m_pLog;
};

void tst_replace::init()
{
    makeEditor();
    m_pLog = std::make_unique<CSearchLog>(m_pEdit.get());
}

void tst_replace::cleanup()
{
    m_pLog.reset();
    removeEditor();
}

void tst_replace::emptyText_doesNothing()
{
    m_pEdit->setPlainText("abc");
    place(0, 1);
    QVERIFY(!m_pEdit->replace(QString(), "x", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("abc"));
    QCOMPARE(m_pLog->lst, QStringList());
}

void tst_replace::nothingSelected_onlySelectsTheNextMatch()
{
    m_pEdit->setPlainText("ab ab");
    QVERIFY(m_pEdit->replace("ab", "x", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("ab ab"));
    QCOMPARE(selection(), Ends(0, 2));
}

void tst_replace::secondPress_replacesAndSelectsTheNext()
{
    m_pEdit->setPlainText("ab ab");
    m_pEdit->replace("ab", "xyz", nullptr);
    QVERIFY(m_pEdit->replace("ab", "xyz", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("xyz ab"));
    QCOMPARE(selection(), Ends(4, 6));
}

void tst_replace::selectionThatIsNoMatch_isLeftAlone()
{
    m_pEdit->setPlainText("abc ab");
    place(0, 3);
    QVERIFY(m_pEdit->replace("ab", "x", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("abc ab"));
    QCOMPARE(selection(), Ends(4, 6));
}

void tst_replace::replacement_isLiteral()
{
    (*m_pSettings)->m_bFindUseRegularExpression = true;
    m_pEdit->setPlainText("ab");
    m_pEdit->replace("(a)b", "\\1$1&", nullptr);
    m_pEdit->replace("(a)b", "\\1$1&", nullptr);
    QCOMPARE(m_pEdit->toPlainText(), QString("\\1$1&"));
}

void tst_replace::searchingUp_goesOnBeforeTheReplacement()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    m_pEdit->setPlainText("ab ab");
    place(3, 5);
    QVERIFY(m_pEdit->replace("ab", "abab", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("ab abab"));
    QCOMPARE(selection(), Ends(0, 2));
}

void tst_replace::givenCursor_leavesTheEditorsAlone()
{
    m_pEdit->setPlainText("ab ab");
    place(5, 3);
    QTextCursor cursor(m_pEdit->document());
    QVERIFY(m_pEdit->replace("ab", "x", &cursor));
    QVERIFY(m_pEdit->replace("ab", "x", &cursor));
    QCOMPARE(m_pEdit->toPlainText(), QString("x ab"));
    QCOMPARE(cursor.selectedText(), QString("ab"));
    QCOMPARE(selection(), Ends(4, 2)); // The same text as before.
}

void tst_replace::wholeWord_isTestedAroundTheSelection()
{
    (*m_pSettings)->m_bFindMatchWholeWord = true;
    m_pEdit->setPlainText("abc\nab");
    place(0, 2);
    QVERIFY(m_pEdit->replace("ab", "x", nullptr));
    QCOMPARE(m_pEdit->toPlainText(), QString("abc\nab"));
    QCOMPARE(selection(), Ends(4, 6));
}

void tst_replace::allOfThree_isOneUndoStep()
{
    m_pEdit->setPlainText("ab\nx ab ab");
    QVERIFY(m_pEdit->replaceAll("ab", "long text"));
    QCOMPARE(m_pEdit->toPlainText(), QString("long text\nx long text long text"));
    QCOMPARE(m_pLog->lst.last(), QString("replaceNum 3"));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("ab\nx ab ab"));
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
    m_pEdit->redo();
    QCOMPARE(m_pEdit->toPlainText(), QString("long text\nx long text long text"));
}

void tst_replace::allOfOne_countsOne()
{
    m_pEdit->setPlainText("ab");
    QVERIFY(m_pEdit->replaceAll("AB", "x"));
    QCOMPARE(m_pLog->lst, QStringList({"cannotFound", "replaceNum 1"}));
}

void tst_replace::allOfNone_leavesTheDocumentAlone()
{
    m_pEdit->setPlainText("ab");
    QVERIFY(!m_pEdit->replaceAll("y", "x"));
    QVERIFY(!m_pEdit->isModified());
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
    QCOMPARE(m_pLog->lst, QStringList({"cannotFound", "replaceNum 0"}));
}

void tst_replace::allOfEmptyText_onlyCounts()
{
    m_pEdit->setPlainText("ab");
    QVERIFY(!m_pEdit->replaceAll(QString(), "x"));
    QCOMPARE(m_pLog->lst, QStringList("replaceNum 0"));
}

void tst_replace::all_neverWrapsAndRestoresTheOption()
{
    bool bWrapInside = true;
    connect(m_pEdit.get(), &CHighlightEdit::cannotFound, this,
            [&] { bWrapInside = (*m_pSettings)->m_bFindWrapSearch; });
    m_pEdit->setPlainText("ab");
    place(1, 1);
    m_pEdit->replaceAll("a", "b");
    QVERIFY(!bWrapInside);
    QVERIFY((*m_pSettings)->m_bFindWrapSearch);
    QCOMPARE(m_pLog->lst, QStringList({"cannotFound", "replaceNum 1"}));
}

void tst_replace::all_doesNotMoveTheEditorsSelection()
{
    m_pEdit->setPlainText("ab\nab here ab\nab");
    place(10, 6); // "here", from right to left.
    m_pEdit->replaceAll("ab", "x");
    QCOMPARE(m_pEdit->textCursor().selectedText(), QString("here"));
    QVERIFY(m_pEdit->textCursor().position() < m_pEdit->textCursor().anchor());
}

void tst_replace::all_signalsTheMissBeforeTheNumber()
{
    QStringList lst;
    connect(
        m_pEdit.get(), &CHighlightEdit::cannotFound, this, [&] { lst.append("miss"); });
    connect(
        m_pEdit.get(), &QPlainTextEdit::textChanged, this, [&] { lst.append("text"); });
    connect(m_pEdit.get(), &CHighlightEdit::replaceNum, this, [&] { lst.append("number"); });
    m_pEdit->setPlainText("a a\na");
    lst.clear();
    m_pEdit->replaceAll("a", "b");
    QCOMPARE(lst, QStringList({"miss", "text", "number"}));
}

void tst_replace::all_keepsBlockStatesOfOtherLines()
{
    m_pEdit->setPlainText("x\na\nx");
    const QTextBlock third = m_pEdit->document()->findBlockByNumber(2);
    m_pEdit->replaceAll("a", "bb");
    QVERIFY(third == m_pEdit->document()->findBlockByNumber(2));
    QCOMPARE(third.text(), QString("x"));
}

void tst_replace::all_withLineBreaksInTheReplacement()
{
    m_pEdit->setPlainText("a,a\na");
    QVERIFY(m_pEdit->replaceAll("a", "a\nb"));
    QCOMPARE(m_pEdit->toPlainText(), QString("a\nb,a\nb\na\nb"));
    QCOMPARE(m_pLog->lst.last(), QString("replaceNum 3"));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("a,a\na"));
}

void tst_replace::all_sameText_stillModifies()
{
    m_pEdit->setPlainText("a");
    QVERIFY(m_pEdit->replaceAll("a", "a"));
    QVERIFY(m_pEdit->isModified());
    QCOMPARE(m_pLog->lst.last(), QString("replaceNum 1"));
}

void tst_replace::randomReplacements_equalTheLiteralOnes_data()
{
    QTest::addColumn<int>("options");
    for (int i = 0; i < 32; ++i) {
        QTest::addRow("%s%s%s%s%s", i & 1 ? "case " : "", i & 2 ? "word " : "", i & 4 ? "up " : "",
                      i & 8 ? "expression " : "plain ", i & 16 ? "wrap" : "no wrap")
            << i;
    }
}

void tst_replace::randomReplacements_equalTheLiteralOnes()
{
    QFETCH(int, options);
    const QString strAlphabet = QString::fromUtf8("aabbAx _é\u00a0\n\n");
    const QStringList lstPlain {"a", "ab", "aa", "x", "b ", "aba"};
    const QStringList lstExpressions {"a",      "a*",   "^a", "a$",  "[ab]+", "x*",
                                      "a(?=b)", "^",    "$",  "(",   ".",     "(a)\\1",
                                      ".*",     "\\ba", "b*", "\\s", "a|ab",  "\\Ba"};
    const QStringList lstReplacements {"", "a", "aa", "b", "ab", "_", "xax", "a\nb"};
    const QStringList &lstTexts = options & 8 ? lstExpressions : lstPlain;
    QRandomGenerator random(options + 1);
    for (int i = 0; i < 120; ++i) {
        QString strText;
        for (int n = random.bounded(50); n > 0; --n)
            strText.append(strAlphabet.at(random.bounded(strAlphabet.length())));
        CLiteralSearch literal(strText);
        literal.options = literalOptions(options);
        literal.bWrap = options & 16;
        applyOptions(m_pSettings->get(), literal.options, literal.bWrap);
        m_pEdit->setPlainText(strText);
        const int nAnchor = random.bounded(strText.length() + 1);
        const int nPosition = random.bounded(strText.length() + 1);
        place(nAnchor, nPosition);
        literal.own.setPosition(nAnchor);
        literal.own.setPosition(nPosition, QTextCursor::KeepAnchor);
        m_pLog->lst.clear();
        const QString strFind = lstTexts.at(random.bounded(lstTexts.size()));
        const QString strReplace = lstReplacements.at(random.bounded(lstReplacements.size()));
        if (i % 3 == 0) {
            for (int n = 0; n < 4; ++n) {
                QCOMPARE(m_pEdit->replace(strFind, strReplace, nullptr),
                         literal.replace(strFind, strReplace, nullptr));
            }
        } else {
            QCOMPARE(m_pEdit->replaceAll(strFind, strReplace),
                     literal.replaceAll(strFind, strReplace));
        }
        QCOMPARE(m_pEdit->document()->toRawText(), literal.document()->toRawText());
        QCOMPARE(m_pLog->lst, literal.log);
        QCOMPARE(selection(), Ends(literal.own.anchor(), literal.own.position()));
        QCOMPARE(m_pEdit->document()->isUndoAvailable(), literal.document()->isUndoAvailable());
        if (i % 3 != 0 && m_pEdit->document()->isUndoAvailable()) {
            m_pEdit->undo();
            QVERIFY(!m_pEdit->document()->isUndoAvailable());
            literal.document()->undo();
            QCOMPARE(m_pEdit->document()->toRawText(), literal.document()->toRawText());
        }
    }
}

void tst_replace::sixtyThousandLines_end_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replace");
    QTest::addColumn<bool>("expression");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("line");
    QTest::newRow("a to aa") << "a"
                             << "aa" << false << 180000 << "x aaaa b aa";
    QTest::newRow("a to aa, as an expression") << "a"
                                               << "aa" << true << 180000 << "x aaaa b aa";
    QTest::newRow("x star") << "x*"
                            << "y" << true << 60000 << "y aa b a";
    QTest::newRow("caret") << "^"
                           << "y" << true << 0 << "x aa b a";
    QTest::newRow("end anchor") << "$"
                                << "y" << true << 0 << "x aa b a";
    QTest::newRow("everything") << ".*"
                                << "" << true << 60000 << "";
}

void tst_replace::sixtyThousandLines_end()
{
    QFETCH(QString, text);
    QFETCH(QString, replace);
    QFETCH(bool, expression);
    QFETCH(int, count);
    QFETCH(QString, line);
    const int nLines = 60000;
    (*m_pSettings)->m_bFindUseRegularExpression = expression;
    m_pEdit->setPlainText(QString("x aa b a\n").repeated(nLines));
    place(10, 12);
    const CProcessorTime time;
    QCOMPARE(m_pEdit->replaceAll(text, replace), count > 0);
    QVERIFY2(time.elapsed() < 5000, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(m_pLog->lst.last(), QStringLiteral("replaceNum %1").arg(count));
    QCOMPARE(m_pEdit->toPlainText(), QString(line + '\n').repeated(nLines));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), QString("x aa b a\n").repeated(nLines));
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
}

QTEST_MAIN(tst_replace)
#include "tst_replace.moc"
