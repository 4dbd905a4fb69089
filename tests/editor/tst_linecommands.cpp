#include "editor/linecommands.h"

#include "editor/ccarets.h"
#include "literallines.h"
#include "tests/editor/literaltext.h"

#include <QtTest>

using Command = SCommand (*)(const CTextLines &, const CCarets &);
Q_DECLARE_METATYPE(Command)

class tst_linecommands : public QObject
{
    Q_OBJECT

private slots:
    void command_changesTextAndCarets_data();
    void command_changesTextAndCarets();
    void command_withNothingToDo_isNothing_data();
    void command_withNothingToDo_isNothing();
    void anyText_changesLikeAListOfStrings_data();
    void anyText_changesLikeAListOfStrings();
    void anySelection_keepsItsTextWhereItMoves();
    void anyLines_areJoinedLikeAListOfStrings();
    void anySelection_changesItsLetters();
};

void tst_linecommands::command_changesTextAndCarets_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *szName, Command command, const char *szBefore,
                        const char *szAfter) {
        QTest::newRow(szName) << command << QString(szBefore) << QString(szAfter);
    };
    row("up", lineMoveUp, "a\nb|c\nd", "b|c\na\nd");
    row("up, several lines", lineMoveUp, "a\nb^c\nd|e\nf", "b^c\nd|e\na\nf");
    row("up, behind the line", lineMoveUp, "a\n^b\n|c", "^b\n|a\nc");
    row("up, two places", lineMoveUp, "a\nb|\nc\nd|", "b|\na\nd|\nc");
    row("up, one of two at the edge", lineMoveUp, "a|\nb\nc|", "a|\nc|\nb");
    row("down", lineMoveDown, "a|\nb\nc", "b\na|\nc");
    row("down, to the end", lineMoveDown, "^a\n|b", "b\n^a|");
    row("down, backwards", lineMoveDown, "|a\nb^\nc", "c\n|a\nb^");
    row("duplicate", lineDuplicate, "a|b\nc", "ab\na|b\nc");
    row("duplicate the last", lineDuplicate, "a\n|", "a\n\n|");
    row("duplicate a part", lineDuplicate, "a^b|c", "abc\na^b|c");
    row("duplicate several", lineDuplicate, "^a\nb|\nc", "a\nb\n^a\nb|\nc");
    row("delete", lineDelete, "abc\nd|e\nfgh", "abc\nf|gh");
    row("delete, next line shorter", lineDelete, "abc|\nd", "d|");
    row("delete the last", lineDelete, "abc\nd|e", "a|bc");
    row("delete the only", lineDelete, "ab|c", "|");
    row("delete several", lineDelete, "a\n^b\nc|\nd", "a\nd|");
    row("delete at two places", lineDelete, "a|\nb\nc|\nd", "b|\nd|");
    row("join", lineJoin, "a|b  \n\t c\nd", "a|b c\nd");
    row("join with an empty line", lineJoin, "a|\n\nb", "a|\nb");
    row("join several", lineJoin, "^a\n  \nb|\nc", "^a b|\nc");
    row("join keeps no-break spaces", lineJoin, "a|\u00A0\n\u00A0b", "a|\u00A0 \u00A0b");
    row("join at two places", lineJoin, "a|\nb|\nc\nd", "a| b| c\nd");
    row("new below", lineNewBelow, "  a|b\nc", "  ab\n  |\nc");
    row("new below, several lines", lineNewBelow, "^a\n\tb|\nc", "a\n\tb\n\t|\nc");
    row("new above", lineNewAbove, "a\n  b|c", "a\n  |\n  bc");
    row("new above the first", lineNewAbove, "|a", "|\na");
    row("new at two places", lineNewBelow, "a|\nb|", "a\n|\nb\n|");
    row("sort", lineSort, "x\n^c\nb\na|\n0", "x\n^a\nb\nc|\n0");
    row("sort all", lineSort, "c\nB|\na\n", "B\na|\nc\n");
    row("sort whole lines", lineSort, "^b\na\n|0", "^a\nb\n|0");
    row("upper case", textUpperCase, "a^bc|d", "a^BC|d");
    row("upper case of a word", textUpperCase, "a b_c|d e", "a B_C|D e");
    row("upper case, longer", textUpperCase, "^stra\u00DFe|.", "^STRASSE|.");
    row("upper case over lines", textUpperCase, "a^b\nc|d", "a^B\nC|d");
    row("lower case", textLowerCase, "|AB^C", "|ab^C");
    row("lower case of two words", textLowerCase, "|AB C\u00C4|", "|ab c\u00E4|");
    row("indent", lineIndent, "a^b\nc|d\ne", "\ta^b\n\tc|d\ne");
    row("outdent", lineOutdent, "\ta^b\n      c|d", "a^b\n  c|d");
}

void tst_linecommands::command_changesTextAndCarets()
{
    QFETCH(Command, command);
    QFETCH(QString, before);
    QFETCH(QString, after);
    const SMarkedText text = marked(before);
    const SCommand result = command(CListLines(text.strText), text.carets);
    QCOMPARE(withMarks(applied(text.strText, result.lstEdits), result.carets), after);
}

void tst_linecommands::command_withNothingToDo_isNothing_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("before");
    QTest::newRow("up") << Command(lineMoveUp) << "a|b\nc";
    QTest::newRow("down") << Command(lineMoveDown) << "a\nb^c|";
    QTest::newRow("down over all") << Command(lineMoveDown) << "^a\nbc|";
    QTest::newRow("delete") << Command(lineDelete) << "|";
    QTest::newRow("join") << Command(lineJoin) << "a\nb|";
    QTest::newRow("sort one") << Command(lineSort) << "b\n^a|";
    QTest::newRow("sort sorted") << Command(lineSort) << "^a\na\nb|";
    QTest::newRow("upper case") << Command(textUpperCase) << "^A1|";
    QTest::newRow("lower case between words") << Command(textLowerCase) << "A | B";
    QTest::newRow("outdent") << Command(lineOutdent) << "^a\nb|";
}

void tst_linecommands::command_withNothingToDo_isNothing()
{
    QFETCH(Command, command);
    QFETCH(QString, before);
    const SMarkedText text = marked(before);
    const SCommand result = command(CListLines(text.strText), text.carets);
    QVERIFY(result.isNothing());
    QVERIFY(result.carets == text.carets);
}

void tst_linecommands::anyText_changesLikeAListOfStrings_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<int>("literal");
    QTest::newRow("up") << Command(lineMoveUp) << 0;
    QTest::newRow("down") << Command(lineMoveDown) << 1;
    QTest::newRow("duplicate") << Command(lineDuplicate) << 2;
    QTest::newRow("delete") << Command(lineDelete) << 3;
    QTest::newRow("sort") << Command(lineSort) << 4;
    QTest::newRow("indent") << Command(lineIndent) << 5;
    QTest::newRow("outdent") << Command(lineOutdent) << 6;
}

void tst_linecommands::anyText_changesLikeAListOfStrings()
{
    QFETCH(Command, command);
    QFETCH(int, literal);
    void (CLiteralLines::*const arrLiteral[])() = {
        &CLiteralLines::moveUp, &CLiteralLines::moveDown, &CLiteralLines::duplicate,
        &CLiteralLines::remove, &CLiteralLines::sort,     &CLiteralLines::indent,
        &CLiteralLines::outdent};
    CDice dice(7);
    for (int n = 0; n < 4000; ++n) {
        const QString strText = dice.text("ab \t\n\n", dice.upTo(20));
        const CCarets carets = dice.carets(strText.length(), 1 + dice.upTo(3));
        if (literal == 4 && carets.isSingle() && !carets.main().hasSelection())
            continue; // All lines, as the examples show.
        CLiteralLines expected(strText, carets);
        (expected.*arrLiteral[literal])();
        const SCommand result = command(CListLines(strText), carets);
        QCOMPARE(applied(strText, result.lstEdits), expected.text());
        const int nLength = expected.text().length();
        for (const SCaret &caret : result.carets.list())
            QVERIFY(caret.start() >= 0 && caret.end() <= nLength);
    }
}

void tst_linecommands::anySelection_keepsItsTextWhereItMoves()
{
    CDice dice(11);
    for (int n = 0; n < 4000; ++n) {
        const QString strText = dice.text("abc\n", dice.upTo(20));
        const SCaret caret = dice.carets(strText.length(), 1).main();
        const QString strSelected = strText.mid(caret.start(), caret.end() - caret.start());
        for (const Command command : {lineMoveUp, lineMoveDown, lineDuplicate}) {
            const SCommand result = command(CListLines(strText), CCarets(caret));
            const SCaret moved = result.carets.main();
            const QString strMoved =
                applied(strText, result.lstEdits).mid(moved.start(), moved.end() - moved.start());
            // A last line has no end that could stay selected.
            QVERIFY(strMoved == strSelected || strMoved + '\n' == strSelected);
        }
    }
}

void tst_linecommands::anyLines_areJoinedLikeAListOfStrings()
{
    CDice dice(13);
    for (int n = 0; n < 4000; ++n) {
        const QString strText = dice.text("ab  \n\n", dice.upTo(16));
        const SCaret caret = dice.carets(strText.length(), 1).main();
        const SCommand result = lineJoin(CListLines(strText), CCarets(caret));
        QCOMPARE(applied(strText, result.lstEdits), literallyJoined(strText, caret));
    }
}

void tst_linecommands::anySelection_changesItsLetters()
{
    CDice dice(17);
    for (int n = 0; n < 4000; ++n) {
        const QString strText = dice.text("aB\u00E4\u00DF\u01C6 \n", dice.upTo(16));
        const SCaret caret = dice.carets(strText.length(), 1).main();
        if (!caret.hasSelection())
            continue;
        const int nLength = caret.end() - caret.start();
        const QString strSelected = strText.mid(caret.start(), nLength);
        QString strUpper = strText;
        strUpper.replace(caret.start(), nLength, strSelected.toUpper());
        QString strLower = strText;
        strLower.replace(caret.start(), nLength, strSelected.toLower());
        const CListLines lines(strText);
        const SCommand upper = textUpperCase(lines, CCarets(caret));
        QCOMPARE(applied(strText, upper.lstEdits), strUpper);
        QCOMPARE(upper.carets.main().end() - caret.start(), strSelected.toUpper().length());
        QCOMPARE(applied(strText, textLowerCase(lines, CCarets(caret)).lstEdits), strLower);
    }
}

QTEST_GUILESS_MAIN(tst_linecommands)
#include "tst_linecommands.moc"
