#include "highlight/chighlightrules.h"
#include "highlight/cthreadhighlighter.h"
#include "highlight/definitions.h"
#include "highlight/highlightededitor.h"
#include "tests/highlight/cliteralrules.h"

#include <QElapsedTimer>
#include <QPlainTextDocumentLayout>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

class tst_threadhighlighter : public QObject
{
    Q_OBJECT
private slots:
    void signals_areDeclaredAsDocumented();
    void newText_isColoured();
    void accessors_followTheDefinition();
    void definition_recoloursEveryBlock();

    void keystroke_recoloursItsLineOnly();
    void openedComment_recoloursWhatFollows();
    void requestWithoutEdit_doesEveryBlock();
    void stateIsWritten_beforeTheResultIsSeen();
    void results_carryTheVersionOfTheText();
    void editDuringAPass_onlyCurrentResultsCome();
    void cleared_isColouredAgain();
    void clearedFormats_comeBackWithTheNextRequest();

    void word_isMarkedInAnyCase();
    void word_shorterThanThreeClearsTheMarks_data();
    void word_shorterThanThreeClearsTheMarks();
    void word_blanksAroundItCount();
    void word_everyBlockGetsAResult();
    void word_sameAgainDoesNothing();
    void word_changedDuringAPassIsMarkedAfterwards();
    void word_marksStayAfterAnEdit();

    void stop_endsThePassAndNothingStartsBeforeARequest();
    void stop_keepsTheSelectionForTheNextRequest();
    void requests_atTheEndOfARunAreNotLost();
    void wait_withoutEventLoopReturns();
    void destruction_inTheMiddleOfAPassIsClean_data();
    void destruction_inTheMiddleOfAPassIsClean();
    void resultsInFlight_doNotStarveTheEventLoop();

    void linesThatCanBeSeen_getTheirResultsFirst();
    void linesThatCanBeSeen_areColouredOnceAndRightly();
    void scrolledDuringAPass_bringsItsLinesForward();
    void marksThatCanBeSeen_comeFirst();
    void resultOfAKey_isThereBeforeTheNextPaint();
    void paused_coloursWhatCanBeSeen_andTheRestAfterwards();
};

namespace {

QString manyLines(int nLines)
{
    return QString("int value = 12; /* text */ \"string\" // comment\n").repeated(nLines);
}

QList<int> marksIn(const QTextBlock &block)
{
    QList<int> lst;
    const auto lstFormats = block.layout()->formats();
    for (const QTextLayout::FormatRange &range : lstFormats)
        if (range.format.intProperty(QTextFormat::UserProperty) == 1)
            lst.append(range.start);
    return lst;
}

QVariantMap likeC()
{
    STestDefinition definition;
    definition.strSingleLine = "//";
    definition.strMultiLineStart = "/*";
    definition.strMultiLineEnd = "*/";
    definition.mapLists = {{"k", {"int", "if"}}};
    return definition.toMap();
}

QSet<int> linesOf(const QSignalSpy &spy)
{
    QSet<int> set;
    for (const QList<QVariant> &lstArguments : spy)
        set.insert(lstArguments.at(1).value<QTextBlock>().blockNumber());
    return set;
}

} // namespace

void tst_threadhighlighter::signals_areDeclaredAsDocumented()
{
    const QMetaObject &meta = CThreadHighlighter::staticMetaObject;
    for (const char *pszName : {"blockFormatChanged", "selectedChanged"}) {
        const QByteArray arrSignature =
            QByteArray(pszName) + "(uint,QTextBlock,QList<QTextLayout::FormatRange>)";
        const int nIndex = meta.indexOfSignal(arrSignature);
        QVERIFY2(nIndex >= 0, arrSignature.constData());
        QCOMPARE(meta.method(nIndex).parameterNames(), QList<QByteArray>({"nVer", "tb", "lst"}));
    }
    QVERIFY(meta.indexOfSlot("rehighlight()") >= 0);
    QVERIFY(meta.indexOfSlot("stopThread()") >= 0);
}

void tst_threadhighlighter::newText_isColoured()
{
    SHighlightedEditor editor;
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.document.setPlainText("int a = 1;\n\nb // c");
    QVERIFY(editor.settle());
    QCOMPARE(spy.count(), 3);
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
    QCOMPARE(editor.document.firstBlock().layout()->formats().size(), 2);
}

void tst_threadhighlighter::accessors_followTheDefinition()
{
    SHighlightedEditor editor;
    QCOMPARE(editor.pHighlighter->languageName(), QString());
    QCOMPARE(editor.pHighlighter->singleLineComment(), QString("//"));
    editor.pHighlighter->setDefinition(likeC());
    QCOMPARE(editor.pHighlighter->languageName(), QString("Test"));
    QCOMPARE(editor.pHighlighter->multiLineCommentStart(), QString("/*"));
    QCOMPARE(editor.pHighlighter->multiLineCommentEnd(), QString("*/"));
    editor.pHighlighter->setDefinition(QVariantMap());
    QCOMPARE(editor.pHighlighter->languageName(), QString());
    QCOMPARE(editor.pHighlighter->singleLineComment(), QString());
}

void tst_threadhighlighter::definition_recoloursEveryBlock()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("/* int\nint */\nint");
    QVERIFY(editor.settle());
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.pHighlighter->setDefinition(likeC());
    QVERIFY(!editor.pHighlighter->isRunning());
    QVERIFY(editor.settle());
    QCOMPARE(spy.count(), 3);
    QCOMPARE(firstDifference(editor.document, CLiteralRules(likeC())), QString());
}

void tst_threadhighlighter::keystroke_recoloursItsLineOnly()
{
    SHighlightedEditor editor;
    editor.pHighlighter->setDefinition(likeC());
    editor.document.setPlainText("int a\nint b\nint c");
    QVERIFY(editor.settle());
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    QTextCursor(editor.document.findBlockByNumber(1)).insertText("1");
    QVERIFY(editor.settle());
    QCOMPARE(linesOf(spy), QSet<int>({1}));
    spy.clear();
    QTextCursor(editor.document.findBlockByNumber(1)).insertText("x\ny\n");
    QVERIFY(editor.settle());
    QCOMPARE(linesOf(spy), QSet<int>({1, 2, 3}));
    QCOMPARE(firstDifference(editor.document, CLiteralRules(likeC())), QString());
}

void tst_threadhighlighter::openedComment_recoloursWhatFollows()
{
    SHighlightedEditor editor;
    editor.pHighlighter->setDefinition(likeC());
    editor.document.setPlainText("int a\nint b\n*/\nint c\nint d");
    QVERIFY(editor.settle());
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    QTextCursor(editor.document.firstBlock()).insertText("/*");
    QVERIFY(editor.settle());
    QCOMPARE(linesOf(spy), QSet<int>({0, 1, 2}));
    editor.document.undo();
    QVERIFY(editor.settle());
    QCOMPARE(firstDifference(editor.document, CLiteralRules(likeC())), QString());
}

void tst_threadhighlighter::requestWithoutEdit_doesEveryBlock()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("a\nb\nc");
    QVERIFY(editor.settle());
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.pHighlighter->rehighlight();
    QVERIFY(editor.settle());
    QCOMPARE(spy.count(), 3);
}

void tst_threadhighlighter::stateIsWritten_beforeTheResultIsSeen()
{
    SHighlightedEditor editor;
    // The definition asks for a pass of its own.
    editor.pHighlighter->setDefinition(likeC());
    QVERIFY(editor.settle());
    editor.document.setPlainText("/*\n\na");
    QList<int> lstStates;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint, const QTextBlock &block) { lstStates.append(block.userState()); });
    QVERIFY(editor.settle());
    QCOMPARE(lstStates, QList<int>({2, 2, 2}));
}

void tst_threadhighlighter::results_carryTheVersionOfTheText()
{
    SHighlightedEditor editor;
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.document.setPlainText("a");
    QTextCursor(editor.document.firstBlock()).insertText("b");
    QVERIFY(editor.settle());
    QVERIFY(!spy.isEmpty());
    QCOMPARE(spy.last().at(0).toUInt(), editor.document.version());
}

void tst_threadhighlighter::editDuringAPass_onlyCurrentResultsCome()
{
    SHighlightedEditor editor;
    editor.pHighlighter->setDefinition(likeC());
    editor.document.setPlainText(manyLines(5000));
    bool bOld = false;
    int nResults = 0;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint nVersion) {
                bOld = bOld || nVersion != editor.document.version();
                ++nResults;
            });
    for (int n = 0; n < 30; ++n) {
        const int nBefore = nResults;
        QTRY_VERIFY(nResults > nBefore || editor.document.lines()->isComplete());
        QTextCursor(editor.document.findBlockByNumber(n * 100)).insertText("\n/*");
    }
    QVERIFY(editor.settle());
    QVERIFY(!bOld);
    QCOMPARE(firstDifference(editor.document, CLiteralRules(likeC())), QString());
}

// clear() stops the pass and asks for none.
void tst_threadhighlighter::cleared_isColouredAgain()
{
    SHighlightedEditor editor;
    QPlainTextEdit widget;
    widget.setDocument(&editor.document);
    widget.setPlainText("/* a\nb");
    widget.clear();
    QVERIFY(editor.settle());
    QCOMPARE(editor.document.firstBlock().userState(), 0);
    QTextCursor(&editor.document).insertText("1");
    QVERIFY(editor.settle());
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
}

void tst_threadhighlighter::clearedFormats_comeBackWithTheNextRequest()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("1\n2\n3");
    QVERIFY(editor.settle());
    editor.document.clearAdditionalFormats();
    QTextCursor(&editor.document).insertText("4");
    QVERIFY(editor.settle());
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
}

void tst_threadhighlighter::word_isMarkedInAnyCase()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc ABC xAbCx\nab c\nabcabc");
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.findBlockByNumber(0)), QList<int>({0, 4, 9}));
    QCOMPARE(marksIn(editor.document.findBlockByNumber(1)), QList<int>());
    QCOMPARE(marksIn(editor.document.findBlockByNumber(2)), QList<int>({0, 3}));
    const QTextLayout::FormatRange range = editor.document.firstBlock().layout()->formats().last();
    QCOMPARE(range.length, 3);
    QCOMPARE(range.format.background().color(), QColor("#DD9BFF9B"));
    QCOMPARE(range.format.background().color().alpha(), 0xDD);
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
}

void tst_threadhighlighter::word_shorterThanThreeClearsTheMarks_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("nothing") << "";
    QTest::newRow("two letters") << "ab";
    QTest::newRow("two letters and blanks") << "  ab  ";
    QTest::newRow("only blanks") << "     ";
}

void tst_threadhighlighter::word_shorterThanThreeClearsTheMarks()
{
    QFETCH(QString, word);
    SHighlightedEditor editor;
    editor.document.setPlainText("abc  ab  ab     x");
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.firstBlock()), QList<int>({0}));
    editor.pHighlighter->setSelectedWord(word);
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.firstBlock()), QList<int>());
}

void tst_threadhighlighter::word_blanksAroundItCount()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc abc abcabc abc ");
    editor.pHighlighter->setSelectedWord(" abc ");
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.firstBlock()), QList<int>({3, 14}));
}

void tst_threadhighlighter::word_everyBlockGetsAResult()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc\n\nx");
    QVERIFY(editor.settle());
    QSignalSpy spySyntax(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    QSignalSpy spyWord(editor.pHighlighter, &CThreadHighlighter::selectedChanged);
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.settle());
    QCOMPARE(spyWord.count(), 3);
    QCOMPARE(spySyntax.count(), 0);
}

void tst_threadhighlighter::word_sameAgainDoesNothing()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc");
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.settle());
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(!editor.pHighlighter->isRunning());
    editor.pHighlighter->setSelectedWord("abcd");
    editor.pHighlighter->setSelectedWord("ab");
    QVERIFY(editor.settle());
    editor.pHighlighter->setSelectedWord("x");
    QVERIFY(!editor.pHighlighter->isRunning());
}

void tst_threadhighlighter::word_changedDuringAPassIsMarkedAfterwards()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(3000));
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::selectedChanged);
    editor.pHighlighter->setSelectedWord("value");
    QVERIFY(spy.wait());
    editor.pHighlighter->setSelectedWord("string");
    QVERIFY(editor.settle());
    for (QTextBlock block = editor.document.begin(); block.isValid(); block = block.next())
        QCOMPARE(marksIn(block), block.text().isEmpty() ? QList<int>() : QList<int>({28}));
}

void tst_threadhighlighter::word_marksStayAfterAnEdit()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("x abc\nabc");
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.settle());
    QTextCursor cursor(editor.document.lastBlock());
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(" abc");
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.firstBlock()), QList<int>({2}));
    QCOMPARE(marksIn(editor.document.lastBlock()), QList<int>({0}));
}

void tst_threadhighlighter::stop_endsThePassAndNothingStartsBeforeARequest()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(20000));
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    QVERIFY(spy.wait());
    editor.pHighlighter->stopThread();
    QVERIFY(editor.pHighlighter->wait(5000));
    QVERIFY(!editor.document.lines()->isComplete());
    QSignalSpy spyWord(editor.pHighlighter, &CThreadHighlighter::selectedChanged);
    editor.pHighlighter->setSelectedWord("value");
    QTRY_VERIFY(!editor.pHighlighter->isRunning());
    QCoreApplication::processEvents();
    QCOMPARE(spyWord.count(), 0);
    editor.pHighlighter->rehighlight();
    QVERIFY(editor.settle());
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
}

void tst_threadhighlighter::stop_keepsTheSelectionForTheNextRequest()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc");
    QVERIFY(editor.settle());
    editor.pHighlighter->stopThread();
    editor.pHighlighter->setSelectedWord("abc");
    QVERIFY(editor.pHighlighter->wait(5000));
    editor.pHighlighter->rehighlight();
    QVERIFY(editor.settle());
    QCOMPARE(marksIn(editor.document.firstBlock()), QList<int>({0}));
}

// The thread ends while the next request comes, again and again; each request has to have its pass.
void tst_threadhighlighter::requests_atTheEndOfARunAreNotLost()
{
    SHighlightedEditor editor;
    editor.document.setPlainText("abc");
    QVERIFY(editor.settle());
    int nResults = 0;
    connect(editor.pHighlighter, &CThreadHighlighter::selectedChanged, &editor.document,
            [&] { ++nResults; });
    for (int n = 0; n < 500; ++n) {
        nResults = 0;
        editor.pHighlighter->setSelectedWord(n % 2 ? "abc" : "abcd");
        QElapsedTimer timer;
        timer.start();
        while (nResults == 0 && timer.elapsed() < 30000)
            QCoreApplication::processEvents();
        QVERIFY2(nResults > 0, qPrintable(QString("request %1 was lost").arg(n)));
    }
}

void tst_threadhighlighter::wait_withoutEventLoopReturns()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(50000));
    editor.pHighlighter->rehighlight();
    QVERIFY(editor.pHighlighter->wait(30000));
    QVERIFY(editor.settle());
    QCOMPARE(firstDifference(editor.document, CLiteralRules()), QString());
}

void tst_threadhighlighter::destruction_inTheMiddleOfAPassIsClean_data()
{
    QTest::addColumn<bool>("bHighlighterFirst");
    QTest::newRow("the document with its highlighter") << false;
    QTest::newRow("the highlighter first") << true;
}

void tst_threadhighlighter::destruction_inTheMiddleOfAPassIsClean()
{
    QFETCH(bool, bHighlighterFirst);
    for (int n = 0; n < 10; ++n) {
        SHighlightedEditor editor;
        editor.document.setPlainText(manyLines(5000));
        editor.pHighlighter->setSelectedWord("value");
        QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
        if (n % 2)
            QVERIFY(spy.wait());
        else
            QCoreApplication::sendPostedEvents();
        if (bHighlighterFirst) {
            delete editor.pHighlighter;
            QCoreApplication::processEvents();
        }
    }
}

// Posted events are delivered to the last one; results must not come as an endless row of them.
void tst_threadhighlighter::resultsInFlight_doNotStarveTheEventLoop()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(30000));
    int nInOneGo = 0;
    int nMost = 0;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&] { nMost = qMax(nMost, ++nInOneGo); });
    while (!editor.document.lines()->isComplete()) {
        nInOneGo = 0;
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    QVERIFY2(nMost < 15000, qPrintable(QString::number(nMost)));
}

void tst_threadhighlighter::linesThatCanBeSeen_getTheirResultsFirst()
{
    SHighlightedEditor editor;
    editor.pHighlighter->setVisibleLines(15000, 15049);
    QList<int> lstLines;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint, const QTextBlock &block) { lstLines.append(block.blockNumber()); });
    editor.document.setPlainText(manyLines(20000));
    QVERIFY(editor.settle());
    QCOMPARE(lstLines.size(), 20001);
    for (int n = 0; n < 50; ++n)
        QCOMPARE(lstLines.at(n), 15000 + n);
    // Then from the first to the last.
    for (int n = 50; n < lstLines.size(); ++n)
        QCOMPARE(lstLines.at(n), n < 15050 ? n - 50 : n);
}

// What they begin with is known before they are coloured: a comment that begins in the first line
// is never shown as anything else.
void tst_threadhighlighter::linesThatCanBeSeen_areColouredOnceAndRightly()
{
    SHighlightedEditor editor;
    const QVariantMap mapDefinition = nastyDefinitions().first();
    editor.pHighlighter->setDefinition(mapDefinition);
    editor.pHighlighter->setVisibleLines(9000, 9020);
    editor.document.setPlainText("/* it begins here\n" + manyLines(10000).remove("/* text */"));
    QHash<int, int> mapResults;
    CHighlightRules rules(mapDefinition);
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint, const QTextBlock &block) { ++mapResults[block.blockNumber()]; });
    QTRY_VERIFY(mapResults.size() > 20);
    for (int nLine = 9000; nLine <= 9020; ++nLine)
        QCOMPARE(mapResults.value(nLine), 1);
    QVERIFY(editor.settle());
    for (int nLine = 9000; nLine <= 9020; ++nLine)
        QCOMPARE(mapResults.value(nLine), 1);
    QCOMPARE(firstDifference(editor.document, rules), QString());
}

void tst_threadhighlighter::scrolledDuringAPass_bringsItsLinesForward()
{
    SHighlightedEditor editor;
    QList<int> lstLines;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint, const QTextBlock &block) {
                lstLines.append(block.blockNumber());
                if (lstLines.size() == 1000)
                    editor.pHighlighter->setVisibleLines(55000, 55040);
            });
    editor.document.setPlainText(manyLines(60000));
    QVERIFY(editor.settle());
    QVERIFY2(lstLines.indexOf(55000) < 30000, qPrintable(QString::number(lstLines.indexOf(55000))));
    QCOMPARE(lstLines.size(), 60001);
    QCOMPARE(firstDifference(editor.document, CHighlightRules()), QString());
}

void tst_threadhighlighter::marksThatCanBeSeen_comeFirst()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(20000));
    QVERIFY(editor.settle());
    editor.pHighlighter->setVisibleLines(15000, 15049);
    QList<int> lstLines;
    connect(editor.pHighlighter, &CThreadHighlighter::selectedChanged, &editor.document,
            [&](uint, const QTextBlock &block) { lstLines.append(block.blockNumber()); });
    editor.pHighlighter->setSelectedWord("text");
    QTRY_VERIFY(lstLines.size() >= 50 + 20001);
    QCOMPARE(lstLines.size(), 50 + 20001);
    for (int n = 0; n < 50; ++n)
        QCOMPARE(lstLines.at(n), 15000 + n);
    for (int n = 0; n < 20001; ++n)
        QCOMPARE(lstLines.at(50 + n), n);
}

// Events that an edit posts are delivered before its repainting, which is posted with a lower
// priority. A busy machine may take longer than the editor waits, but not each time.
void tst_threadhighlighter::resultOfAKey_isThereBeforeTheNextPaint()
{
    SHighlightedEditor editor;
    editor.document.setPlainText(manyLines(100));
    editor.pHighlighter->setVisibleLines(0, 40);
    QVERIFY(editor.settle());
    int nAtOnce = 0;
    for (int n = 0; n < 50; ++n) {
        QTextCursor(&editor.document).insertText("1");
        QCoreApplication::sendPostedEvents(editor.pHighlighter, QEvent::MetaCall);
        nAtOnce += editor.document.lines()->isComplete();
        QVERIFY(editor.settle());
    }
    QVERIFY2(nAtOnce > 0, qPrintable(QString::number(nAtOnce)));
}

// As while a text comes in slices.
void tst_threadhighlighter::paused_coloursWhatCanBeSeen_andTheRestAfterwards()
{
    SHighlightedEditor editor;
    QSet<int> setLines;
    connect(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, &editor.document,
            [&](uint, const QTextBlock &block) { setLines.insert(block.blockNumber()); });
    editor.pHighlighter->setPaused(true);
    editor.document.setPlainText(manyLines(5000));
    editor.pHighlighter->setVisibleLines(2000, 2029);
    editor.pHighlighter->setSelectedWord("text");
    for (int nSlice = 0; nSlice < 20; ++nSlice) {
        QTextCursor cursor(&editor.document);
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(manyLines(500));
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(setLines.size(), 30);
    QVERIFY(setLines.contains(2000) && setLines.contains(2029));
    QTRY_VERIFY(!editor.pHighlighter->isRunning());
    editor.pHighlighter->setVisibleLines(9000, 9029);
    editor.pHighlighter->rehighlight();
    QTRY_VERIFY(setLines.contains(9000) && setLines.contains(9029));
    QTRY_VERIFY(!editor.pHighlighter->isRunning());
    QVERIFY(setLines.size() < 100);
    QVERIFY(!editor.document.lines()->isComplete());
    editor.pHighlighter->setPaused(false);
    QVERIFY(editor.settle());
    QCOMPARE(setLines.size(), editor.document.blockCount());
    QCOMPARE(firstDifference(editor.document, CHighlightRules()), QString());
    // The word that was chosen meanwhile is marked, too.
    bool bMarked = false;
    const auto lstFormats = editor.document.findBlockByNumber(100).layout()->formats();
    for (const QTextLayout::FormatRange &range : lstFormats)
        bMarked = bMarked || range.format.intProperty(QTextFormat::UserProperty) == 1;
    QCOMPARE(bMarked, editor.document.findBlockByNumber(100).text().contains("text"));
}

QTEST_MAIN(tst_threadhighlighter)
#include "tst_threadhighlighter.moc"
