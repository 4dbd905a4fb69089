// The regions that a definition declares, attribute by attribute.
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/highlightline.h"

#include <QTest>

class tst_regions : public QObject
{
    Q_OBJECT
private slots:
    void text_isDividedAsDeclared_data();
    void text_isDividedAsDeclared();
    void embeddedLanguage_bringsItsRegionsAndKeywords();
    void ownNumbers_takeThePlaceOfTheFixedOnes();
    void withoutRegions_nothingChanges();
    void regionsThatFollowEachOtherInPlace_end();
    void tooDeepRegion_doesNotBegin();
    void state_dependsOnTheStackAlone();
    void foreignState_isTheTextOutsideOfAllRegions();
};

namespace {

QByteArray file(const QString &strRegions)
{
    return QStringLiteral("<language name='T' extensions='*.t'><general><keywords"
                          " casesensitive='true'/></general><highlighting><list name='k'>"
                          "<item>if</item></list></highlighting>%1</language>")
        .arg(strRegions)
        .toUtf8();
}

CHighlightRules rulesOf(const QString &strRegions)
{
    return CHighlightRules(
        CHighlightMgt::parseBytes(file("<regions>" + strRegions + "</regions>")));
}

// For each character "c" in a comment, "s" in a string, "." elsewhere; lines end with "|".
QString divided(const CHighlightRules &rules, const QString &strText)
{
    QString strResult;
    SHighlightLine line;
    int nState = -1;
    for (const QString &strLine : strText.split('\n')) {
        rules.highlight(strLine, nState, &line);
        nState = line.nState;
        QString str(strLine.size(), '.');
        for (const SHighlightRange &range : line.lstRanges) {
            const bool bComment = range.role == HighlightRole::Comment;
            if (bComment || range.role == HighlightRole::String)
                str.replace(range.nStart, range.nLength,
                            QString(range.nLength, bComment ? 'c' : 's'));
        }
        strResult += str + '|';
    }
    return strResult;
}

} // namespace

void tst_regions::text_isDividedAsDeclared_data()
{
    QTest::addColumn<QString>("regions");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char *pszName, const char *pszRegions, const char *pszText,
                        const char *pszExpected) {
        QTest::newRow(pszName) << pszRegions << pszText << pszExpected;
    };
    add("to the line's end", "<region start='#' as='comment'/>", "a #b\nc", "..cc|.|");
    add("an unclosed string ends with its line", "<region start='\"' end='\"' as='string'/>",
        "a \"b\nc", "..ss|.|");
    add("many lines", "<region start='a' end='b' lines='many' as='string'/>", "xa\n\nbx",
        ".s||s.|");
    add("no end at all", "<region start='^E$' lines='many' as='comment'/>", "a\nE\nb", ".|c|c|");
    add("backslash goes on", "<region start='\"' end='\"' as='string' lines='backslash'/>",
        "\"a\\\nb\"c\n\"a\\\\\nb", "sss|ss.|ssss|.|");
    add("skip", "<region start='\"' end='\"' skip='\\\\.' as='string'/>", "\"a\\\"b\"c",
        "ssssss.|");
    add("doubled end", "<region start=\"'\" end=\"'\" skip=\"''\" as='string'/>", "'a''b'c",
        "ssssss.|");
    add("key", "<region start='R\"' key='\\w*' then='\\(' end='\\)%1\"' lines='many' as='string'/>",
        "R\"x(a)\"\nb)x\"c", "sssssss|ssss.|");
    add("mirrored key nests", "<region start='q' key='[({|]' end='%2' as='string'/>",
        "q(a(b)c)d q|a|b", "ssssssss..ssss.|");
    add("nests", "<region start='/\\*' end='\\*/' nests='/\\*' lines='many' as='comment'/>",
        "/*/*\n*/b*/c", "cccc|ccccc.|");
    add("after", "<region start='/' end='/' after='(^|=)\\s*' as='string'/>", "a/b/c=  /d/ e",
        "........sss..|");
    add("not after", "<region start='#' after='(^|\\s)' as='comment'/>", "a#b #c", "....cc|");
    add("next line", "<region start='&lt;&lt;' key='\\w+' end='^%1$' nextline='true' as='string'/>",
        "a <<X b\nX c\nX\nd", ".......|sss|.|.|");
    add("two that wait for each other",
        "<region start='&lt;&lt;' key='\\w+' end='^%1$' nextline='true' as='string'/>",
        "<<A <<B\nB\nA\n2\nB\n3", ".......|s|.|s|.|.|");
    add("field in a string",
        "<region start='\"' end='\"' as='string'><region start='\\{' end='\\}' nests='\\{'"
        " inner='top'/></region>",
        "\"a{b{\"}\"}c}d\"e", "ss...sss...ss.|");
    add("a string's line ends its fields, too",
        "<region start='\"' end='\"' as='string'><region start='\\{' end='\\}' inner='top'/>"
        "</region>",
        "\"a{b\nc", "ss..|.|");
    add("group",
        "<region start='a' end='b' as='string' inner='g'/><group name='g'>"
        "<token pattern='x' as='code'/></group>",
        "xaxb", ".s.s|");
    add("token hides a start", "<token pattern='\\\\.'/><region start='\"' end='\"' as='string'/>",
        "\\\"a\"b\"", "...sss|");
    add("twice", "<region start='s' key='[/{]' end='%2' twice='true' as='string'/>",
        "s/a/b/c s{a} {b}c", "ssssss..ssss.sss.|");
    add("indented", "<region start=':$' lines='indented' nextline='true' as='string'/>",
        " a:\n  b\n\n c", "...|sss||..|");
    add("firm",
        "<region start='\\$' end='\\$' firm='true' inner='top'/>"
        "<region start=\"'\" end=\"'\" lines='many' as='string'/>",
        "$ don't $ a", ".....sss...|");
    add("what follows a firm end begins after it",
        "<region start='\\$' end='\\$&quot;' firm='true' inner='top'/>"
        "<region start=\"'\" end=\"'\" lines='many' as='string'/>"
        "<region start='&quot;' end='&quot;' as='string'/>",
        "$ don't $\"a\"b", ".....sss...ss|");
    add("next",
        "<region start='a' end='b' as='string' next='n'/><region name='n' end='c'"
        " as='comment'/>",
        "abxcd", "sscc.|");
}

void tst_regions::text_isDividedAsDeclared()
{
    QFETCH(QString, regions);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(divided(rulesOf(regions), text), expected);
}

void tst_regions::embeddedLanguage_bringsItsRegionsAndKeywords()
{
    QVariantMap mapOuter = CHighlightMgt::parseBytes(
        file("<regions><region start='&lt;s>' end='(?=&lt;/s>)' language='Inner'/></regions>"));
    QByteArray inner =
        file("<regions><region start='\"' end='\"' lines='many' as='string'/></regions>");
    inner.replace("<item>if</item>", "<item>else</item>");
    mapOuter.insert("embedded", QVariantMap {{"Inner", CHighlightMgt::parseBytes(inner)}});
    const CHighlightRules rules(mapOuter);
    QCOMPARE(divided(rules, "\"<s>\"a\nb</s>\""), QString("....ss|s.....|"));
    SHighlightLine line;
    rules.highlight("if else <s>if else</s> if", -1, &line);
    QStringList lstKeywords;
    for (const SHighlightRange &range : line.lstRanges)
        if (range.role == HighlightRole::Keyword)
            lstKeywords << QString::number(range.nStart);
    lstKeywords.sort();
    QCOMPARE(lstKeywords, QStringList({"0", "14", "23"}));
}

void tst_regions::ownNumbers_takeThePlaceOfTheFixedOnes()
{
    const CHighlightRules rules = rulesOf("<numbers pattern='\\b\\d+\\b'/><operators/>");
    SHighlightLine line;
    rules.highlight("utf8 - 12", -1, &line);
    QCOMPARE(int(line.lstRanges.size()), 1);
    QCOMPARE(line.lstRanges.front().nStart, 7);
}

void tst_regions::withoutRegions_nothingChanges()
{
    const CHighlightRules rules(CHighlightMgt::parseBytes(file(QString())));
    QCOMPARE(divided(rules, "a \"b\nc\" d"), QString("..ss|ss..|"));
}

// Each ends where it begins and begins the other.
void tst_regions::regionsThatFollowEachOtherInPlace_end()
{
    const CHighlightRules rules =
        rulesOf("<region start='a' end='(?=.)' next='p'/><region name='p' end='(?=.)' next='q'/>"
                "<region name='q' end='(?=.)' next='p'/>");
    QCOMPARE(divided(rules, "abc"), QString("...|"));
}

void tst_regions::tooDeepRegion_doesNotBegin()
{
    const CHighlightRules rules =
        rulesOf("<region start='\\(' end='\\)' nests='\\(' lines='many' as='string'/>");
    SHighlightLine line;
    rules.highlight(QString(100000, '('), -1, &line);
    const int nState = line.nState;
    rules.highlight(QString(100000, '('), nState, &line);
    QCOMPARE(line.nState, nState);
}

void tst_regions::state_dependsOnTheStackAlone()
{
    const QString strRegions =
        "<region start='&lt;&lt;' key='\\w+' end='^%1$' nextline='true' as='string'/>";
    const CHighlightRules one = rulesOf(strRegions);
    const CHighlightRules other = rulesOf(strRegions);
    SHighlightLine first;
    SHighlightLine second;
    one.highlight("<<A", -1, &first);
    one.highlight("<<B", -1, &first);
    other.highlight("<<B", -1, &second);
    QVERIFY(first.nState > 0);
    QCOMPARE(first.nState, second.nState);
}

void tst_regions::foreignState_isTheTextOutsideOfAllRegions()
{
    const CHighlightRules rules = rulesOf("<region start='#' as='comment'/>");
    SHighlightLine line;
    rules.highlight("a #b", 123456789, &line);
    QCOMPARE(line.nState & ~63, 0);
    QCOMPARE(int(line.lstRanges.size()), 1);
}

QTEST_GUILESS_MAIN(tst_regions)
#include "tst_regions.moc"
