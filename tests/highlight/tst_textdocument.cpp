#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"

#include <QAbstractTextDocumentLayout>
#include <QPlainTextDocumentLayout>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

class tst_textdocument : public QObject
{
    Q_OBJECT
private slots:
    void newDocument_hasPlainTextLayoutAndVersionZero();
    void everyEdit_countsTheVersion();
    void currentResult_replacesSyntaxRanges();
    void marks_comeBehindSyntaxRangesAndStay();
    void onlyBitZero_makesAMark();
    void resultOfOldVersion_isDropped();
    void resultForRemovedBlock_isIgnored();
    void result_marksTheBlockDirty();
    void results_neverTouchUndoOrModified();
    void lineWithTooManyRanges_isColouredInItsFirstPart();
    void lineTooLong_isNotColoured();
    void sameRangesAgain_leaveTheBlockAlone();
    void clearAdditionalFormats_removesAllRanges();
    void clearAdditionalFormats_ofAnEmptyDocumentDoesNothing();
    void rangesOfABlockLaidOut_layOutAndPaintThatBlockOnly();
    void rangesOfABlockNeverLaidOut_layOutAndPaintNothing();
    void editBehindRanges_isToldAsWhatItIs();
    void editInALine_takesItsRangesAlongAndPaintsThatLineOnly();
    void editsInSeveralLines_paintThoseLinesOnly();
    void blocksExtent_isThatOfQt_data();
    void blocksExtent_isThatOfQt();
    void lines_followEveryEdit_data();
    void lines_followEveryEdit();
    void lines_followRandomEdits();
    void snapshot_isTheTextOfItsMoment();
};

namespace {

using Ranges = QList<QTextLayout::FormatRange>;

QTextLayout::FormatRange range(int nStart, int nProperty = 0)
{
    QTextLayout::FormatRange result {nStart, 1, QTextCharFormat()};
    result.format.setForeground(Qt::red);
    if (nProperty)
        result.format.setProperty(QTextFormat::UserProperty, nProperty);
    return result;
}

QList<int> startsIn(const QTextBlock &block)
{
    QList<int> lst;
    const auto lstFormats = block.layout()->formats();
    for (const QTextLayout::FormatRange &format : lstFormats)
        lst.append(format.start);
    return lst;
}

QStringList linesOf(const QTextDocument &document)
{
    QStringList lst;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        lst.append(block.text());
    return lst;
}

QStringList storedLines(const CTextDocument &document)
{
    QStringList lst;
    for (int n = 0; n < document.lines()->count(); ++n)
        lst.append(document.lines()->text(n));
    return lst;
}

} // namespace

void tst_textdocument::newDocument_hasPlainTextLayoutAndVersionZero()
{
    const CTextDocument document(nullptr);
    QVERIFY(qobject_cast<QPlainTextDocumentLayout *>(document.documentLayout()));
    QCOMPARE(document.version(), 0u);
    QCOMPARE(storedLines(document), QStringList(QString()));
}

void tst_textdocument::everyEdit_countsTheVersion()
{
    CTextDocument document;
    QSignalSpy spy(&document, &QTextDocument::contentsChange);
    QTextCursor cursor(&document);
    cursor.insertText("a");
    QCOMPARE(document.version(), 1u);
    cursor.insertText("b\nc");
    document.undo();
    document.redo();
    document.setPlainText("x");
    document.clear();
    QCOMPARE(document.version(), uint(spy.count()));
    document.onContentsChange();
    QCOMPARE(document.version(), uint(spy.count()) + 1);
}

void tst_textdocument::currentResult_replacesSyntaxRanges()
{
    CTextDocument document;
    document.setPlainText("abc");
    const QTextBlock block = document.firstBlock();
    document.onHighlightBlock(document.version(), block, {range(2), range(0)});
    QCOMPARE(startsIn(block), QList<int>({2, 0}));
    document.onHighlightBlock(document.version(), block, {range(1)});
    QCOMPARE(startsIn(block), QList<int>({1}));
    document.onHighlightBlock(document.version(), block, Ranges());
    QCOMPARE(startsIn(block), QList<int>());
}

void tst_textdocument::marks_comeBehindSyntaxRangesAndStay()
{
    CTextDocument document;
    document.setPlainText("abcdef");
    const QTextBlock block = document.firstBlock();
    document.onHighlightSelected(document.version(), block, {range(4, 1), range(5, 1)});
    document.onHighlightBlock(document.version(), block, {range(1), range(0)});
    QCOMPARE(startsIn(block), QList<int>({1, 0, 4, 5}));
    document.onHighlightBlock(document.version(), block, {range(2)});
    QCOMPARE(startsIn(block), QList<int>({2, 4, 5}));
    document.onHighlightSelected(document.version(), block, {range(3, 1)});
    QCOMPARE(startsIn(block), QList<int>({2, 3}));
    document.onHighlightSelected(document.version(), block, Ranges());
    QCOMPARE(startsIn(block), QList<int>({2}));
}

void tst_textdocument::onlyBitZero_makesAMark()
{
    CTextDocument document;
    document.setPlainText("abcdef");
    const QTextBlock block = document.firstBlock();
    document.onHighlightBlock(document.version(), block, {range(0, 2), range(1, 3), range(2, 4)});
    document.onHighlightSelected(document.version(), block, {range(5, 1)});
    QCOMPARE(startsIn(block), QList<int>({0, 2, 5}));
}

void tst_textdocument::resultOfOldVersion_isDropped()
{
    CTextDocument document;
    document.setPlainText("abc\ndef");
    const uint nVersion = document.version();
    document.onHighlightBlock(nVersion, document.firstBlock(), {range(1)});
    QTextCursor(document.lastBlock()).insertText("x");
    document.onHighlightBlock(nVersion, document.firstBlock(), {range(2)});
    document.onHighlightSelected(nVersion, document.firstBlock(), {range(0, 1)});
    document.onHighlightBlock(nVersion + 2, document.firstBlock(), {range(2)});
    QCOMPARE(startsIn(document.firstBlock()), QList<int>({1}));
}

void tst_textdocument::resultForRemovedBlock_isIgnored()
{
    CTextDocument document;
    document.setPlainText("abc\ndef");
    const QTextBlock block = document.lastBlock();
    document.setPlainText(QString());
    document.onHighlightBlock(document.version(), block, {range(0)});
    document.onHighlightBlock(document.version(), QTextBlock(), {range(0)});
    QCOMPARE(startsIn(document.firstBlock()), QList<int>());
}

void tst_textdocument::result_marksTheBlockDirty()
{
    CTextDocument document;
    document.setPlainText("abc\ndef");
    // Whether a block or everything is announced is the layout's choice.
    QSignalSpy spyOne(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock);
    QSignalSpy spyAll(document.documentLayout(), &QAbstractTextDocumentLayout::update);
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    QCOMPARE(spyOne.count() + spyAll.count(), 1);
    document.onHighlightSelected(document.version(), document.lastBlock(), {range(0, 1)});
    QCOMPARE(spyOne.count() + spyAll.count(), 2);
}

void tst_textdocument::results_neverTouchUndoOrModified()
{
    CTextDocument document;
    document.setPlainText("abc");
    document.setModified(false);
    QSignalSpy spy(&document, &QTextDocument::contentsChange);
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    document.onHighlightSelected(document.version(), document.firstBlock(), {range(0, 1)});
    document.clearAdditionalFormats();
    QVERIFY(!document.isModified());
    QVERIFY(!document.isUndoAvailable());
    QCOMPARE(spy.count(), 0);
}

// In the order of the ranges, which is not that of their places.
void tst_textdocument::lineWithTooManyRanges_isColouredInItsFirstPart()
{
    CTextDocument document;
    document.setPlainText(QString(30000, 'x'));
    Ranges lst;
    for (const int nRemainder : {1, 0})
        for (int n = nRemainder; n < 20000; n += 2)
            lst.append(range(n));
    document.onHighlightBlock(document.version(), document.firstBlock(), lst);
    const QList<int> lstStarts = startsIn(document.firstBlock());
    QCOMPARE(lstStarts.size(), 8000);
    QCOMPARE(lstStarts.first(), 1);
    QCOMPARE(lstStarts.last(), 7998);
    QCOMPARE(*std::max_element(lstStarts.begin(), lstStarts.end()), 7999);
}

void tst_textdocument::lineTooLong_isNotColoured()
{
    CTextDocument document;
    document.setPlainText(QString(99999, 'x') + "\n" + QString(100000, 'x'));
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    document.onHighlightBlock(document.version(), document.lastBlock(), {range(0)});
    QCOMPARE(startsIn(document.firstBlock()), QList<int>({0}));
    QCOMPARE(startsIn(document.lastBlock()), QList<int>());
    QTextCursor(document.firstBlock()).insertText("x");
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    QCOMPARE(startsIn(document.firstBlock()), QList<int>());
}

void tst_textdocument::sameRangesAgain_leaveTheBlockAlone()
{
    CTextDocument document;
    document.setPlainText("abc");
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    QSignalSpy spyOne(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock);
    QSignalSpy spyAll(document.documentLayout(), &QAbstractTextDocumentLayout::update);
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    document.onHighlightSelected(document.version(), document.firstBlock(), Ranges());
    QCOMPARE(spyOne.count() + spyAll.count(), 0);
}

void tst_textdocument::clearAdditionalFormats_removesAllRanges()
{
    CTextDocument document;
    document.setPlainText("abc\ndef");
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    document.onHighlightSelected(document.version(), document.lastBlock(), {range(0, 1)});
    document.clearAdditionalFormats();
    QCOMPARE(startsIn(document.firstBlock()), QList<int>());
    QCOMPARE(startsIn(document.lastBlock()), QList<int>());
}

void tst_textdocument::clearAdditionalFormats_ofAnEmptyDocumentDoesNothing()
{
    CTextDocument document;
    document.clearAdditionalFormats();
    QCOMPARE(document.version(), 0u);
    QVERIFY(!document.isModified());
    QCOMPARE(document.blockCount(), 1);
}

void tst_textdocument::rangesOfABlockLaidOut_layOutAndPaintThatBlockOnly()
{
    CTextDocument document;
    document.setPlainText("abc\ndef\nghi");
    document.documentLayout()->blockBoundingRect(document.firstBlock());
    QSignalSpy spyOne(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock);
    QSignalSpy spyAll(document.documentLayout(), &QAbstractTextDocumentLayout::update);
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    QCOMPARE(spyOne.count(), 1);
    QCOMPARE(spyAll.count(), 0);
    QCOMPARE(document.firstBlock().layout()->lineCount(), 1);
}

void tst_textdocument::rangesOfABlockNeverLaidOut_layOutAndPaintNothing()
{
    CTextDocument document;
    document.setPlainText("abc\ndef\nghi");
    QSignalSpy spyOne(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock);
    QSignalSpy spyAll(document.documentLayout(), &QAbstractTextDocumentLayout::update);
    document.onHighlightBlock(document.version(), document.lastBlock(), {range(0)});
    QCOMPARE(spyOne.count(), 0);
    for (const QList<QVariant> &update : qAsConst(spyAll))
        QVERIFY(update.at(0).toRectF().isEmpty());
    QCOMPARE(document.lastBlock().layout()->lineCount(), 0);
    QCOMPARE(startsIn(document.lastBlock()), QList<int>({0}));
}

void tst_textdocument::editBehindRanges_isToldAsWhatItIs()
{
    CTextDocument document;
    document.setPlainText("abc\ndef\nghi");
    document.onHighlightBlock(document.version(), document.firstBlock(), {range(0)});
    QSignalSpy spy(&document, &QTextDocument::contentsChange);
    QTextCursor cursor(document.lastBlock());
    cursor.insertText("x");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0), QVariantList({8, 0, 1}));
}

void tst_textdocument::editInALine_takesItsRangesAlongAndPaintsThatLineOnly()
{
    CTextDocument document;
    document.setPlainText("abc\ndef 12\nghi");
    const QTextBlock block = document.findBlockByNumber(1);
    document.onHighlightBlock(document.version(), block, {range(1), range(4)});
    for (QTextBlock b = document.begin(); b.isValid(); b = b.next())
        document.documentLayout()->blockBoundingRect(b); // Lays it out.
    int nWhole = 0;
    QList<int> lstPainted;
    connect(
        document.documentLayout(), &QAbstractTextDocumentLayout::update, &document,
        [&nWhole] { ++nWhole; });
    connect(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock, &document,
            [&](const QTextBlock &b) { lstPainted.append(b.blockNumber()); });
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
    cursor.insertText("xy");
    QCOMPARE(startsIn(block), QList<int>({1, 6}));
    QCOMPARE(lstPainted, QList<int>({1}));
    QCOMPARE(nWhole, 0);
    cursor.deletePreviousChar();
    QCOMPARE(startsIn(block), QList<int>({1, 5}));
    QCOMPARE(lstPainted, QList<int>({1, 1}));
    QCOMPARE(nWhole, 0);
    QCOMPARE(block.layout()->lineAt(0).textLength(), 7);
}

void tst_textdocument::editsInSeveralLines_paintThoseLinesOnly()
{
    CTextDocument document;
    document.setPlainText("abc\ndef\nghi\njkl\nmno");
    for (QTextBlock b = document.begin(); b.isValid(); b = b.next())
        document.documentLayout()->blockBoundingRect(b);
    int nWhole = 0;
    QList<int> lstPainted;
    connect(
        document.documentLayout(), &QAbstractTextDocumentLayout::update, &document,
        [&nWhole] { ++nWhole; });
    connect(document.documentLayout(), &QAbstractTextDocumentLayout::updateBlock, &document,
            [&](const QTextBlock &b) { lstPainted.append(b.blockNumber()); });
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const int nLine : {1, 3}) {
        cursor.setPosition(document.findBlockByNumber(nLine).position() + 1);
        cursor.insertText("xy");
    }
    cursor.endEditBlock();
    QCOMPARE(lstPainted, QList<int>({1, 3}));
    QCOMPARE(nWhole, 0);
    for (const int nLine : {1, 3})
        QCOMPARE(document.findBlockByNumber(nLine).layout()->lineAt(0).textLength(), 5);
    // A line that went and one that came may differ in height.
    cursor.beginEditBlock();
    cursor.setPosition(4);
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertBlock();
    cursor.endEditBlock();
    QCOMPARE(std::exchange(nWhole, 0), 1);
    // A line more moves all below it.
    QTextCursor(document.findBlockByNumber(2)).insertBlock();
    QVERIFY(nWhole > 0);
}

void tst_textdocument::blocksExtent_isThatOfQt_data()
{
    QTest::addColumn<qreal>("dWidth");
    QTest::addColumn<bool>("bWrapped");
    QTest::newRow("without a width") << -1.0 << false;
    QTest::newRow("not wrapped") << 200.0 << false;
    QTest::newRow("wrapped") << 200.0 << true;
}

void tst_textdocument::blocksExtent_isThatOfQt()
{
    QFETCH(qreal, dWidth);
    QFETCH(bool, bWrapped);
    CTextDocument document;
    QTextOption option;
    option.setWrapMode(bWrapped ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    document.setDefaultTextOption(option);
    document.setTextWidth(dWidth);
    document.setPlainText(
        QStringLiteral("\nint x;\n\t\ttab\n%1\n%2\nlast")
            .arg(QString("word ").repeated(60), QString(QChar(0x5d0)).repeated(9)));
    document.onHighlightBlock(document.version(), document.findBlockByNumber(1), {range(0)});
    const auto *pLayout = qobject_cast<QPlainTextDocumentLayout *>(document.documentLayout());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QRectF expected = pLayout->QPlainTextDocumentLayout::blockBoundingRect(block);
        QVERIFY(expected.height() > 0);
        QCOMPARE(document.documentLayout()->blockBoundingRect(block), expected);
    }
    QCOMPARE(document.documentLayout()->blockBoundingRect(QTextBlock()), QRectF());
}

void tst_textdocument::lines_followEveryEdit_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("text");
    QTest::newRow("letter at the start") << 0 << 0 << "x";
    QTest::newRow("letter at the end") << 11 << 11 << "x";
    QTest::newRow("new line at the start") << 0 << 0 << "\n";
    QTest::newRow("new line at the end") << 11 << 11 << "\n";
    QTest::newRow("new line inside") << 5 << 5 << "\n";
    QTest::newRow("many lines") << 5 << 5 << "1\n2\n3\n4\n5";
    QTest::newRow("join two lines") << 3 << 4 << "";
    QTest::newRow("remove a line") << 4 << 8 << "";
    QTest::newRow("remove all") << 0 << 11 << "";
    QTest::newRow("replace across lines") << 2 << 9 << "x\ny";
}

void tst_textdocument::lines_followEveryEdit()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, text);
    CTextDocument document;
    document.setPlainText("abc\ndef\nghi");
    QTextCursor cursor(&document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(text);
    QCOMPARE(storedLines(document), linesOf(document));
    document.undo();
    QCOMPARE(storedLines(document), QStringList({"abc", "def", "ghi"}));
    document.redo();
    QCOMPARE(storedLines(document), linesOf(document));
}

void tst_textdocument::lines_followRandomEdits()
{
    QRandomGenerator random(42);
    CTextDocument document;
    const QString strMany = QString("line of text\n").repeated(1500);
    for (int n = 0; n < 1500; ++n) {
        QTextCursor cursor(&document);
        cursor.setPosition(random.bounded(document.characterCount()));
        const int nKind = random.bounded(100);
        if (nKind < 40) {
            cursor.insertText(QString("x\n").repeated(random.bounded(4)) + "y");
        } else if (nKind < 70) {
            const int nEnd = cursor.position() + random.bounded(60);
            cursor.setPosition(qMin(nEnd, document.characterCount() - 1), QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
        } else if (nKind < 80) {
            document.undo();
        } else if (nKind < 85) {
            document.redo();
        } else if (nKind < 90) {
            cursor.beginEditBlock();
            cursor.insertText("a\nb");
            cursor.movePosition(QTextCursor::Start);
            cursor.insertText("\n");
            cursor.movePosition(QTextCursor::End);
            cursor.deletePreviousChar();
            cursor.endEditBlock();
        } else if (nKind < 92) {
            cursor.insertText(strMany.left(random.bounded(strMany.size())));
        } else if (nKind < 93) {
            document.setPlainText(strMany.left(random.bounded(strMany.size())));
        } else if (nKind < 94) {
            document.clear();
        }
        if (n % 10 == 0 || n > 1490)
            QCOMPARE(storedLines(document), linesOf(document));
    }
}

// Whatever is edited afterwards.
void tst_textdocument::snapshot_isTheTextOfItsMoment()
{
    CTextDocument document;
    QRandomGenerator random(11);
    const auto below = [&random](int nBound) { return int(random.bounded(quint32(nBound))); };
    const QStringList lstPieces = {"a",
                                   "\n",
                                   "\n\n",
                                   QString(QChar::Nbsp),
                                   QString(QChar(0x2028)),
                                   QString(QChar(0x4e00)),
                                   QString("line\n").repeated(700)};
    QVector<QPair<CStoredText, QString>> lstTaken;
    for (int n = 0; n < 400; ++n) {
        QTextCursor cursor(&document);
        cursor.setPosition(below(document.characterCount()));
        if (below(3) == 0)
            cursor.setPosition(below(document.characterCount()), QTextCursor::KeepAnchor);
        cursor.insertText(lstPieces.at(below(lstPieces.size())));
        if (n % 10 == 0) {
            QString strText = document.toRawText();
            strText.replace(QChar::ParagraphSeparator, '\n');
            lstTaken.append({document.lines()->snapshot(), strText});
        }
    }
    for (const auto &taken : qAsConst(lstTaken))
        QCOMPARE(taken.first.text(), taken.second);
}

QTEST_MAIN(tst_textdocument)
#include "tst_textdocument.moc"
