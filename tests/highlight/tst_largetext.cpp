// A large text, whose blocks get their ranges when they are laid out. "Large" is two characters
// here, so that the rules can be tried with small ones.
#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "highlight/definitions.h"
#include "highlight/highlightededitor.h"
#include "tests/support/awaitcolours.h"

#include <QPlainTextDocumentLayout>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

class tst_largetext : public QObject
{
    Q_OBJECT
private slots:
    void blocksThatNobodyLaidOut_haveNoFormats_butTheirStates();
    void blockLaidOutAfterThePass_hasItsFormatsBefore();
    void blockLaidOutBeforeThePass_getsItsResult();
    void formats_areThoseOfEveryBlock();
    void marksOfTheWord_comeWithTheLayout_andGoWithTheWord();
    void clearedFormats_areGoneEverywhereUntilTheNextPass();
    void blockLaidOutWithinAnEdit_leavesTheEditWhole_data();
    void blockLaidOutWithinAnEdit_leavesTheEditWhole();
    void blockLaidOutWhileATextIsReplaced_waitsForItsLine_data();
    void blockLaidOutWhileATextIsReplaced_waitsForItsLine();
    void blockLaidOutAtTheEndOfAnEdit_hasItsFormatsAtOnce();
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

    bool rest() { return awaitColours(document, *pHighlighter); }
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

// Compares formats() for each block, and what the laid out blocks show.
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

class CStorm
{
public:
    explicit CStorm(quint32 nSeed)
        : m_random(nSeed),
          m_lstDefinitions(nSeed % 2 ? nastyDefinitions().values() : declaredDefinitions()),
          m_mapDefinition(m_lstDefinitions.first())
    {
        m_editor.document.setLargeFrom(nSeed % 4 < 2 ? 2 : 3000);
        m_editor.pHighlighter->setDefinition(m_mapDefinition);
    }

    void step();
    QString text(int nPieces);

private:
    int below(int nBound) { return int(m_random.bounded(quint32(nBound))); }
    QTextCursor cursorAnywhere();
    void remove();
    void changeLanguage();
    void editAroundALayout();
    void layOutSome();

    QRandomGenerator m_random;
    QList<QVariantMap> m_lstDefinitions;

public:
    SLargeEditor m_editor;
    QVariantMap m_mapDefinition;
};

QString CStorm::text(int nPieces)
{
    static const QStringList lst = {"/*",    "*/",   "\"", "\n", "\n",  "int ",
                                    "value", " = 1", "<",  ">",  "// ", "\nvalue = 2\n"};
    QString str;
    for (int n = 0; n < nPieces; ++n)
        str += lst.at(below(lst.size()));
    return str;
}

QTextCursor CStorm::cursorAnywhere()
{
    QTextCursor cursor(&m_editor.document);
    cursor.setPosition(below(m_editor.document.characterCount()));
    return cursor;
}

void CStorm::remove()
{
    QTextCursor cursor = cursorAnywhere();
    cursor.setPosition(below(m_editor.document.characterCount()), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void CStorm::changeLanguage()
{
    m_mapDefinition = m_lstDefinitions.at(below(m_lstDefinitions.size()));
    m_editor.document.clearAdditionalFormats();
    m_editor.pHighlighter->setDefinition(m_mapDefinition);
}

void CStorm::editAroundALayout()
{
    QTextCursor cursor = cursorAnywhere();
    cursor.beginEditBlock();
    cursor.insertText(text(5));
    layOutSome();
    cursor.insertText(text(5));
    cursor.endEditBlock();
}

void CStorm::layOutSome()
{
    const int nFirst = below(m_editor.document.blockCount());
    QTextBlock block = m_editor.document.findBlockByNumber(nFirst);
    for (int n = 0; n < 10 && block.isValid(); ++n, block = block.next())
        m_editor.layOut(block);
}

void CStorm::step()
{
    const int nKind = below(14);
    if (nKind == 0) {
        cursorAnywhere().insertText(text(1 + below(300)));
    } else if (nKind == 1) {
        remove();
    } else if (nKind == 2) {
        m_editor.document.undo();
    } else if (nKind == 3) {
        m_editor.document.redo();
    } else if (nKind == 4) {
        m_editor.pHighlighter->setSelectedWord(below(2) ? "value" : QString());
    } else if (nKind == 5) {
        changeLanguage();
    } else if (nKind == 6) {
        editAroundALayout();
    } else if (nKind == 7) {
        m_editor.pHighlighter->setVisibleLines(below(300), below(300));
    } else if (nKind < 10) {
        cursorAnywhere().insertText(text(3));
    } else {
        layOutSome();
        QCoreApplication::processEvents();
    }
}

} // namespace

void tst_largetext::blocksThatNobodyLaidOut_haveNoFormats_butTheirStates()
{
    SLargeEditor editor;
    editor.pHighlighter->setDefinition(nastyDefinitions().first());
    editor.setText(QString("int x = 1; /*\n").repeated(1000));
    QVERIFY(editor.rest());
    for (int n = 0; n < 1000; ++n)
        QVERIFY(editor.shown(n).isEmpty());
    QCOMPARE(difference(editor.document, CHighlightRules(nastyDefinitions().first())), QString());
}

void tst_largetext::blockLaidOutAfterThePass_hasItsFormatsBefore()
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

void tst_largetext::blockLaidOutBeforeThePass_getsItsResult()
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

void tst_largetext::formats_areThoseOfEveryBlock()
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

void tst_largetext::marksOfTheWord_comeWithTheLayout_andGoWithTheWord()
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

void tst_largetext::clearedFormats_areGoneEverywhereUntilTheNextPass()
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

void tst_largetext::blockLaidOutWithinAnEdit_leavesTheEditWhole_data()
{
    QTest::addColumn<bool>("undo");
    QTest::newRow("with undo") << true;
    QTest::newRow("without") << false;
}

// Qt's note of the formats would replace that of the edit.
void tst_largetext::blockLaidOutWithinAnEdit_leavesTheEditWhole()
{
    QFETCH(bool, undo);
    SLargeEditor editor;
    editor.document.setUndoRedoEnabled(undo);
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

void tst_largetext::blockLaidOutWhileATextIsReplaced_waitsForItsLine_data()
{
    QTest::addColumn<QString>("before");
    QTest::newRow("many lines") << QString("a = 1\n").repeated(2000);
    QTest::newRow("one line") << QString("a = 1");
}

// A widget's setPlainText() lays out the last block within its edit, after Qt has cleared the
// document and before the new lines are known.
void tst_largetext::blockLaidOutWhileATextIsReplaced_waitsForItsLine()
{
    QFETCH(QString, before);
    SLargeEditor editor;
    editor.document.setPlainText(before);
    QVERIFY(editor.rest());
    QTextCursor cursor(&editor.document);
    cursor.beginEditBlock();
    editor.document.setPlainText(QString("b = 2\n").repeated(3000));
    cursor.select(QTextCursor::Document);
    QVERIFY(isLaidOut(editor.document.lastBlock()));
    cursor.setCharFormat(QTextCharFormat());
    cursor.endEditBlock();
    QCOMPARE(editor.document.lines()->count(), 3001);
    QVERIFY(editor.rest());
    QCOMPARE(difference(editor.document, CHighlightRules()), QString());
}

// As the scroll bars of a view do, when an edit has changed the number of lines.
void tst_largetext::blockLaidOutAtTheEndOfAnEdit_hasItsFormatsAtOnce()
{
    SLargeEditor editor;
    editor.setText("a = 1\nb = 2\nc = 3");
    QVERIFY(editor.rest());
    const QAbstractTextDocumentLayout *pLayout = editor.document.documentLayout();
    const auto connection = connect(pLayout, &QAbstractTextDocumentLayout::documentSizeChanged,
                                    &editor.document, [&editor] { editor.layOut(editor.line(1)); });
    QVERIFY(!isLaidOut(editor.line(1)));
    QTextCursor(editor.document.lastBlock()).insertText("x\ny");
    QVERIFY(isLaidOut(editor.line(1)));
    QCOMPARE(editor.shown(1).size(), 2);
    disconnect(connection);
    // Neither note is left over for the next edit.
    QSignalSpy spy(&editor.document, &QTextDocument::contentsChange);
    const int nPosition = editor.document.lastBlock().position();
    QTextCursor(editor.document.lastBlock()).insertText("z");
    QCOMPARE(spy.takeFirst(), QVariantList({nPosition, 0, 1}));
    QVERIFY(editor.rest());
    QCOMPARE(difference(editor.document, CHighlightRules()), QString());
}

void tst_largetext::edit_isToldAsWhatItIs_afterBlocksWereLaidOut()
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

void tst_largetext::whoListensToTheSignals_getsEveryResult()
{
    SLargeEditor editor;
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.setText(QString("a = 1\n").repeated(100));
    QVERIFY(editor.rest());
    QCOMPARE(spy.size(), editor.nAbove + 101);
    QCOMPARE(editor.shown(50).size(), 2);
}

void tst_largetext::textThatShrinks_hasAllFormatsAgain()
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

void tst_largetext::storm_leavesEveryBlockAsAFreshPassWould_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 nSeed = 1; nSeed <= 8; ++nSeed)
        QTest::addRow("seed %u", nSeed) << nSeed;
}

// Edits, layouts, selected words and changes of the language at the same time, around the size from
// which a text counts as large.
void tst_largetext::storm_leavesEveryBlockAsAFreshPassWould()
{
    QFETCH(quint32, seed);
    CStorm storm(seed);
    const CTextDocument &document = storm.m_editor.document;
    for (int nRound = 0; nRound < 4; ++nRound) {
        storm.m_editor.document.setPlainText(
            nRound ? storm.text(400) : QString("int value = 1; // a\n").repeated(200));
        for (int n = 0; n < 150; ++n)
            storm.step();
        QVERIFY(storm.m_editor.rest());
        QCOMPARE(difference(document, CHighlightRules(storm.m_mapDefinition)), QString());
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            storm.m_editor.layOut(block);
        QCOMPARE(difference(document, CHighlightRules(storm.m_mapDefinition)), QString());
    }
}

QTEST_MAIN(tst_largetext)
#include "tst_largetext.moc"
