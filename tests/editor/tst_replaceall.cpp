// Replace All in pieces gives the same result as at once, whatever happens between the pieces.

#include "editorcase.h"

#include "editor/creplaceall.h"
#include "editor/documentreplace.h"
#include "editor/linesearch.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

class tst_replaceall : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init() { makeEditor(); }
    void cleanup() { removeEditor(); }

    void inPieces_equalsAtOnce_data();
    void inPieces_equalsAtOnce();
    void eventLoopRuns_andItIsOneStepOfUndo();
    void stopped_nothingIsReplaced();
    void stoppedBeforeTheFirstMatch_earlierStepsStay();
    void typingMeanwhile_isRefused();
    void changedMeanwhile_ends();
    void stoppedAfterAForeignChange_thatStays();
    void undoMeanwhile_stops();
    void finish_doesTheRestAtOnce();
    void secondStart_leavesTheFirstAlone();
    void editorThatGoes_takesTheWorkAlong();

private:
    CReplaceAll *makeJob(const QString &strFind, const QString &strReplace)
    {
        return new CReplaceAll(m_pEdit.get(), CLineSearch(strFind, SSearchOptions()), strReplace);
    }
    // The text is long enough for a turn of the event loop before the end.
    void setLongText() { m_pEdit->setPlainText(longText("ab")); }
    static QString longText(const QString &strWord)
    {
        return QString("x " + strWord + " y\n").repeated(60000);
    }
};

void tst_replaceall::inPieces_equalsAtOnce_data()
{
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("word");
    QTest::addColumn<bool>("expression");
    for (int i = 0; i < 8; ++i) {
        QTest::addRow("%s%s%s", i & 1 ? "up " : "", i & 2 ? "word " : "",
                      i & 4 ? "expression" : "plain")
            << bool(i & 1) << bool(i & 2) << bool(i & 4);
    }
}

void tst_replaceall::inPieces_equalsAtOnce()
{
    QFETCH(bool, up);
    QFETCH(bool, word);
    QFETCH(bool, expression);
    SSearchOptions options;
    options.bSearchUp = up;
    options.bWholeWord = word;
    options.bRegExp = expression;
    const QString strAlphabet = QStringLiteral("aabbx _\n\n");
    const QStringList lstPlain {"a", "ab", "b ", "aba", "z"};
    const QStringList lstExpressions {"^a", "a$", "[ab]+", "x*", "a(?=b)", ".", "\\Ba", "$"};
    const QStringList &lstFind = expression ? lstExpressions : lstPlain;
    const QStringList lstReplacements {"", "a", "aa", "xax"};
    QRandomGenerator random(up + 2 * word + 4 * expression);
    for (int i = 0; i < 150; ++i) {
        QString strText;
        for (int n = random.bounded(80); n > 0; --n)
            strText.append(strAlphabet.at(random.bounded(strAlphabet.length())));
        const CLineSearch search(lstFind.at(random.bounded(lstFind.size())), options);
        const QString strReplace = lstReplacements.at(random.bounded(lstReplacements.size()));
        const int nKeep = random.bounded(strText.length() + 1);

        QTextDocument whole(strText);
        QTextCursor wholeEdit(&whole);
        QTextCursor wholeKeep(&whole);
        wholeKeep.setPosition(nKeep);
        const int nCount = CDocumentReplacer(&wholeEdit, search, strReplace, wholeKeep).run();

        QTextDocument pieces(strText);
        QTextCursor piecesEdit(&pieces);
        QTextCursor piecesKeep(&pieces);
        piecesKeep.setPosition(nKeep);
        CDocumentReplacer replacer(&piecesEdit, search, strReplace, piecesKeep,
                                   1 + random.bounded(30));
        int nLast = -1;
        while (replacer.advance(QDeadlineTimer(0))) {
            QVERIFY(replacer.done() > nLast);
            nLast = replacer.done();
        }
        QCOMPARE(pieces.toRawText(), whole.toRawText());
        QCOMPARE(replacer.count(), nCount);
        QCOMPARE(replacer.done(), replacer.length());
        QCOMPARE(piecesKeep.position(), wholeKeep.position());
    }
}

void tst_replaceall::eventLoopRuns_andItIsOneStepOfUndo()
{
    setLongText();
    QTextCursor(m_pEdit->document()).insertText("typed ");
    CReplaceAll *pJob = makeJob("ab", "abc");
    QSignalSpy finished(pJob, &CReplaceAll::finished);
    QSignalSpy progressed(pJob, &CReplaceAll::progressed);
    pJob->start(0);
    QVERIFY(pJob->isRunning());
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(progressed.size() > 1);
    QCOMPARE(finished.at(0).at(0).toInt(), 60000);
    QCOMPARE(m_pEdit->toPlainText(), "typed " + longText("abc"));
    QVERIFY(!m_pEdit->isReadOnly());
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), "typed " + longText("ab"));
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), longText("ab"));
    m_pEdit->redo();
    m_pEdit->redo();
    QCOMPARE(m_pEdit->toPlainText(), "typed " + longText("abc"));
}

void tst_replaceall::stopped_nothingIsReplaced()
{
    setLongText();
    QVERIFY(!m_pEdit->isModified());
    CReplaceAll *pJob = makeJob("ab", "abc");
    QSignalSpy stopped(pJob, &CReplaceAll::stopped);
    QSignalSpy progressed(pJob, &CReplaceAll::progressed);
    pJob->start(0);
    QTRY_VERIFY(progressed.size() >= 2);
    QVERIFY(m_pEdit->isModified());
    pJob->stop();
    QCOMPARE(stopped.size(), 1);
    QCOMPARE(m_pEdit->toPlainText(), longText("ab"));
    QVERIFY(!m_pEdit->isModified());
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
    QVERIFY(!m_pEdit->document()->isRedoAvailable());
    QVERIFY(!m_pEdit->isReadOnly());
}

void tst_replaceall::stoppedBeforeTheFirstMatch_earlierStepsStay()
{
    setLongText();
    QTextCursor end(m_pEdit->document());
    end.movePosition(QTextCursor::End);
    end.insertText("zz");
    CReplaceAll *pJob = makeJob("zz", "q");
    pJob->start(0); // Searches a piece only.
    QVERIFY(pJob->isRunning());
    pJob->stop();
    QCOMPARE(m_pEdit->toPlainText(), longText("ab") + "zz");
    m_pEdit->undo();
    QCOMPARE(m_pEdit->toPlainText(), longText("ab"));
}

void tst_replaceall::typingMeanwhile_isRefused()
{
    setLongText();
    CReplaceAll *pJob = makeJob("ab", "abc");
    QSignalSpy finished(pJob, &CReplaceAll::finished);
    pJob->start(0);
    QTest::keyClick(m_pEdit.get(), Qt::Key_Q);
    QTest::keyClick(m_pEdit.get(), Qt::Key_Tab);
    QTest::keyClick(m_pEdit.get(), Qt::Key_D, Qt::ControlModifier);
    m_pEdit->paste();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_pEdit->toPlainText(), longText("abc"));
}

void tst_replaceall::changedMeanwhile_ends()
{
    setLongText();
    CReplaceAll *pJob = makeJob("ab", "abc");
    QSignalSpy disturbed(pJob, &CReplaceAll::disturbed);
    QSignalSpy progressed(pJob, &CReplaceAll::progressed);
    pJob->start(0);
    QTRY_VERIFY(!progressed.isEmpty());
    m_pEdit->setPlainText("ab another text");
    QTRY_COMPARE(disturbed.size(), 1);
    QVERIFY(disturbed.at(0).at(0).toInt() > 0);
    QCOMPARE(m_pEdit->toPlainText(), QString("ab another text"));
    QVERIFY(!m_pEdit->isReadOnly());
}

void tst_replaceall::stoppedAfterAForeignChange_thatStays()
{
    setLongText();
    CReplaceAll *pJob = makeJob("ab", "abc");
    QSignalSpy disturbed(pJob, &CReplaceAll::disturbed);
    QSignalSpy progressed(pJob, &CReplaceAll::progressed);
    pJob->start(0);
    QTRY_VERIFY(!progressed.isEmpty());
    QTextCursor(m_pEdit->document()).insertText("foreign ");
    pJob->stop();
    QCOMPARE(disturbed.size(), 1);
    QVERIFY(m_pEdit->toPlainText().startsWith("foreign x abc y"));
}

void tst_replaceall::undoMeanwhile_stops()
{
    setLongText();
    QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    QSignalSpy number(m_pEdit.get(), &CHighlightEdit::replaceNum);
    m_pEdit->setPlainText(longText("ab").repeated(4));
    m_pEdit->startReplaceAll("ab", "abc");
    QVERIFY(m_pEdit->replaceAllJob());
    m_pEdit->undo();
    QVERIFY(!m_pEdit->replaceAllJob());
    QCOMPARE(m_pEdit->toPlainText(), longText("ab").repeated(4));
    QVERIFY(!told.isEmpty());
    QCOMPARE(number.size(), 0);
}

void tst_replaceall::finish_doesTheRestAtOnce()
{
    m_pEdit->setPlainText(longText("ab").repeated(4));
    QSignalSpy number(m_pEdit.get(), &CHighlightEdit::replaceNum);
    m_pEdit->startReplaceAll("ab", "abc");
    QVERIFY(m_pEdit->replaceAllJob());
    m_pEdit->finishReplaceAll();
    QVERIFY(!m_pEdit->replaceAllJob());
    QCOMPARE(m_pEdit->toPlainText(), longText("abc").repeated(4));
    QCOMPARE(number.size(), 1);
    QCOMPARE(number.at(0).at(0).toInt(), 240000);
    QVERIFY(!m_pEdit->isReadOnly());
    m_pEdit->finishReplaceAll();
    QCOMPARE(number.size(), 1);
}

void tst_replaceall::secondStart_leavesTheFirstAlone()
{
    m_pEdit->setPlainText(longText("ab").repeated(4));
    m_pEdit->startReplaceAll("ab", "abc");
    const CReplaceAll *pFirst = m_pEdit->replaceAllJob();
    QVERIFY(pFirst);
    m_pEdit->startReplaceAll("x", "y");
    QCOMPARE(m_pEdit->replaceAllJob(), pFirst);
    m_pEdit->finishReplaceAll();
    QCOMPARE(m_pEdit->toPlainText(), longText("abc").repeated(4));
}

void tst_replaceall::editorThatGoes_takesTheWorkAlong()
{
    setLongText();
    const QPointer<CReplaceAll> job = makeJob("ab", "abc");
    job->start(0);
    QVERIFY(job->isRunning());
    m_pEdit.reset();
    QVERIFY(!job);
}

QTEST_MAIN(tst_replaceall)
#include "tst_replaceall.moc"
