#include "highlight/chighlightrules.h"
#include "highlight/definitions.h"

#include <QTest>

class tst_highlightrules : public QObject
{
    Q_OBJECT
private slots:
    void ranges_data();
    void ranges();
    void states_data();
    void states();

    void beforeADefinition_slashesAreComments();
    void emptyDefinition_hasNoComments();
    void definition_tellsNameAndCommentTexts();
    void commentsOfADefinition_laterOnesOverride();
    void keywords_ofAllListsAreOrderedByListName();
    void keywords_caseCountsOnlyWhenAsked_data();
    void keywords_caseCountsOnlyWhenAsked();
    void tagPattern_onlyOneGivenCountsAsNone();
    void tagPattern_lastChildWins();
    void listNamedContexts_isAListOfKeywords();
    void abort_leavesTheLine();
    void formats_areThoseOfTheirRoles_data();
    void formats_areThoseOfTheirRoles();
};

namespace {

// "start+length:role …" in drawing order; the role is the first letter of its name.
QString describe(const SHighlightLine &line)
{
    QStringList lst;
    for (const SHighlightRange &range : line.lstRanges) {
        lst << QStringLiteral("%1+%2:%3")
                   .arg(range.nStart)
                   .arg(range.nLength)
                   .arg(QLatin1Char("kcsno"[int(range.role)]));
    }
    return lst.join(QLatin1Char(' '));
}

SHighlightLine highlight(const CHighlightRules &rules, const QString &strText, int nState = -1)
{
    SHighlightLine line;
    rules.highlight(strText, nState, &line);
    return line;
}

STestDefinition likeC()
{
    STestDefinition definition;
    definition.strSingleLine = "//";
    definition.strMultiLineStart = "/*";
    definition.strMultiLineEnd = "*/";
    definition.mapLists = {{"k", {"if", "int", "x+y", "a*", "", " for "}},
                           {"reg_exp", {"[A-Z]\\w*", "["}}};
    return definition;
}

STestDefinition likeHtml()
{
    STestDefinition definition;
    definition.strMultiLineStart = "<!--";
    definition.strMultiLineEnd = "-->";
    definition.strTagOpen = "<";
    definition.strTagClose = ">";
    definition.bCaseSensitive = false;
    definition.mapLists = {{"k", {"div", "class"}}};
    return definition;
}

STestDefinition likeLua()
{
    STestDefinition definition;
    definition.strSingleLine = "--";
    definition.strMultiLineStart = "--\\[\\[";
    definition.strMultiLineEnd = "\\]\\]";
    return definition;
}

} // namespace

void tst_highlightrules::ranges_data()
{
    QTest::addColumn<QVariantMap>("definition");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("expected");
    const QVariantMap c = likeC().toMap();
    const QVariantMap html = likeHtml().toMap();
    const QVariantMap lua = likeLua().toMap();
    const QVariantMap none;
    using S = SHighlightState;

    QTest::newRow("hexadecimal") << none << "0x1F" << -1 << "0+4:n";
    QTest::newRow("colour value") << none << "#a0a0a0" << -1 << "0+7:n";
    QTest::newRow("sign and exponent") << none << "-12.5e3" << -1 << "0+7:n 0+1:o";
    QTest::newRow("0x without digits") << none << "0xg" << -1 << "0+1:n";
    QTest::newRow("e without digits") << none << "1e+ 2." << -1 << "0+3:n 4+2:n 2+1:o";
    QTest::newRow("digits in a name") << none << "utf8" << -1 << "3+1:n";
    QTest::newRow("two signs") << none << "+-5" << -1 << "1+2:n 0+2:o";
    QTest::newRow("three parts") << none << "1.2.3" << -1 << "0+3:n 4+1:n";
    QTest::newRow("Arabic digits") << none << "x\u0663\u0664" << -1 << "1+2:n";

    QTest::newRow("minus equals") << none << "a-=b" << -1 << "1+1:o 2+1:o";
    QTest::newRow("plus equals") << none << "a+==b" << -1 << "1+3:o";
    QTest::newRow("four equals") << none << "====" << -1 << "0+3:o 3+1:o";
    QTest::newRow("less equals") << none << "a<=b<c" << -1 << "1+2:o";
    QTest::newRow("bracket equals") << none << "(= )= \"" << -1 << "0+2:o 3+2:o 6+1:s";
    QTest::newRow("signs in pairs") << none << "+++" << -1 << "0+2:o 2+1:o";

    QTest::newRow("keywords") << c << "if (int) ifx" << -1 << "0+2:k 4+3:k";
    QTest::newRow("plus is a quantifier") << c << "xxy x+y" << -1 << "5+1:o 0+3:k";
    QTest::newRow("star is plain, the boundary behind it is not")
        << c << "a* a*b" << -1 << "1+1:o 4+1:o 3+2:k";
    QTest::newRow("item with blanks") << c << "for" << -1 << "0+3:k";
    QTest::newRow("regular expression") << c << "ab Cd" << -1 << "3+2:k";
    QTest::newRow("keyword over number") << c << "A1" << -1 << "1+1:n 0+2:k";

    QTest::newRow("tags") << html << "div <div class> div" << -1 << "5+3:k 9+5:k";
    QTest::newRow("tag goes on") << html << "CLASS > div" << int(S::InsideTag) << "0+5:k";
    QTest::newRow("no tag") << html << "class > div" << -1 << "";
    QTest::newRow("two tags") << html << "<div><class>" << -1 << "1+3:k 6+5:k";
    QTest::newRow("close in front of open") << html << "> <div>" << -1 << "3+3:k";

    QTest::newRow("closed comment") << c << "/* a */ b" << -1 << "0+2:o 5+2:o 0+7:c";
    QTest::newRow("comment opens and closes on one slash")
        << c << "/*/ a" << -1 << "0+2:o 2+1:o 0+5:c";
    QTest::newRow("comment to the end") << c << "1 // 2" << -1 << "0+1:n 5+1:n 2+2:o 2+4:c";
    QTest::newRow("slashes in a string") << c << "\"//\" b" << -1 << "1+2:o 0+4:s";
    QTest::newRow("tie") << lua << "--[[ a" << -1 << "0+2:o";
    QTest::newRow("tie, then nothing more") << lua << "--[[ \"b\" -- c" << -1 << "0+2:o 9+2:o";
    QTest::newRow("no tie behind a string") << lua << "\"\" -- c" << -1 << "3+2:o 0+2:s 3+4:c";

    QTest::newRow("single quotes") << c << "'a'" << -1 << "";
    QTest::newRow("empty string") << c << "\"\" b" << -1 << "0+2:s";
    QTest::newRow("escaped quote") << c << "\"a\\\"b\" c" << -1 << "0+6:s";
    QTest::newRow("even backslashes") << c << "\"\\\\\" c" << -1 << "0+4:s";
    QTest::newRow("longest closing") << c << "\"\"\" c" << -1 << "0+3:s";
    QTest::newRow("string goes on") << c << "a\" b" << int(S::DoubleQuoted) << "0+2:s";
    QTest::newRow("escaped at the start of a line")
        << c << "\\\"a\" b" << int(S::DoubleQuoted) << "0+4:s";
    QTest::newRow("single-quoted string goes on") << c << "a' b" << int(S::SingleQuoted) << "0+2:s";
    QTest::newRow("comment goes on") << c << "a */ b" << int(S::MultiLineComment) << "2+2:o 0+4:c";
    QTest::newRow("continued comment")
        << c << "a" << int(S::SingleLineComment | S::Continued) << "0+1:c";
    QTest::newRow("comment without continuation") << c << "a" << int(S::SingleLineComment) << "";
    QTest::newRow("comment bit first")
        << c << "a\" */ b" << int(S::MultiLineComment | S::DoubleQuoted) << "3+2:o 0+5:c";
    QTest::newRow("empty line") << c << "" << int(S::MultiLineComment) << "";
}

void tst_highlightrules::ranges()
{
    QFETCH(QVariantMap, definition);
    QFETCH(QString, text);
    QFETCH(int, state);
    QFETCH(QString, expected);
    QCOMPARE(describe(highlight(CHighlightRules(definition), text, state)), expected);
}

void tst_highlightrules::states_data()
{
    QTest::addColumn<QVariantMap>("definition");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    const QVariantMap c = likeC().toMap();
    const QVariantMap html = likeHtml().toMap();

    QTest::newRow("plain") << c << "a" << -1 << 0;
    QTest::newRow("empty first line") << c << "" << -1 << 0;
    QTest::newRow("empty line keeps a comment") << c << "" << 2 << 2;
    QTest::newRow("empty line keeps all") << c << "" << 49 << 49;
    QTest::newRow("open comment") << c << "/* a" << -1 << 2;
    QTest::newRow("comment goes on") << c << "a" << 2 << 2;
    QTest::newRow("comment ends") << c << "*/" << 2 << 0;
    QTest::newRow("comment ends, another begins") << c << "*/ /*" << 2 << 2;
    QTest::newRow("open string") << c << "\"a" << -1 << 4;
    QTest::newRow("string goes on") << c << "a" << 4 << 4;
    QTest::newRow("string ends") << c << "a\"" << 4 << 0;
    QTest::newRow("string ends, comment opens") << c << "\" /*" << 4 << 2;
    QTest::newRow("single-quoted goes on") << c << "a" << 8 << 8;
    QTest::newRow("apostrophe opens nothing") << c << "'a" << -1 << 0;
    QTest::newRow("line comment") << c << "// a" << -1 << 1;
    QTest::newRow("continued line comment") << c << "// a\\" << -1 << 33;
    QTest::newRow("backslash and letters s") << c << "// a\\ss" << -1 << 33;
    QTest::newRow("backslash and blank") << c << "// a\\ " << -1 << 1;
    QTest::newRow("continued once more") << c << "a\\" << 33 << 33;
    QTest::newRow("continuation ends") << c << "a" << 33 << 0;
    QTest::newRow("backslash without a comment") << c << "a\\" << -1 << 0;
    QTest::newRow("open tag") << html << "<a" << -1 << 16;
    QTest::newRow("tag goes on") << html << "a" << 16 << 16;
    QTest::newRow("tag ends") << html << "a>" << 16 << 0;
    QTest::newRow("tag ends, another opens") << html << "> <b" << 16 << 16;
    QTest::newRow("no tag") << html << "a" << -1 << 0;
    QTest::newRow("tag and comment") << html << "<!-- a" << -1 << 18;
}

void tst_highlightrules::states()
{
    QFETCH(QVariantMap, definition);
    QFETCH(QString, text);
    QFETCH(int, before);
    QFETCH(int, after);
    QCOMPARE(highlight(CHighlightRules(definition), text, before).nState, after);
}

void tst_highlightrules::beforeADefinition_slashesAreComments()
{
    const CHighlightRules rules;
    QCOMPARE(rules.languageName(), QString());
    QCOMPARE(rules.singleLineComment(), QString("//"));
    QCOMPARE(rules.multiLineCommentStart(), QString());
    QCOMPARE(rules.multiLineCommentEnd(), QString());
    QCOMPARE(describe(highlight(rules, "a // b")), QString("2+2:o 2+4:c"));
    QCOMPARE(describe(highlight(rules, "/* b \"c\"")), QString("0+2:o 5+3:s"));
}

void tst_highlightrules::emptyDefinition_hasNoComments()
{
    const CHighlightRules rules {QVariantMap()};
    QCOMPARE(rules.singleLineComment(), QString());
    QCOMPARE(describe(highlight(rules, "1 // \"b\"")), QString("0+1:n 2+2:o 5+3:s"));
}

void tst_highlightrules::definition_tellsNameAndCommentTexts()
{
    const CHighlightRules rules(likeC().toMap());
    QCOMPARE(rules.languageName(), QString("Test"));
    QCOMPARE(rules.singleLineComment(), QString("//"));
    QCOMPARE(rules.multiLineCommentStart(), QString("/*"));
    QCOMPARE(rules.multiLineCommentEnd(), QString("*/"));
}

void tst_highlightrules::commentsOfADefinition_laterOnesOverride()
{
    const auto comment = [](const QString &strName, const QString &strStart,
                            const QString &strEnd) -> QVariant {
        return QVariantMap {{"name", strName}, {"start", strStart}, {"end", strEnd}};
    };
    const QVariantList lstComments {
        comment("SingleLine", "//", ""),  comment("singleline", "#", ""),
        comment("singleline", "", ""),    comment("multiline", "(", ")"),
        comment("MULTILINE", "/*", "*/"), comment("multiline", "<", ""),
        comment("multiline", "", ">"),    comment("other", "!", "!")};
    const CHighlightRules rules(QVariantMap {{"general", QVariantMap {{"comments", lstComments}}}});
    QCOMPARE(rules.singleLineComment(), QString("#"));
    QCOMPARE(rules.multiLineCommentStart(), QString("/*"));
    QCOMPARE(rules.multiLineCommentEnd(), QString("*/"));
}

void tst_highlightrules::keywords_ofAllListsAreOrderedByListName()
{
    STestDefinition definition;
    definition.mapLists = {{"z", {"b"}}, {"a", {"d", "c"}}, {"reg_exp", {"[a-d]"}}};
    QCOMPARE(describe(highlight(CHighlightRules(definition.toMap()), "b c d b")),
             QString("4+1:k 2+1:k 0+1:k 2+1:k 4+1:k 6+1:k 0+1:k 6+1:k"));
}

void tst_highlightrules::keywords_caseCountsOnlyWhenAsked_data()
{
    QTest::addColumn<QVariant>("attribute");
    QTest::addColumn<bool>("counts");
    QTest::newRow("absent") << QVariant() << false;
    QTest::newRow("empty") << QVariant("") << false;
    QTest::newRow("0") << QVariant("0") << false;
    QTest::newRow("False") << QVariant("False") << false;
    QTest::newRow("1") << QVariant("1") << true;
    QTest::newRow("true") << QVariant("true") << true;
    QTest::newRow("no") << QVariant("no") << true;
}

void tst_highlightrules::keywords_caseCountsOnlyWhenAsked()
{
    QFETCH(QVariant, attribute);
    QFETCH(bool, counts);
    QVariantMap mapDefinition = likeC().toMap();
    mapDefinition.insert("general",
                         QVariantMap {{"keywords", QVariantMap {{"casesensitive", attribute}}}});
    const CHighlightRules rules(mapDefinition);
    QCOMPARE(describe(highlight(rules, "int")), QString(counts ? "0+3:k" : "0+3:k 0+3:k"));
    QCOMPARE(describe(highlight(rules, "iNT")), QString(counts ? "1+2:k" : "0+3:k 0+3:k"));
}

void tst_highlightrules::tagPattern_onlyOneGivenCountsAsNone()
{
    STestDefinition definition = likeHtml();
    definition.strTagClose.clear();
    const CHighlightRules rules(definition.toMap());
    QCOMPARE(describe(highlight(rules, "div <div")), QString("0+3:k 5+3:k"));
    QCOMPARE(highlight(rules, "div <div").nState, 0);
}

void tst_highlightrules::tagPattern_lastChildWins()
{
    const auto child = [](const QString &strTag, const QString &strChar) -> QVariant {
        return QVariantMap {{"tag", strTag}, {"char", strChar}, {"char1", "!"}};
    };
    const auto context = [](const QString &strName, const QVariantList &lst) -> QVariant {
        return QVariantMap {{"name", strName}, {"children", lst}};
    };
    const QVariantList lstContexts {
        context("El Open",
                {child("DetectChar", "["), child("DetectChar", "<"), child("Other", "(")}),
        context("El Close", {child("DetectChar", ">")}),
        context("el open", {child("DetectChar", "{")})};
    const QVariantMap mapHighlighting {{"contexts", lstContexts}, {"k", QStringList("div")}};
    const CHighlightRules rules(QVariantMap {{"highlighting", mapHighlighting}});
    QCOMPARE(describe(highlight(rules, "div <div> (div> {div>")), QString("5+3:k"));
}

void tst_highlightrules::listNamedContexts_isAListOfKeywords()
{
    STestDefinition definition;
    definition.mapLists = {{"contexts", {"div"}}};
    QCOMPARE(describe(highlight(CHighlightRules(definition.toMap()), "div")), QString("0+3:k"));
}

void tst_highlightrules::abort_leavesTheLine()
{
    const CHighlightRules rules(likeC().toMap());
    SHighlightLine line;
    QVERIFY(!rules.highlight(
        "int A", -1, &line, [] { return true; }));
    QVERIFY(!rules.highlight("", -1, &line, [] { return true; }));
    int nAsked = 0;
    QVERIFY(!rules.highlight(
        "int A", -1, &line, [&] { return ++nAsked == 2; }));
    QVERIFY(rules.highlight("int A", -1, &line, [] { return false; }));
    QCOMPARE(describe(line), QString("0+3:k 4+1:k"));
}

void tst_highlightrules::formats_areThoseOfTheirRoles_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("keyword") << int(HighlightRole::Keyword) << QColor("#8000FF");
    QTest::newRow("comment") << int(HighlightRole::Comment) << QColor("#008000");
    QTest::newRow("string") << int(HighlightRole::String) << QColor("#008000");
    QTest::newRow("number") << int(HighlightRole::Number) << QColor("#0000FF");
    QTest::newRow("operator") << int(HighlightRole::Operator) << QColor("#ffaa00");
}

void tst_highlightrules::formats_areThoseOfTheirRoles()
{
    QFETCH(int, role);
    QFETCH(QColor, colour);
    QTextCharFormat expected;
    expected.setForeground(QBrush(colour, Qt::SolidPattern));
    QCOMPARE(CHighlightRules::format(HighlightRole(role)), expected);
}

QTEST_GUILESS_MAIN(tst_highlightrules)
#include "tst_highlightrules.moc"
