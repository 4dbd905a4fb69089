#include "editor/commenttoggle.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QtTest>

namespace {

const SCommentMarkers g_cpp {"//", "/*", "*/"};
const SCommentMarkers g_onlyLine {"#", "", ""};
const SCommentMarkers g_onlyBlock {"", "<!--", "-->"};

SCommentSelection wholeLines(const QStringList &lstLines)
{
    return {lstLines.join(QChar(QChar::ParagraphSeparator)), lstLines, QString(), QString()};
}

// The order of the tests, told in one expression each.
SCommentToggle::Action literalAction(const SCommentSelection &selection,
                                     const SCommentMarkers &markers)
{
    if (selection.strText.startsWith(markers.strStart)
        && selection.strText.endsWith(markers.strEnd))
        return SCommentToggle::Unwrap;
    if (!markers.strSingle.isEmpty()) {
        bool bEvery = true;
        for (const QString &strLine : selection.lstLines)
            if (QRegExp("^\\s*" + markers.strSingle).indexIn(strLine) < 0)
                bEvery = false;
        if (bEvery)
            return SCommentToggle::Uncomment;
    }
    const QRegExp nonSpace("[^\\s]");
    const bool bWhole =
        nonSpace.indexIn(selection.strPrefix) < 0 && nonSpace.indexIn(selection.strSuffix) < 0;
    if (markers.strStart.isEmpty() || (!markers.strSingle.isEmpty() && bWhole))
        return SCommentToggle::CommentLines;
    return SCommentToggle::Wrap;
}

} // namespace

class tst_commenttoggle : public QObject
{
    Q_OBJECT

private slots:
    void wholeLines_getTheLineMarker();
    void commentedLines_loseMarkerAndIndentation();
    void oneUncommentedLine_keepsAllCommented();
    void partOfALine_isWrapped();
    void blanksAroundTheSelection_areStillWholeLines();
    void wrappedSelection_isUnwrapped();
    void enclosedTest_comesFirst();
    void languageWithoutBlockMarkers_neverToggles();
    void blockEndWithoutStart_commentsLines();
    void languageWithoutLineMarker_wrapsWholeLines();
    void overlappingMarkers_stayInsideTheSelection();
    void lineMarker_isAnExpressionAsItStands();
    void invalidExpression_matchesNothing();
    void randomSelections_takeTheLiteralAction();
};

void tst_commenttoggle::wholeLines_getTheLineMarker()
{
    const SCommentToggle toggle = toggleOf(wholeLines({"a", "  b", ""}), g_cpp);
    QCOMPARE(toggle.action, SCommentToggle::CommentLines);
}

void tst_commenttoggle::commentedLines_loseMarkerAndIndentation()
{
    const SCommentToggle toggle = toggleOf(wholeLines({"//a", "  // b", "\t//"}), g_cpp);
    QCOMPARE(toggle.action, SCommentToggle::Uncomment);
    QCOMPARE(toggle.lstLengths, QVector<int>({2, 4, 3}));
}

void tst_commenttoggle::oneUncommentedLine_keepsAllCommented()
{
    QCOMPARE(toggleOf(wholeLines({"//a", "b"}), g_cpp).action, SCommentToggle::CommentLines);
    QCOMPARE(toggleOf(wholeLines({"//a", ""}), g_cpp).action, SCommentToggle::CommentLines);
}

void tst_commenttoggle::partOfALine_isWrapped()
{
    QCOMPARE(toggleOf({"b", {"a b c"}, "a ", " c"}, g_cpp).action, SCommentToggle::Wrap);
    QCOMPARE(toggleOf({"b", {"a b"}, "a ", ""}, g_cpp).action, SCommentToggle::Wrap);
    QCOMPARE(toggleOf({"b", {"b c"}, "", " c"}, g_cpp).action, SCommentToggle::Wrap);
}

void tst_commenttoggle::blanksAroundTheSelection_areStillWholeLines()
{
    QCOMPARE(toggleOf({"b", {"\tb  "}, "\t", "  "}, g_cpp).action, SCommentToggle::CommentLines);
}

void tst_commenttoggle::wrappedSelection_isUnwrapped()
{
    const SCommentToggle toggle = toggleOf({"/*b*/", {"a /*b*/"}, "a ", ""}, g_cpp);
    QCOMPARE(toggle.action, SCommentToggle::Unwrap);
    QCOMPARE(toggle.nStartLength, 2);
    QCOMPARE(toggle.nEndLength, 2);
}

void tst_commenttoggle::enclosedTest_comesFirst()
{
    // Each line is a line comment, too, when "/" is the line marker.
    const SCommentMarkers markers {"/", "/*", "*/"};
    QCOMPARE(toggleOf(wholeLines({"/*a", "/b*/"}), markers).action, SCommentToggle::Unwrap);
}

void tst_commenttoggle::languageWithoutBlockMarkers_neverToggles()
{
    for (const QString &strLine : {QString("a"), QString("# a"), QString(" ")}) {
        const SCommentToggle toggle = toggleOf(wholeLines({strLine}), g_onlyLine);
        QCOMPARE(toggle.action, SCommentToggle::Unwrap);
        QCOMPARE(toggle.nStartLength + toggle.nEndLength, 0);
    }
}

void tst_commenttoggle::blockEndWithoutStart_commentsLines()
{
    const SCommentMarkers markers {"#", "", "end"};
    QCOMPARE(toggleOf({"b", {"a b c"}, "a ", " c"}, markers).action, SCommentToggle::CommentLines);
}

void tst_commenttoggle::languageWithoutLineMarker_wrapsWholeLines()
{
    QCOMPARE(toggleOf(wholeLines({"<a/>", "<b/>"}), g_onlyBlock).action, SCommentToggle::Wrap);
}

void tst_commenttoggle::overlappingMarkers_stayInsideTheSelection()
{
    const SCommentToggle toggle = toggleOf({"/*/", {"x/*/y"}, "x", "y"}, g_cpp);
    QCOMPARE(toggle.action, SCommentToggle::Unwrap);
    QCOMPARE(toggle.nEndLength + toggle.nStartLength, 3);
    const SCommentMarkers python {"#", "\"\"\"", "\"\"\""};
    const SCommentToggle quotes = toggleOf({"\"\"\"", {"\"\"\"x"}, "", "x"}, python);
    QCOMPARE(quotes.nEndLength + quotes.nStartLength, 3);
}

void tst_commenttoggle::lineMarker_isAnExpressionAsItStands()
{
    const SCommentMarkers dots {"..", "/*", "*/"};
    const SCommentToggle toggle = toggleOf(wholeLines({"abc"}), dots);
    QCOMPARE(toggle.action, SCommentToggle::Uncomment);
    QCOMPARE(toggle.lstLengths, QVector<int>({2}));
    // An alternative may match further on; everything up to its end goes.
    const SCommentMarkers alternatives {"x|c", "/*", "*/"};
    QCOMPARE(toggleOf(wholeLines({"abc"}), alternatives).lstLengths, QVector<int>({3}));
}

void tst_commenttoggle::invalidExpression_matchesNothing()
{
    const SCommentMarkers lua {"--[[", "/*", "*/"};
    QCOMPARE(toggleOf(wholeLines({"--[[ a"}), lua).action, SCommentToggle::CommentLines);
}

void tst_commenttoggle::randomSelections_takeTheLiteralAction()
{
    const QStringList lstTokens {"//", "/*", "*/", "#", " ", "\t", "a", "\n", "-->", "<!--"};
    const QVector<SCommentMarkers> lstMarkers {g_cpp,           g_onlyLine,         g_onlyBlock,
                                               {"#", "", "*/"}, {"..", "/*", "*/"}, {"", "", ""}};
    QRandomGenerator random(7);
    QSet<int> seen;
    for (int i = 0; i < 20000; ++i) {
        QString strDocument;
        for (int n = random.bounded(1, 10); n > 0; --n)
            strDocument.append(lstTokens.at(random.bounded(lstTokens.size())));
        const int nStart = random.bounded(strDocument.length());
        const int nEnd = random.bounded(nStart + 1, strDocument.length() + 1);
        const int nFirst = nStart == 0 ? 0 : strDocument.lastIndexOf('\n', nStart - 1) + 1;
        const int nLineEnd = strDocument.indexOf('\n', nEnd);
        const int nLast = nLineEnd < 0 ? strDocument.length() : nLineEnd;
        const SCommentSelection selection {
            strDocument.mid(nStart, nEnd - nStart).replace('\n', QChar(QChar::ParagraphSeparator)),
            strDocument.mid(nFirst, nLast - nFirst).split('\n'),
            strDocument.mid(nFirst, nStart - nFirst), strDocument.mid(nEnd, nLast - nEnd)};
        const SCommentMarkers &markers = lstMarkers.at(random.bounded(lstMarkers.size()));
        const SCommentToggle toggle = toggleOf(selection, markers);
        QCOMPARE(toggle.action, literalAction(selection, markers));
        seen.insert(toggle.action);
    }
    QCOMPARE(seen.size(), 4);
}

QTEST_GUILESS_MAIN(tst_commenttoggle)
#include "tst_commenttoggle.moc"
