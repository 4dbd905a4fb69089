#include "editor/linereplace.h"
#include "editor/linesearch.h"
#include "support/processortime.h"

#include "literalreplace.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

enum Option { None = 0, Case = 1, Word = 2, Up = 4, RegExp = 8 };

SSearchOptions optionsOf(int nOptions)
{
    SSearchOptions options;
    options.bMatchCase = nOptions & Case;
    options.bWholeWord = nOptions & Word;
    options.bSearchUp = nOptions & Up;
    options.bRegExp = nOptions & RegExp;
    return options;
}

SLiteralLineOptions literalOptionsOf(int nOptions)
{
    return {bool(nOptions & Case), bool(nOptions & Word), bool(nOptions & Up),
            bool(nOptions & RegExp)};
}

QString pick(QRandomGenerator *pRandom, const QStringList &lst)
{
    return lst.at(pRandom->bounded(lst.size()));
}

QString randomLine(QRandomGenerator *pRandom)
{
    static const QString s_strAlphabet = QString::fromUtf8("aaabbAx _1.é\t\u00a0");
    QString strLine;
    for (int i = pRandom->bounded(24); i > 0; --i)
        strLine.append(s_strAlphabet.at(pRandom->bounded(s_strAlphabet.length())));
    return strLine;
}

const QStringList &plainTexts()
{
    static const QStringList s_lst {"a", "A", "ab", "aa", "aba", "b ", "_", "x", "1", "é", "."};
    return s_lst;
}

const QStringList &patterns()
{
    static const QStringList s_lst {"a",      "a*",     "x*",    "^a",    "a$",   "^",     "$",
                                    "a(?=b)", "a(?!b)", "\\ba",  "a\\b",  "\\Ba", "[ab]+", "a|ab",
                                    ".",      "(a)\\1", ".*",    "b.*",   "\\s",  "a{2}",  "(",
                                    "[",      "^\\s*a", "^a*b?", "\\bb*", "\\w+"};
    return s_lst;
}

const QStringList &replacements()
{
    static const QStringList s_lst {"", "a", "aa", "b", "ab", "_", " ", "xax", "A1", "\\1"};
    return s_lst;
}

} // namespace

class tst_linesearch : public QObject
{
    Q_OBJECT

private slots:
    void candidate_isTheFirstFromTheOffset_data();
    void candidate_isTheFirstFromTheOffset();
    void selection_matchesExactlyOrNotAtAll_data();
    void selection_matchesExactlyOrNotAtAll();
    void candidates_equalTheLiteralSearch();
    void runs_areSearchedLineByLine();
    void replacements_equalTheLiteralLoop_data();
    void replacements_equalTheLiteralLoop();
    void editsOneByOne_giveTheSameLine();
    void oneLongLine_takesLinearTime_data();
    void oneLongLine_takesLinearTime();
};

void tst_linesearch::candidate_isTheFirstFromTheOffset_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("options");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    const auto row = [](const char *pName, const char *pLine, const char *pText, int nOffset,
                        int nOptions, int nStart, int nLength) {
        QTest::newRow(pName) << QString::fromUtf8(pLine) << QString::fromUtf8(pText) << nOffset
                             << nOptions << nStart << nLength;
    };
    row("forward from the start", "one two one", "one", 0, None, 0, 3);
    row("forward from the offset", "one two one", "one", 1, None, 8, 3);
    row("case does not matter", "One", "oNE", 0, None, 0, 3);
    row("case matters", "One one", "one", 0, Case, 4, 3);
    row("case of other alphabets", "ÄÖ", "äö", 0, None, 0, 2);
    row("up from the line's end", "one two one", "one", -1, Up, 8, 3);
    row("up from behind the last character", "one two one", "one", 11, Up, 8, 3);
    row("up in an empty line", "", "one", 0, Up, -1, 0);
    row("up from an offset", "one two one", "one", 7, Up, 0, 3);
    row("up may reach over the offset", "one", "one", 0, Up, 0, 3);
    row("underscore separates words", "ab_ab", "ab", 0, Word, 0, 2);
    row("letter behind the word", "abc ab", "ab", 0, Word, -1, 0);
    row("only the first candidate is tried", "abc ab", "ab", 1, Word, 4, 2);
    row("digit before the word", "1ab", "ab", 0, Word, -1, 0);
    row("letter of another alphabet", "äab", "ab", 0, Word, -1, 0);
    row("word alone in the line", "ab", "ab", 0, Word, 0, 2);
    row("empty match does not count", "abc", "x*", 0, RegExp, -1, 0);
    row("empty match hides a later one", "abxx", "x*", 0, RegExp, -1, 0);
    row("match where it is not empty", "xxab", "x*", 0, RegExp, 0, 2);
    row("caret is the line's start", "aa", "^a", 1, RegExp, -1, 0);
    row("lone anchors never count", "abc", "^", 0, RegExp, -1, 0);
    row("lone end anchor never counts", "abc", "$", 0, RegExp, -1, 0);
    row("longest alternative wins", "ab", "a|ab", 0, RegExp, 0, 2);
    row("invalid expression finds nothing", "((", "(", 0, RegExp, -1, 0);
    row("expression up", "ab1 ab22", "ab\\d", -1, RegExp | Up, 4, 3);
    row("empty match at the end hides others up", "xxab", "x*", 4, RegExp | Up, -1, 0);
    row("expression and whole word", "abc ab", "ab", 0, RegExp | Word, -1, 0);
    row("metacharacters are plain text", "a.b a+b", "a+b", 0, None, 4, 3);
    row("offset behind the text", "ab", "ab", 2, None, -1, 0);
}

void tst_linesearch::candidate_isTheFirstFromTheOffset()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    QFETCH(int, offset);
    QFETCH(int, options);
    QFETCH(int, start);
    QFETCH(int, length);
    const SLineMatch match = CLineSearch(text, optionsOf(options)).find(line, offset);
    QCOMPARE(match.nStart, start);
    QCOMPARE(match.nLength, length);
}

void tst_linesearch::selection_matchesExactlyOrNotAtAll_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("options");
    QTest::addColumn<bool>("matches");
    QTest::newRow("equal") << "ab"
                           << "ab" << int(None) << true;
    QTest::newRow("other case") << "AB"
                                << "ab" << int(None) << true;
    QTest::newRow("other case that matters") << "AB"
                                             << "ab" << int(Case) << false;
    QTest::newRow("longer") << "abc"
                            << "ab" << int(None) << false;
    QTest::newRow("shorter") << "a"
                             << "ab" << int(None) << false;
    QTest::newRow("expression") << "a12"
                                << "a\\d+" << int(RegExp) << true;
    QTest::newRow("expression of a part") << "a12b"
                                          << "a\\d+" << int(RegExp) << false;
    QTest::newRow("what follows is not seen") << "a"
                                              << "a(?=b)" << int(RegExp) << false;
}

void tst_linesearch::selection_matchesExactlyOrNotAtAll()
{
    QFETCH(QString, selected);
    QFETCH(QString, text);
    QFETCH(int, options);
    QFETCH(bool, matches);
    QCOMPARE(CLineSearch(text, optionsOf(options)).matchesExactly(selected), matches);
}

void tst_linesearch::candidates_equalTheLiteralSearch()
{
    QRandomGenerator random(11);
    for (int i = 0; i < 30000; ++i) {
        const QString strLine = randomLine(&random);
        const int nOptions = random.bounded(16);
        const QString strText = pick(&random, nOptions & RegExp ? patterns() : plainTexts());
        const int nOffset = nOptions & Up ? random.bounded(-1, strLine.length() + 1)
                                          : random.bounded(strLine.length() + 1);
        int nIndex = -1;
        int nLength = 0;
        literalFindInLine(strLine, strText, nOffset, literalOptionsOf(nOptions), &nIndex, &nLength);
        const SLineMatch match = CLineSearch(strText, optionsOf(nOptions)).find(strLine, nOffset);
        if (match.nStart != nIndex || match.nLength != nLength)
            QFAIL(qPrintable(QStringLiteral("'%1' in '%2' from %3, options %4")
                                 .arg(strText, strLine)
                                 .arg(nOffset)
                                 .arg(nOptions)));
    }
}

void tst_linesearch::runs_areSearchedLineByLine()
{
    QRandomGenerator random(13);
    int nFound = 0;
    for (int i = 0; i < 20000; ++i) {
        QStringList lstLines;
        for (int n = random.bounded(1, 6); n > 0; --n)
            lstLines.append(random.bounded(3) ? randomLine(&random) : QString());
        const QString strRun = lstLines.join(QChar(QChar::ParagraphSeparator));
        const int nOptions = random.bounded(16);
        const bool bUp = nOptions & Up;
        const QString strText = pick(&random, nOptions & RegExp ? patterns() : plainTexts());
        const int nOffset =
            bUp ? random.bounded(-1, strRun.length() + 1) : random.bounded(strRun.length() + 1);
        const CLineSearch search(strText, optionsOf(nOptions));
        // Where the lines stand, and the one that the search starts in.
        int nLine = bUp && nOffset < 0 ? lstLines.size() - 1 : 0;
        QVector<int> lstStarts {0};
        for (int n = 0; n + 1 < lstLines.size(); ++n) {
            lstStarts.append(lstStarts.last() + lstLines.at(n).length() + 1);
            if (nOffset >= lstStarts.last())
                nLine = n + 1;
        }
        int nInLine = nOffset < 0 ? -1 : nOffset - lstStarts.at(nLine);
        SLineMatch expected;
        while (nLine >= 0 && nLine < lstLines.size()) {
            expected = search.find(lstLines.at(nLine), nInLine);
            if (expected.isValid())
                break;
            nLine += bUp ? -1 : 1;
            nInLine = bUp ? -1 : 0;
        }
        const SRunMatch result = search.findInRun(strRun, nOffset);
        QCOMPARE(result.isValid(), expected.isValid());
        if (!expected.isValid())
            continue;
        ++nFound;
        QCOMPARE(result.nLineStart, lstStarts.at(nLine));
        QCOMPARE(result.nLineLength, lstLines.at(nLine).length());
        QCOMPARE(result.match.nStart, expected.nStart);
        QCOMPARE(result.match.nLength, expected.nLength);
    }
    QVERIFY(nFound > 5000);
}

void tst_linesearch::replacements_equalTheLiteralLoop_data()
{
    QTest::addColumn<int>("options");
    for (int nOptions = 0; nOptions < 16; ++nOptions) {
        QTest::addRow("%s%s%s%s", nOptions & Case ? "case " : "", nOptions & Word ? "word " : "",
                      nOptions & Up ? "up " : "", nOptions & RegExp ? "expression" : "plain")
            << nOptions;
    }
}

void tst_linesearch::replacements_equalTheLiteralLoop()
{
    QFETCH(int, options);
    QRandomGenerator random(100 + options);
    int nReplaced = 0;
    for (int i = 0; i < 6000; ++i) {
        const QString strLine = randomLine(&random);
        const QString strText = pick(&random, options & RegExp ? patterns() : plainTexts());
        const QString strReplace = pick(&random, replacements());
        const int nOffset = options & Up ? (random.bounded(2) ? -1 : strLine.length()) : 0;
        int nCount = 0;
        const QString strExpected = literalReplaceInLine(strLine, strText, nOffset, strReplace,
                                                         literalOptionsOf(options), &nCount);
        const CLineSearch search(strText, optionsOf(options));
        const SLineMatch first = search.find(strLine, nOffset);
        const SLineReplacement result = first.isValid()
            ? replaceInLine(search, strLine, first, strReplace)
            : SLineReplacement();
        const QString strResult = result.lstEdits.isEmpty() ? strLine : result.strText;
        if (strResult != strExpected || result.nMatches != nCount) {
            QFAIL(qPrintable(QStringLiteral("'%1' by '%2' in '%3': '%4', %5 instead of '%6', %7")
                                 .arg(strText, strReplace, strLine, strResult)
                                 .arg(result.nMatches)
                                 .arg(strExpected)
                                 .arg(nCount)));
        }
        nReplaced += result.lstEdits.size();
    }
    QVERIFY2(nReplaced > 200, qPrintable(QString::number(nReplaced)));
}

void tst_linesearch::editsOneByOne_giveTheSameLine()
{
    QRandomGenerator random(12);
    for (int i = 0; i < 20000; ++i) {
        const int nOptions = random.bounded(16);
        const QString strText = pick(&random, nOptions & RegExp ? patterns() : plainTexts());
        const QString strReplace = pick(&random, replacements());
        QString strLine = randomLine(&random);
        const CLineSearch search(strText, optionsOf(nOptions));
        const SLineMatch first = search.find(strLine, nOptions & Up ? -1 : 0);
        if (!first.isValid())
            continue;
        const SLineReplacement result = replaceInLine(search, strLine, first, strReplace);
        for (const SLineMatch &edit : result.lstEdits)
            strLine.replace(edit.nStart, edit.nLength, strReplace);
        if (!result.lstEdits.isEmpty())
            QCOMPARE(strLine, result.strText);
    }
}

void tst_linesearch::oneLongLine_takesLinearTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replace");
    QTest::addColumn<int>("options");
    QTest::newRow("forward, longer") << "a"
                                     << "aa" << int(None);
    QTest::newRow("forward, removed") << "a"
                                      << "" << int(None);
    QTest::newRow("up, longer") << "a"
                                << "aa" << int(Up);
    QTest::newRow("up, removed") << "a"
                                 << "" << int(Up);
    QTest::newRow("expression") << "a|b"
                                << "aa" << int(RegExp);
    QTest::newRow("expression, removed") << "a|b"
                                         << "" << int(RegExp);
}

void tst_linesearch::oneLongLine_takesLinearTime()
{
    QFETCH(QString, text);
    QFETCH(QString, replace);
    QFETCH(int, options);
    const int nLength = 1000 * 1000;
    const CProcessorTime time;
    const QString strLine(nLength, QLatin1Char('a'));
    const CLineSearch search(text, optionsOf(options));
    const SLineMatch first = search.find(strLine, options & Up ? -1 : 0);
    const SLineReplacement result = replaceInLine(search, strLine, first, replace);
    QCOMPARE(result.nMatches, nLength);
    QCOMPARE(result.strText, QString(nLength * replace.length(), QLatin1Char('a')));
    // Quadratic time would be hours.
    QVERIFY2(time.elapsed() < 20000, qPrintable(QString::number(time.elapsed())));
}

QTEST_GUILESS_MAIN(tst_linesearch)
#include "tst_linesearch.moc"
