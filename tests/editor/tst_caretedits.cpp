#include "editor/caretblock.h"
#include "editor/caretedits.h"
#include "editor/ccarethistory.h"
#include "editor/occurrences.h"
#include "editor/textedits.h"

#include "literaltext.h"

#include <QtTest>

class tst_caretedits : public QObject
{
    Q_OBJECT

private slots:
    void carets_areOrderedAndMerged_data();
    void carets_areOrderedAndMerged();
    void typing_replacesEverySelection();
    void typing_isLikeTypingAtOneCaretAfterTheOther();
    void erasing_takesWhatLiesUpToTheOtherEnd();
    void lineEnds_indentLikeTheLinesTheyEnd();
    void paste_goesLineByLineWhereTheCountsAgree_data();
    void paste_goesLineByLineWhereTheCountsAgree();
    void lineEndsOfATextDocument_areOneKind();
    void block_hasACaretInEachLine_data();
    void block_hasACaretInEachLine();
    void column_countsTabsAndWideCharacters();
    void anyPlace_isFoundByItsColumn();
    void caretBelow_standsInTheSameColumn();
    void occurrences_areAllOfThem_data();
    void occurrences_areAllOfThem();
    void history_knowsTheCaretsOfEachStep();
    void history_forgetsWhatCannotBeRedone();
    void positions_moveWithTheText();
};

void tst_caretedits::carets_areOrderedAndMerged_data()
{
    QTest::addColumn<QVector<int>>("ends"); // Anchor and position of each.
    QTest::addColumn<QString>("after"); // In a text of dots.
    QTest::newRow("in order") << QVector<int> {3, 3, 1, 1} << ".|..|..";
    QTest::newRow("the same place") << QVector<int> {2, 2, 2, 2} << "..|...";
    QTest::newRow("overlapping") << QVector<int> {0, 3, 2, 5} << "^.....|";
    QTest::newRow("overlapping backwards") << QVector<int> {5, 2, 3, 1} << ".|....^";
    QTest::newRow("touching selections") << QVector<int> {0, 2, 2, 4} << "^..|^..|.";
    QTest::newRow("at a selection's end") << QVector<int> {2, 2, 0, 2} << "^..|...";
    QTest::newRow("at a selection's start") << QVector<int> {2, 2, 2, 4} << "..^..|.";
}

void tst_caretedits::carets_areOrderedAndMerged()
{
    QFETCH(QVector<int>, ends);
    QFETCH(QString, after);
    QVector<SCaret> lst;
    for (int n = 0; n < ends.size(); n += 2)
        lst.append({ends.at(n), ends.at(n + 1)});
    const CCarets carets(lst, 0);
    QString strDots = after;
    strDots.remove('|').remove('^');
    QCOMPARE(withMarks(strDots, carets), after);
    QVERIFY(carets.main().start() <= lst.at(0).start());
    QVERIFY(carets.main().end() >= lst.at(0).end());
}

void tst_caretedits::typing_replacesEverySelection()
{
    const SMarkedText text = marked("a^b|c\n|\n|d^");
    const SCommand typed = textTyped(text.carets, {{"xy", 0}});
    QCOMPARE(withMarks(applied(text.strText, typed.lstEdits), typed.carets),
             QString("axy|c\nxy|\nxy|"));
    const SCommand paired = textTyped(text.carets, {{"()", 1}});
    QCOMPARE(withMarks(applied(text.strText, paired.lstEdits), paired.carets),
             QString("a(|)c\n(|)\n(|)"));
}

void tst_caretedits::typing_isLikeTypingAtOneCaretAfterTheOther()
{
    CDice dice(3);
    for (int n = 0; n < 3000; ++n) {
        const QString strText = dice.text("ab\n", dice.upTo(20));
        const CCarets carets = dice.carets(strText.length(), 1 + dice.upTo(4));
        const QString strTyped = dice.text("xy\n", 1 + dice.upTo(2));
        QString strExpected = strText;
        for (int nCaret = carets.count() - 1; nCaret >= 0; --nCaret) {
            const SCaret &caret = carets.list().at(nCaret);
            strExpected.replace(caret.start(), caret.end() - caret.start(), strTyped);
        }
        const SCommand command = textTyped(carets, {{strTyped, 0}});
        const QString strResult = applied(strText, command.lstEdits);
        QCOMPARE(strResult, strExpected);
        QCOMPARE(command.carets.count(), carets.count());
        for (const SCaret &caret : command.carets.list())
            QVERIFY(strResult.leftRef(caret.nPosition).endsWith(strTyped));
    }
}

void tst_caretedits::erasing_takesWhatLiesUpToTheOtherEnd()
{
    const SMarkedText text = marked("ab|c\n^de|f\nx|y|");
    const SCommand back = textErased(text.carets, [](int nAt) { return nAt - 1; });
    QCOMPARE(withMarks(applied(text.strText, back.lstEdits), back.carets), QString("a|c\n|f\n|"));
    const SCommand all = textErased(text.carets, [](int) { return 0; });
    QCOMPARE(withMarks(applied(text.strText, all.lstEdits), all.carets), QString("|"));
    const SCommand nothing = textErased(marked("|ab").carets, [](int nAt) { return nAt; });
    QVERIFY(nothing.isNothing());
}

void tst_caretedits::lineEnds_indentLikeTheLinesTheyEnd()
{
    const SMarkedText text = marked("  a|b\n\tif {|\n|");
    const CListLines lines(text.strText);
    const SCommand command = textTyped(text.carets, lineEnds(lines, text.carets));
    QCOMPARE(withMarks(applied(text.strText, command.lstEdits), command.carets),
             QString("  a\n  |b\n\tif {\n\t\t|\n\t\n\n|"));
}

void tst_caretedits::paste_goesLineByLineWhereTheCountsAgree_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("after");
    QTest::newRow("as many") << "1\n2"
                             << "1|a\n2|b";
    QTest::newRow("with an end behind the last") << "1\r\n2\r\n"
                                                 << "1|a\n2|b";
    QTest::newRow("one") << "1"
                         << "1|a\n1|b";
    QTest::newRow("more") << "1\n2\n3"
                          << "1\n2\n3|a\n1\n2\n3|b";
}

void tst_caretedits::paste_goesLineByLineWhereTheCountsAgree()
{
    QFETCH(QString, pasted);
    QFETCH(QString, after);
    const SMarkedText text = marked("|a\n|b");
    const SCommand command = textTyped(text.carets, pastedParts(pasted, text.carets));
    QCOMPARE(withMarks(applied(text.strText, command.lstEdits), command.carets), after);
}

void tst_caretedits::lineEndsOfATextDocument_areOneKind()
{
    const QString strEnds = QString("a\r\nb\rc\nd") + QChar(0x2029) + 'e' + QChar(0xFDD0) + 'f'
        + QChar(0x2028) + QChar(0xA0);
    QCOMPARE(withPlainLineEnds(strEnds), QString("a\nb\nc\nd\ne\nf") + QChar(0x2028) + QChar(0xA0));
}

void tst_caretedits::block_hasACaretInEachLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("block");
    QTest::addColumn<QString>("after");
    QTest::newRow("rectangle") << "abcd\nefgh" << QVector<int> {0, 1, 1, 3} << "a^bc|d\ne^fg|h";
    QTest::newRow("from the right")
        << "abcd\nefgh" << QVector<int> {1, 3, 0, 1} << "a|bc^d\ne|fg^h";
    QTest::newRow("a short line") << "abcd\ne\nfghi" << QVector<int> {0, 2, 2, 3}
                                  << "ab^c|d\ne\nfg^h|i";
    QTest::newRow("a short corner") << "abcd\ne" << QVector<int> {0, 2, 1, 3} << "ab^c|d\ne|";
    QTest::newRow("no width") << "ab\ncd" << QVector<int> {0, 1, 1, 1} << "a|b\nc|d";
    QTest::newRow("a tab") << "\tab\n    cd" << QVector<int> {0, 4, 1, 5} << "\t^a|b\n    ^c|d";
    QTest::newRow("wide") << "\u4E00\u4E01x\nabcdx" << QVector<int> {0, 2, 1, 4}
                          << "\u4E00^\u4E01|x\nab^cd|x";
}

void tst_caretedits::block_hasACaretInEachLine()
{
    QFETCH(QString, text);
    QFETCH(QVector<int>, block);
    QFETCH(QString, after);
    SCaretBlock corners;
    corners.nAnchorLine = block.at(0);
    corners.nAnchorColumn = block.at(1);
    corners.nLine = block.at(2);
    corners.nColumn = block.at(3);
    const CListLines lines(text);
    const CCarets carets = caretsOfBlock(lines, corners);
    QCOMPARE(withMarks(text, carets), after);
    QCOMPARE(lines.lineAt(carets.main().nPosition), corners.nLine);
}

void tst_caretedits::column_countsTabsAndWideCharacters()
{
    QCOMPARE(shownColumn("a\tb", 2), 4);
    QCOMPARE(shownColumn("\t\t", 2), 8);
    QCOMPARE(shownColumn(QString(QChar(0x4E00)) + 'a', 2), 3);
    QCOMPARE(placeAtColumn("a\tb", 3), 1);
    QCOMPARE(placeAtColumn("a\tb", 4), 2);
    QCOMPARE(placeAtColumn("ab", 9), 2);
    // A surrogate pair is never divided.
    const QString strPair = QString::fromUtf8("\xF0\x9F\x98\x80x");
    QCOMPARE(placeAtColumn(strPair, 1), 0);
    QCOMPARE(placeAtColumn(strPair, 2), 2);
}

void tst_caretedits::anyPlace_isFoundByItsColumn()
{
    CDice dice(5);
    for (int n = 0; n < 1000; ++n) {
        const QString strLine = dice.text("a\t\u4E00 ", dice.upTo(12));
        for (int nPlace = 0; nPlace <= strLine.length(); ++nPlace)
            QCOMPARE(placeAtColumn(strLine, shownColumn(strLine, nPlace)), nPlace);
    }
}

void tst_caretedits::caretBelow_standsInTheSameColumn()
{
    const SMarkedText text = marked("ab|c\nd\nefg");
    const CListLines lines(text.strText);
    CCarets carets = caretsWithNext(lines, text.carets, false);
    QCOMPARE(withMarks(text.strText, carets), QString("ab|c\nd|\nefg"));
    QCOMPARE(carets.mainIndex(), 1);
    carets = caretsWithNext(lines, carets, true);
    QCOMPARE(carets.count(), 2); // No line is there.
}

void tst_caretedits::occurrences_areAllOfThem_data()
{
    QTest::addColumn<bool>("words");
    QTest::addColumn<QString>("after");
    QTest::newRow("everywhere") << false << "^ab|c ^ab|\n^ab|^ab| AB a_^ab|";
    QTest::newRow("words") << true << "abc ^ab|\nabab AB a_ab";
}

void tst_caretedits::occurrences_areAllOfThem()
{
    QFETCH(bool, words);
    QFETCH(QString, after);
    const QString strText = "abc ab\nabab AB a_ab";
    const CCarets carets = caretsOfOccurrences(strText, "ab", words, 4);
    QCOMPARE(withMarks(strText, carets), after);
    QCOMPARE(carets.main().start(), 4);
}

void tst_caretedits::history_knowsTheCaretsOfEachStep()
{
    const CCarets first(SCaret {1, 1});
    const CCarets second(SCaret {2, 2});
    CCaretHistory history;
    history.add({0, 3, first, second});
    history.add({5, 6, second, first});
    QVERIFY(!history.undoneFrom(5));
    QVERIFY(history.undoneFrom(6)->before == second);
    QVERIFY(history.undoneFrom(3)->before == first);
    QVERIFY(history.redoneFrom(0)->after == second);
    QVERIFY(history.redoneFrom(5)->after == first);
    QVERIFY(!history.redoneFrom(3));
}

void tst_caretedits::history_forgetsWhatCannotBeRedone()
{
    const CCarets carets;
    CCaretHistory history;
    history.add({0, 1, carets, carets});
    history.add({1, 4, carets, carets});
    history.add({1, 2, carets, carets}); // After an undo.
    QVERIFY(!history.undoneFrom(4));
    QVERIFY(history.undoneFrom(2));
    history.forgetFrom(2);
    QVERIFY(!history.undoneFrom(2));
    QVERIFY(history.undoneFrom(1));
}

void tst_caretedits::positions_moveWithTheText()
{
    CDice dice(19);
    for (int n = 0; n < 2000; ++n) {
        // Letters are unique, so that each is found again.
        const QString strText = "abcdefghijklmnop";
        TextEdits lstEdits;
        for (int nAt = dice.upTo(3); nAt < strText.length(); nAt += 1 + dice.upTo(5)) {
            const int nLength = qMin(dice.upTo(2), strText.length() - nAt);
            lstEdits.append({nAt, nLength, dice.text("XY", dice.upTo(3))});
            nAt += nLength;
        }
        const CPositionMap map(lstEdits);
        const QString strAfter = applied(strText, lstEdits);
        for (int nAt = 0; nAt < strText.length(); ++nAt) {
            const auto isAt = [nAt](const STextEdit &edit) {
                return nAt >= edit.nStart && nAt <= edit.nStart + edit.nLength;
            };
            if (std::none_of(lstEdits.cbegin(), lstEdits.cend(), isAt))
                QCOMPARE(map.map(nAt), strAfter.indexOf(strText.at(nAt)));
        }
    }
}

QTEST_GUILESS_MAIN(tst_caretedits)
#include "tst_caretedits.moc"
