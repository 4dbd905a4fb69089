// A large text, whose blocks get their ranges when they are laid out. "Large" is two characters
// here, so that the rules can be tried with small ones.
#include "highlight/clinestore.h"
#include "highlight/definitions.h"
#include "highlight/highlightededitor.h"

#include <QPlainTextDocumentLayout>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

class tst_LargeText : public QObject
{
    Q_OBJECT
private slots:
    void blocksThatNobodyLaidOut_haveNoFormats_butTheirStates();
    void blockLaidOutAfterThePass_hasItsFormatsBefore();
    void blockLaidOutBeforeThePass_getsItsResult();
    void formats_areThoseOfEveryBlock();
    void marksOfTheWord_comeWithTheLayout_andGoWithTheWord();
    void clearedFormats_areGoneEverywhereUntilTheNextPass();
    void blockLaidOutWithinAnEdit_leavesTheEditWhole();
    void edit_isToldAsWhatItIs_afterBlocksWereLaidOut();
    void whoListensToTheSignals_getsEveryResult();
    void textThatShrinks_hasAllFormatsAgain();
    void storm_leavesEveryBlockAsAFreshPassWould_data();
    void storm_leavesEveryBlockAsAFreshPassWould();
};

namespace {

using Formats = QVector<QTextLayout::FormatRange>;

struct SLargeEditor : SHighlightedEditor
{
    SLargeEditor() { document.setLargeFrom(2); }

    // Unlike settle(), listens to no signal: whoever does gets every result.
    bool rest()
    {
        int nQuiet = 0;
        return QTest::qWaitFor(
            [&] {
                const bool bBusy = pHighlighter->isRunning() || !document.lines()->isComplete();
                nQuiet = bBusy ? 0 : nQuiet + 1;
                return nQuiet > 4;
            },
            20000);
    }
    // Below lines enough that these are not taken for ones that an edit has left laid out.
    void setText(const QString &strText)
    {
        document.setPlainText(QString("\n").repeated(nAbove) + strText);
    }
    QTextBlock line(int n) const { return document.findBlockByNumber(nAbove + n); }
    Formats shown(int n) const { return line(n).layout()->formats(); }
    static const int nAbove = 100;
    void layOut(const QTextBlock &block) { document.documentLayout()->blockBoundingRect(block); }
};

bool isLaidOut(const QTextBlock &block)
{
    return block.layout()->lineCount() > 0;
}

Formats withoutMarks(Formats lst)
{
    lst.erase(std::remove_if(lst.begin(), lst.end(),
                             [](const QTextLayout::FormatRange &range) {
                                 return range.format.intProperty(QTextFormat::UserProperty) & 1;
                             }),
              lst.end());
    return lst;
}

// Of each block, laid out or not, what formats() says, and of those laid out what they show.
QString difference(const CTextDocument &document, const CHighlightRules &rules)
{
    int nState = -1;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        SHighlightLine line;
        rules.highlight(block.text(), nState, &line);
        nState = line.nState;
        const Formats lst = toFormats(line);
        const bool bSame = block.userState() == nState
            && withoutMarks(document.formats(block)) == lst
            && (!isLaidOut(block) || withoutMarks(block.layout()->formats()) == lst);
        if (!bSame)
            return QStringLiteral("block %1: \"%2\", laid out: %3")
                .arg(block.blockNumber())
                .arg(block.text())
                .arg(isLaidOut(block));
    }
    return QString();
}

} // namespace

void tst_LargeText::blocksThatNobodyLaidOut_haveNoFormats_butTheirStates()
{
    SLargeEditor editor;
    editor.pHighlighter->setDefinition(nastyDefinitions().first());
    editor.setText(QString("int x = 1; /*\n").repeated(1000));
    QVERIFY(editor.rest());
    for (int n = 0; n < 1000; ++n)
        QVERIFY(editor.shown(n).isEmpty());
    QCOMPARE(difference(editor.document, CHighlightRules(nastyDefinitions().first())), QString());
}

void tst_LargeText::blockLaidOutAfterThePass_hasItsFormatsBefore()
{
    SLargeEditor editor;
    editor.setText("a\nint x = 1;\nb");
    QVERIFY(editor.rest());
    const QTextBlock block = editor.line(1);
    QSignalSpy spy(&editor.document, &QTextDocument::contentsChange);
    QSignalSpy spyAll(editor.document.documentLayout(), &QAbstractTextDocumentLayout::update);
    editor.layOut(block);
    QCOMPARE(block.layout()->formats().size(), 2);
    QCOMPARE(block.layout()->lineCount(), 1);
    QCOMPARE(spy.size() + spyAll.size(), 0);
    QVERIFY(editor.shown(2).isEmpty());
}

void tst_LargeText::blockLaidOutBeforeThePass_getsItsResult()
{
    SLargeEditor editor;
    editor.setText("a\nint x = 1;\nb = 2");
    const QTextBlock block = editor.line(1);
    editor.layOut(block);
    QVERIFY(block.layout()->formats().isEmpty());
    QVERIFY(editor.rest());
    QCOMPARE(block.layout()->formats().size(), 2);
    QTextCursor(block).insertText("y = 3; ");
    QVERIFY(editor.rest());
    QCOMPARE(block.layout()->formats().size(), 4);
    QVERIFY(editor.shown(2).isEmpty());
}

void tst_LargeText::formats_areThoseOfEveryBlock()
{
    SLargeEditor editor;
    editor.setText("a = 1\nb = 2");
    QVERIFY(editor.rest());
    editor.pHighlighter->setSelectedWord("b =");
    editor.layOut(editor.line(0));
    for (const QTextBlock &block : {editor.line(0), editor.document.lastBlock()}) {
        const Formats lst = editor.document.formats(block);
        QCOMPARE(withoutMarks(lst).size(), 2);
        QCOMPARE(lst.size(), block == editor.document.lastBlock() ? 3 : 2);
    }
    QVERIFY(editor.shown(1).isEmpty());
}

void tst_LargeText::marksOfTheWord_comeWithTheLayout_andGoWithTheWord()
{
    SLargeEditor editor;
    editor.setText("value\nvalue\nother value");
    QVERIFY(editor.rest());
    editor.layOut(editor.line(0));
    editor.pHighlighter->setSelectedWord("value");
    QVERIFY(editor.rest());
    QCOMPARE(editor.shown(0).size(), 1);
    QCOMPARE(editor.shown(1).size(), 0);
    editor.layOut(editor.document.lastBlock());
    QCOMPARE(editor.shown(2).size(), 1);
    QCOMPARE(editor.shown(2).first().start, 6);
    editor.pHighlighter->setSelectedWord(QString());
    QVERIFY(editor.rest());
    editor.layOut(editor.line(1));
    for (int n = 0; n < 3; ++n)
        QVERIFY(editor.shown(n).isEmpty());
}

void tst_LargeText::clearedFormats_areGoneEverywhereUntilTheNextPass()
{
    SLargeEditor editor;
    editor.setText("a = 1\nb = 2");
    QVERIFY(editor.rest());
    editor.layOut(editor.line(0));
    QVERIFY(!editor.shown(0).isEmpty());
    editor.document.clearAdditionalFormats();
    editor.layOut(editor.document.lastBlock());
    for (int n = 0; n < 2; ++n) {
        QVERIFY(editor.shown(n).isEmpty());
        QVERIFY(editor.document.formats(editor.line(n)).isEmpty());
    }
    editor.pHighlighter->rehighlight();
    QVERIFY(editor.rest());
    QCOMPARE(difference(editor.document, CHighlightRules()), QString());
    QVERIFY(!editor.shown(1).isEmpty());
}

// The note of the formats would take the place of the edit's own.
void tst_LargeText::blockLaidOutWithinAnEdit_leavesTheEditWhole()
{
    SLargeEditor editor;
    editor.setText("a = 1\nb = 2\nc = 3");
    QVERIFY(editor.rest());
    QSignalSpy spy(&editor.document, &QTextDocument::contentsChange);
    QTextCursor cursor(&editor.document);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    cursor.insertText("4");
    editor.layOut(editor.line(0));
    cursor.insertText("5\nd = 6");
    cursor.endEditBlock();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(editor.document.lines()->count(), editor.nAbove + 4);
    QCOMPARE(editor.document.lines()->text(editor.nAbove + 2), QString("c = 345"));
    QVERIFY(editor.rest());
    QCOMPARE(editor.shown(0).size(), 2);
    QCOMPARE(difference(editor.document, CHighlightRules()), QString());
}

void tst_LargeText::edit_isToldAsWhatItIs_afterBlocksWereLaidOut()
{
    SLargeEditor editor;
    editor.setText("a = 1\nb = 2\nc = 3");
    QVERIFY(editor.rest());
    editor.layOut(editor.line(0));
    QSignalSpy spy(&editor.document, &QTextDocument::contentsChange);
    QTextCursor(editor.document.lastBlock()).insertText("x");
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(0).toInt(), editor.document.lastBlock().position());
    QCOMPARE(spy.first().at(2).toInt(), 1);
}

void tst_LargeText::whoListensToTheSignals_getsEveryResult()
{
    SLargeEditor editor;
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.setText(QString("a = 1\n").repeated(100));
    QVERIFY(editor.rest());
    QCOMPARE(spy.size(), editor.nAbove + 101);
    QCOMPARE(editor.shown(50).size(), 2);
}

void tst_LargeText::textThatShrinks_hasAllFormatsAgain()
{
    SLargeEditor editor;
    editor.document.setLargeFrom(300);
    editor.setText(QString("a = 1\n").repeated(100));
    QVERIFY(editor.rest());
    QVERIFY(editor.shown(50).isEmpty());
    editor.setText("a = 1\nb = 2");
    QVERIFY(editor.rest());
    QCOMPARE(editor.shown(0).size(), 2);
    QCOMPARE(editor.shown(1).size(), 2);
}

void tst_LargeText::storm_leavesEveryBlockAsAFreshPassWould_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 nSeed = 1; nSeed <= 8; ++nSeed)
        QTest::addRow("seed %u", nSeed) << nSeed;
}

// Edits, layouts, selected words and changes of the language at the same time, around the size from
// which a text counts as large.
void tst_LargeText::storm_leavesEveryBlockAsAFreshPassWould()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const auto below = [&random](int nBound) { return int(random.bounded(quint32(nBound))); };
    const QStringList lstPieces = {"/*", "*/", "\"", "\n", "\n", "int ", "value", " = 1", "<", ">",
                                   "// ", "\nvalue = 2\n"};
    const QList<QVariantMap> lstDefinitions =
        seed % 2 ? nastyDefinitions().values() : declaredDefinitions();
    SLargeEditor editor;
    editor.document.setLargeFrom(seed % 4 < 2 ? 2 : 3000);
    QVariantMap mapDefinition = lstDefinitions.first();
    editor.pHighlighter->setDefinition(mapDefinition);
    const auto text = [&](int nPieces) {
        QString str;
        for (int n = 0; n < nPieces; ++n)
            str += lstPieces.at(below(lstPieces.size()));
        return str;
    };
    const auto cursorAnywhere = [&] {
        QTextCursor cursor(&editor.document);
        cursor.setPosition(below(editor.document.characterCount()));
        return cursor;
    };
    const auto layOutSome = [&] {
        QTextBlock block = editor.document.findBlockByNumber(below(editor.document.blockCount()));
        for (int n = 0; n < 10 && block.isValid(); ++n, block = block.next())
            editor.layOut(block);
    };
    editor.document.setPlainText(QString("int value = 1; // a\n").repeated(200));
    for (int nRound = 0; nRound < 4; ++nRound) {
        for (int n = 0; n < 150; ++n) {
            switch (below(14)) {
            case 0:
                cursorAnywhere().insertText(text(1 + below(300)));
                break;
            case 1: {
                QTextCursor cursor = cursorAnywhere();
                cursor.setPosition(below(editor.document.characterCount()), QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
                break;
            }
            case 2:
                editor.document.undo();
                break;
            case 3:
                editor.document.redo();
                break;
            case 4:
                editor.pHighlighter->setSelectedWord(below(2) ? "value" : QString());
                break;
            case 5:
                mapDefinition = lstDefinitions.at(below(lstDefinitions.size()));
                editor.document.clearAdditionalFormats();
                editor.pHighlighter->setDefinition(mapDefinition);
                break;
            case 6: {
                QTextCursor cursor = cursorAnywhere();
                cursor.beginEditBlock();
                cursor.insertText(text(5));
                layOutSome();
                cursor.insertText(text(5));
                cursor.endEditBlock();
                break;
            }
            case 7:
                editor.pHighlighter->setVisibleLines(below(300), below(300));
                break;
            case 8:
            case 9:
                cursorAnywhere().insertText(text(3));
                break;
            default:
                layOutSome();
                QCoreApplication::processEvents();
            }
        }
        QVERIFY(editor.rest());
        QCOMPARE(difference(editor.document, CHighlightRules(mapDefinition)), QString());
        for (QTextBlock block = editor.document.begin(); block.isValid(); block = block.next())
            editor.layOut(block);
        QCOMPARE(difference(editor.document, CHighlightRules(mapDefinition)), QString());
        editor.document.setPlainText(text(400));
    }
}

QTEST_MAIN(tst_LargeText)
#include "tst_largetext.moc"
